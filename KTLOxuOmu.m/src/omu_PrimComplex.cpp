#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeAdapter.h>
#include <cls_WriteVisitor.h>
#include <cmath>
#include <omu_NumberText.h>
#include <omu_PrimComplex.h>
#include <omu_PrimVisitor.h>

namespace
{
constexpr char KIND = 'x';
// Stored order: append only. A retired field keeps its index.
enum Field { REAL, IMAGINARY };
constexpr cls_FieldHandle FIELDS[] = {{REAL, "real"}, {IMAGINARY, "imaginary"}};
constexpr unsigned LAYOUT_RELEASE = 800;
}

void omu_PrimComplex::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta =
        registrar.Create("omu_PrimComplex", TypeId(), LAYOUT_RELEASE,
                         cls_TypeAdapter<omu_PrimComplex>::Instance(), omu_Primitive::TypeId());
    meta.AddAttribute(FIELDS[REAL], cls_AttributeType::DOUBLE, cls_UniversalRoot, cls_CollectionType::SINGLE);
    meta.AddAttribute(FIELDS[IMAGINARY], cls_AttributeType::DOUBLE, cls_UniversalRoot,
                      cls_CollectionType::SINGLE);
}

omu_PrimComplex::omu_PrimComplex(const omi_complex& value) : omu_Primitive(KIND), m_Value(value) {}

omu_PrimComplex::omu_PrimComplex(const cls_ReadVisitor& reader) : omu_Primitive(reader.BaseReader())
{
    SetType(KIND);
    double real = 0.0;
    double imaginary = 0.0;
    reader.ReadDouble(FIELDS[REAL], real);
    reader.ReadDouble(FIELDS[IMAGINARY], imaginary);
    m_Value = omi_complex(real, imaginary);
}

atr_String omu_PrimComplex::TypeString() const
{
    return "complex";
}

cow_String omu_PrimComplex::AsString(int) const
{
    char text[2 * omu_NumberText::SIZE + 4];
    char* end = text;
    // Only +0.0: a real part of -0.0 shows its sign.
    const bool isImaginary = m_Value.Real() == 0.0 && !std::signbit(m_Value.Real());
    if (!isImaginary)
    {
        *end++ = '(';
        end = omu_NumberText::General(m_Value.Real(), end);
        if (!std::signbit(m_Value.Imag()))
            *end++ = '+';
    }
    end = omu_NumberText::General(m_Value.Imag(), end);
    *end++ = 'j';
    if (!isImaginary)
        *end++ = ')';
    return cow_String(text, static_cast<std::size_t>(end - text));
}

bool omu_PrimComplex::operator==(const omu_Primitive& other) const
{
    const auto* complex = dynamic_cast<const omu_PrimComplex*>(&other);
    return complex != nullptr && m_Value == complex->m_Value;
}

void omu_PrimComplex::Accept(omu_PrimVisitor* visitor)
{
    visitor->VisitComplex(*this);
}

omu_PrimComplex* omu_PrimComplex::Copy() const
{
    return new omu_PrimComplex(*this);
}

unsigned omu_PrimComplex::DynTypeId() const
{
    return TypeId();
}

void omu_PrimComplex::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Uid()))
        return;
    omu_Primitive::DBWrite(writer.BaseWriter());
    writer.WriteDouble(FIELDS[REAL], m_Value.Real());
    writer.WriteDouble(FIELDS[IMAGINARY], m_Value.Imag());
}
