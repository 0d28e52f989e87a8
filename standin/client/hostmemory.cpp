#include "hostmemory.h"

#include <cstdlib>
#include <cstring>

namespace {

template <typename Entry, typename Given> void copyList(Entry* target, const QVector<Given>& entries)
{
    for (const Given entry : entries)
        *target++ = Entry(entry);
    *target = 0;
}

} // namespace

hostmemory::~hostmemory()
{
    for (void* memory : qAsConst(handedOut))
        std::free(memory);
}

char* hostmemory::text(const QByteArray& bytes)
{
    const std::size_t length = std::size_t(bytes.size());
    auto* const copy = static_cast<char*>(take(length + 1));
    std::memcpy(copy, bytes.constData(), length);
    copy[length] = '\0';
    return copy;
}

anyID* hostmemory::list(const QVector<quint16>& entries)
{
    auto* const copy = static_cast<anyID*>(take(std::size_t(entries.size() + 1) * sizeof(anyID)));
    copyList(copy, entries);
    return copy;
}

uint64* hostmemory::list(const QVector<quint64>& entries)
{
    auto* const copy = static_cast<uint64*>(take(std::size_t(entries.size() + 1) * sizeof(uint64)));
    copyList(copy, entries);
    return copy;
}

bool hostmemory::release(void* memory)
{
    if (!handedOut.remove(memory)) {
        ++wrong;
        return false;
    }
    std::free(memory);
    return true;
}

void* hostmemory::take(std::size_t bytes)
{
    void* const memory = std::malloc(bytes);
    handedOut.insert(memory);
    return memory;
}
