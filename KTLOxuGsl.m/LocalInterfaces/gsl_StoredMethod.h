#pragma once

#include <cls_ReadVisitor.h>
#include <cls_WriteVisitor.h>
#include <omu_PrimEnum.h>

/// Stores a definition method by its name.
template <class Method>
void gsl_WriteMethod(const cls_WriteVisitor& writer, const cls_FieldHandle& field, Method method)
{
    writer.WriteEnum(field, omu_PrimEnum<Method, 1>(method).GetString());
}

/// Reads a definition method; a name that the enumeration lacks raises omu_ValueErrorException.
template <class Method>
void gsl_ReadMethod(const cls_ReadVisitor& reader, const cls_FieldHandle& field, Method& method)
{
    cow_String name;
    if (reader.ReadEnum(field, name))
    {
        method = omu_PrimEnum<Method, 1>(name);
    }
}
