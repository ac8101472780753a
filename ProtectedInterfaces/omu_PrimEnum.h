#pragma once

#include <omu_PrimEnumBase.h>

/// The symbolic constants of the enumeration E, bound to their names by one static table.
///
/// N tells instances with the same E apart and means nothing else. For each instance the enumeration's owner
/// declares the table beside E and defines it in a source file:
///
///     template <>
///     const omu_EnumEntry omu_PrimEnum<annC_LineStyleEnm, 1>::table[];
///
/// The table's order is the order in which names are offered; values need not ascend. A name or value that
/// the table lacks raises omu_ValueErrorException, naming what was given and, but for one route, what is
/// allowed. An instance has no type id and no metadata of its own: it is stored as omu_PrimEnumBase.
template <class E, int N>
class OXU_EXPORT omu_PrimEnum : public omu_PrimEnumBase
{
public:
    static const omu_EnumEntry table[];

    /// The first constant of the table.
    omu_PrimEnum() : omu_PrimEnumBase(cow_String(table[0].name)) {}
    /// Takes E alone: no integer, and for the boolean constants no pointer, turns into a member by itself.
    template <std::same_as<E> Value>
    explicit omu_PrimEnum(Value value)
    {
        const omu_EnumEntry* entry = FindEntry(table, static_cast<int>(value));
        if (entry == nullptr)
            RaiseNotAllowed("omu_PrimEnum(Enum) - Enum value not allowed: %d  Permissible: %s",
                            static_cast<int>(value), __LINE__);
        SetValue(entry->name);
    }
    explicit omu_PrimEnum(const cow_String& name) { SetValue(Require(name, FROM_TEXT, __LINE__).name); }
    /// A constant of another enumeration, or of an unknown one, by its name.
    explicit omu_PrimEnum(const omu_PrimEnumBase& other)
    {
        SetValue(Require(other.GetString(), "omu_PrimEnum(const omu_PrimEnumBase&) - str not allowed: %s",
                         __LINE__)
                     .name);
    }
    explicit omu_PrimEnum(const cls_ReadVisitor& reader) : omu_PrimEnumBase(reader)
    {
        Require(GetString(), "omu_PrimEnum(const cls_ReadVisitor&) - str not allowed: %s  Permissible: %s",
                __LINE__);
    }

    /// The value. A foreign name, set without a check, is refused like one given to the constructor.
    operator E() const { return static_cast<E>(Require(GetString(), FROM_TEXT, __LINE__).value); }

    omu_PrimEnum* Copy() const override { return new omu_PrimEnum(*this); }
    cow_Map<cow_String, unsigned> PermissibleValues() const override
    {
        static const cow_Map<cow_String, unsigned> names = MapOf(table);
        return names;
    }

    /// The value of a name and the name of a value, as by an object made for it, which it spares.
    static E ValueOf(const cow_String& name)
    {
        const omu_EnumEntry* entry = FindEntry(table, name);
        return entry != nullptr ? static_cast<E>(entry->value) : static_cast<E>(omu_PrimEnum(name));
    }
    static cow_String NameOf(E value)
    {
        const omu_EnumEntry* entry = FindEntry(table, static_cast<int>(value));
        return entry != nullptr ? cow_String(entry->name) : omu_PrimEnum(value).GetString();
    }

private:
    static constexpr const char* FROM_TEXT =
        "omu_PrimEnum(const cow_String&) - str not allowed: %s  Permissible: %s";

    const omu_EnumEntry& Require(const cow_String& name, const char* messageTemplate, int line) const
    {
        const omu_EnumEntry* entry = FindEntry(table, name);
        if (entry == nullptr)
            RaiseNotAllowed(messageTemplate, name, line);
        return *entry;
    }
};
