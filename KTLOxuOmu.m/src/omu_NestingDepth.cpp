#include <algorithm>
#include <nex_RaiseWith.h>
#include <omu_NestingDepth.h>
#include <omu_OverflowErrorException.h>
#include <omu_PrimDictionaryBase.h>
#include <omu_PrimTuple.h>
#include <omu_PrimWrapper.h>
#include <oxu_FormatMessage.h>

namespace
{
constexpr const char* TOO_DEEP = "values are nested too deep; maximum depth is %d";
}

int omu_NestingDepth::Of(const omu_Primitive* value)
{
    if (value == nullptr)
        return 0;
    if (value->IsType('('))
    {
        const auto* tuple = dynamic_cast<const omu_PrimTuple*>(value);
        return tuple != nullptr ? tuple->Depth() : 0;
    }
    if (value->IsType('{'))
    {
        const auto* dictionary = dynamic_cast<const omu_PrimDictionaryBase*>(value);
        return dictionary != nullptr ? dictionary->Depth() : 0;
    }
    if (value->IsType('<'))
    {
        const auto* wrapper = dynamic_cast<const omu_PrimWrapper*>(value);
        return wrapper != nullptr ? wrapper->MemberDictionary().Depth() + 1 : 0;
    }
    return 0;
}

int omu_NestingDepth::With(const omu_Primitive* item, int depth)
{
    const int deepest = std::max(depth, Of(item) + 1);
    if (deepest > LIMIT)
        nex_Raise(omu_OverflowErrorException(oxu_FormatMessage(TOO_DEEP, LIMIT)),
                  "KTLOxuOmu.m/src/omu_NestingDepth", __LINE__);
    return deepest;
}
