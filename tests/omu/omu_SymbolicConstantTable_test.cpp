#include <cstdio>
#include <cstdlib>
#include <limits>
#include <nex_RangeException.h>
#include <omu_EnvSwitches.h>
#include <omu_SymbolicConstantData.h>
#include <omu_SymbolicConstantTable.h>
#include <ostream>
#include <regex>
#include <string>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{
std::string Pid()
{
    char text[16];
    std::snprintf(text, sizeof text, "%X", static_cast<unsigned>(getpid()));
    return text;
}

/// A fresh table for each test, and what it tells on the standard error stream.
class SymbolicConstants : public testing::Test
{
protected:
    SymbolicConstants()
    {
        omu_SymbolicConstantTable::Destroy();
        table_ = &omu_SymbolicConstantTable::Instance();
    }
    ~SymbolicConstants() override { omu_SymbolicConstantTable::Destroy(); }

    template <class F>
    static std::string ToldBy(F operation)
    {
        testing::internal::CaptureStderr();
        operation();
        return testing::internal::GetCapturedStderr();
    }

    omu_SymbolicConstantTable* table_ = nullptr;
    const std::string pid_ = Pid();
};

TEST_F(SymbolicConstants, BeginWithUnspecified)
{
    EXPECT_EQ(table_->Size(), 1u);
    EXPECT_EQ(table_->GetString(0), "_UNSPECIFIED");
    EXPECT_EQ(table_->GetId("_UNSPECIFIED"), 0u);
    unsigned id = 99;
    EXPECT_EQ(ToldBy([&] { id = table_->AddString("_UNSPECIFIED"); }),
              "omu_SymbolicConstantTable::AddString(_UNSPECIFIED) name already in table: 0/1  pid=" + pid_ +
                  "\n");
    EXPECT_EQ(id, 0u);
}

TEST_F(SymbolicConstants, IdIsThePlace)
{
    EXPECT_EQ(ToldBy([&] {
                  EXPECT_EQ(table_->AddString("ON"), 1u);
                  EXPECT_EQ(table_->AddString("CENTER"), 2u);
              }),
              "");
    EXPECT_EQ(ToldBy([&] { EXPECT_EQ(table_->AddString("ON"), 1u); }),
              "omu_SymbolicConstantTable::AddString(ON) name already in table: 1/3  pid=" + pid_ + "\n");
    EXPECT_EQ(table_->GetString(2), "CENTER");
    EXPECT_EQ(table_->GetId("CENTER"), 2u);
    EXPECT_TRUE(table_->IsMember("ON"));
    EXPECT_EQ(table_->Size(), 3u);
}

TEST_F(SymbolicConstants, EmptyKeyIsNotRegistered)
{
    EXPECT_EQ(ToldBy([&] { EXPECT_EQ(table_->AddString(""), 0u); }),
              "omu_SymbolicConstantTable::AddString(key=) key is EMPTY  pid=" + pid_ + "\n");
    EXPECT_EQ(table_->Size(), 1u);
}

TEST_F(SymbolicConstants, IdBeyondTheTableIsToldAndRaised)
{
    EXPECT_EQ(ToldBy([&] { EXPECT_THROW(static_cast<void>(table_->GetString(1)), nex_RangeException); }),
              "omu_SymbolicConstantTable::GetString(1)  id>Size (1)  " + pid_ + "\n");
    EXPECT_EQ(
        ToldBy([&] { EXPECT_THROW(static_cast<void>(table_->GetString(4294967295u)), nex_RangeException); }),
        "omu_SymbolicConstantTable::GetString(4294967295)  id>Size (1)  " + pid_ + "\n");
}

TEST_F(SymbolicConstants, UnknownNameIsToldAndGivesZero)
{
    EXPECT_EQ(ToldBy([&] { EXPECT_EQ(table_->GetId("OFF"), 0u); }),
              "omu_SymbolicConstantTable::GetId(key=OFF)  id>Size (1<4294967295)\n");
}

TEST_F(SymbolicConstants, DumpHasALetterOAboveAndAZeroBelow)
{
    table_->AddString("ON");
    const std::string longName(200, 'X');
    table_->AddString(cow_String(longName));
    EXPECT_EQ(table_->AsString(), cow_String("CONTENTS of omu_SymbolicConstantTable  pid:Ox" + pid_ +
                                             "\n    0   _UNSPECIFIED\n    1   ON\n    2   " + longName +
                                             "\n--------------------omu------------ pid:0x" + pid_ + "\n"));
}

TEST_F(SymbolicConstants, HookIgnoresTheRequest)
{
    EXPECT_EQ(ToldBy([&] { table_->CreatePythonSymbolicConstant("ON", 3); }),
              "omu_SymbolicConstantTable::CreatePythonSymbolicConstant('ON', 3) ignored\n");
}

TEST_F(SymbolicConstants, ANewTableBeginsAnew)
{
    table_->AddString("ON");
    omu_SymbolicConstantTable::Destroy();
    EXPECT_EQ(omu_SymbolicConstantTable::Instance().Size(), 1u);
    EXPECT_FALSE(omu_SymbolicConstantTable::Instance().IsMember("ON"));
}

struct NameRow
{
    const char* name;
    cow_String text;
    bool valid;
};

void PrintTo(const NameRow& row, std::ostream* out)
{
    *out << row.name;
}

class SymbolicConstantName : public testing::TestWithParam<NameRow>
{};

TEST_P(SymbolicConstantName, MatchesTable)
{
    EXPECT_EQ(omu_SymbolicConstantTable::IsValidSymConstName(GetParam().text), GetParam().valid);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, SymbolicConstantName,
    testing::Values(NameRow{"Letters", "SOLID", true}, NameRow{"Underscore", "_", true},
                    NameRow{"UnderscoreFirst", "_X1", true}, NameRow{"Digits", "C3D8R", true},
                    NameRow{"OneLetter", "A", true}, NameRow{"Ends", "AZ_09", true},
                    NameRow{"Empty", "", false}, NameRow{"DigitFirst", "1X", false},
                    NameRow{"LowerCase", "SOLId", false}, NameRow{"LowerCaseFirst", "sOLID", false},
                    NameRow{"Blank", "A B", false}, NameRow{"TrailingNewline", "SOLID\n", false},
                    NameRow{"TrailingZeroByte", cow_String("A\0", 2), false}, NameRow{"Hyphen", "A-B", false},
                    NameRow{"BesideTheLetters", "A@", false}, NameRow{"BeyondTheLetters", "A[", false},
                    NameRow{"OtherAlphabet", "\xc3\x84", false}),
    [](const auto& row) { return row.param.name; });

TEST_F(SymbolicConstants, DataTakesTheTablesId)
{
    table_->AddString("ON");
    EXPECT_EQ(ToldBy([] {
                  const omu_SymbolicConstantData data("ON", 1, false);
                  EXPECT_EQ(data.getId(), 1u);
                  EXPECT_EQ(data.getText(), "ON");
              }),
              "");
}

// Also when 0 was asked for, which only "_UNSPECIFIED" has; on purpose.
TEST_F(SymbolicConstants, DataTellsAnotherId)
{
    EXPECT_EQ(ToldBy([] { EXPECT_EQ(omu_SymbolicConstantData("ON", 0, false).getId(), 1u); }),
              "omu_SymbolicConstantData(ON, 0) id (0) != idSCD (1)\n");
    EXPECT_EQ(ToldBy([] { EXPECT_EQ(omu_SymbolicConstantData("ON", 7, false).getId(), 1u); }),
              "omu_SymbolicConstantData(ON, 7) id (7) != idSCD (1)\n");
    EXPECT_EQ(ToldBy([] { EXPECT_EQ(omu_SymbolicConstantData("_UNSPECIFIED", 0, false).getId(), 0u); }), "");
}

TEST_F(SymbolicConstants, DataTellsAnIdOnItsFirstRegistration)
{
    EXPECT_EQ(ToldBy([] { EXPECT_EQ(omu_SymbolicConstantData("ON", 1, false).getId(), 1u); }),
              "omu_SymbolicConstantData(ON, 1) _id is not 0\n");
    EXPECT_EQ(ToldBy([] { EXPECT_EQ(omu_SymbolicConstantData("OFF", 9, false).getId(), 2u); }),
              "omu_SymbolicConstantData(OFF, 9) _id is not 0\n"
              "omu_SymbolicConstantData(OFF, 9) id (9) != idSCD (2)\n");
}

TEST_F(SymbolicConstants, DataTellsAnIllegalNameAndRegistersIt)
{
    EXPECT_EQ(ToldBy([] { EXPECT_EQ(omu_SymbolicConstantData("on", 0, false).getId(), 1u); }),
              "omu_SymbolicConstantData(on, 0) Name is invalid\n"
              "omu_SymbolicConstantData(on, 0) id (0) != idSCD (1)\n");
    EXPECT_TRUE(table_->IsMember("on"));
}

TEST_F(SymbolicConstants, DataWithoutANameIsNotRegistered)
{
    EXPECT_EQ(ToldBy([] { EXPECT_EQ(omu_SymbolicConstantData("", 0, false).getId(), 0u); }),
              "omu_SymbolicConstantData(, 0) Name is invalid\n"
              "omu_SymbolicConstantData::getText() text is EMPTY\n");
    EXPECT_EQ(table_->Size(), 1u);
}

TEST_F(SymbolicConstants, DataFromAnId)
{
    table_->AddString("ON");
    EXPECT_EQ(omu_SymbolicConstantData(1).getText(), "ON");
    EXPECT_EQ(ToldBy([] {
                  const omu_SymbolicConstantData beyond(2);
                  EXPECT_EQ(beyond.getId(), 2u);
                  EXPECT_EQ(beyond.getText(), "");
              }),
              "omu_SymbolicConstantData(2) id > Size (2)\n"
              "omu_SymbolicConstantData::getText() text is EMPTY\n");
}

TEST_F(SymbolicConstants, AddingDataKeepsThePresentId)
{
    table_->AddString("ON");
    table_->AddString("OFF");
    EXPECT_EQ(ToldBy([&] { EXPECT_EQ(table_->AddSCD(omu_SymbolicConstantData(2)), 2u); }), "");
    EXPECT_EQ(table_->Size(), 3u);
}

TEST_F(SymbolicConstants, ScriptHookIsCalledOnRequest)
{
    EXPECT_EQ(ToldBy([] { omu_SymbolicConstantData("ON", 0, true); }),
              "omu_SymbolicConstantData(ON, 0) id (0) != idSCD (1)\n"
              "omu_SymbolicConstantTable::CreatePythonSymbolicConstant('ON', 1) ignored\n");
}

/// What a scripting kernel puts in the table's place.
class RecordingTable : public omu_SymbolicConstantTable
{
public:
    void CreatePythonSymbolicConstant(cow_String name, int id) override
    {
        made += std::string(name.View()) + "=" + std::to_string(id) + " ";
    }

    std::string made;
};

TEST_F(SymbolicConstants, AKernelsTableTakesTheHook)
{
    RecordingTable kernel;
    EXPECT_EQ(ToldBy([] {
                  omu_SymbolicConstantData("_UNSPECIFIED", 0, true);
                  omu_SymbolicConstantData("ON", 0, false);
              }),
              "omu_SymbolicConstantData(ON, 0) id (0) != idSCD (1)\n");
    EXPECT_EQ(kernel.made, "_UNSPECIFIED=0 ");
    EXPECT_TRUE(kernel.IsMember("ON"));
}

TEST_F(SymbolicConstants, SilentWithoutTheSwitch)
{
    ASSERT_FALSE(omu_EnvSwitches::TraceSymbolicConstants()) << omu_EnvSwitches::DBG_SYMCONST << " is set";
    // Read when the library was loaded: setting it now is too late.
    setenv(omu_EnvSwitches::DBG_SYMCONST, "1", 1);
    EXPECT_FALSE(omu_EnvSwitches::TraceSymbolicConstants());
    EXPECT_EQ(ToldBy([&] { table_->AddString("ON"); }), "");
    unsetenv(omu_EnvSwitches::DBG_SYMCONST);
}

TEST(EnvSwitches, DirectionalDistanceIsReadAnew)
{
    unsetenv(omu_EnvSwitches::TRITRIDIRDIST_DEBUG);
    EXPECT_FALSE(omu_EnvSwitches::TraceDirectionalDistance());
    setenv(omu_EnvSwitches::TRITRIDIRDIST_DEBUG, "", 1);
    EXPECT_TRUE(omu_EnvSwitches::TraceDirectionalDistance());
    unsetenv(omu_EnvSwitches::TRITRIDIRDIST_DEBUG);
    EXPECT_FALSE(omu_EnvSwitches::TraceDirectionalDistance());
}

/// Runs the statement of a death test in a program of its own, started with the switch set to `value`.
class SymbolicConstantTraceDeathTest : public testing::TestWithParam<const char*>
{
protected:
    SymbolicConstantTraceDeathTest()
    {
        testing::FLAGS_gtest_death_test_style = "threadsafe";
        setenv(omu_EnvSwitches::DBG_SYMCONST, GetParam(), 1);
    }
    ~SymbolicConstantTraceDeathTest() override
    {
        unsetenv(omu_EnvSwitches::DBG_SYMCONST);
        testing::FLAGS_gtest_death_test_style = style_;
    }

private:
    const std::string style_ = testing::FLAGS_gtest_death_test_style;
};

// The first line is the child's process id by its own account; the lines that begin with it then read "PID".
std::string WithoutPid(const std::string& told)
{
    const std::size_t end = told.find('\n');
    std::string rest = told.substr(end + 1);
    const std::string prefix = told.substr(0, end) + ":omu_";
    for (std::size_t at = rest.find(prefix); at != std::string::npos; at = rest.find(prefix, at))
        rest.replace(at, prefix.size(), "PID:omu_");
    return rest;
}

TEST_P(SymbolicConstantTraceDeathTest, TellsEveryRegistration)
{
    const char* const wanted = "PID:omu_SCTable::AddStr('ON') id:1\n"
                               "PID:omu_SymbolicConstantData(ON, 1, false)\n"
                               "PID:omu_SCTable::AddSCD(scd) 'ON' id:1  getId:1\n"
                               "PID:omu_SymbolicConstantData(ON, 1) -> id 1\n"
                               "PID:omu_SymbolicConstantData(OFF, 0, true)\n"
                               "PID:omu_SCTable::AddSCD(scd) 'OFF' id:2  getId:0\n"
                               "omu_SymbolicConstantData(OFF, 0) id (0) != idSCD (2)\n"
                               "omu_SymbolicConstantTable::CreatePythonSymbolicConstant('OFF', 2) ignored\n"
                               "PID:omu_SymbolicConstantData(OFF, 0) -> id 2\n";
    EXPECT_EXIT(
        {
            std::fprintf(stderr, "%s\n", Pid().c_str());
            omu_SymbolicConstantTable::Destroy();
            omu_SymbolicConstantTable::Instance().AddString("ON");
            omu_SymbolicConstantData("ON", 1, false);
            omu_SymbolicConstantData("OFF", 0, true);
            std::_Exit(omu_EnvSwitches::TraceSymbolicConstants() ? 0 : 1);
        },
        testing::ExitedWithCode(0), testing::ResultOf(WithoutPid, testing::Eq(wanted)));
}

// Set means present, also when empty.
INSTANTIATE_TEST_SUITE_P(Switch, SymbolicConstantTraceDeathTest, testing::Values("1", "0", ""),
                         [](const auto& value) { return "Number" + std::to_string(value.index); });
}
