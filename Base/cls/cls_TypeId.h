#pragma once

/// The type id that a class without a registered parent gives as its parent.
inline constexpr unsigned cls_UniversalRoot = 1;

/// Component id in the high 16 bits, index in the component's table in the low 16 bits.
constexpr unsigned cls_MakeTypeId(unsigned component, unsigned index)
{
    return (component << 16) | (index & 0xFFFFu);
}

/// The two halves of a type id.
constexpr unsigned short cls_ComponentOf(unsigned typeId)
{
    return static_cast<unsigned short>(typeId >> 16);
}
constexpr unsigned short cls_IndexOf(unsigned typeId)
{
    return static_cast<unsigned short>(typeId & 0xFFFFu);
}

/// What attributes that hold a list or a map give as their type id.
inline constexpr unsigned cls_ListTypeId = cls_MakeTypeId(0x23, 1);
inline constexpr unsigned cls_MapTypeId = cls_MakeTypeId(0x23, 2);
