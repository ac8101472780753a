#include <algorithm>
#include <charconv>
#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>
#include <cmath>
#include <limits>
#include <omu_NumberText.h>
#include <omu_RangeErrorException.h>
#include <oxu_FormatMessage.h>
#include <string>
#include <string_view>
#include <uti_NumberText.h>

namespace
{
constexpr cls_Fields
    FIELDS(cls_Field{"m_Keyword", &omu_RangeErrorException::m_Keyword},
           cls_Field{"m_KeywordType", &omu_RangeErrorException::m_KeywordType},
           cls_Field{"m_LowerLimitAsString", &omu_RangeErrorException::m_LowerLimitAsString},
           cls_Field{"m_LowerLimitQualifier", &omu_RangeErrorException::m_LowerLimitQualifier},
           cls_Field{"m_HigherLimitAsString", &omu_RangeErrorException::m_HigherLimitAsString},
           cls_Field{"m_HigherLimitQualifier", &omu_RangeErrorException::m_HigherLimitQualifier});
constexpr unsigned LAYOUT_RELEASE = 800;

bool IsQualifier(int code)
{
    return code >= omu_RangeErrorException::NO_LIMIT && code <= omu_RangeErrorException::EXCLUSIVE;
}

// The scripting language's text has 15 digits, which turn some doubles into another on reading back, the
// largest even into infinity.
cow_String LimitText(double limit)
{
    char text[omu_NumberText::SIZE];
    char* end = omu_NumberText::Float(limit, text);
    const double back = uti_ReadDouble(std::string_view(text, static_cast<std::size_t>(end - text)));
    if (back != limit && !std::isnan(limit))
    {
        end = std::to_chars(text, text + sizeof text, limit, std::chars_format::general,
                            std::numeric_limits<double>::max_digits10)
                  .ptr;
        if (std::none_of(text, end, [](char c) { return c == '.' || c == 'e'; }))
            end = std::copy_n(".0", 2, end);
    }
    return cow_String(text, static_cast<std::size_t>(end - text));
}
}

void omu_RangeErrorException::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    FIELDS.Declare(registrar.Create("omu_RangeErrorException", TypeId(), LAYOUT_RELEASE,
                                    cls_TypeAdapter<omu_RangeErrorException>::Instance(),
                                    nex_CommandException::TypeId()));
}

omu_RangeErrorException::omu_RangeErrorException(const cls_ReadVisitor& reader)
    : nex_CommandException(reader.BaseReader())
{
    FIELDS.Read(reader, *this);
}

void omu_RangeErrorException::Propagate() const
{
    throw *this;
}

omu_RangeErrorException* omu_RangeErrorException::Copy() const
{
    return new omu_RangeErrorException(*this);
}

void omu_RangeErrorException::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Identifier()))
        return;
    nex_CommandException::DBWrite(writer.BaseWriter());
    FIELDS.Write(writer, *this);
}

void omu_RangeErrorException::SetLowerLimitAsInt(int limit)
{
    m_LowerLimitAsString = cow_String(std::to_string(limit));
}

void omu_RangeErrorException::SetLowerLimitAsDouble(double limit)
{
    m_LowerLimitAsString = LimitText(limit);
}

void omu_RangeErrorException::SetHigherLimitAsInt(int limit)
{
    m_HigherLimitAsString = cow_String(std::to_string(limit));
}

void omu_RangeErrorException::SetHigherLimitAsDouble(double limit)
{
    m_HigherLimitAsString = LimitText(limit);
}

int omu_RangeErrorException::LowerLimitAsInt() const
{
    return uti_ReadInt(m_LowerLimitAsString.AsCharPtr());
}

double omu_RangeErrorException::LowerLimitAsDouble() const
{
    return uti_ReadDouble(m_LowerLimitAsString.AsCharPtr());
}

int omu_RangeErrorException::HigherLimitAsInt() const
{
    return uti_ReadInt(m_HigherLimitAsString.AsCharPtr());
}

double omu_RangeErrorException::HigherLimitAsDouble() const
{
    return uti_ReadDouble(m_HigherLimitAsString.AsCharPtr());
}

cow_String omu_RangeErrorException::JournalMessage() const
{
    cow_String message = Beginning();
    const int lower = m_LowerLimitQualifier;
    const int higher = m_HigherLimitQualifier;
    if (!IsQualifier(lower) || !IsQualifier(higher))
        return message;
    if (lower == NO_LIMIT)
    {
        if (higher != NO_LIMIT)
            message += oxu_FormatMessage("%s%s", higher == INCLUSIVE ? "<= " : "< ", m_HigherLimitAsString);
    }
    else if (higher != NO_LIMIT)
        message += oxu_FormatMessage("in the range: %s%s%s%s%s", m_LowerLimitAsString,
                                     lower == INCLUSIVE ? " <= " : " < ", m_Keyword,
                                     higher == INCLUSIVE ? " <= " : " < ", m_HigherLimitAsString);
    else
        message += oxu_FormatMessage("%s%s", lower == INCLUSIVE ? ">= " : "> ", m_LowerLimitAsString);
    return message;
}

cow_String omu_RangeErrorException::Beginning() const
{
    switch (m_KeywordType)
    {
    case INTEGER:
        return oxu_FormatMessage("%s must be an Integer ", m_Keyword);
    case FLOATING_POINT:
        return oxu_FormatMessage("%s must be a Float ", m_Keyword);
    default:
        return oxu_FormatMessage("%s must be ", m_Keyword);
    }
}
