#include "hostflavour.h"

const hostflavour* flavourFor(int apiVersion)
{
    if (apiVersion == hostflavour8().apiVersion)
        return &hostflavour8();
    if (apiVersion == hostflavour26().apiVersion)
        return &hostflavour26();
    return nullptr;
}
