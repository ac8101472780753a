#pragma once

#include <omu_SymbolicConstantTable.h>

/// The table of symbolic constants of a process that runs Python: what an enumeration asks to be made in the
/// scripting language becomes an attribute of the module `orvex`.
class scr_ConstantTable : public omu_SymbolicConstantTable
{
public:
    void CreatePythonSymbolicConstant(cow_String name, int id) override;
};
