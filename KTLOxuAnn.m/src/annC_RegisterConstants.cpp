#include <annC_Enumerations.h>
#include <annC_RegisterConstants.h>
#include <omu_SymbolicConstantTable.h>

void annC_RegisterConstants()
{
    omu_SymbolicConstantTable& constants = omu_SymbolicConstantTable::Instance();
    for (const omu_EnumEntry* table :
         {omu_PrimEnum<annC_RelativePositionEnm, 1>::table, omu_PrimEnum<annC_ArrowHeadStyleEnm, 1>::table,
          omu_PrimEnum<annC_LineThicknessEnm, 1>::table, omu_PrimEnum<annC_LineStyleEnm, 1>::table,
          omu_PrimEnum<annC_BackgroundStyleEnm, 1>::table, omu_PrimEnum<annC_JustificationEnm, 1>::table})
        constants.AddNames(table);
}
