// Names of objects, jobs and models.

#include <omu_OrvexName.h>
#include <testing/ValueTesting.h>

namespace
{
std::string Checked(const std::string& text, omu_OrvexName::FormEnm form)
{
    return Outcome([&] { return std::string(omu_OrvexName(cow_String(text), form).Value().View()); });
}

// Euro signs, in three bytes each.
std::string Euros(int count)
{
    return count == 0 ? "" : "\xE2\x82\xAC" + Euros(count - 1);
}

TEST(OrvexName, IsCheckedInEveryForm)
{
    using enum omu_OrvexName::FormEnm;
    for (const std::string& name : {std::string("_Part-1#"), Euros(80), std::string("\xF4\x8F\xBF\xBF")})
        for (const auto form : {OBJECT, MODEL, JOB})
            EXPECT_EQ(Checked(name, form), name);
    EXPECT_EQ(Checked("1st of", OBJECT), "1st of");
    EXPECT_EQ(Checked("1st", JOB), "OrvexNameError: invalid job name");
    EXPECT_EQ(Checked("", JOB), "OrvexNameError: name is empty");
    EXPECT_EQ(Checked("a ", MODEL), "OrvexNameError: invalid model name");
    const std::string notUtf8[] = {"a\x80",     "\xC0\xAF",     "a\xE2\x82",
                                   "\xE2\x82x", "\xED\xA0\x80", "\xF4\x90\x80\x80"};
    for (const std::string& text : notUtf8)
        EXPECT_EQ(Checked(text, OBJECT), "OrvexNameError: invalid name");
    EXPECT_EQ(Checked(Euros(81), OBJECT), "OrvexNameError: invalid name");
}

TEST(OrvexName, RefusesEveryForbiddenCharacter)
{
    const std::string forbidden = "$&*~!()[]{}|;'\",.?/\\<>=+:@^%`";
    for (int byte = 0; byte < 0x80; ++byte)
    {
        const std::string c(1, static_cast<char>(byte));
        const bool allowed = byte >= ' ' && byte != 0x7F && forbidden.find(c) == std::string::npos;
        EXPECT_EQ(omu_OrvexName::IsValid(cow_String("a" + c + "b")), allowed) << byte;
        const bool first = allowed && (std::isalnum(byte) != 0 || c == "_");
        EXPECT_EQ(omu_OrvexName::IsValid(cow_String(c + "b")), first) << byte;
    }
}
}
