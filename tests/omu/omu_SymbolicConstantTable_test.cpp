// The table of symbolic constants: ids, and every line that it tells on the standard error stream.

#include <cstdio>
#include <omu_EnvSwitches.h>
#include <omu_SymbolicConstantData.h>
#include <omu_SymbolicConstantTable.h>
#include <regex>
#include <testing/ChildTrace.h>
#include <testing/ValueTesting.h>
#include <unistd.h>

namespace
{
std::string Pid()
{
    char text[16];
    std::snprintf(text, sizeof text, "%X", static_cast<unsigned>(getpid()));
    return text;
}

/// A fresh table for each test, and what it tells.
class SymbolicConstants : public testing::Test
{
protected:
    ~SymbolicConstants() override { omu_SymbolicConstantTable::Destroy(); }

    // With "PID" for the process id.
    template <class F>
    static std::string ToldBy(F operation)
    {
        return std::regex_replace(::ToldBy(operation), std::regex(Pid() + "\n"), "PID\n");
    }
    static std::string ToldByData(const char* name, unsigned id, unsigned wanted)
    {
        return ToldBy([&] { EXPECT_EQ(omu_SymbolicConstantData(name, id, false).getId(), wanted); });
    }
    std::string ToldByAdding(const char* name, unsigned wanted)
    {
        return ToldBy([&] { EXPECT_EQ(table_.AddString(name), wanted); });
    }

    omu_SymbolicConstantTable& table_ = omu_SymbolicConstantTable::Instance();
};

TEST_F(SymbolicConstants, IdIsThePlace)
{
    EXPECT_EQ(ToldByAdding("ON", 1), "");
    EXPECT_EQ(ToldByAdding("CENTER", 2), "");
    EXPECT_EQ(ToldByAdding("_UNSPECIFIED", 0),
              "omu_SymbolicConstantTable::AddString(_UNSPECIFIED) name already in table: 0/3  pid=PID\n");
    EXPECT_EQ(ToldByAdding("", 0), "omu_SymbolicConstantTable::AddString(key=) key is EMPTY  pid=PID\n");
    EXPECT_EQ(ToldBy([&] {
                  EXPECT_ERROR(table_.GetString(3), "nex_RangeException: index 3 out of range, length 3");
              }),
              "omu_SymbolicConstantTable::GetString(3)  id>Size (3)  PID\n");
    EXPECT_EQ(table_.AddSCD(omu_SymbolicConstantData(2)), 2u) << "a constant that is there keeps its id";
    // A letter O above and a zero below, on purpose.
    EXPECT_EQ(table_.AsString(), cow_String("CONTENTS of omu_SymbolicConstantTable  pid:Ox" + Pid() +
                                            "\n    0   _UNSPECIFIED\n    1   ON\n    2   CENTER\n"
                                            "--------------------omu------------ pid:0x" +
                                            Pid() + "\n"));
}

TEST(SymbolicConstantName, IsOfCapitalsUnderscoresAndDigits)
{
    EXPECT_TRUE(omu_SymbolicConstantTable::IsValidSymConstName("_AZ09"));
    for (const char* name : {"", "1X", "SOLId", "A\n", "A@", "A[", "A`"})
        EXPECT_FALSE(omu_SymbolicConstantTable::IsValidSymConstName(name)) << name;
}

TEST_F(SymbolicConstants, DataTellsWhatIsOdd)
{
    EXPECT_EQ(ToldByData("ON", 1, 1), "omu_SymbolicConstantData(ON, 1) _id is not 0\n");
    // Also when 0 was asked for, which only "_UNSPECIFIED" has; on purpose.
    EXPECT_EQ(ToldByData("ON", 0, 1), "omu_SymbolicConstantData(ON, 0) id (0) != idSCD (1)\n");
    EXPECT_EQ(ToldByData("on", 0, 2), "omu_SymbolicConstantData(on, 0) Name is invalid\n"
                                      "omu_SymbolicConstantData(on, 0) id (0) != idSCD (2)\n");
}

void Register()
{
    std::fprintf(stderr, "%s|", Pid().c_str());
    omu_SymbolicConstantTable::Destroy();
    omu_SymbolicConstantTable::Instance().AddString("ON");
    omu_SymbolicConstantData("OFF", 0, true);
}

// What stands behind the process id, with "PID" where lines begin with it.
std::string WithoutPid(const std::string& all)
{
    const std::size_t end = all.find('|');
    return std::regex_replace(all.substr(end + 1), std::regex(all.substr(0, end) + ":omu_"), "PID:omu_");
}

TEST(SymbolicConstantTraceDeathTest, TellsEveryRegistration)
{
    const char* const told = "PID:omu_SCTable::AddStr('ON') id:1\n"
                             "PID:omu_SymbolicConstantData(OFF, 0, true)\n"
                             "PID:omu_SCTable::AddSCD(scd) 'OFF' id:2  getId:0\n"
                             "omu_SymbolicConstantData(OFF, 0) id (0) != idSCD (2)\n"
                             "omu_SymbolicConstantTable::CreatePythonSymbolicConstant('OFF', 2) ignored\n"
                             "PID:omu_SymbolicConstantData(OFF, 0) -> id 2\n";
    EXPECT_CHILD_TRACE(omu_EnvSwitches::DBG_SYMCONST, "", Register(), // set means present, also when empty
                       testing::ResultOf(WithoutPid, testing::StrEq(told)));
}
}
