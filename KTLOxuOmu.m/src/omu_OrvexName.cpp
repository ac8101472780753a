#include <algorithm>
#include <nex_RaiseWith.h>
#include <omu_OrvNameErrorException.h>
#include <omu_OrvexName.h>
#include <omu_Utf8.h>

namespace
{
constexpr std::string_view FORBIDDEN = "$&*~!()[]{}|;'\",.?/\\<>=+:@^%`";

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool IsControl(char c)
{
    return (c >= '\0' && c < ' ') || c == '\x7F';
}

bool BeginsWell(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || IsDigit(c) || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

bool MayStandInside(char c)
{
    return !IsControl(c) && FORBIDDEN.find(c) == std::string_view::npos;
}

// What omu_OrvNameErrorException calls the fault.
int ErrorOf(const cow_String& name, omu_OrvexName::FormEnm form)
{
    if (name.IsEmpty())
        return 1;
    switch (form)
    {
    case omu_OrvexName::FormEnm::JOB:
        return 2;
    case omu_OrvexName::FormEnm::MODEL:
        return 3;
    default:
        return 0;
    }
}
}

omu_OrvexName::omu_OrvexName(const cow_String& name, FormEnm form) : m_Value(name), m_Form(form)
{
    if (IsValid(name, form))
        return;
    omu_OrvNameErrorException fault;
    fault.m_Error = ErrorOf(name, form);
    nex_Raise(fault, "KTLOxuOmu.m/src/omu_OrvexName", __LINE__);
}

bool omu_OrvexName::IsValid(const cow_String& name, FormEnm form)
{
    const std::string_view text = name.View();
    if (text.empty() || !BeginsWell(text.front()) || text.back() == ' ')
        return false;
    if (!std::all_of(text.begin(), text.end(), MayStandInside))
        return false;
    const int length = omu_Utf8::CountCodePoints(text);
    if (length < 0 || length > MAX_LENGTH)
        return false;
    return form != FormEnm::JOB || (!IsDigit(text.front()) && text.find(' ') == std::string_view::npos);
}
