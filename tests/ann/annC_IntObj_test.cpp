// Annotations as scripts reach them: mdb.annotations['A'].setValues(color='Red').

#include <annC_AnnotatedIntObj.h>
#include <annC_AnnotationClient.h>
#include <annC_AnnotationContainerIntObj.h>
#include <annC_ArrowIntObj.h>
#include <annC_TextIntObj.h>
#include <nex_RaiseWith.h>
#include <omu_PrimBoolean.h>
#include <omu_PrimWrapper.h>
#include <omu_SimpleTermShortcutImpl.h>
#include <omu_ValueErrorException.h>
#include <testing/AnnotationHistory.h>
#include <testing/ValueTesting.h>

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
    template <class... Keywords>
    static std::string Call(const omu_InterfaceObj& object, const char* method, const Keywords&... keywords)
    {
        bool found = false;
        omu_Arguments arguments = Args(keywords...);
        const std::unique_ptr<omu_Primitive> result(object.CallMethod(method, nullptr, arguments, found));
        EXPECT_TRUE(found) << method;
        return result == nullptr ? "None" : std::string(result->AsRepr().View());
    }
    static std::string Member(const omu_InterfaceObj& object, const char* name)
    {
        bool found = false;
        return Text(object.GetMember(name, found));
    }
    static Keyword Name(const char* name) { return {"name", cow_String(name)}; }
    std::unique_ptr<annC_AnnotationIntObj> At(const char* name) const
    {
        return std::unique_ptr<annC_AnnotationIntObj>(annotations_.GetIntObj(name));
    }

    void SetUp() override
    {
        Call(mdb_, "Text", Name("T"), Keyword("text", "here"));
        Call(mdb_, "Arrow", Name("A"));
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
    EXPECT_EQ(Call(mdb_, "Arrow", Name("B"), Keyword("startPoint", TupleOf(1, 2))), "mdb.annotations['B']");
    EXPECT_EQ(history_.Take() + client_.Take(), "('Insert', 'B', 0)");
    EXPECT_EQ(Member(*At("B"), "startPoint"), "(1.0, 2.0)");
    EXPECT_EQ(Call(mdb_, "Text", Name("B")), "mdb.annotations['B']");
    EXPECT_EQ(history_.Take(), "('Remove', 'B') ('Insert', 'B', 0)");
    EXPECT_EQ(client_.Take(), "deleted mdb.annotations 2");
}

TEST_F(IntObj, ReadingPostsNothingAndKeepsSharing)
{
    const annC_AnnotationContainer copy = *container_;
    const auto text = At("T");
    for (const cow_String& name : text->MemberList())
        Member(*text, name.AsCharPtr());
    EXPECT_EQ(Member(*text, "width") + Member(*text, "height"), "4.07.0") << "as the client measures it";
    EXPECT_EQ(Text(*text->ConstGetWrapper()), "<Text object named T>");
    EXPECT_EQ(text->BaseTypes(), cow_List<cow_String>{"Annotation"});
    EXPECT_EQ(history_.Take() + client_.Take(), "");
    EXPECT_EQ(copy.ConstGet("T"), container_->ConstGet("T"));
}

TEST_F(IntObj, EditsTellHistoryAndClient)
{
    const auto arrow = At("A");
    const std::string modified = "modified mdb.annotations['A'] 1";
    Call(*arrow, "setValues", Keyword("color", "Red"));
    EXPECT_EQ(history_.Take(), "('Modify', 'A')");
    EXPECT_EQ(client_.Take(), modified);
    Call(*arrow, "translateStartPoint", Keyword("y", 4));
    Call(*arrow, "translateEndPoint", Keyword("x", 8.0));
    EXPECT_EQ(Member(*arrow, "startPoint") + Member(*arrow, "endPoint"), "(0.0, 4.0)(8.0, 0.0)");
    EXPECT_EQ(client_.Take(), modified + ", " + modified);
    history_.Take();
    Call(*arrow, "moveAfter", Name("T"));
    EXPECT_EQ(history_.Take(), "('Remove', 'A') ('Insert', 'A', 1)");
    EXPECT_EQ(client_.Take(), "") << "the contents are as they were";
}

TEST_F(IntObj, RefusedValuesLeaveEverythingAsItWas)
{
    const omu_PrimEnum<annC_LineStyleEnm, 1> dashed("DASHED");
    const std::pair<Keyword, const char*> rows[] = {
        {{"colour", cow_String("Red")}, "TypeError: keyword error on colour"},
        {{"endGap", cow_String("x")}, "TypeError: endGap; found string, expecting float"},
        {{"endAnchor", TupleOf(1, 2, 3, 4)},
         "TypeError: endAnchor; found tuple, expecting sequence of Floats"},
        {{"endAnchor", dashed}, "TypeError: endAnchor; found DASHED, expecting sequence of Floats"},
        {{"startPoint", TupleOf(1.0)}, "TypeError: startPoint; found tuple, expecting sequence of Floats"},
        {{"color", cow_String("Mud")}, "ValueError: no Mud"}};
    const auto arrow = At("A");
    const std::string before = Text(*arrow);
    for (const auto& [wrong, told] : rows)
        EXPECT_ERROR(Call(*arrow, "setValues", wrong, Keyword("startGap", 5.0)), told);
    EXPECT_EQ(Text(*arrow), before);
    EXPECT_EQ(history_.Take() + client_.Take(), "");
}

TEST_F(IntObj, MovesNameWhatIsMissing)
{
    const auto arrow = At("A");
    EXPECT_ERROR(Call(*arrow, "moveBefore", Name("x")), "KeyError: x");
    container_->Remove("A");
    EXPECT_TRUE(arrow->IsStale() && arrow->Id() == -1 && arrow->ConstGetWrapper() == nullptr);
    EXPECT_ERROR(Call(*arrow, "moveBefore", Name("T")), "KeyError: A");
    for (const char* move : {"bringForward", "sendBackward", "bringToFront", "sendToBack"})
        EXPECT_ERROR(Call(*arrow, move), "KeyError: A");
    for (const char* method : {"setValues", "translate", "translateEndPoint"})
        EXPECT_ERROR(Call(*arrow, method), "AccessError: mdb.annotations['A'] no longer exists");
    EXPECT_ERROR(Member(*arrow, "color"), "AccessError: mdb.annotations['A'] no longer exists");
    // A new annotation of the name is found again, whatever its class.
    container_->Insert("A", annC_Arrow());
    EXPECT_EQ(Member(*arrow, "color"), "'White'");
    const annC_AnnotationContainerIntObj kept = annotations_;
    mdb_ = annC_AnnotatedIntObj(omu_SimpleTermShortcutImpl("mdb", true), nullptr);
    container_.reset();
    EXPECT_TRUE(kept.IsStale() && arrow->IsStale());
}

TEST_F(IntObj, TheDictionaryTellsTheClientWhatGoes)
{
    annotations_.Assign("A", omu_PrimBoolean(true));
    EXPECT_EQ(Call(annotations_, "keys"), "['A', 'T']") << "assigned to no effect";
    EXPECT_ERROR(Call(annotations_, "changeKey", Keyword("fromName", "A"), Keyword("toName", "A")),
                 "ValueError: toName A  already exists");
    annotations_.ChangeKey("A", "A");
    EXPECT_EQ(client_.Take(), "") << "nothing goes when a name stays";
    EXPECT_ERROR(annotations_.ChangeKey("x", "T"), "KeyError: x");
    EXPECT_EQ(client_.Take(), "deleted mdb.annotations 0") << "told before the old name was looked up";
    annotations_.ChangeKey("A", "T");
    EXPECT_EQ(client_.Take(), "deleted mdb.annotations 0");
    annotations_.Remove("x");
    EXPECT_EQ(client_.Take(), "");
    annotations_.Remove("T");
    EXPECT_EQ(client_.Take(), "deleted mdb.annotations 1");
    EXPECT_EQ(Call(annotations_, "_summary"), "'Empty Summary'");
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
