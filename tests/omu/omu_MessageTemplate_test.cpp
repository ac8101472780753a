// Messages are built from templates that a catalogue may translate, each looked up on its own.

#include <atr_Catalogue.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <omu_ArgNumberErrorException.h>
#include <omu_ArgTypeErrorException.h>
#include <omu_AttributeErrorException.h>
#include <omu_FontErrorException.h>
#include <omu_GenericTypeErrorException.h>
#include <omu_KeyErrorException.h>
#include <omu_KeywordErrorException.h>
#include <omu_KeywordTypeErrorException.h>
#include <omu_OrvNameErrorException.h>
#include <omu_RangeErrorException.h>
#include <omu_ValueErrorException.h>
#include <string>
#include <vector>

namespace
{
using testing::ElementsAre;
using testing::IsEmpty;

/// Writes down what is looked up; translates one template.
class RecordingCatalogue : public atr_Catalogue
{
public:
    RecordingCatalogue() : former_(atr_InstallCatalogue(this)) {}
    ~RecordingCatalogue() override { atr_InstallCatalogue(former_); }

    bool Lookup(const cow_String& tmpl, cow_String& out) const override
    {
        asked.emplace_back(tmpl.AsCharPtr());
        if (asked.back() != from)
            return false;
        out = cow_String(to.c_str());
        return true;
    }

    std::string from;
    std::string to;
    mutable std::vector<std::string> asked;

private:
    const atr_Catalogue* former_;
};

template <class E>
std::vector<std::string> AskedBy(const E& exception)
{
    const RecordingCatalogue catalogue;
    static_cast<void>(exception.JournalMessage());
    return catalogue.asked;
}

TEST(MessageTemplates, AreLookedUpOneByOne)
{
    EXPECT_THAT(AskedBy(omu_ArgNumberErrorException(1, 2, "s")),
                ElementsAre("%s; ", "too many arguments", "; expected %d, got %d"));
    EXPECT_THAT(AskedBy(omu_ArgNumberErrorException(1, 1, "")),
                ElementsAre("not all required arguments specified", "; expected %d, got %d"));

    omu_ArgTypeErrorException argType;
    EXPECT_THAT(AskedBy(argType), ElementsAre("arg%d", "; found %s, expecting %s"));
    argType.m_NestingStr = "s";
    EXPECT_THAT(AskedBy(argType), ElementsAre("%s%s", "; found %s, expecting %s"));

    EXPECT_THAT(AskedBy(omu_KeywordErrorException()), ElementsAre("%skeyword error on %s"));

    omu_KeywordTypeErrorException keywordType;
    EXPECT_THAT(AskedBy(keywordType), ElementsAre("%s", "; found %s, expecting %s"));
    keywordType.m_NestingStr = "s";
    EXPECT_THAT(AskedBy(keywordType), ElementsAre("%s%s", "; found %s, expecting %s"));

    EXPECT_THAT(AskedBy(omu_GenericTypeErrorException()),
                ElementsAre("illegal argument type for built-in operation"));
    EXPECT_THAT(AskedBy(omu_AttributeErrorException()), ElementsAre("read-only attributes"));
    EXPECT_THAT(AskedBy(omu_OrvNameErrorException()), ElementsAre("invalid name"));

    omu_RangeErrorException range;
    range.m_LowerLimitQualifier = 1;
    EXPECT_THAT(AskedBy(range), ElementsAre("%s must be ", "%s%s"));
    range.m_KeywordType = 1;
    range.m_HigherLimitQualifier = 2;
    EXPECT_THAT(AskedBy(range), ElementsAre("%s must be an Integer ", "in the range: %s%s%s%s%s"));
    range.m_KeywordType = 2;
    range.m_LowerLimitQualifier = 0;
    EXPECT_THAT(AskedBy(range), ElementsAre("%s must be a Float ", "%s%s"));

    EXPECT_THAT(AskedBy(omu_KeyErrorException("k")), ElementsAre("%s"));
    EXPECT_THAT(AskedBy(omu_FontErrorException("f")), ElementsAre("%s is not a valid font."));
    // A whole message was translated where it was made.
    EXPECT_THAT(AskedBy(omu_ValueErrorException("v")), IsEmpty());
}

TEST(MessageTemplates, MayReorderTheirArguments)
{
    RecordingCatalogue catalogue;
    catalogue.from = "; found %s, expecting %s";
    catalogue.to = "; erwartet %2$s, gefunden %1$s";
    omu_ArgTypeErrorException e;
    e.m_ArgNum = 2;
    e.m_Found = "String";
    e.m_Expecting = "Float";
    EXPECT_EQ(e.JournalMessage(), cow_String("arg2; erwartet Float, gefunden String"));
}
}
