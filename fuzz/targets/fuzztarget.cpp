#include "fuzztarget.h"

#include "dispatchtarget.h"
#include "payloadtarget.h"
#include "picturetarget.h"
#include "settingstarget.h"

std::unique_ptr<fuzztarget> makeTarget(const QByteArray& name)
{
    if (name == "dispatch")
        return std::make_unique<dispatchtarget>();
    if (name == "payloads")
        return std::make_unique<payloadtarget>();
    if (name == "settings")
        return std::make_unique<settingstarget>();
    if (name == "pictures")
        return std::make_unique<picturetarget>();
    return nullptr;
}
