#include <KTLBasException.h>
#include <cstdio>
#include <omu_DictIntObj.h>
#include <omu_PrimList.h>

omu_DictIntObj::omu_DictIntObj(const omu_Shortcut& shortcut, omu_OperationRules rules,
                               omu_PythonType pythonType)
    : omu_InterfaceObj(shortcut, rules, pythonType)
{}

omu_DictIntObj::omu_DictIntObj(omu_OperationRules rules, omu_PythonType pythonType)
    : omu_DictIntObj(omu_Shortcut(), rules, pythonType)
{}

cow_String omu_DictIntObj::EntryText(const cow_String& key, const omu_Primitive* value) const
{
    if (value == nullptr)
    {
        std::fprintf(stderr, "dictionary object %s, key %s: val == 0, type=%s\n", PathOrDefault().AsCharPtr(),
                     key.AsCharPtr(), TypeString().AsCharPtr());
        return UNKNOWN_VALUE;
    }
    try
    {
        return ReprOf(value);
    }
    catch (const KTLBasException& failure)
    {
        std::fprintf(stderr, "dictionary object %s, key %s, AsString(0): val->AsString failed, type=%s: %s\n",
                     PathOrDefault().AsCharPtr(), key.AsCharPtr(), value->TypeString().AsCharPtr(),
                     failure.UserReport().AsCharPtr());
        return UNKNOWN_VALUE;
    }
}

void omu_DictIntObj::ReportSubscript(const cow_String& key, const cow_String& message) const
{
    std::fprintf(stderr, "dictionary object %s, key %s: Subscript(%s) failed: %s\n",
                 PathOrDefault().AsCharPtr(), key.AsCharPtr(), key.AsCharPtr(), message.AsCharPtr());
}

bool omu_DictIntObj::FitsKeys(const omu_PrimList& values, int keys) const
{
    if (values.Length() == keys)
        return true;
    std::fprintf(stderr, "dictionary object %s: %d Length != keyList->Length:%d\n",
                 PathOrDefault().AsCharPtr(), values.Length(), keys);
    return false;
}
