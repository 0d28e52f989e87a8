#pragma once

#include <set>
#include <string>

/// Notes the names of files that are opened while it lives, by whatever code of the process but the dynamic linker. A
/// program that links it has its own open in front of the C library's. One lives at a time.
class filewatch {
public:
    filewatch();
    ~filewatch();
    filewatch(const filewatch&) = delete;
    filewatch& operator=(const filewatch&) = delete;

    const std::set<std::string>& opened() const { return names; }

private:
    std::set<std::string> names;
};
