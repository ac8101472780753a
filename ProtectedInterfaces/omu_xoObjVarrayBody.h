#pragma once

// The members of omu_xoObjVarray, for the one source file that instantiates an array class. Using it needs
// omu_xoObjVarray.h alone.

#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeAdapter.h>
#include <cls_TypeId.h>
#include <cls_WriteVisitor.h>
#include <omu_xoObjVarray.h>

template <class T>
void omu_xoObjVarray<T>::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta =
        registrar.Create(Traits::NAME, TypeId(), LAYOUT_RELEASE, cls_TypeAdapter<omu_xoObjVarray>::Instance(),
                         cls_UniversalRoot);
    meta.AddAttribute(ITEMS, cls_AttributeType::OBJECT, cls_ListTypeId, cls_CollectionType::LIST_OBJ);
}

template <class T>
omu_xoObjVarray<T>::omu_xoObjVarray(const cls_ReadVisitor& reader) : omu_Varray(reader)
{
    reader.ReadObjectList(ITEMS, m_Items);
}

template <class T>
void omu_xoObjVarray<T>::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Uid()))
        return;
    writer.WriteObjectList(ITEMS, m_Items);
}
