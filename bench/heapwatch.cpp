#include "heapwatch.h"

#include <atomic>
#include <cerrno>
#include <cstddef>

#include <malloc.h>

namespace {

std::atomic<bool> watching{false};
std::atomic<long long> held{0};
std::atomic<long long> highest{0};

void* taken(void* memory)
{
    if (memory && watching) {
        const long long now = held += static_cast<long long>(malloc_usable_size(memory));
        long long before = highest;
        while (now > before && !highest.compare_exchange_weak(before, now)) { }
    }
    return memory;
}

void given(void* memory)
{
    if (memory && watching)
        held -= static_cast<long long>(malloc_usable_size(memory));
}

} // namespace

// The C library calls these from everywhere when a program defines them, and keeps its own under the longer names.
// Seen by the libraries, which the settings of the build would hide them from.
#pragma GCC visibility push(default)
extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* memory);

void* malloc(std::size_t size) { return taken(__libc_malloc(size)); }

void* calloc(std::size_t count, std::size_t size) { return taken(__libc_calloc(count, size)); }

void* realloc(void* memory, std::size_t size)
{
    given(memory);
    return taken(__libc_realloc(memory, size));
}

void* memalign(std::size_t alignment, std::size_t size) { return taken(__libc_memalign(alignment, size)); }

void* aligned_alloc(std::size_t alignment, std::size_t size) { return taken(__libc_memalign(alignment, size)); }

int posix_memalign(void** memory, std::size_t alignment, std::size_t size)
{
    *memory = taken(__libc_memalign(alignment, size));
    return *memory ? 0 : ENOMEM;
}

void free(void* memory)
{
    given(memory);
    __libc_free(memory);
}

} // extern "C"
#pragma GCC visibility pop

heapwatch::heapwatch()
{
    held = 0;
    highest = 0;
    watching = true;
}

heapwatch::~heapwatch() { watching = false; }

long long heapwatch::most() const { return highest; }
