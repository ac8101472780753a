// Names of objects, jobs and models.

#include <omu_OrvexName.h>
#include <testing/ValueTesting.h>

namespace
{
using FormEnm = omu_OrvexName::FormEnm;

struct Row : NamedRow
{
    std::string text;
    bool object; // a name in the object form, and in the model form, which is the same
    bool job;
};
using Name = testing::TestWithParam<Row>;

TEST_P(Name, IsCheckedInEveryForm)
{
    const cow_String text(GetParam().text);
    const auto outcome = [&](FormEnm form) {
        return Outcome([&] { return std::string(omu_OrvexName(text, form).Value().View()); });
    };
    const auto wanted = [&](bool valid, const char* message) {
        return valid            ? GetParam().text
               : text.IsEmpty() ? "OrvexNameError: name is empty"
                                : std::string("OrvexNameError: ") + message;
    };
    EXPECT_EQ(outcome(FormEnm::OBJECT), wanted(GetParam().object, "invalid name"));
    EXPECT_EQ(outcome(FormEnm::MODEL), wanted(GetParam().object, "invalid model name"));
    EXPECT_EQ(outcome(FormEnm::JOB), wanted(GetParam().job, "invalid job name"));
}

// In three bytes each.
std::string Euros(int count)
{
    std::string euros;
    for (int i = 0; i < count; ++i)
        euros += "\xE2\x82\xAC";
    return euros;
}

INSTANTIATE_ROWS(Name, Row{"Plain", "_Part-1#", true, true}, Row{"Empty", "", false, false},
                 Row{"Digit", "1st", true, false}, Row{"BlankInside", "a b", true, false},
                 Row{"TrailingBlank", "a ", false, false}, Row{"Zero", std::string("a\0b", 3), false, false},
                 Row{"Eighty", Euros(80), true, true}, Row{"EightyOne", Euros(81), false, false},
                 Row{"LoneContinuation", "a\x80", false, false}, Row{"Overlong", "\xC0\xAF", false, false},
                 Row{"Cut", "a\xE2\x82", false, false}, Row{"CutByAscii", "\xE2\x82x", false, false},
                 Row{"Surrogate", "\xED\xA0\x80", false, false},
                 Row{"BeyondUnicode", "\xF4\x90\x80\x80", false, false},
                 Row{"LastCodePoint", "\xF4\x8F\xBF\xBF", true, true}, Row{"Latin1", "\xE4x", false, false});

TEST(OrvexName, RefusesEveryForbiddenCharacter)
{
    const std::string forbidden = "$&*~!()[]{}|;'\",.?/\\<>=+:@^%`";
    for (int byte = 1; byte < 0x80; ++byte)
    {
        const char c = static_cast<char>(byte);
        const bool allowed = byte >= ' ' && byte != 0x7F && forbidden.find(c) == std::string::npos;
        EXPECT_EQ(omu_OrvexName::IsValid(cow_String(std::string("a") + c + "b")), allowed) << byte;
        const bool first = allowed && (std::isalnum(byte) != 0 || c == '_');
        EXPECT_EQ(omu_OrvexName::IsValid(cow_String(std::string(1, c) + "b")), first) << byte;
    }
}
}
