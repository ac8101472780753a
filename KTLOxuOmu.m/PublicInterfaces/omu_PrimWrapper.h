#pragma once

#include <cow_COW.h>
#include <omu_PrimDictionary.h>

/// An object of the application wrapped as a plain value, kind "<": the object's type code, the object
/// itself, and the members that were read from it.
///
/// The object is looked at, never owned: whoever wraps it keeps it alive as long as the wrapper and its
/// copies may be asked for it. It is not stored and reads as null. Copies share the members copy-on-write.
/// Two wrappers are equal with the same type code and equal members, unless both know their object and the
/// two differ.
class OXU_EXPORT omu_PrimWrapper : public omu_Primitive
{
public:
    using Members = omu_PrimDictionary<cow_String>;

    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 30); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    /// Null wraps no object.
    explicit omu_PrimWrapper(int objectType = 0, const omu_Primitive* object = nullptr,
                             const Members& members = Members());
    explicit omu_PrimWrapper(const cls_ReadVisitor& reader);

    /// The application's code for the type of the object; 0 where none was given.
    int ObjectType() const { return m_ObjectType; }
    /// Null when there is none.
    const omu_Primitive* Object() const { return m_Object; }
    const Members& MemberDictionary() const { return m_Members.ConstGet(); }

    /// The object's scripting type name; "wrapper" without an object.
    atr_String TypeString() const override;
    /// "<Part object>", or "<Part object named P1>" when the members hold a non-empty text "name".
    cow_String AsString(int nesting) const override;
    bool operator==(const omu_Primitive& other) const override;
    void Accept(omu_PrimVisitor* visitor) override;
    omu_PrimWrapper* Copy() const override;
    unsigned DynTypeId() const override;
    void DBWrite(const cls_WriteVisitor& writer) const override;

private:
    int m_ObjectType = 0;
    const omu_Primitive* m_Object = nullptr;
    cow_COW<Members> m_Members;
};
