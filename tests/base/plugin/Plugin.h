#pragma once

#include <omi_Singleton.h>
#include <thr_ThreadSingleton.h>

#define PLUGIN_EXPORT __attribute__((visibility("default")))

/// Singletons that a second shared library knows too, hidden in both on purpose: they must be single all
/// the same.
class PluginGlobal : public omi_Singleton<PluginGlobal>
{
public:
    int value = 1;
};

class PluginLocal : public thr_ThreadSingleton<PluginLocal, 2>
{
public:
    int value = 1;
};

/// What the second library sees.
PLUGIN_EXPORT PluginGlobal* Plugin_Global();
PLUGIN_EXPORT PluginLocal* Plugin_Local();
