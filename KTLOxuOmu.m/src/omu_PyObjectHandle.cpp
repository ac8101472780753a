#include <omu_PrimList.h>
#include <omu_PrimNumber.h>
#include <omu_PyObjectHandle.h>

atr_String omu_PyObjectHandle::TypeName() const
{
    const omu_PyObjectOps* ops = Ops();
    return ops != nullptr ? atr_String(ops->TypeName(m_Object.get())) : atr_String("scripting object");
}

cow_String omu_PyObjectHandle::Repr() const
{
    const omu_PyObjectOps* ops = Ops();
    return ops != nullptr ? ops->Repr(m_Object.get()) : cow_String("<scripting object>");
}

int omu_PyObjectHandle::Length() const
{
    const omu_PyObjectOps* ops = Ops();
    return ops != nullptr ? ops->Length(m_Object.get()) : 0;
}

omu_Primitive* omu_PyObjectHandle::Item(const omu_Primitive& key) const
{
    const omu_PyObjectOps* ops = Ops();
    return ops != nullptr ? ops->Item(m_Object.get(), key) : nullptr;
}

omu_PrimList omu_PyObjectHandle::AsList() const
{
    omu_PrimList items;
    const int length = Length();
    for (int i = 0; i < length; ++i)
        items.Put(Item(omu_PrimNumber(i)));
    return items;
}

bool operator==(const omu_PyObjectHandle& a, const omu_PyObjectHandle& b)
{
    if (a.m_Object == b.m_Object)
        return true;
    const omu_PyObjectOps* ops = a.Ops();
    return ops != nullptr && !b.IsNull() && ops->Equal(a.m_Object.get(), b.m_Object.get());
}

const omu_PyObjectOps* omu_PyObjectHandle::Ops() const noexcept
{
    return m_Object != nullptr ? omu_PyObjectOps::Installed() : nullptr;
}
