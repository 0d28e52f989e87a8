#include "filewatch.h"

#include <cstdarg>
#include <cstdio>

#include <dlfcn.h>
#include <fcntl.h>

namespace {

std::set<std::string>* noted = nullptr;

void note(const char* path)
{
    if (noted && path)
        noted->insert(path);
}

template <typename Function> Function* next(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

/// The mode that follows the flags when a file may be made.
template <typename Flags> mode_t modeOf(Flags flags, va_list& list)
{
    return (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE ? va_arg(list, mode_t) : 0;
}

} // namespace

// Under both names, since the toolkit is built for large files and others need not be.
// Seen by the libraries, which the settings of the build would hide them from.
#pragma GCC visibility push(default)
extern "C" {

int open(const char* path, int flags, ...)
{
    va_list list;
    va_start(list, flags);
    const mode_t mode = modeOf(flags, list);
    va_end(list);
    note(path);
    return next<int(const char*, int, mode_t)>("open")(path, flags, mode);
}

int open64(const char* path, int flags, ...)
{
    va_list list;
    va_start(list, flags);
    const mode_t mode = modeOf(flags, list);
    va_end(list);
    note(path);
    return next<int(const char*, int, mode_t)>("open64")(path, flags, mode);
}

FILE* fopen(const char* path, const char* mode)
{
    note(path);
    return next<FILE*(const char*, const char*)>("fopen")(path, mode);
}

FILE* fopen64(const char* path, const char* mode)
{
    note(path);
    return next<FILE*(const char*, const char*)>("fopen64")(path, mode);
}

} // extern "C"
#pragma GCC visibility pop

filewatch::filewatch() { noted = &names; }

filewatch::~filewatch() { noted = nullptr; }
