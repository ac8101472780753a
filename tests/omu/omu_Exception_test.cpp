// Every class of the scripting exceptions: its error type, its message as a whole text, copying, rethrowing,
// and what it keeps when stored.

#include <KTLOxuOmu.h>
#include <cls_AdapterBase.h>
#include <cls_ClassRegistrar.h>
#include <cls_MetadataRegistrar.h>
#include <cls_PersistentValue.h>
#include <cls_ReadVisitor.h>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <nex_RaiseWith.h>
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
#include <omu_PyOrvexException.h>
#include <omu_RangeErrorException.h>
#include <omu_ValueErrorException.h>
#include <omu_ZeroDivisionErrorException.h>
#include <string>
#include <testing/MemoryStore.h>
#include <testing/StartGuard.h>

namespace
{
using Shared = std::shared_ptr<const nex_CommandException>;

struct ExceptionRow
{
    const char* what;
    Shared exception;
    const char* registeredName;
    unsigned typeId;
    const char* pythonType;
    const char* message;
    const char* fields; ///< as stored, name and type
    std::function<Shared(const MemoryStore&, int)> read;
    std::function<bool(const nex_CommandException&)> throwsItself;

    friend void PrintTo(const ExceptionRow& row, std::ostream* out) { *out << row.what; }
};

template <class E>
ExceptionRow Row(const char* what, E exception, const char* name, unsigned typeId, const char* pythonType,
                 const char* message, const char* fields)
{
    return {what,
            std::make_shared<E>(std::move(exception)),
            name,
            typeId,
            pythonType,
            message,
            fields,
            [](const MemoryStore& store, int number) { return std::make_shared<E>(store.Read<E>(number)); },
            [](const nex_CommandException& thrower) {
                try
                {
                    thrower.Propagate();
                }
                catch (const E& caught)
                {
                    return typeid(caught) == typeid(E);
                }
                return false;
            }};
}

omu_ArgTypeErrorException ArgType(int number, const char* found, const char* expecting, const char* nesting)
{
    omu_ArgTypeErrorException e;
    e.m_ArgNum = number;
    e.m_Found = found;
    e.m_Expecting = expecting;
    e.m_NestingStr = nesting;
    return e;
}

omu_KeywordErrorException Keyword(const char* keyword, const char* nesting)
{
    omu_KeywordErrorException e;
    e.m_Keyword = keyword;
    e.m_NestingStr = nesting;
    return e;
}

omu_KeywordTypeErrorException KeywordType(const char* keyword, const char* nesting)
{
    omu_KeywordTypeErrorException e;
    e.m_Keyword = keyword;
    e.m_Found = "String";
    e.m_Expecting = "Float";
    e.m_NestingStr = nesting;
    return e;
}

omu_AttributeErrorException Attribute(int type, const char* attribute)
{
    omu_AttributeErrorException e;
    e.m_ErrorType = type;
    e.m_Attribute = attribute;
    return e;
}

omu_OrvNameErrorException OrvName(int error)
{
    omu_OrvNameErrorException e;
    e.m_Error = error;
    return e;
}

omu_RangeErrorException Range(const char* keyword, int type, const char* low, int lowQualifier,
                              const char* high, int highQualifier)
{
    omu_RangeErrorException e;
    e.m_Keyword = keyword;
    e.m_KeywordType = type;
    e.m_LowerLimitAsString = low;
    e.m_LowerLimitQualifier = lowQualifier;
    e.m_HigherLimitAsString = high;
    e.m_HigherLimitQualifier = highQualifier;
    return e;
}

class Exceptions : public testing::TestWithParam<ExceptionRow>
{
protected:
    StartGuard<KTLOxuOmu_initialize, KTLOxuOmu_finalize> running_;
};

TEST_P(Exceptions, TellTheirTypeAndMessage)
{
    const ExceptionRow& row = GetParam();
    const nex_CommandException& e = *row.exception;
    EXPECT_EQ(e.JournalMessage(), cow_String(row.message));
    EXPECT_EQ(e.UserReport(), cow_String(row.message));
    EXPECT_STREQ(e.what(), row.message);
    EXPECT_STREQ(e.PythonType(), row.pythonType);
    EXPECT_EQ(e.AsString(), cow_String(std::string(row.pythonType) + ": " + row.message));
    EXPECT_EQ(e.DynTypeId(), row.typeId);
}

TEST_P(Exceptions, CopyIsTheMostDerivedObject)
{
    const ExceptionRow& row = GetParam();
    const std::unique_ptr<const KTLBasException> copy(row.exception->Copy());
    ASSERT_NE(copy.get(), nullptr);
    const nex_CommandException& original = *row.exception;
    const KTLBasException& copied = *copy;
    EXPECT_EQ(typeid(copied), typeid(original));
    EXPECT_EQ(copy->UserReport(), cow_String(row.message));
    EXPECT_EQ(copy->Identifier(), row.exception->Identifier());
}

TEST_P(Exceptions, PropagateThrowsTheMostDerivedObject)
{
    EXPECT_TRUE(GetParam().throwsItself(*GetParam().exception));
    try
    {
        const KTLBasException& thrower = *GetParam().exception;
        thrower.Propagate();
    }
    catch (const nex_CommandException& caught)
    {
        EXPECT_EQ(caught.JournalMessage(), cow_String(GetParam().message));
    }
}

TEST_P(Exceptions, StoreTheirFieldsInOrder)
{
    const ExceptionRow& row = GetParam();
    MemoryStore store;
    const int number = store.WriteShared(row.exception.get());
    EXPECT_EQ(store.Faults(), "");
    const MemoryPart& part = store.LastPart(number);
    EXPECT_EQ(part.typeId, row.typeId);
    std::string fields;
    for (const MemoryAttribute& attribute : part.attributes)
        fields += attribute.name + " " + std::to_string(static_cast<unsigned>(attribute.type)) + " ";
    EXPECT_EQ(fields, row.fields);

    const Shared back = row.read(store, number);
    EXPECT_EQ(back->JournalMessage(), cow_String(row.message));
    EXPECT_EQ(back->Identifier(), row.exception->Identifier());
    MemoryStore again;
    EXPECT_EQ(again.Describe(again.WriteShared(back.get())), store.Describe(number));
}

TEST_P(Exceptions, AnAbsentFieldKeepsItsDefault)
{
    const ExceptionRow& row = GetParam();
    MemoryStore store;
    const int number = store.WriteShared(row.exception.get());
    store.LastPart(number).attributes.clear();
    EXPECT_NO_THROW(static_cast<void>(row.read(store, number)->JournalMessage()));
}

TEST_P(Exceptions, AreRegisteredUnderTheirName)
{
    const ExceptionRow& row = GetParam();
    const cls_ClassRegistrar& registrar = cls_MetadataRegistrar::Instance().Registrar();
    const cls_ClassMetadata* meta = registrar.Find(row.typeId);
    if (row.typeId == omu_PyOrvexException::TypeId())
    {
        EXPECT_EQ(meta, nullptr) << "starting the module declares no metadata for it";
        return;
    }
    ASSERT_NE(meta, nullptr);
    EXPECT_EQ(meta->Name(), cow_String(row.registeredName));
    EXPECT_EQ(meta->Version(), 800u);
    std::string fields;
    for (const cls_Attribute& attribute : meta->Attributes())
    {
        fields += std::string(attribute.name.AsCharPtr()) + " " +
                  std::to_string(static_cast<unsigned>(attribute.type)) + " ";
        EXPECT_EQ(attribute.typeId, cls_UniversalRoot);
        EXPECT_EQ(attribute.collection, cls_CollectionType::SINGLE);
    }
    EXPECT_EQ(fields, row.fields);
    EXPECT_TRUE(registrar.InheritanceCheck(row.typeId, nex_CommandException::TypeId()));
    EXPECT_EQ(registrar.InheritanceCheck(row.typeId, omu_TypeErrorException::TypeId()),
              std::string(row.pythonType) == "TypeError");

    MemoryStore store;
    const int number = store.WriteShared(row.exception.get());
    const std::unique_ptr<cls_Persistent> made = store.Create(number);
    const auto* back = cls_PersistentCast<nex_CommandException>(made.get());
    ASSERT_NE(back, nullptr);
    const nex_CommandException& original = *row.exception;
    EXPECT_EQ(typeid(*back), typeid(original));
    EXPECT_EQ(back->JournalMessage(), cow_String(row.message));
}

const char* const ARG_NUMBER = "m_Expecting 5 m_Found 5 m_NestingStr 11 ";
const char* const ARG_TYPE = "m_ArgNum 5 m_Expecting 11 m_Found 11 m_NestingStr 11 ";
const char* const KEYWORD = "m_Keyword 11 m_NestingStr 11 ";
const char* const KEYWORD_TYPE = "m_Keyword 11 m_Expecting 11 m_Found 11 m_NestingStr 11 ";
const char* const ATTRIBUTE = "m_ErrorType 5 m_Attribute 11 ";
const char* const ORV_NAME = "m_Error 5 ";
const char* const RANGE = "m_Keyword 11 m_KeywordType 5 m_LowerLimitAsString 11 m_LowerLimitQualifier 5 "
                          "m_HigherLimitAsString 11 m_HigherLimitQualifier 5 ";
const char* const SUBJECT = "m_Value 11 ";
const char* const MESSAGE = "m_Value 12 ";
const char* const INDEX = "m_Value 5 ";

ExceptionRow ArgNumberRow(const char* what, int expecting, int found, const char* nesting,
                          const char* message)
{
    return Row(what, omu_ArgNumberErrorException(expecting, found, nesting), "omu_ArgNumberErrorException",
               0x00130004, "TypeError", message, ARG_NUMBER);
}
ExceptionRow ArgTypeRow(const char* what, omu_ArgTypeErrorException e, const char* message)
{
    return Row(what, std::move(e), "omu_ArgTypeErrorException", 0x00130003, "TypeError", message, ARG_TYPE);
}
ExceptionRow KeywordRow(const char* what, omu_KeywordErrorException e, const char* message)
{
    return Row(what, std::move(e), "omu_KeywordErrorException", 0x00130005, "TypeError", message, KEYWORD);
}
ExceptionRow KeywordTypeRow(const char* what, omu_KeywordTypeErrorException e, const char* message)
{
    return Row(what, std::move(e), "omu_KeywordTypeErrorException", 0x00130002, "TypeError", message,
               KEYWORD_TYPE);
}
ExceptionRow AttributeRow(const char* what, int type, const char* attribute, const char* message)
{
    return Row(what, Attribute(type, attribute), "omu_AttributeErrorException", 0x00130006, "AttributeError",
               message, ATTRIBUTE);
}
ExceptionRow OrvNameRow(const char* what, int error, const char* message)
{
    return Row(what, OrvName(error), "omu_OrvNameErrorException", 0x00130023, "OrvexNameError", message,
               ORV_NAME);
}
ExceptionRow RangeRow(const char* what, omu_RangeErrorException e, const char* message)
{
    return Row(what, std::move(e), "omu_RangeErrorException", 0x00130009, "RangeError", message, RANGE);
}

constexpr int LEAST = std::numeric_limits<int>::min();
constexpr int MOST = std::numeric_limits<int>::max();

INSTANTIATE_TEST_SUITE_P(
    ArgNumber, Exceptions,
    testing::Values(
        ArgNumberRow("too many, nested", 2, 3, "s.v", "s.v; too many arguments; expected 2, got 3"),
        ArgNumberRow("too many", 0, 1, "", "too many arguments; expected 0, got 1"),
        ArgNumberRow("too few", 2, 1, "", "not all required arguments specified; expected 2, got 1"),
        // Equal counts read "not all required" on purpose.
        ArgNumberRow("equal", 2, 2, "", "not all required arguments specified; expected 2, got 2"),
        ArgNumberRow("extremes", LEAST, MOST, "", "too many arguments; expected -2147483648, got 2147483647"),
        ArgNumberRow("placeholder in the path", 1, 0, "s['%d %s']",
                     "s['%d %s']; not all required arguments specified; expected 1, got 0")));

INSTANTIATE_TEST_SUITE_P(
    ArgType, Exceptions,
    testing::Values(
        ArgTypeRow("plain", ArgType(2, "String", "Float", ""), "arg2; found String, expecting Float"),
        // From 1 without a path, from 0 in brackets with one: on purpose.
        ArgTypeRow("nested", ArgType(2, "String", "Float", "s.f"), "s.f[1]; found String, expecting Float"),
        ArgTypeRow("first", ArgType(1, "None", "Int", ""), "arg1; found None, expecting Int"),
        ArgTypeRow("first, nested", ArgType(1, "None", "Int", "s.f"), "s.f[0]; found None, expecting Int"),
        ArgTypeRow("empty fields", omu_ArgTypeErrorException(), "arg0; found , expecting "),
        ArgTypeRow("least position", ArgType(LEAST, "a", "b", "s"), "s[-2147483649]; found a, expecting b")));

INSTANTIATE_TEST_SUITE_P(
    Keyword, Exceptions,
    testing::Values(KeywordRow("plain", Keyword("colour", ""), "keyword error on colour"),
                    // The path runs straight into "keyword" on purpose.
                    KeywordRow("nested", Keyword("colour", "s.f"), "s.fkeyword error on colour"),
                    KeywordRow("empty", omu_KeywordErrorException(), "keyword error on ")));

INSTANTIATE_TEST_SUITE_P(
    KeywordType, Exceptions,
    testing::Values(KeywordTypeRow("plain", KeywordType("scale", ""), "scale; found String, expecting Float"),
                    KeywordTypeRow("nested", KeywordType("scale", "s.f"),
                                   "s.f['scale']; found String, expecting Float"),
                    KeywordTypeRow("quote in the keyword", KeywordType("it's", "s"),
                                   "s[\"it's\"]; found String, expecting Float"),
                    KeywordTypeRow("backslash in the keyword", KeywordType("a\\b", "s"),
                                   "s['a\\\\b']; found String, expecting Float"),
                    KeywordTypeRow("empty", omu_KeywordTypeErrorException(), "; found , expecting ")));

INSTANTIATE_TEST_SUITE_P(GenericType, Exceptions,
                         testing::Values(Row("only one", omu_GenericTypeErrorException(),
                                             "omu_GenericTypeErrorException", 0x00130024, "TypeError",
                                             "illegal argument type for built-in operation", "")));

INSTANTIATE_TEST_SUITE_P(
    Attribute, Exceptions,
    testing::Values(AttributeRow("all read-only", 0, "width", "read-only attributes"),
                    AttributeRow("one read-only", 1, "width", "width is read-only"),
                    AttributeRow("whole message", 2, "100% of it: %s", "100% of it: %s"),
                    AttributeRow("unknown type", 3, "width", "Error message not implemented yet"),
                    AttributeRow("negative type", -1, "width", "Error message not implemented yet")));

INSTANTIATE_TEST_SUITE_P(OrvName, Exceptions,
                         testing::Values(OrvNameRow("invalid", 0, "invalid name"),
                                         OrvNameRow("empty", 1, "name is empty"),
                                         OrvNameRow("job", 2, "invalid job name"),
                                         OrvNameRow("model", 3, "invalid model name"),
                                         OrvNameRow("unknown", 4, ""), OrvNameRow("negative", -1, "")));

INSTANTIATE_TEST_SUITE_P(
    Range, Exceptions,
    testing::Values(
        RangeRow("no limits", Range("k", 0, "1", 0, "2", 0), "k must be "),
        RangeRow("no limits, integer", Range("k", 1, "1", 0, "2", 0), "k must be an Integer "),
        RangeRow("no limits, float", Range("k", 2, "1", 0, "2", 0), "k must be a Float "),
        RangeRow("unknown type", Range("k", 3, "", 0, "7", 1), "k must be <= 7"),
        RangeRow("upper, inclusive", Range("scale", 2, "", 0, "1.0", 1), "scale must be a Float <= 1.0"),
        RangeRow("upper, exclusive", Range("scale", 2, "", 0, "1.0", 2), "scale must be a Float < 1.0"),
        RangeRow("lower, inclusive", Range("size", 2, "0.0", 1, "", 0), "size must be a Float >= 0.0"),
        RangeRow("lower, exclusive", Range("size", 2, "0.0", 2, "", 0), "size must be a Float > 0.0"),
        RangeRow("[]", Range("n", 1, "1", 1, "10", 1), "n must be an Integer in the range: 1 <= n <= 10"),
        RangeRow("[)", Range("n", 1, "1", 1, "10", 2), "n must be an Integer in the range: 1 <= n < 10"),
        RangeRow("(]", Range("n", 1, "1", 2, "10", 1), "n must be an Integer in the range: 1 < n <= 10"),
        RangeRow("()", Range("n", 0, "1", 2, "10", 2), "n must be in the range: 1 < n < 10"),
        RangeRow("lower qualifier 3", Range("n", 1, "1", 3, "10", 1), "n must be an Integer "),
        RangeRow("higher qualifier 3", Range("n", 2, "1", 1, "10", 3), "n must be a Float "),
        RangeRow("lower qualifier -1, no higher", Range("n", 0, "1", -1, "10", 0), "n must be "),
        RangeRow("higher qualifier 3, no lower", Range("n", 0, "1", 0, "10", 3), "n must be "),
        RangeRow("limits that look like templates", Range("%s", 0, "%d", 1, "%s", 1),
                 "%s must be in the range: %d <= %s <= %s")));

INSTANTIATE_TEST_SUITE_P(
    OneValue, Exceptions,
    testing::Values(Row("key", omu_KeyErrorException("Part-1"), "omu_KeyErrorException", 0x00130007,
                        "KeyError", "Part-1", SUBJECT),
                    Row("key that looks like a template", omu_KeyErrorException("%s%d%%"),
                        "omu_KeyErrorException", 0x00130007, "KeyError", "%s%d%%", SUBJECT),
                    Row("empty key", omu_KeyErrorException(""), "omu_KeyErrorException", 0x00130007,
                        "KeyError", "", SUBJECT),
                    Row("value", omu_ValueErrorException("not allowed: %s"), "omu_ValueErrorException",
                        0x0013000A, "ValueError", "not allowed: %s", MESSAGE),
                    Row("overflow", omu_OverflowErrorException("too large"), "omu_OverflowErrorException",
                        0x0013000B, "OverflowError", "too large", MESSAGE),
                    Row("name", omu_NameErrorException("no such name"), "omu_NameErrorException", 0x0013000C,
                        "NameError", "no such name", MESSAGE),
                    Row("zero division", omu_ZeroDivisionErrorException("by zero"),
                        "omu_ZeroDivisionErrorException", 0x0013000D, "ZeroDivisionError", "by zero",
                        MESSAGE),
                    Row("font", omu_FontErrorException("Times"), "omu_FontErrorException", 0x0013000F,
                        "FontError", "Times is not a valid font.", SUBJECT),
                    Row("access", omu_AccessErrorException("mdb.models['M']"), "omu_AccessErrorException",
                        0x00130010, "AccessError", "mdb.models['M'] no longer exists", SUBJECT),
                    Row("orvex", omu_PyOrvexException("it failed"), "omu_PyOrvexException", 0x00130032,
                        "OrvexError", "it failed", SUBJECT),
                    Row("gui", omu_GuiAccessErrorException("no window"), "omu_GuiAccessErrorException",
                        0x00130028, "GuiAccessError", "no window", MESSAGE),
                    Row("index", omu_IndexErrorException(7), "omu_IndexErrorException", 0x00130008,
                        "IndexError", "7", INDEX),
                    Row("negative index", omu_IndexErrorException(-1), "omu_IndexErrorException", 0x00130008,
                        "IndexError", "-1", INDEX),
                    Row("least index", omu_IndexErrorException(LEAST), "omu_IndexErrorException", 0x00130008,
                        "IndexError", "-2147483648", INDEX)));

TEST(ExceptionValues, ComeBack)
{
    EXPECT_EQ(omu_KeyErrorException(cow_String("a\0b", 3)).Value(), cow_String("a\0b", 3));
    EXPECT_EQ(omu_KeyErrorException(cow_String("a\0b", 3)).JournalMessage(), cow_String("a\0b", 3));
    EXPECT_EQ(omu_ValueErrorException(atr_String("text")).Value(), atr_String("text"));
    EXPECT_EQ(omu_IndexErrorException(-3).Value(), -3);
}

TEST(ExceptionTypes, AreDistinctForEachTag)
{
    EXPECT_NE(typeid(omu_KeyErrorException), typeid(omu_FontErrorException));
    EXPECT_THROW(omu_NameErrorException("x").Propagate(), omu_NameErrorException);
    try
    {
        omu_NameErrorException("x").Propagate();
    }
    catch (const omu_ValueErrorException&)
    {
        ADD_FAILURE() << "another tag was caught";
    }
    catch (const nex_CommandException&)
    {}
}

TEST(ExceptionTypes, ArgumentErrorsAreTypeErrors)
{
    EXPECT_THROW(omu_ArgNumberErrorException(1, 2, "").Propagate(), omu_TypeErrorException);
    EXPECT_THROW(omu_ArgTypeErrorException().Propagate(), omu_TypeErrorException);
    EXPECT_THROW(omu_KeywordErrorException().Propagate(), omu_TypeErrorException);
    EXPECT_THROW(omu_KeywordTypeErrorException().Propagate(), omu_TypeErrorException);
    EXPECT_THROW(omu_GenericTypeErrorException().Propagate(), omu_TypeErrorException);
}

TEST(ExceptionMetadata, TheRootOfTypeErrorsIsAbstract)
{
    const StartGuard<KTLOxuOmu_initialize, KTLOxuOmu_finalize> running;
    const cls_ClassMetadata* meta =
        cls_MetadataRegistrar::Instance().Registrar().Find(omu_TypeErrorException::TypeId());
    ASSERT_NE(meta, nullptr);
    EXPECT_EQ(meta->Name(), cow_String("omu_TypeErrorException"));
    EXPECT_EQ(meta->Version(), 800u);
    EXPECT_TRUE(meta->Adapter()->IsAbstract());
    EXPECT_TRUE(meta->Attributes().empty());
}

// Its row in the component table lists it among the values; the class itself is a command exception.
TEST(ExceptionMetadata, OrvexErrorCanBeDeclaredByItsUser)
{
    cls_ClassRegistrar registrar;
    omu_PyOrvexException::InitializeMetadata(registrar);
    const cls_ClassMetadata* meta = registrar.Find(0x00130032u);
    ASSERT_NE(meta, nullptr);
    EXPECT_EQ(meta->Name(), cow_String("omu_PyOrvexException"));
    EXPECT_EQ(meta->ParentTypeId(), nex_CommandException::TypeId());
}

TEST(ExceptionRaise, RecordsSourceAndLine)
{
    try
    {
        nex_Raise(omu_KeyErrorException("k"), "KTLOxuOmu.m/src/omu_Arguments", 12);
    }
    catch (const omu_KeyErrorException& e)
    {
        EXPECT_EQ(e.Source(), cow_String("KTLOxuOmu.m/src/omu_Arguments"));
        EXPECT_EQ(e.Line(), 12);
        const std::unique_ptr<omu_KeyErrorException> copy(e.Copy());
        EXPECT_EQ(copy->Line(), 12);
    }
}

TEST(ExceptionRaise, TracebackIsKept)
{
    omu_IndexErrorException e(3);
    e.SetTraceback("File \"a.py\", line 1");
    try
    {
        e.Propagate();
    }
    catch (const nex_CommandException& caught)
    {
        EXPECT_EQ(caught.GetTraceback(), cow_String("File \"a.py\", line 1"));
    }
}
}
