#pragma once

#include <omu_Primitive.h>

class omu_PrimEnumBase;

/// A text, kind "s". Copies share it copy-on-write.
///
/// Two strings are equal when they agree up to the first zero byte; Value() == Value() compares the whole.
class OXU_EXPORT omu_PrimString : public omu_Primitive
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 24); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    explicit omu_PrimString(const cow_String& text = cow_String());
    explicit omu_PrimString(const char* text) : omu_PrimString(cow_String(text)) {}
    /// The number's text, as omu_PrimNumber writes it.
    explicit omu_PrimString(int number);
    explicit omu_PrimString(unsigned int number);
    explicit omu_PrimString(double number);
    /// The constant's name.
    explicit omu_PrimString(const omu_PrimEnumBase& constant);
    explicit omu_PrimString(const cls_ReadVisitor& reader);

    /// Appends the other's text to this one.
    void Concat(const omu_PrimString& other);

    int Length() const { return m_Value.Length(); }
    /// One byte; an index outside 0 .. Length() - 1 raises the out-of-range error.
    char operator[](int index) const { return m_Value[index]; }
    /// Ends in a zero byte and is never null; valid until this string changes.
    const char* AsCharPtr() const { return m_Value.AsCharPtr(); }
    const cow_String& Value() const { return m_Value; }

    /// The bytes from `from` up to but not including `to`; both ends are clamped to 0 .. Length().
    omu_PrimString Slice(int from, int to) const;
    /// The text so many times over, empty for a count below 1. A result longer than 2147483647 bytes raises
    /// omu_OverflowErrorException.
    omu_PrimString Repeat(int count) const;

    /// A text as the scripting language writes it: in single quotes, or in double quotes when it holds single
    /// but no double ones; backslashes doubled, newlines as \n, single quotes escaped where they would close.
    /// Every other byte stays as it is.
    static cow_String Quoted(const cow_String& text);

    atr_String TypeString() const override;
    /// Quoted(Value()).
    cow_String AsString(int nesting) const override;
    bool operator==(const omu_Primitive& other) const override;
    void Accept(omu_PrimVisitor* visitor) override;
    omu_PrimString* Copy() const override;
    unsigned DynTypeId() const override;
    void DBWrite(const cls_WriteVisitor& writer) const override;

private:
    static constexpr auto Fields();

    cow_String m_Value;
};
