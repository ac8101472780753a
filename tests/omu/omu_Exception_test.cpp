// The scripting exceptions: their messages as whole texts, copying, rethrowing, and what is stored of them.
// Which class of Python each becomes is held from there.

#include <KTLOxuOmu.h>
#include <cls_ClassRegistrar.h>
#include <cls_MetadataRegistrar.h>
#include <cls_PersistentValue.h>
#include <omu_AccessErrorException.h>
#include <omu_ArgNumberErrorException.h>
#include <omu_ArgTypeErrorException.h>
#include <omu_AttributeErrorException.h>
#include <omu_FontErrorException.h>
#include <omu_GenericTypeErrorException.h>
#include <omu_GuiAccessErrorException.h>
#include <omu_IndexErrorException.h>
#include <omu_KeyErrorException.h>
#include <omu_KeywordErrorException.h>
#include <omu_KeywordTypeErrorException.h>
#include <omu_NameErrorException.h>
#include <omu_OrvNameErrorException.h>
#include <omu_OverflowErrorException.h>
#include <omu_RangeErrorException.h>
#include <omu_ValueErrorException.h>
#include <omu_ZeroDivisionErrorException.h>
#include <testing/MemoryStore.h>
#include <testing/StartGuard.h>
#include <testing/ValueTesting.h>
#include <vector>

namespace
{
using Shared = std::shared_ptr<nex_CommandException>;

// A function that makes an exception of the values of these fields.
template <class E, class... T>
auto Maker(T E::*... fields)
{
    return [=](T... values) {
        auto exception = std::make_shared<E>();
        ((exception.get()->*fields = values), ...);
        return Shared(exception);
    };
}

template <class E, class... Values>
Shared New(const Values&... values)
{
    return std::make_shared<E>(values...);
}

const auto ArgType = Maker(&omu_ArgTypeErrorException::m_ArgNum, &omu_ArgTypeErrorException::m_Found,
                           &omu_ArgTypeErrorException::m_Expecting, &omu_ArgTypeErrorException::m_NestingStr);
const auto KeywordFault =
    Maker(&omu_KeywordErrorException::m_Keyword, &omu_KeywordErrorException::m_NestingStr);
const auto KeywordType =
    Maker(&omu_KeywordTypeErrorException::m_Keyword, &omu_KeywordTypeErrorException::m_Found,
          &omu_KeywordTypeErrorException::m_Expecting, &omu_KeywordTypeErrorException::m_NestingStr);
const auto Attribute =
    Maker(&omu_AttributeErrorException::m_ErrorType, &omu_AttributeErrorException::m_Attribute);
const auto OrvName = Maker(&omu_OrvNameErrorException::m_Error);
const auto Range =
    Maker(&omu_RangeErrorException::m_Keyword, &omu_RangeErrorException::m_KeywordType,
          &omu_RangeErrorException::m_LowerLimitAsString, &omu_RangeErrorException::m_LowerLimitQualifier,
          &omu_RangeErrorException::m_HigherLimitAsString, &omu_RangeErrorException::m_HigherLimitQualifier);
const auto ArgNumber = &New<omu_ArgNumberErrorException, int, int, cow_String>;

struct Row
{
    Shared exception;
    const char* message;
};

const std::vector<Row>& Rows()
{
    static const std::vector<Row> rows = {
        {ArgNumber(2, 3, "s.v"), "s.v; too many arguments; expected 2, got 3"},
        // Equal counts read "not all required" on purpose.
        {ArgNumber(2, 2, ""), "not all required arguments specified; expected 2, got 2"},
        // A template's signs in a filled text stay as they are.
        {ArgNumber(1, 0, "s['%d %s']"),
         "s['%d %s']; not all required arguments specified; expected 1, got 0"},
        // From 1 without a path, from 0 in brackets with one: on purpose.
        {ArgType(1, "String", "Float", ""), "arg1; found String, expecting Float"},
        {ArgType(2, "String", "Float", "s.f"), "s.f[1]; found String, expecting Float"},
        {KeywordFault("colour", ""), "keyword error on colour"},
        // The path runs straight into "keyword" on purpose.
        {KeywordFault("colour", "s.f"), "s.fkeyword error on colour"},
        {KeywordType("scale", "String", "Float", ""), "scale; found String, expecting Float"},
        {KeywordType("it's", "String", "Float", "s.f"), "s.f[\"it's\"]; found String, expecting Float"},
        {New<omu_GenericTypeErrorException>(), "illegal argument type for built-in operation"},
        {Attribute(2, "100% of it: %s"), "100% of it: %s"},
        {Attribute(3, "width"), "Error message not implemented yet"},
        {OrvName(0), "invalid name"},
        {Range("k", 3, "", 0, "7", 1), "k must be <= 7"},
        {Range("k", 2, "0.0", 1, "", 0), "k must be a Float >= 0.0"},
        {Range("n", 1, "1", 1, "10", 2), "n must be an Integer in the range: 1 <= n < 10"},
        {Range("%s", 0, "%d", 1, "%s", 1), "%s must be in the range: %d <= %s <= %s"},
        {New<omu_KeyErrorException>("%s%d%%"), "%s%d%%"},
        {New<omu_ValueErrorException>("not allowed: %s"), "not allowed: %s"},
        {New<omu_FontErrorException>("Times"), "Times is not a valid font."},
        {New<omu_AccessErrorException>("mdb"), "mdb no longer exists"}, // no full stop, unlike the font's
        {New<omu_OverflowErrorException>("o"), "o"},
        {New<omu_NameErrorException>("n"), "n"},
        {New<omu_ZeroDivisionErrorException>("z"), "z"},
        {New<omu_GuiAccessErrorException>("g"), "g"},
        {New<omu_IndexErrorException>(std::numeric_limits<int>::min()), "-2147483648"}};
    return rows;
}

TEST(Exceptions, Messages)
{
    for (const auto& [exception, message] : Rows())
    {
        EXPECT_EQ(exception->JournalMessage(), message);
        EXPECT_EQ(exception->AsString(), cow_String(exception->PythonType()) + ": " + message);
    }
    EXPECT_EQ(omu_KeyErrorException(cow_String("a\0b", 3)).JournalMessage(), cow_String("a\0b", 3));
}

TEST(Exceptions, AreCopiedThrownAndStoredWhole)
{
    const StartGuard<KTLOxuOmu_initialize, KTLOxuOmu_finalize> running;
    std::string stored; // the classes of more than one field
    for (const auto& [exception, message] : Rows())
    {
        SCOPED_TRACE(message);
        const auto expectSame = [&, &exception = *exception](const KTLBasException& copy) {
            EXPECT_EQ(typeid(copy), typeid(exception));
            EXPECT_EQ(copy.UserReport(), exception.UserReport());
            EXPECT_EQ(copy.Identifier(), exception.Identifier());
        };
        exception->SetTraceback("File \"a.py\", line 1");
        const std::unique_ptr<const KTLBasException> copy(exception->Copy());
        EXPECT_EQ(copy->GetTraceback(), "File \"a.py\", line 1");
        expectSame(*copy);
        try
        {
            exception->Propagate();
            FAIL() << "nothing was thrown";
        }
        catch (const KTLBasException& caught)
        {
            expectSame(caught);
        }
        MemoryStore store;
        const int number = store.WriteShared(exception.get());
        EXPECT_EQ(store.Faults(), "") << "what is written is what is registered";
        const std::unique_ptr<cls_Persistent> made = store.Create(number);
        const auto* back = cls_PersistentCast<nex_CommandException>(made.get());
        ASSERT_NE(back, nullptr);
        expectSame(*back);
        const cow_String name =
            cls_MetadataRegistrar::Instance().Registrar().Find(exception->DynTypeId())->Name();
        const std::string fields = store.LastPart(number).Names();
        if (fields.find(' ') != fields.npos && stored.find(name.AsCharPtr()) == stored.npos)
            stored.append(name.View()).append(": ").append(fields).append("\n");
    }
    EXPECT_EQ(stored, "omu_ArgNumberErrorException: m_Expecting m_Found m_NestingStr\n"
                      "omu_ArgTypeErrorException: m_ArgNum m_Expecting m_Found m_NestingStr\n"
                      "omu_KeywordErrorException: m_Keyword m_NestingStr\n"
                      "omu_KeywordTypeErrorException: m_Keyword m_Expecting m_Found m_NestingStr\n"
                      "omu_AttributeErrorException: m_ErrorType m_Attribute\n"
                      "omu_RangeErrorException: m_Keyword m_KeywordType m_LowerLimitAsString "
                      "m_LowerLimitQualifier m_HigherLimitAsString m_HigherLimitQualifier\n");
}
}
