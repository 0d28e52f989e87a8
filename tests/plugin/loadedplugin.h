#pragma once

#include "hostapi/ts3functions.h"

#include <functional>

/// The library as the voice client holds it: opened by file name, reached through its exported functions alone.
class loadedplugin {
public:
    /// Maps the library and hands it the table; ends the process when a name is missing, since no test can go on then.
    explicit loadedplugin(const TS3Functions& table);
    ~loadedplugin();
    loadedplugin(const loadedplugin&) = delete;
    loadedplugin& operator=(const loadedplugin&) = delete;

    void init();
    void shutdown();
    /// Unmaps the library and tells whether it is gone from the process.
    bool unload();

    /// A message of a peer, as the wire has it.
    void receive(uint64 schid, const char* text) const;
    int command(uint64 schid, const char* text) const;
    void configure() const;
    void transferStatus(anyID transfer, unsigned int status, uint64 left, uint64 schid) const;
    void fileList(uint64 schid, uint64 channel, const char* path, const char* name, uint64 size, int type) const;

private:
    template <typename Function> Function* find(const char* name) const;

    void* handle = nullptr;
};
