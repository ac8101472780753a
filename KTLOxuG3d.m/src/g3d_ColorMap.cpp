#include <g3d_ColorErrorException.h>
#include <g3d_ColorMap.h>
#include <g3d_DefaultColors.h>
#include <nex_RaiseWith.h>

g3d_ColorMap::g3d_ColorMap()
{
    InitDefaultDict();
}

void g3d_ColorMap::InitDefaultDict()
{
    cow_Map<cow_String, g3d_Color> colors;
    for (const g3d_DefaultColor& color : g3d_DefaultColors)
        colors.Insert(color.name, {color.red, color.green, color.blue});
    defaults_ = colors;
}

bool g3d_ColorMap::AddByRGB(const cow_String& name, float red, float green, float blue)
{
    if (IsDefaultColor(name))
        return false;
    users_.Insert(name, {red, green, blue});
    return true;
}

void g3d_ColorMap::AddDefaultColor(const cow_String& name, float red, float green, float blue)
{
    defaults_.Insert(name, {red, green, blue});
}

bool g3d_ColorMap::Remove(const cow_String& name)
{
    return users_.Remove(name);
}

g3d_Color g3d_ColorMap::ConstGet(const cow_String& name) const
{
    if (name.View().starts_with('#'))
        return {name, 1.0f};
    if (const g3d_Color* color = users_.Find(name))
        return *color;
    if (const g3d_Color* color = defaults_.Find(name))
        return *color;
    nex_Raise(g3d_ColorErrorException(name), "KTLOxuG3d.m/src/g3d_ColorMap", __LINE__);
}

bool g3d_ColorMap::IsMember(const cow_String& name) const
{
    return IsUserColor(name) || IsDefaultColor(name);
}

bool g3d_ColorMap::IsUserColor(const cow_String& name) const
{
    return users_.IsMember(name);
}

bool g3d_ColorMap::IsDefaultColor(const cow_String& name) const
{
    return defaults_.IsMember(name);
}

cow_List<cow_String> g3d_ColorMap::Keys() const
{
    cow_List<cow_String> keys = defaults_.Keys();
    for (const auto& [name, color] : users_)
        keys.Append(name);
    return keys;
}

int g3d_ColorMap::Length() const
{
    return defaults_.Length() + users_.Length();
}
