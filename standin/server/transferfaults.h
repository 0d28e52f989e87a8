#pragma once

#include <QString>
#include <QtGlobal>

#include <optional>

/// What the server does to file transfers, for tests.
struct transferfaults {
    unsigned int refusal = 0; ///< the error with which every transfer fails to start, 0 for none
    qint64 breakAfter = -1; ///< bytes after which a transfer breaks off, -1 for never
    qint64 sizeOff = 0; ///< bytes by which a download is longer (or shorter, below 0) than its listing says
};

/// Reads "none", "refuse:CODE" (decimal or 0x...), "break:BYTES", "longer:BYTES" or "shorter:BYTES".
std::optional<transferfaults> readTransferFaults(const QString& text);
