#pragma once

#include <cow_String.h>
#include <oxu_Export.h>

/// The name of an object of the application, valid by construction.
///
/// In every form a name is well-formed UTF-8 of 1 to 80 code points. It begins with an ASCII letter, a digit,
/// "_" or a character beyond ASCII, holds no control character and none of
/// $ & * ~ ! ( ) [ ] { } | ; ' " , . ? / \ < > = + : @ ^ % `, and has no blank at its end. The name of a job
/// holds no blank at all and does not begin with a digit.
class OXU_EXPORT omu_OrvexName
{
public:
    enum class FormEnm { OBJECT, JOB, MODEL };
    static constexpr int MAX_LENGTH = 80;

    /// No name yet, the empty text; waits for one of that form.
    explicit omu_OrvexName(FormEnm form = FormEnm::OBJECT) : m_Form(form) {}
    /// A text that is no such name raises omu_OrvNameErrorException: empty, invalid name, invalid job name or
    /// invalid model name.
    explicit omu_OrvexName(const cow_String& name, FormEnm form = FormEnm::OBJECT);

    const cow_String& Value() const { return m_Value; }
    FormEnm Form() const { return m_Form; }

    /// Whether the constructor takes this text.
    static bool IsValid(const cow_String& name, FormEnm form = FormEnm::OBJECT);

    /// The same text, whatever the form.
    friend bool operator==(const omu_OrvexName& a, const omu_OrvexName& b) { return a.m_Value == b.m_Value; }

private:
    cow_String m_Value;
    FormEnm m_Form;
};
