#pragma once

#include <cow_Map.h>
#include <cow_String.h>
#include <omi_Singleton.h>
#include <oxu_Export.h>

class omu_SymbolicConstantData;
struct omu_EnumEntry;

/// The names of all symbolic constants; a name's id is its place in the table. One id serves a name in every
/// enumeration that has it. Id 0 is "_UNSPECIFIED".
///
/// One a process: omi_Singleton<omu_SymbolicConstantTable>::Instance() makes it on first use, the Omu
/// module's stop destroys it, and the next one starts anew. In its life no name is removed and no id reused.
/// A front end that makes constants in the scripting language constructs a derived table.
///
/// Diagnostics go to the standard error stream and stop nothing. Not locked: for the scripting thread.
class OXU_EXPORT omu_SymbolicConstantTable : public omi_Singleton<omu_SymbolicConstantTable>
{
public:
    omu_SymbolicConstantTable();
    virtual ~omu_SymbolicConstantTable();

    /// Appends a name and returns its id. A name that is there is told and keeps its id; an empty one is
    /// told, is not registered, and gives 0.
    unsigned int AddString(cow_String key);
    /// Registers a constant that carries an id, quietly when its name is there. The id given back is the
    /// table's, which need not be the constant's; 0 for a constant without a name.
    unsigned int AddSCD(omu_SymbolicConstantData constant);
    /// Registers the names of an enumeration's table that are not there yet.
    void AddNames(const omu_EnumEntry* table);

    /// Raises the out-of-range error, after telling it, for an id that is not below Size().
    const cow_String& GetString(unsigned int id) const;
    /// An unknown name is told and gives 0.
    unsigned int GetId(cow_String key) const;
    bool IsMember(const cow_String& key) const { return ids_.IsMember(key); }
    unsigned int Size() const { return static_cast<unsigned int>(ids_.Length()); }

    /// Whether the whole name is capital letters, digits and underscores, and does not begin with a digit.
    static bool IsValidSymConstName(const cow_String& name);

    /// The table for reading, a line for each name.
    cow_String AsString() const;

    /// Makes the constant in the scripting language. Here nothing: it tells that it ignores the request.
    virtual void CreatePythonSymbolicConstant(cow_String name, int id);

private:
    unsigned int Append(const cow_String& key);

    cow_Map<cow_String, unsigned int> ids_; // in the order of the ids
};
