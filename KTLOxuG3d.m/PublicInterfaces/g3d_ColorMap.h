#pragma once

#include <cow_List.h>
#include <cow_Map.h>
#include <cow_String.h>
#include <g3d_Color.h>
#include <omi_Singleton.h>
#include <oxu_Export.h>

/// The named colours of the process: the default ones, which cannot be redefined, and those that the user
/// adds. Names are compared exactly, case included.
class OXU_EXPORT g3d_ColorMap : public omi_Singleton<g3d_ColorMap>
{
public:
    /// With the default colours.
    g3d_ColorMap();

    /// Fills the default map afresh; user colours stay.
    void InitDefaultDict();
    /// Adds or replaces a user colour, opaque; false, and no change, when the name is a default colour.
    [[nodiscard]] bool AddByRGB(const cow_String& name, float red, float green, float blue);
    /// Adds or replaces a default colour, opaque. A user colour of that name goes on shadowing it.
    void AddDefaultColor(const cow_String& name, float red, float green, float blue);
    /// Removes a user colour; false when there is none of that name.
    [[nodiscard]] bool Remove(const cow_String& name);

    /// The colour of that name, user colours before default ones. A name that begins with "#" is read by
    /// g3d_Color::Set and never refused. Raises g3d_ColorErrorException for an unknown name.
    g3d_Color ConstGet(const cow_String& name) const;
    /// Among the users' or the default ones; "#RRGGBB" is no member.
    bool IsMember(const cow_String& name) const;
    bool IsUserColor(const cow_String& name) const;
    bool IsDefaultColor(const cow_String& name) const;
    /// Default colours, then user colours, each in the order of their insertion.
    cow_List<cow_String> Keys() const;
    /// How many Keys() has.
    int Length() const;

private:
    cow_Map<cow_String, g3d_Color> defaults_;
    cow_Map<cow_String, g3d_Color> users_;
};
