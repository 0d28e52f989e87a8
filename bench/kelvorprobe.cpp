#include "filewatch.h"
#include "heapwatch.h"
#include "row.h"
#include "threadtime.h"

#include <QApplication>

#include <algorithm>
#include <cstdio>
#include <string>

// Runs one contender of one row in a process of its own: kelvorprobe instructions|heap|seconds|files ROW CONTENDER

/// The one call that callgrind counts; its name is told there.
extern "C" [[gnu::noinline]] void countedWork(const std::function<void()>& work) { work(); }

namespace {

void prepare(const contender& each)
{
    if (each.prepare)
        each.prepare();
}

void countInstructions(const contender& each)
{
    // The first call binds functions and fills caches.
    prepare(each);
    each.work();
    prepare(each);
    countedWork(each.work);
    // callgrind tells; without it around the process there is nothing to tell.
    std::puts("instructions: 0");
}

void measureHeap(const contender& each)
{
    prepare(each);
    const heapwatch watch;
    each.work();
    std::printf("heap: %lld\n", watch.most());
}

void measureSeconds(const contender& each)
{
    prepare(each);
    const double start = threadSeconds();
    each.work();
    std::printf("seconds: %.9f\n", threadSeconds() - start);
}

bool isSettings(const std::string& path)
{
    const std::string name = "/kelvor.conf";
    return path.size() >= name.size() && path.compare(path.size() - name.size(), name.size(), name) == 0;
}

void countFiles(const contender& each)
{
    prepare(each);
    const filewatch watch;
    each.work();
    // The settings are read whenever the library starts: without them the watch is blind.
    if (std::none_of(watch.opened().begin(), watch.opened().end(), isSettings))
        qFatal("no settings were opened");
    int others = 0;
    for (const std::string& path : watch.opened()) {
        if (isSettings(path))
            continue;
        std::printf("opened %s\n", path.c_str());
        ++others;
    }
    std::printf("files: %d\n", others);
}

int usage(const char* reason)
{
    std::fprintf(stderr, "%s\nusage: kelvorprobe instructions|heap|seconds|files ROW CONTENDER\n", reason);
    return 2;
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    if (argc != 4)
        return usage("three words are wanted");
    const row* measured = rowNamed(argv[2]);
    if (!measured)
        return usage("no such row");
    const std::vector<contender> all = measured->make();
    const auto chosen =
        std::find_if(all.begin(), all.end(), [argv](const contender& each) { return each.name == argv[3]; });
    if (chosen == all.end())
        return usage("no such contender");
    const std::string word = argv[1];
    if (word == "instructions")
        countInstructions(*chosen);
    else if (word == "heap")
        measureHeap(*chosen);
    else if (word == "seconds")
        measureSeconds(*chosen);
    else if (word == "files")
        countFiles(*chosen);
    else
        return usage("no such quantity");
    return 0;
}
