// One fuzz target as a program of libFuzzer; the build names the target.

#include "fuzz/targets/fuzztarget.h"

#include <QApplication>
#include <QHash>

#include <cstdint>

namespace {

fuzztarget* target = nullptr;

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    // Any display would slow the windows down, and a random order in hashes would make findings come and go.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qSetGlobalQHashSeed(0);
    static int count = 1;
    static char name[] = "fuzz";
    static char* arguments[] = {name, nullptr};
    // Neither is destroyed: when libFuzzer ends the process, the toolkit's statics go before anything of ours could.
    new QApplication(count, arguments);
    target = makeTarget(KELVOR_FUZZ_TARGET).release();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    target->run(QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size)));
    return 0;
}
