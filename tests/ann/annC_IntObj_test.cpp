// Annotations as scripts reach them: mdb.annotations['A'].setValues(color='Red').

#include <annC_AnnotatedIntObj.h>
#include <annC_AnnotationClient.h>
#include <annC_AnnotationContainerIntObj.h>
#include <annC_ArrowIntObj.h>
#include <annC_TextIntObj.h>
#include <annC_ViewportAnchor.h>
#include <gtest/gtest.h>
#include <nex_RaiseWith.h>
#include <omu_AccessErrorException.h>
#include <omu_ArgNumberErrorException.h>
#include <omu_Arguments.h>
#include <omu_KeyErrorException.h>
#include <omu_KeywordErrorException.h>
#include <omu_KeywordTypeErrorException.h>
#include <omu_PrimBoolean.h>
#include <omu_PrimWrapper.h>
#include <omu_SimpleTermShortcutImpl.h>
#include <omu_ValueErrorException.h>
#include <testing/AnnotationHistory.h>
#include <testing/ExpectRaise.h>

namespace
{
/// Writes down what it is told, and knows no colour "Mud".
class RecordingClient : public annC_AnnotationClient
{
public:
    void AnnotationDeleted(const cow_String& path, unsigned id) override { Add("deleted ", path, id); }
    void AnnotationModified(const cow_String& path, unsigned id) override { Add("modified ", path, id); }
    void VerifyColorValue(const cow_String& color) override
    {
        if (color == "Mud")
            nex_Raise(omu_ValueErrorException("no Mud"), "tests/ann/annC_IntObj_test", __LINE__);
    }
    double GetWidth(const annC_Text& text) override { return text.text.Length(); }
    double GetHeight(const annC_Text&) override { return 7.0; }

    std::string Take() { return std::exchange(told_, std::string()); }

private:
    void Add(const char* what, const cow_String& path, unsigned id)
    {
        told_ += (told_.empty() ? "" : ", ") + std::string(what) + std::string(path.View()) + " " +
                 std::to_string(id);
    }

    std::string told_;
};

class IntObj : public testing::Test
{
protected:
    /// Calls a method with arguments by keyword; the result as text, "None" for none.
    static std::string Call(const omu_InterfaceObj& object, const char* method, omu_Arguments arguments)
    {
        bool found = false;
        const std::unique_ptr<omu_Primitive> result(object.CallMethod(method, nullptr, arguments, found));
        EXPECT_TRUE(found) << method;
        return result == nullptr ? "None" : std::string(result->AsRepr().View());
    }
    static std::string Member(const omu_InterfaceObj& object, const char* name)
    {
        bool found = false;
        const std::unique_ptr<omu_Primitive> value(object.GetMember(name, found));
        EXPECT_TRUE(found) << name;
        return value == nullptr ? "None" : std::string(value->AsRepr().View());
    }
    template <class... Pairs>
    static omu_Arguments With(const Pairs&... pairs)
    {
        omu_Arguments arguments;
        (arguments.Put(cow_String(pairs.first), pairs.second), ...);
        return arguments;
    }
    static std::pair<const char*, cow_String> Name(const char* name) { return {"name", name}; }
    static std::pair<const char*, cow_List<double>> Numbers(const char* keyword, cow_List<double> values)
    {
        return {keyword, values};
    }
    std::unique_ptr<annC_AnnotationIntObj> At(const char* name) const
    {
        return std::unique_ptr<annC_AnnotationIntObj>(annotations_.GetIntObj(name));
    }

    void SetUp() override
    {
        Call(mdb_, "Text", With(Name("T"), std::pair("text", cow_String("here"))));
        Call(mdb_, "Arrow", With(Name("A")));
        client_.Take();
        history_.Take();
    }

    std::shared_ptr<annC_AnnotationContainer> container_ = std::make_shared<annC_AnnotationContainer>();
    annC_AnnotatedIntObj mdb_{omu_SimpleTermShortcutImpl("mdb", true), container_};
    bool found_ = false;
    std::unique_ptr<omu_Primitive> member_{mdb_.GetMember("annotations", found_)};
    const annC_AnnotationContainerIntObj& annotations_ =
        dynamic_cast<const annC_AnnotationContainerIntObj&>(*member_);
    RecordingClient client_;
    AnnotationHistory history_;
};

TEST_F(IntObj, ConstructorsPutInFrontAndReturnTheHandle)
{
    EXPECT_EQ(Call(mdb_, "Arrow", With(Name("B"), Numbers("startPoint", {1.0, 2.0}))),
              "mdb.annotations['B']");
    EXPECT_EQ(history_.Take(), "('Insert', 'B', 0)");
    EXPECT_EQ(client_.Take(), "");
    EXPECT_EQ(Member(*At("B"), "startPoint"), "(1.0, 2.0)");
    EXPECT_EQ(Call(mdb_, "Text", With(Name("B"))), "mdb.annotations['B']");
    EXPECT_EQ(history_.Take(), "('Remove', 'B') ('Insert', 'B', 0)");
    EXPECT_EQ(client_.Take(), "deleted mdb.annotations 2");
    EXPECT_RAISE(Call(mdb_, "Arrow", With()), omu_ArgNumberErrorException,
                 "not all required arguments specified; expected 1, got 0");
    EXPECT_EQ(container_->Size(), 3u);
}

TEST_F(IntObj, MembersAndTheirForms)
{
    const auto text = At("T");
    EXPECT_EQ(Member(*text, "anchor"), "BOTTOM_LEFT");
    EXPECT_EQ(Member(*text, "box"), "False");
    EXPECT_EQ(Member(*text, "width"), "4.0");
    EXPECT_EQ(Member(*text, "height"), "7.0");
    EXPECT_EQ(Call(*text, "setValues",
                   With(Numbers("anchor", {30.0, 20.0}), Numbers("referencePoint", {1.0, 2.0, 3.0}),
                        Numbers("offset", {0.5, -1.0}), std::pair("rotationAngle", 30),
                        std::pair("justification", omu_PrimEnum<annC_JustificationEnm, 1>("RIGHT")))),
              "None");
    EXPECT_EQ(Member(*text, "anchor"), "(30.0, 20.0)");
    EXPECT_EQ(Member(*text, "referencePoint"), "(1.0, 2.0, 3.0)");
    EXPECT_EQ(Member(*text, "offset"), "(0.5, -1.0)");
    EXPECT_EQ(Member(*text, "rotationAngle"), "30.0");
    EXPECT_EQ(Member(*text, "justification"), "RIGHT");
    EXPECT_EQ(Member(*text, "text"), "'here'");
    EXPECT_EQ(text->Id(), 0);
    EXPECT_EQ(std::string(text->ConstGetWrapper()->AsString(0).View()), "<Text object named T>");
    EXPECT_EQ(At("A")->BaseTypes(), cow_List<cow_String>{"Annotation"});
}

TEST_F(IntObj, ReadingPostsNothingAndKeepsSharing)
{
    const annC_AnnotationContainer copy = *container_;
    const auto arrow = At("A");
    for (const cow_String& name : arrow->MemberList())
        Member(*arrow, name.AsCharPtr());
    static_cast<void>(arrow->AsString(0));
    static_cast<void>(arrow->AsRepr());
    static_cast<void>(annotations_.AsString(0));
    EXPECT_EQ(Call(annotations_, "_summary", With()), "'A  Arrow\\nT  Text\\n'");
    EXPECT_EQ(history_.Take(), "");
    EXPECT_EQ(client_.Take(), "");
    EXPECT_EQ(copy.ConstGet("A"), container_->ConstGet("A"));
}

TEST_F(IntObj, EditsTellHistoryAndClient)
{
    const auto arrow = At("A");
    const std::string modified = "modified mdb.annotations['A'] 1";
    Call(*arrow, "setValues", With(std::pair("color", cow_String("Red"))));
    EXPECT_EQ(history_.Take(), "('Modify', 'A')");
    EXPECT_EQ(client_.Take(), modified);
    Call(*arrow, "translate", With(std::pair("x", 1.0), std::pair("y", 2.0)));
    EXPECT_EQ(client_.Take(), modified);
    Call(*arrow, "translateStartPoint", With(std::pair("y", 4)));
    Call(*arrow, "translateEndPoint", With(std::pair("x", 8.0)));
    EXPECT_EQ(Member(*arrow, "startPoint"), "(1.0, 6.0)");
    EXPECT_EQ(Member(*arrow, "endPoint"), "(9.0, 2.0)");
    EXPECT_EQ(client_.Take(), modified + ", " + modified);
    history_.Take();
    Call(*arrow, "moveAfter", With(Name("T")));
    EXPECT_EQ(history_.Take(), "('Remove', 'A') ('Insert', 'A', 1)");
    EXPECT_EQ(client_.Take(), "") << "the contents are as they were";
}

struct Refusal
{
    const char* name;
    void (*expect)(const std::function<void(omu_Arguments)>& set);
};

class RefusedValues : public IntObj, public testing::WithParamInterface<Refusal>
{};

TEST_P(RefusedValues, LeaveEverythingAsItWas)
{
    const auto arrow = At("A");
    const std::string before(arrow->AsString(0).View());
    GetParam().expect([&](omu_Arguments arguments) {
        arguments.Put("startGap", 5.0);
        Call(*arrow, "setValues", std::move(arguments));
    });
    EXPECT_EQ(std::string(arrow->AsString(0).View()), before);
    EXPECT_EQ(history_.Take(), "");
    EXPECT_EQ(client_.Take(), "");
}

template <class T>
omu_Arguments One(const char* keyword, const T& value)
{
    omu_Arguments arguments;
    arguments.Put(cow_String(keyword), value);
    return arguments;
}

INSTANTIATE_TEST_SUITE_P(
    Faults, RefusedValues,
    testing::Values(
        Refusal{"Unknown",
                [](const auto& set) {
                    EXPECT_RAISE(set(One("colour", cow_String("Red"))), omu_KeywordErrorException,
                                 "keyword error on colour");
                }},
        Refusal{"WrongType",
                [](const auto& set) {
                    EXPECT_RAISE(set(One("endGap", cow_String("x"))), omu_KeywordTypeErrorException,
                                 "endGap; found string, expecting float");
                }},
        Refusal{"AnchorTooLong",
                [](const auto& set) {
                    EXPECT_RAISE(set(One("endAnchor", cow_List<double>{1.0, 2.0, 3.0, 4.0})),
                                 omu_KeywordTypeErrorException,
                                 "endAnchor; found tuple, expecting sequence of Floats");
                }},
        Refusal{"AnchorOfAnotherEnumeration",
                [](const auto& set) {
                    EXPECT_RAISE(set(One("endAnchor", omu_PrimEnum<annC_LineStyleEnm, 1>("DASHED"))),
                                 omu_KeywordTypeErrorException,
                                 "endAnchor; found DASHED, expecting sequence of Floats");
                }},
        Refusal{"PointTooShort",
                [](const auto& set) {
                    EXPECT_RAISE(set(One("startPoint", cow_List<double>{1.0})), omu_KeywordTypeErrorException,
                                 "startPoint; found tuple, expecting sequence of Floats");
                }},
        Refusal{"ColorThatTheClientRefuses",
                [](const auto& set) {
                    EXPECT_RAISE(set(One("color", cow_String("Mud"))), omu_ValueErrorException, "no Mud");
                }}),
    [](const auto& row) { return row.param.name; });

TEST_F(IntObj, MovesNameWhatIsMissing)
{
    const auto arrow = At("A");
    EXPECT_RAISE(Call(*arrow, "moveBefore", With(Name("x"))), omu_KeyErrorException, "x");
    container_->Remove("A");
    EXPECT_TRUE(arrow->IsStale());
    EXPECT_EQ(arrow->Id(), -1);
    EXPECT_EQ(arrow->ConstGetWrapper(), nullptr);
    EXPECT_RAISE(Call(*arrow, "moveBefore", With(Name("T"))), omu_KeyErrorException, "A");
    for (const char* move : {"bringForward", "sendBackward", "bringToFront", "sendToBack"})
        EXPECT_RAISE(Call(*arrow, move, With()), omu_KeyErrorException, "A");
    for (const char* method : {"setValues", "translate", "translateEndPoint"})
        EXPECT_RAISE(Call(*arrow, method, With()), omu_AccessErrorException,
                     "mdb.annotations['A'] no longer exists");
    EXPECT_RAISE(Member(*arrow, "color"), omu_AccessErrorException, "mdb.annotations['A'] no longer exists");
    // A new annotation of the name is found again, whatever its class.
    container_->Insert("A", annC_Arrow());
    EXPECT_EQ(Member(*arrow, "color"), "'White'");
    const annC_AnnotationContainerIntObj kept = annotations_;
    mdb_ = annC_AnnotatedIntObj(omu_SimpleTermShortcutImpl("mdb", true), nullptr);
    container_.reset();
    EXPECT_TRUE(kept.IsStale());
    EXPECT_TRUE(arrow->IsStale());
}

TEST_F(IntObj, TheDictionaryFollowsTheStackingOrder)
{
    EXPECT_EQ(std::string(annotations_.AsString(0).View()),
              "{'A': mdb.annotations['A'], 'T': mdb.annotations['T']}");
    EXPECT_EQ(Call(annotations_, "has_key", With(std::pair("key", cow_String("A")))), "True");
    annotations_.Assign("A", omu_PrimBoolean(true));
    EXPECT_EQ(Call(annotations_, "keys", With()), "['A', 'T']");
    EXPECT_RAISE(Call(annotations_, "changeKey",
                      With(std::pair("fromName", cow_String("A")), std::pair("toName", cow_String("A")))),
                 omu_ValueErrorException, "toName A  already exists");
    annotations_.ChangeKey("A", "A");
    EXPECT_EQ(client_.Take(), "") << "nothing goes when a name stays";
    EXPECT_RAISE(annotations_.ChangeKey("x", "T"), omu_KeyErrorException, "x");
    EXPECT_EQ(client_.Take(), "deleted mdb.annotations 0") << "told before the old name was looked up";
    annotations_.ChangeKey("A", "T");
    EXPECT_EQ(client_.Take(), "deleted mdb.annotations 0");
    EXPECT_EQ(At("T")->Id(), 1);
    annotations_.Remove("x");
    EXPECT_EQ(client_.Take(), "");
    annotations_.Remove("T");
    EXPECT_EQ(client_.Take(), "deleted mdb.annotations 1");
    EXPECT_EQ(Call(annotations_, "_summary", With()), "'Empty Summary'");
}

TEST(Client, TheLatestIsTheInstanceUntilItGoes)
{
    const annC_Text text;
    EXPECT_EQ(annC_AnnotationClient::Instance().GetWidth(text), 0.0);
    annC_AnnotationClient::Instance().VerifyColorValue("Mud");
    RecordingClient first;
    {
        RecordingClient second;
        EXPECT_EQ(&annC_AnnotationClient::Instance(), &second);
    }
    EXPECT_FALSE(annC_AnnotationClient::Exists());
    EXPECT_EQ(annC_AnnotationClient::Instance().GetHeight(text), 0.0);
}
}
