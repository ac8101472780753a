// The table of symbolic constants: ids, and every line that it tells on the standard error stream.

#include <cstdio>
#include <cstdlib>
#include <nex_RangeException.h>
#include <omu_EnvSwitches.h>
#include <omu_SymbolicConstantData.h>
#include <omu_SymbolicConstantTable.h>
#include <testing/ChildTrace.h>
#include <testing/ValueTesting.h>
#include <unistd.h>

namespace
{
/// A fresh table for each test, and what it tells.
class SymbolicConstants : public testing::Test
{
protected:
    SymbolicConstants()
    {
        omu_SymbolicConstantTable::Destroy();
        table_ = &omu_SymbolicConstantTable::Instance();
    }
    ~SymbolicConstants() override { omu_SymbolicConstantTable::Destroy(); }

    static std::string Pid()
    {
        char text[16];
        std::snprintf(text, sizeof text, "%X", static_cast<unsigned>(getpid()));
        return text;
    }
    // What the operation tells, with "PID" for the process id.
    template <class F>
    static std::string ToldBy(F operation)
    {
        testing::internal::CaptureStderr();
        operation();
        std::string told = testing::internal::GetCapturedStderr();
        for (std::size_t at = told.find(Pid() + "\n"); at != told.npos; at = told.find(Pid() + "\n"))
            told.replace(at, Pid().size(), "PID");
        return told;
    }
    static std::string ToldByData(const char* name, unsigned id, unsigned wanted, bool script = false)
    {
        return ToldBy([&] { EXPECT_EQ(omu_SymbolicConstantData(name, id, script).getId(), wanted); });
    }

    omu_SymbolicConstantTable* table_ = nullptr;
};

TEST_F(SymbolicConstants, IdIsThePlace)
{
    EXPECT_EQ(ToldBy([&] {
                  EXPECT_EQ(table_->AddString("ON"), 1u);
                  EXPECT_EQ(table_->AddString("CENTER"), 2u);
              }),
              "");
    EXPECT_EQ(ToldBy([&] { EXPECT_EQ(table_->AddString("ON"), 1u); }),
              "omu_SymbolicConstantTable::AddString(ON) name already in table: 1/3  pid=PID\n");
    EXPECT_EQ(ToldBy([&] { EXPECT_EQ(table_->AddString("_UNSPECIFIED"), 0u); }),
              "omu_SymbolicConstantTable::AddString(_UNSPECIFIED) name already in table: 0/3  pid=PID\n");
    EXPECT_EQ(ToldBy([&] { EXPECT_EQ(table_->AddString(""), 0u); }),
              "omu_SymbolicConstantTable::AddString(key=) key is EMPTY  pid=PID\n");
    EXPECT_EQ(table_->GetString(2), "CENTER");
    EXPECT_EQ(table_->GetId("CENTER"), 2u);
    EXPECT_EQ(ToldBy([&] { EXPECT_EQ(table_->GetId("OFF"), 0u); }),
              "omu_SymbolicConstantTable::GetId(key=OFF)  id>Size (3<4294967295)\n");
    EXPECT_EQ(ToldBy([&] {
                  EXPECT_ERROR(table_->GetString(3), "nex_RangeException: index 3 out of range, length 3");
              }),
              "omu_SymbolicConstantTable::GetString(3)  id>Size (3)  PID\n");
    EXPECT_EQ(ToldBy([&] { EXPECT_EQ(table_->AddSCD(omu_SymbolicConstantData(2)), 2u); }), "");
    EXPECT_EQ(table_->Size(), 3u) << "a constant that is there keeps its id";
    // A letter O above and a zero below, on purpose; no name is too long for its line.
    const std::string longName(200, 'X');
    table_->AddString(cow_String(longName));
    EXPECT_EQ(table_->AsString(),
              cow_String("CONTENTS of omu_SymbolicConstantTable  pid:Ox" + Pid() +
                         "\n    0   _UNSPECIFIED\n    1   ON\n    2   CENTER\n    3   " + longName +
                         "\n--------------------omu------------ pid:0x" + Pid() + "\n"));
    omu_SymbolicConstantTable::Destroy();
    EXPECT_EQ(omu_SymbolicConstantTable::Instance().Size(), 1u);
    EXPECT_FALSE(omu_SymbolicConstantTable::Instance().IsMember("ON"));
}

TEST(SymbolicConstantName, IsOfCapitalsUnderscoresAndDigits)
{
    for (const char* name : {"SOLID", "_", "_X1", "C3D8R", "A", "AZ_09"})
        EXPECT_TRUE(omu_SymbolicConstantTable::IsValidSymConstName(name)) << name;
    for (const cow_String& name : {cow_String(""), cow_String("1X"), cow_String("SOLId"), cow_String("sOLID"),
                                   cow_String("A B"), cow_String("SOLID\n"), cow_String("A\0", 2),
                                   cow_String("A-B"), cow_String("A@"), cow_String("A["), cow_String("A`")})
        EXPECT_FALSE(omu_SymbolicConstantTable::IsValidSymConstName(name)) << name;
}

TEST_F(SymbolicConstants, DataTellsWhatIsOdd)
{
    EXPECT_EQ(ToldByData("ON", 1, 1), "omu_SymbolicConstantData(ON, 1) _id is not 0\n");
    EXPECT_EQ(ToldByData("ON", 1, 1), "");
    EXPECT_EQ(ToldByData("ON", 7, 1), "omu_SymbolicConstantData(ON, 7) id (7) != idSCD (1)\n");
    // Also when 0 was asked for, which only "_UNSPECIFIED" has; on purpose.
    EXPECT_EQ(ToldByData("ON", 0, 1), "omu_SymbolicConstantData(ON, 0) id (0) != idSCD (1)\n");
    EXPECT_EQ(ToldByData("_UNSPECIFIED", 0, 0), "");
    EXPECT_EQ(ToldByData("OFF", 9, 2), "omu_SymbolicConstantData(OFF, 9) _id is not 0\n"
                                       "omu_SymbolicConstantData(OFF, 9) id (9) != idSCD (2)\n");
    EXPECT_EQ(ToldByData("on", 0, 3), "omu_SymbolicConstantData(on, 0) Name is invalid\n"
                                      "omu_SymbolicConstantData(on, 0) id (0) != idSCD (3)\n");
    EXPECT_TRUE(table_->IsMember("on")) << "registered all the same";
    EXPECT_EQ(ToldByData("", 0, 0), "omu_SymbolicConstantData(, 0) Name is invalid\n"
                                    "omu_SymbolicConstantData::getText() text is EMPTY\n");
    EXPECT_EQ(ToldByData("ON", 1, 1, true),
              "omu_SymbolicConstantTable::CreatePythonSymbolicConstant('ON', 1) ignored\n");
    EXPECT_EQ(omu_SymbolicConstantData(1).getText(), "ON");
    EXPECT_EQ(ToldBy([] { EXPECT_EQ(omu_SymbolicConstantData(4).getText(), ""); }),
              "omu_SymbolicConstantData(4) id > Size (4)\n"
              "omu_SymbolicConstantData::getText() text is EMPTY\n");
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
    EXPECT_EQ(ToldByData("_UNSPECIFIED", 0, 0, true), "");
    EXPECT_EQ(kernel.made, "_UNSPECIFIED=0 ");
}

// Setting it now is too late.
TEST_F(SymbolicConstants, SwitchIsReadWhenTheLibraryIsLoaded)
{
    ASSERT_FALSE(omu_EnvSwitches::TraceSymbolicConstants()) << omu_EnvSwitches::DBG_SYMCONST << " is set";
    setenv(omu_EnvSwitches::DBG_SYMCONST, "1", 1);
    EXPECT_EQ(ToldBy([&] { table_->AddString("ON"); }), "");
    unsetenv(omu_EnvSwitches::DBG_SYMCONST);
}

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

void RegisterTwo(const std::string& pid)
{
    std::fprintf(stderr, "%s\n", pid.c_str());
    omu_SymbolicConstantTable::Destroy();
    omu_SymbolicConstantTable::Instance().AddString("ON");
    omu_SymbolicConstantData("ON", 1, false);
    omu_SymbolicConstantData("OFF", 0, true);
    std::_Exit(0);
}

using SymbolicConstantTraceDeathTest = SymbolicConstants;

TEST_F(SymbolicConstantTraceDeathTest, TellsEveryRegistration)
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
    for (const char* value : {"1", ""}) // set means present, also when empty
    {
        const orvex_testing::ChildSwitch childSwitch(omu_EnvSwitches::DBG_SYMCONST, value);
        EXPECT_EXIT(RegisterTwo(Pid()), testing::ExitedWithCode(0),
                    testing::ResultOf(WithoutPid, testing::Eq(wanted)));
    }
}
}
