#include <cls_ReadVisitor.h>
#include <omu_Varray.h>
#include <string>

omu_Varray::omu_Varray(const cls_ReadVisitor& reader) : uid_(reader.Uid()) {}

cow_String omu_Varray::AsString() const
{
    std::string text = "[";
    for (int i = 0; i < Length(); ++i)
    {
        if (i > 0)
            text += ", ";
        text.append(ItemAsString(i).View());
    }
    text += ']';
    return cow_String(text);
}
