#include <mdl_Enumerations.h>
#include <mdl_RegisterConstants.h>
#include <omu_SymbolicConstantTable.h>

void mdl_RegisterConstants()
{
    omu_SymbolicConstantTable& constants = omu_SymbolicConstantTable::Instance();
    for (const omu_EnumEntry* table : {omu_PrimEnum<mdl_PropAttributeStateEnm, 1>::table,
                                       omu_PrimEnum<mdl_PropagationStatusEnm, 1>::table})
        constants.AddNames(table);
}
