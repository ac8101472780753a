#include <omu_GetIrregular.h>
#include <omu_NestedReader.h>

template <class T>
bool omu_GetIrregular(omu_PrimTuple& arguments, cow_2DArray<T>& out)
{
    return omu_NestedReader::Get(arguments, out, &omu_NestedReader::IrregularRows<T>);
}

template <class T>
bool omu_GetIrregular(omu_Arguments& arguments, cow_2DArray<T>& out, const cow_String& keyword)
{
    return omu_NestedReader::Get(arguments, out, &omu_NestedReader::IrregularRows<T>, keyword);
}

template OXU_EXPORT bool omu_GetIrregular(omu_PrimTuple&, cow_2DArray<int>&);
template OXU_EXPORT bool omu_GetIrregular(omu_PrimTuple&, cow_2DArray<double>&);
template OXU_EXPORT bool omu_GetIrregular(omu_Arguments&, cow_2DArray<int>&, const cow_String&);
template OXU_EXPORT bool omu_GetIrregular(omu_Arguments&, cow_2DArray<double>&, const cow_String&);
