#pragma once

#include "hostapi/hosttypes.h"

#include <QString>

/// What the remote file dialog makes of the bare values of a directory's entries.
namespace filetexts {

/// A size in bytes as a whole number of the largest fitting unit, cut and not rounded: 1536 gives "1 KB".
QString sizeText(uint64 size);

/// Seconds since 1970 as local date and time.
QString dateText(uint64 datetime);

/// Whether the name's suffix is that of a picture format that the dialog lists; case does not matter.
bool isPicture(const QString& name);

} // namespace filetexts
