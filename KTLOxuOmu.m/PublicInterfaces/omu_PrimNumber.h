#pragma once

#include <cstdint>
#include <omu_PrimEnum.h>
#include <omu_Primitive.h>

/// A number: kind "i" for the integer data types, "f" for FLOAT and DOUBLE.
///
/// Every value stands in the double field, except one of type UINT, which stands in the unsigned field and
/// leaves the double 0. So UINT 5 does not equal INT 5, while 2 and 2.0 are equal: the data type is not
/// compared.
class OXU_EXPORT omu_PrimNumber : public omu_Primitive
{
public:
    /// What the number was given as. Objects hold the value, stored data the name: never renumber or rename.
    enum class DataTypeEnm { SCHAR = 0, SHORT = 1, INT = 2, FLOAT = 3, DOUBLE = 4, UINT = 5 };

    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x13, 22); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    explicit omu_PrimNumber(signed char value) : omu_PrimNumber(value, DataTypeEnm::SCHAR) {}
    explicit omu_PrimNumber(short value) : omu_PrimNumber(value, DataTypeEnm::SHORT) {}
    explicit omu_PrimNumber(int value) : omu_PrimNumber(value, DataTypeEnm::INT) {}
    explicit omu_PrimNumber(unsigned int value);
    explicit omu_PrimNumber(float value) : omu_PrimNumber(double{value}, DataTypeEnm::FLOAT) {}
    explicit omu_PrimNumber(double value) : omu_PrimNumber(value, DataTypeEnm::DOUBLE) {}
    /// The double as it is, whatever the type. For UINT it is truncated toward zero into the unsigned field,
    /// where what an unsigned 64-bit integer cannot hold becomes 0.
    omu_PrimNumber(double value, DataTypeEnm dataType);
    /// Reads every layout from release 800 on. Before 835 there was no unsigned field.
    explicit omu_PrimNumber(const cls_ReadVisitor& reader);

    DataTypeEnm DataType() const { return m_DataType; }
    /// The double field; 0 for UINT.
    double Value() const { return m_Value; }
    /// The unsigned field; 0 for every type but UINT.
    std::uint64_t UnsignedValue() const { return m_UValue; }
    /// The number, whichever field it stands in.
    double AsDouble() const;

    /// Writes the text of AsString at `out`, which has room for omu_NumberText::SIZE bytes; returns its end.
    /// No closing zero, no allocation.
    char* WriteText(char* out) const noexcept;

    /// "int" or "float".
    atr_String TypeString() const override;
    /// Integers through a conversion to 32 bits (4294967295 as INT prints -1), UINT in full, the others with
    /// 15 significant digits and always a point or an exponent. The same on every platform and in every
    /// locale.
    cow_String AsString(int nesting) const override;
    bool operator==(const omu_Primitive& other) const override;
    void Accept(omu_PrimVisitor* visitor) override;
    omu_PrimNumber* Copy() const override;
    unsigned DynTypeId() const override;
    void DBWrite(const cls_WriteVisitor& writer) const override;

private:
    double m_Value = 0.0;
    std::uint64_t m_UValue = 0;
    DataTypeEnm m_DataType;
};

template <>
const omu_EnumEntry omu_PrimEnum<omu_PrimNumber::DataTypeEnm, 1>::table[];
