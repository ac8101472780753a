#include "Plugin.h"

PluginGlobal* Plugin_Global()
{
    return &omi_Singleton<PluginGlobal>::Instance();
}

PluginLocal* Plugin_Local()
{
    return &thr_ThreadSingleton<PluginLocal>::Instance();
}
