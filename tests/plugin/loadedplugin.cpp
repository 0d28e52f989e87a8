#include "loadedplugin.h"

#include <QtGlobal>

#include <dlfcn.h>

loadedplugin::loadedplugin(const TS3Functions& table)
    : handle(dlopen(KELVOR_LIBRARY, RTLD_NOW | RTLD_LOCAL))
{
    if (!handle)
        qFatal("the library does not load: %s", dlerror());
    find<void(const TS3Functions)>("ts3plugin_setFunctionPointers")(table);
}

loadedplugin::~loadedplugin() { unload(); }

template <typename Function> Function* loadedplugin::find(const char* name) const
{
    void* symbol = dlsym(handle, name);
    if (!symbol)
        qFatal("the library lacks %s", name);
    return reinterpret_cast<Function*>(symbol);
}

void loadedplugin::init()
{
    find<int()>("ts3plugin_init")();
#if KELVOR_HOST_INTERFACE == 26
    find<void(const char*)>("ts3plugin_registerPluginID")("id");
#else
    find<void(const char*)>("ts3plugin_registerPluginCommandID")("id");
#endif
}

void loadedplugin::shutdown() { find<void()>("ts3plugin_shutdown")(); }

bool loadedplugin::unload()
{
    if (!handle)
        return true;
    dlclose(handle);
    handle = nullptr;
    void* still = dlopen(KELVOR_LIBRARY, RTLD_NOW | RTLD_NOLOAD);
    if (still)
        dlclose(still);
    return !still;
}

void loadedplugin::receive(uint64 schid, const char* text) const
{
#if KELVOR_HOST_INTERFACE == 26
    using handler = void(uint64, const char*, const char*, anyID, const char*, const char*);
    find<handler>("ts3plugin_onPluginCommandEvent")(schid, "kelvor", text, 0, "", "");
#else
    find<void(uint64, const char*, const char*)>("ts3plugin_onPluginCommandEvent")(schid, "kelvor", text);
#endif
}

int loadedplugin::command(uint64 schid, const char* text) const
{
    return find<int(uint64, const char*)>("ts3plugin_processCommand")(schid, text);
}

void loadedplugin::configure() const { find<void(void*, void*)>("ts3plugin_configure")(nullptr, nullptr); }

void loadedplugin::transferStatus(anyID transfer, unsigned int status, uint64 left, uint64 schid) const
{
    using handler = void(anyID, unsigned int, const char*, uint64, uint64);
    find<handler>("ts3plugin_onFileTransferStatusEvent")(transfer, status, "", left, schid);
}

void loadedplugin::fileList(uint64 schid, uint64 channel, const char* path, const char* name, uint64 size,
                            int type) const
{
    using handler = void(uint64, uint64, const char*, const char*, uint64, uint64, int, uint64, const char*);
    find<handler>("ts3plugin_onFileListEvent")(schid, channel, path, name, size, 0, type, 0, "");
}
