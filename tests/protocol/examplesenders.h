#pragma once

#include "hostapi/hosttypes.h"

#include <QVector>

/// Who says each of the exampleMessages().
inline QVector<anyID> exampleSenders()
{
    return {12, 34, 34, 34, 34, 12, 12, 12, 12, 12, 12, 12, 12, 12, 12, 12, 34, 12, 34, 12, 12, 12, 12, 12};
}
