#include "machine.h"

#include <QtGlobal>

#include <fstream>
#include <thread>

namespace {

std::string processor()
{
    std::ifstream file("/proc/cpuinfo");
    for (std::string line; std::getline(file, line);) {
        if (line.rfind("model name", 0) == 0)
            return line.substr(line.find(':') + 2);
    }
    return "unknown processor";
}

} // namespace

std::string machine::description()
{
    return processor() + ", " + std::to_string(std::thread::hardware_concurrency()) + " cores, compiler " + __VERSION__
        + ", Qt " + qVersion();
}
