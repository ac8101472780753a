#pragma once

#include <omu_PrimVisitor.h>
#include <omu_Primitive.h>
#include <omu_PyObjectHandle.h>
#include <oxu_Export.h>

class cls_WriteVisitor;

/// What the five wrappers of scripting objects have in common: a value of the kind of `Base` whose type name,
/// text and equality are those of the object that it holds. `Wrapper` is the class itself; it has a NAME.
///
/// Wrappers of one class are equal when their objects are. They have no metadata and are never stored.
template <class Wrapper, class Base>
class OXU_EXPORT omu_PyObjectWrapping : public Base
{
public:
    const omu_PyObjectHandle& Object() const { return m_Object; }

    atr_String TypeString() const override { return m_Object.TypeName(); }
    cow_String AsString(int) const override { return m_Object.Repr(); }
    bool operator==(const omu_Primitive& other) const override
    {
        const auto* wrapper = dynamic_cast<const Wrapper*>(&other);
        return wrapper != nullptr && m_Object == wrapper->m_Object;
    }
    void Accept(omu_PrimVisitor* visitor) override { visitor->VisitScriptObject(*this, m_Object); }
    Base* Copy() const override { return new Wrapper(static_cast<const Wrapper&>(*this)); }
    unsigned DynTypeId() const override { return Wrapper::TypeId(); }
    /// Raises nex_PrimException "<class> cannot be stored".
    void DBWrite(const cls_WriteVisitor&) const override { omu_Primitive::RefuseStoring(Wrapper::NAME); }

protected:
    template <class... Arguments>
    explicit omu_PyObjectWrapping(const omu_PyObjectHandle& object, Arguments... arguments)
        : Base(arguments...), m_Object(object)
    {}

private:
    omu_PyObjectHandle m_Object;
};
