// One fuzz target as a program of libFuzzer; the build names the target.

#include "fuzz/targets/fuzztarget.h"

#include <QApplication>
#include <QHash>

#include <cstdint>
#include <cstdlib>

namespace {

std::unique_ptr<fuzztarget> target;

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    // Any display would slow the windows down, and a random order in hashes would make findings come and go.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qSetGlobalQHashSeed(0);
    static int count = 1;
    static char name[] = "fuzz";
    static char* arguments[] = {name, nullptr};
    // Never destroyed: when the process ends, statics of the toolkit that it needs for that are gone already.
    new QApplication(count, arguments);
    target = makeTarget(KELVOR_FUZZ_TARGET);
    // Its windows need the toolkit to go.
    std::atexit([] { target.reset(); });
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    target->run(QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size)));
    return 0;
}
