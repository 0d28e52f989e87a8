#include "warningcount.h"

#include <QString>

#include <cstdio>

namespace {

int warnings = 0;

void countWarning(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    warnings += type == QtDebugMsg || type == QtInfoMsg ? 0 : 1;
    std::fprintf(stderr, "%s\n", qPrintable(message));
}

} // namespace

warningcount::warningcount()
    : former(qInstallMessageHandler(countWarning))
{
    warnings = 0;
}

warningcount::~warningcount() { qInstallMessageHandler(former); }

int warningcount::count() const { return warnings; }
