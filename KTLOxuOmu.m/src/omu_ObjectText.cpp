#include <omu_ItemReader.h>
#include <omu_ObjectText.h>

cow_String omu_ObjectText(const cow_String& typeName, const omu_Primitive* name)
{
    cow_String text = "<" + typeName + " object";
    cow_String held;
    if (name != nullptr && omu_ItemReader::Read(*name, held) && !held.IsEmpty())
        text += " named " + held;
    return text += ">";
}
