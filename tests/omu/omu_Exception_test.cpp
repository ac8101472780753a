// Every class of the scripting exceptions: its error type, its messages as whole texts, the templates that
// they are made of, copying, rethrowing, and what it keeps when stored.

#include <KTLOxuOmu.h>
#include <atr_Catalogue.h>
#include <cls_AdapterBase.h>
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
#include <omu_PyOrvexException.h>
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

constexpr int LEAST = std::numeric_limits<int>::min();
constexpr int MOST = std::numeric_limits<int>::max();

/// Writes down what is looked up; translates one template.
class RecordingCatalogue : public atr_Catalogue
{
public:
    RecordingCatalogue() : former_(atr_InstallCatalogue(this)) {}
    ~RecordingCatalogue() override { atr_InstallCatalogue(former_); }
    bool Lookup(const cow_String& tmpl, cow_String& out) const override
    {
        asked += "|" + std::string(tmpl.View());
        out = "expecting %2$s and not %1$s";
        return translating && tmpl == "; found %s, expecting %s";
    }

    bool translating = false;
    mutable std::string asked;

private:
    const atr_Catalogue* former_;
};

TEST(Exceptions, Messages)
{
    const struct
    {
        Shared exception;
        const char* message;
        const char* templates = nullptr; // looked up one by one
    } rows[] = {
        {ArgNumber(2, 3, "s.v"), "s.v; too many arguments; expected 2, got 3",
         "|%s; |too many arguments|; expected %d, got %d"},
        {ArgNumber(LEAST, MOST, ""), "too many arguments; expected -2147483648, got 2147483647"},
        {ArgNumber(2, 1, ""), "not all required arguments specified; expected 2, got 1"},
        // Equal counts read "not all required" on purpose.
        {ArgNumber(2, 2, ""), "not all required arguments specified; expected 2, got 2",
         "|not all required arguments specified|; expected %d, got %d"},
        // A template's signs in a filled text stay as they are.
        {ArgNumber(1, 0, "s['%d %s']"),
         "s['%d %s']; not all required arguments specified; expected 1, got 0"},
        // From 1 without a path, from 0 in brackets with one: on purpose.
        {ArgType(1, "String", "Float", ""), "arg1; found String, expecting Float",
         "|arg%d|; found %s, expecting %s"},
        {ArgType(2, "String", "Float", "s.f"), "s.f[1]; found String, expecting Float",
         "|%s%s|; found %s, expecting %s"},
        {ArgType(LEAST, "", "", "s"), "s[-2147483649]; found , expecting "},
        {KeywordFault("colour", ""), "keyword error on colour", "|%skeyword error on %s"},
        // The path runs straight into "keyword" on purpose.
        {KeywordFault("colour", "s.f"), "s.fkeyword error on colour"},
        {KeywordType("scale", "String", "Float", ""), "scale; found String, expecting Float",
         "|%s|; found %s, expecting %s"},
        {KeywordType("it's", "String", "Float", "s.f"), "s.f[\"it's\"]; found String, expecting Float",
         "|%s%s|; found %s, expecting %s"},
        {KeywordType("a\\b", "", "", "s"), "s['a\\\\b']; found , expecting "},
        {New<omu_GenericTypeErrorException>(), "illegal argument type for built-in operation"},
        {Attribute(0, "width"), "read-only attributes", "|read-only attributes"},
        {Attribute(1, "width"), "width is read-only"},
        {Attribute(2, "100% of it: %s"), "100% of it: %s"},
        {Attribute(3, "width"), "Error message not implemented yet"},
        {OrvName(0), "invalid name", "|invalid name"},
        {OrvName(4), ""},
        {OrvName(-1), ""},
        {Range("k", 0, "1", 0, "2", 0), "k must be "},
        {Range("k", 3, "", 0, "7", 1), "k must be <= 7", "|%s must be |%s%s"},
        {Range("k", 2, "0.0", 1, "", 0), "k must be a Float >= 0.0", "|%s must be a Float |%s%s"},
        {Range("n", 1, "1", 1, "10", 2), "n must be an Integer in the range: 1 <= n < 10",
         "|%s must be an Integer |in the range: %s%s%s%s%s"},
        {Range("n", 1, "1", 3, "10", 1), "n must be an Integer "},
        {Range("n", 2, "1", 1, "10", 3), "n must be a Float "},
        {Range("n", 0, "1", -1, "10", 0), "n must be "},
        {Range("n", 0, "1", 0, "10", 3), "n must be "},
        {Range("%s", 0, "%d", 1, "%s", 1), "%s must be in the range: %d <= %s <= %s"},
        {New<omu_KeyErrorException>("%s%d%%"), "%s%d%%", "|%s"},
        {New<omu_ValueErrorException>("not allowed: %s"), "not allowed: %s", ""},
        {New<omu_FontErrorException>("Times"), "Times is not a valid font.", "|%s is not a valid font."},
        {New<omu_AccessErrorException>("mdb"), "mdb no longer exists"}, // no full stop, unlike the font's
        {New<omu_IndexErrorException>(LEAST), "-2147483648"}};
    RecordingCatalogue catalogue;
    for (const auto& [exception, message, templates] : rows)
    {
        catalogue.asked.clear();
        EXPECT_EQ(exception->JournalMessage(), message);
        if (templates != nullptr)
        {
            EXPECT_EQ(catalogue.asked, templates);
        }
        EXPECT_STREQ(exception->what(), message);
        EXPECT_EQ(exception->AsString(), cow_String(exception->PythonType()) + ": " + message);
    }
    catalogue.translating = true;
    EXPECT_EQ(ArgType(2, "String", "Float", "")->JournalMessage(), "arg2expecting Float and not String");
    EXPECT_EQ(omu_KeyErrorException(cow_String("a\0b", 3)).JournalMessage(), cow_String("a\0b", 3));
}

struct ClassRow : NamedRow // the registered name
{
    Shared exception;
    unsigned typeId;
    const char* pythonType;
    const char* fields; // as stored, name and type
};
class ExceptionClass : public testing::TestWithParam<ClassRow>
{
protected:
    const StartGuard<KTLOxuOmu_initialize, KTLOxuOmu_finalize> running_;
    nex_CommandException& exception_ = *GetParam().exception;
};

TEST_P(ExceptionClass, CopiesAndThrowsTheMostDerivedObject)
{
    EXPECT_STREQ(exception_.PythonType(), GetParam().pythonType);
    EXPECT_EQ(dynamic_cast<omu_TypeErrorException*>(&exception_) != nullptr,
              std::string(GetParam().pythonType) == "TypeError");
    exception_.SetTraceback("File \"a.py\", line 1");
    const auto expectSame = [&](const KTLBasException& copy) {
        EXPECT_EQ(typeid(copy), typeid(exception_));
        EXPECT_EQ(copy.UserReport(), exception_.UserReport());
        EXPECT_EQ(copy.Identifier(), exception_.Identifier());
        EXPECT_EQ(copy.GetTraceback(), "File \"a.py\", line 1");
    };
    expectSame(*std::unique_ptr<const KTLBasException>(exception_.Copy()));
    try
    {
        exception_.Propagate();
        FAIL() << "nothing was thrown";
    }
    catch (const KTLBasException& caught)
    {
        expectSame(caught);
    }
}

TEST_P(ExceptionClass, IsRegisteredAndStored)
{
    const ClassRow& row = GetParam();
    EXPECT_EQ(exception_.DynTypeId(), row.typeId);
    const cls_ClassRegistrar& registrar = cls_MetadataRegistrar::Instance().Registrar();
    const cls_ClassMetadata* meta = registrar.Find(row.typeId);
    ASSERT_NE(meta, nullptr);
    EXPECT_EQ(meta->Name(), row.name);
    EXPECT_EQ(meta->Version(), 800u);
    std::string fields;
    for (const cls_Attribute& attribute : meta->Attributes())
        fields += std::string(attribute.name.View()) + " " + std::to_string(unsigned(attribute.type)) + " ";
    EXPECT_EQ(fields, row.fields);
    EXPECT_TRUE(registrar.InheritanceCheck(row.typeId, nex_CommandException::TypeId()));
    EXPECT_EQ(registrar.InheritanceCheck(row.typeId, omu_TypeErrorException::TypeId()),
              std::string(row.pythonType) == "TypeError");

    MemoryStore store;
    const int number = store.WriteShared(&exception_);
    EXPECT_EQ(store.Faults(), "") << "what is written is what is registered";
    const std::unique_ptr<cls_Persistent> made = store.Create(number);
    const auto* back = cls_PersistentCast<nex_CommandException>(made.get());
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(typeid(*back), typeid(exception_));
    EXPECT_EQ(back->JournalMessage(), exception_.JournalMessage());
    EXPECT_EQ(back->Identifier(), exception_.Identifier());
    store.LastPart(number).attributes.clear();
    EXPECT_NO_THROW(store.Create(number)) << "an absent field keeps its default";
}

constexpr const char* SUBJECT = "m_Value 11 ";
constexpr const char* MESSAGE = "m_Value 12 ";
INSTANTIATE_ROWS(
    ExceptionClass,
    ClassRow{"omu_ArgNumberErrorException", ArgNumber(2, 3, "s.v"), 0x00130004, "TypeError",
             "m_Expecting 5 m_Found 5 m_NestingStr 11 "},
    ClassRow{"omu_ArgTypeErrorException", ArgType(2, "String", "Float", "s.f"), 0x00130003, "TypeError",
             "m_ArgNum 5 m_Expecting 11 m_Found 11 m_NestingStr 11 "},
    ClassRow{"omu_KeywordErrorException", KeywordFault("colour", "s.f"), 0x00130005, "TypeError",
             "m_Keyword 11 m_NestingStr 11 "},
    ClassRow{"omu_KeywordTypeErrorException", KeywordType("scale", "String", "Float", "s.f"), 0x00130002,
             "TypeError", "m_Keyword 11 m_Expecting 11 m_Found 11 m_NestingStr 11 "},
    ClassRow{"omu_GenericTypeErrorException", New<omu_GenericTypeErrorException>(), 0x00130024, "TypeError",
             ""},
    ClassRow{"omu_AttributeErrorException", Attribute(1, "width"), 0x00130006, "AttributeError",
             "m_ErrorType 5 m_Attribute 11 "},
    ClassRow{"omu_OrvNameErrorException", OrvName(3), 0x00130023, "OrvexNameError", "m_Error 5 "},
    ClassRow{"omu_RangeErrorException", Range("n", 1, "1", 1, "10", 2), 0x00130009, "RangeError",
             "m_Keyword 11 m_KeywordType 5 m_LowerLimitAsString 11 m_LowerLimitQualifier 5 "
             "m_HigherLimitAsString 11 m_HigherLimitQualifier 5 "},
    ClassRow{"omu_KeyErrorException", New<omu_KeyErrorException>("k"), 0x00130007, "KeyError", SUBJECT},
    ClassRow{"omu_ValueErrorException", New<omu_ValueErrorException>("v"), 0x0013000A, "ValueError", MESSAGE},
    ClassRow{"omu_OverflowErrorException", New<omu_OverflowErrorException>("o"), 0x0013000B, "OverflowError",
             MESSAGE},
    ClassRow{"omu_NameErrorException", New<omu_NameErrorException>("n"), 0x0013000C, "NameError", MESSAGE},
    ClassRow{"omu_ZeroDivisionErrorException", New<omu_ZeroDivisionErrorException>("z"), 0x0013000D,
             "ZeroDivisionError", MESSAGE},
    ClassRow{"omu_FontErrorException", New<omu_FontErrorException>("f"), 0x0013000F, "FontError", SUBJECT},
    ClassRow{"omu_AccessErrorException", New<omu_AccessErrorException>("a"), 0x00130010, "AccessError",
             SUBJECT},
    ClassRow{"omu_GuiAccessErrorException", New<omu_GuiAccessErrorException>("g"), 0x00130028,
             "GuiAccessError", MESSAGE},
    ClassRow{"omu_IndexErrorException", New<omu_IndexErrorException>(-7), 0x00130008, "IndexError",
             "m_Value 5 "});

TEST(ExceptionMetadata, TheRootOfTypeErrorsIsAbstract)
{
    const StartGuard<KTLOxuOmu_initialize, KTLOxuOmu_finalize> running;
    const cls_ClassRegistrar& registrar = cls_MetadataRegistrar::Instance().Registrar();
    const cls_ClassMetadata* meta = registrar.Find(omu_TypeErrorException::TypeId());
    ASSERT_NE(meta, nullptr);
    EXPECT_EQ(meta->Name(), "omu_TypeErrorException");
    EXPECT_TRUE(meta->Adapter()->IsAbstract());
    EXPECT_EQ(registrar.Find(omu_PyOrvexException::TypeId()), nullptr) << "starting declares none for it";
}

// Its row in the component table lists it among the values; the class itself is a command exception.
TEST(ExceptionMetadata, OrvexErrorCanBeDeclaredByItsUser)
{
    cls_ClassRegistrar registrar;
    omu_PyOrvexException::InitializeMetadata(registrar);
    const cls_ClassMetadata* meta = registrar.Find(0x00130032u);
    ASSERT_NE(meta, nullptr);
    EXPECT_EQ(meta->Name(), "omu_PyOrvexException");
    EXPECT_EQ(meta->ParentTypeId(), nex_CommandException::TypeId());
    EXPECT_STREQ(omu_PyOrvexException("").PythonType(), "OrvexError");
}
}
