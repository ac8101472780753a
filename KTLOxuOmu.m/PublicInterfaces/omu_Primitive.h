#pragma once

#include <atr_String.h>
#include <cls_Persistent.h>
#include <cls_TypeId.h>
#include <cls_Uid.h>
#include <concepts>
#include <cow_String.h>
#include <oxu_Export.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;
class omu_PrimVisitor;

/// Root of every value that passes between the scripting language and the application's commands.
///
/// A value: whoever holds the pointer owns it. Its kind is a one-letter code, fixed by the concrete class:
/// "i" and "f" numbers, "s" string, "l" translated string, "b" Boolean, "n" None, "x" complex, "e"
/// expression, "t" type, "p" path, "E" exception, "c" symbolic constant, "(" sequence, "o" numeric array,
/// "{" dictionary, "<" wrapped interface object, "W" and "L" wrapped scripting object and list.
///
/// Every object has an identity of its own: each constructor makes a new one, copying and moving included,
/// reading takes the stored one, and assignment keeps it. Equality knows nothing of it.
class OXU_EXPORT omu_Primitive : public cls_Persistent
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 17); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    ~omu_Primitive() override;

    // The order of the virtual operations is part of the interface: derived classes append.

    /// Name of the kind in the scripting language ("int", "string"), as type errors show it.
    virtual atr_String TypeString() const;
    /// The value as the scripting language writes it. The nesting hint is ignored by every class here.
    virtual cow_String AsString(int nesting) const = 0;
    /// AsString(0), save for interface objects.
    virtual cow_String AsRepr() const;
    /// True for a value of the same kind that is equal; "i" and "f" count as one kind. Any other: false.
    virtual bool operator==(const omu_Primitive& other) const = 0;
    /// Calls the visitor's operation for the concrete class.
    virtual void Accept(omu_PrimVisitor* visitor) = 0;
    /// A new heap copy of the most derived object; the caller owns it.
    virtual omu_Primitive* Copy() const = 0;
    /// Type id of the most derived class that has one.
    virtual unsigned DynTypeId() const;
    /// A value whose class has no type id, an interface object, has no stored form: nex_PrimException "<type
    /// name> cannot be stored", so that what holds it is refused too and nothing unreadable is written.
    virtual void DBWrite(const cls_WriteVisitor& writer) const;

    bool operator!=(const omu_Primitive& other) const { return !(*this == other); }

    /// Whether `kind` is this value's kind code.
    bool IsType(char kind) const { return m_Type == kind; }
    /// Whether the class has this type id or descends from it, by the class registrar.
    bool IsA(unsigned typeId) const;
    const cls_Uid& Uid() const { return uid_; }

protected:
    explicit omu_Primitive(char kind) : m_Type(kind) {}
    explicit omu_Primitive(const cls_ReadVisitor& reader);
    omu_Primitive(const omu_Primitive& other) : cls_Persistent(other), m_Type(other.m_Type) {}
    omu_Primitive& operator=(const omu_Primitive& other)
    {
        m_Type = other.m_Type;
        return *this;
    }

    /// For reading constructors: data must not make an object of one class pass for another kind.
    void SetType(char kind) { m_Type = kind; }
    /// Raises nex_PrimException "<name> cannot be stored".
    [[noreturn]] static void RefuseStoring(const cow_String& name);
    /// How an operation is refused that a class does not have.
    static constexpr const char* ILLEGAL_OPERATION = "Error: Illegal operation for type.";
    /// The value as it is written inside another: its AsRepr, "None" for null.
    static cow_String ReprOf(const omu_Primitive* value);
    /// Equal values, or both null.
    static bool AreEqual(const omu_Primitive* a, const omu_Primitive* b);

private:
    static constexpr auto Fields();

    char m_Type;
    cls_Uid uid_;
};

/// Lets two values of concrete classes be compared in either order: each class overrides the member, which
/// alone would leave a comparison across classes ambiguous.
template <std::derived_from<omu_Primitive> A, std::derived_from<omu_Primitive> B>
bool operator==(const A& a, const B& b)
{
    return static_cast<const omu_Primitive&>(a).operator==(b);
}
