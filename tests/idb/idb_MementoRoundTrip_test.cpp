// Every registered class goes out, comes back, and goes out again byte for byte; what is shared stays shared.

#include <annC_AnnotationContainer.h>
#include <annC_Arrow.h>
#include <annC_NamedAnchor.h>
#include <annC_Point3DAnchor.h>
#include <annC_Text.h>
#include <annC_ViewportAnchor.h>
#include <cls_AdapterBase.h>
#include <cls_MetadataRegistrar.h>
#include <cls_PersistentValue.h>
#include <cow_COW.h>
#include <g3d_ColorErrorException.h>
#include <g3d_Point.h>
#include <g3d_Vector.h>
#include <gsl_ArrayPoint.h>
#include <gsl_BBox.h>
#include <gsl_DirMethod.h>
#include <gsl_DotArray.h>
#include <gsl_DotMethod.h>
#include <gsl_LineArray.h>
#include <gsl_LineMethod.h>
#include <gsl_ModelSegmentArray.h>
#include <gsl_PersistentMatrix.h>
#include <gsl_PersistentVector.h>
#include <gsl_PlaneArray.h>
#include <gsl_Segment.h>
#include <idb_MementoException.h>
#include <idb_MementoRead.h>
#include <idb_MementoWrite.h>
#include <mdl_JaggedArray.h>
#include <mdl_PropagatingAttribute.h>
#include <mdl_PropertyTable.h>
#include <mdl_Repository.h>
#include <omu_AccessErrorException.h>
#include <omu_ArgNumberErrorException.h>
#include <omu_ArgTypeErrorException.h>
#include <omu_AttributeErrorException.h>
#include <omu_FontErrorException.h>
#include <omu_GenericTypeErrorException.h>
#include <omu_GuiAccessErrorException.h>
#include <omu_IndexErrorException.h>
#include <omu_InterfaceObj.h>
#include <omu_KeyErrorException.h>
#include <omu_KeywordErrorException.h>
#include <omu_KeywordTypeErrorException.h>
#include <omu_NameErrorException.h>
#include <omu_OrvNameErrorException.h>
#include <omu_OverflowErrorException.h>
#include <omu_PrimArray.h>
#include <omu_PrimBool.h>
#include <omu_PrimBoolean.h>
#include <omu_PrimComplex.h>
#include <omu_PrimDictionary.h>
#include <omu_PrimException.h>
#include <omu_PrimExpr.h>
#include <omu_PrimNone.h>
#include <omu_PrimPath.h>
#include <omu_PrimTranslatedString.h>
#include <omu_PrimType.h>
#include <omu_PrimWrapper.h>
#include <omu_PyObjectWrapper.h>
#include <omu_PyOrvexException.h>
#include <omu_QueryPathMsg.h>
#include <omu_RangeErrorException.h>
#include <omu_ValueErrorException.h>
#include <omu_ZeroDivisionErrorException.h>
#include <testing/ExpectRaise.h>
#include <testing/LibraryGuard.h>
#include <testing/MementoMaker.h>
#include <testing/ValueTesting.h>

#include <algorithm>
#include <functional>
#include <map>
#include <set>

namespace
{
using Value = cow_COW<omu_Primitive>;
using Dictionary = omu_PrimDictionary<cow_String>;

Bytes Written(const std::function<void(idb_MementoWrite&)>& add)
{
    idb_MementoWrite memento;
    add(memento);
    memento.Finish();
    return memento.TakeBytes();
}

class Memento : public testing::Test
{
protected:
    static const cls_ClassRegistrar& Registrar() { return cls_MetadataRegistrar::Instance().Registrar(); }

    const LibraryGuard running_;
};

// How a value of a class goes out, and how what came back does.
struct Sample
{
    Bytes bytes;
    std::function<Bytes(cls_Persistent*)> write;

    Bytes Again(const Bytes& read) const
    {
        idb_MementoRead memento(read);
        const std::unique_ptr<cls_Persistent> back = memento.Root("object");
        EXPECT_EQ(memento.Warnings(), cow_List<cow_String>());
        return write(back.get());
    }
    /// Whether reading without the attribute gives another object: then it is not what a fresh one has, and
    /// is read. False where the memento does not hold it.
    bool Tells(const cls_ClassMetadata& meta, const cls_Attribute& attribute) const
    {
        const Bytes record = Payload(std::uint32_t{meta.TypeId()}, meta.Name());
        const Bytes declared =
            Payload(attribute.name, static_cast<std::uint16_t>(attribute.type),
                    std::uint32_t{attribute.typeId}, static_cast<std::uint16_t>(attribute.collection));
        Bytes without = bytes;
        auto at = std::search(without.begin(), without.end(), record.begin(), record.end());
        at = std::search(at, without.end(), declared.begin(), declared.end());
        if (at == without.end())
            return false;
        at[sizeof(std::uint32_t)] = '?'; // the first letter of its name
        Reseal(without);
        try
        {
            return Again(without) != bytes;
        }
        catch (const KTLBasException&)
        {
            return true;
        }
    }
};

// By type id.
using Samples = std::multimap<unsigned, Sample>;

template <class... T>
void AddSamples(Samples& samples, const T&... values)
{
    const auto write = [](const auto& value) {
        return Written([&](idb_MementoWrite& memento) { memento.Add("object", value); });
    };
    (samples.emplace(T::TypeId(),
                     Sample{write(values),
                            [write](cls_Persistent* back) { return write(*cls_PersistentCast<T>(back)); }}),
     ...);
}

TEST_F(Memento, EveryRegisteredClassComesBackByteForByte)
{
    Dictionary dictionary;
    dictionary.Put("number", omu_PrimNumber(1.5));
    dictionary.Put("inner", TupleOf("x", 2, TupleOf()));
    omu_PrimDictionary<int> byNumber;
    byNumber.Put(-3, omu_PrimString("x"));
    omu_PrimList list(3, 7);
    list.Put("a");
    list.Put(static_cast<omu_Primitive*>(nullptr));
    gsl_Matrix moved;
    moved.SetTranslation(gsl_Vector(1, 2, 3));
    const gsl_Point p(1.0 / 3, -0.0, 1e-300);
    const gsl_Vector measured(3, 4, 12);
    ASSERT_EQ(measured.Magnitude(), 13); // stored from now on
    gsl_Plane plane(p, gsl_Vector(1, 2, 2));
    plane.SetParents(gsl_DirMethod::FROM_FACE, {4, 5}, true);
    plane.SetOwnerFeatID(6);
    gsl_StLine line(p, gsl_Vector(1, 2, 2));
    line.SetParents(gsl_LineMethod::FROM_EDGE, {4, 5}, true);
    line.SetOwnerFeatID(6);
    gsl_Dot dot;
    dot.SetValues(p, gsl_DotMethod::gsl_FROM_DATUM_CSYS_ORIGIN, 6, 7);
    omu_ArgTypeErrorException argument;
    argument.m_ArgNum = 2;
    argument.m_Expecting = argument.m_Found = argument.m_NestingStr = "Float";
    argument.SetSource("source", 12);
    argument.SetCode(3);
    argument.SetTraceback("line 4");
    omu_RangeErrorException range;
    range.m_Keyword = "depth";
    range.m_KeywordType = 1;
    range.SetLowerLimitAsInt(1);
    range.SetHigherLimitAsDouble(2.5);
    range.m_LowerLimitQualifier = range.m_HigherLimitQualifier = omu_RangeErrorException::EXCLUSIVE;
    omu_KeywordErrorException keyword;
    keyword.m_Keyword = keyword.m_NestingStr = "k";
    omu_KeywordTypeErrorException keywordType;
    keywordType.m_Keyword = keywordType.m_Expecting = keywordType.m_Found = keywordType.m_NestingStr = "k";
    omu_OrvNameErrorException name;
    name.m_Error = 2;
    omu_AttributeErrorException readOnly;
    readOnly.m_ErrorType = 1;
    readOnly.m_Attribute = "width";
    mdl_Repository repository("parts");
    ASSERT_TRUE(repository.Insert("inner", new mdl_Repository("inner")));

    annC_AnnotationContainer container;
    ASSERT_TRUE(container.Insert("A", annC_Arrow()));
    const annC_NamedAnchor named(annC_RelativePositionEnm::CENTER);
    annC_Arrow arrow;
    arrow.startPointX = arrow.startPointY = arrow.endPointX = arrow.endPointY = 0.1;
    arrow.startGap = arrow.endGap = 2.5;
    arrow.startAnchor = arrow.endAnchor = annC_AnchorCow(new annC_ViewportAnchor(1, 2));
    arrow.startHeadStyle = arrow.endHeadStyle = annC_ArrowHeadStyleEnm::HOLLOW_SQUARE;
    arrow.color = "Red";
    arrow.lineStyle = annC_LineStyleEnm::DOT_DASH;
    arrow.lineThickness = annC_LineThicknessEnm::THICK;
    annC_Text text;
    text.text = text.font = text.color = text.backgroundColor = "Red";
    text.offsetX = text.offsetY = text.rotationAngle = 0.1;
    text.anchor = text.referencePoint = annC_AnchorCow(new annC_NamedAnchor(named));
    text.backgroundStyle = annC_BackgroundStyleEnm::OTHER;
    text.box = true;
    text.justification = annC_JustificationEnm::RIGHT;
    mdl_PropertyTable table(cow_List<cow_String>{"E", "nu"});
    ASSERT_TRUE(table.AddRow({2.1e5, 0.3}));
    mdl_JaggedArray jagged;
    jagged.AddRow({1, 2});
    jagged.AddRow({});

    Samples samples;
    AddSamples(samples, omu_PrimNumber(-7), omu_PrimNumber(4000000000u),
               omu_PrimString(cow_String("a\0b", 3)), omu_PrimBoolean(true), omu_PrimTranslatedString("a'b"),
               omu_PrimNone(false), omu_PrimComplex(omi_complex(1.5, -2)), omu_PrimExpr("a+b"),
               omu_PrimType("Odb"), omu_PrimPath(cow_List<cow_String>{"mdb", "m"}),
               omu_PrimException(omu_ValueErrorException("no"), "line 1"), omu_PrimEnumBase("SOLID"),
               omu_OnOffConst(false), dictionary, byNumber, list, TupleOf(1, "x"),
               omu_PrimArray(cow_List<int>{2, 1}, cow_List<float>{0.5F, 1.5F}),
               omu_PrimArray(cow_List<int>{4, 5}), omu_PrimArray(cow_List<double>{0.1}),
               omu_PrimWrapper(4, nullptr, dictionary), omu_QueryPathMsg(true));
    AddSamples(samples, argument, range, omu_ArgNumberErrorException(2, 3, "s"),
               omu_GenericTypeErrorException(), keyword, keywordType, name, readOnly,
               omu_AccessErrorException("a"), omu_FontErrorException("f"), omu_GuiAccessErrorException("g"),
               omu_IndexErrorException(3), omu_KeyErrorException("k"), omu_NameErrorException("n"),
               omu_OverflowErrorException("o"), omu_ValueErrorException("v"),
               omu_ZeroDivisionErrorException("z"), g3d_ColorErrorException("c"), KTLBasException(),
               nex_Exception("e"), nex_PrimException("p"));
    AddSamples(samples, p, gsl_PersistentMatrix(moved), gsl_PersistentVector(measured), plane, dot, line,
               gsl_BBox(p, gsl_Point(4, 5, 6)), gsl_Segment(p, p), gsl_ModelSegment(dot, dot),
               gsl_PlaneArray({plane, gsl_Plane()}), gsl_LineArray({line}), gsl_DotArray({dot}),
               gsl_ArrayPoint({p, p}), gsl_ModelSegmentArray({gsl_ModelSegment(dot, dot)}),
               g3d_Point(0.1f, -2.5f, 1e38f), g3d_Vector(1, 2, 3), repository);
    AddSamples(samples, named, annC_ViewportAnchor(1, 2), annC_Point3DAnchor(1, 2, 3), arrow, text,
               container);

    const auto carried = [](auto attribute) {
        attribute.ForceState(mdl_PropAttributeStateEnm::UNCHANGED);
        return attribute;
    };
    AddSamples(samples, carried(mdl_PropString("s")), carried(mdl_PropInt(-7)), carried(mdl_PropDouble(0.5)),
               carried(mdl_PropBool(true)), carried(mdl_PropListInt(cls_xpListInt{1, 2})),
               carried(mdl_PropListString(cls_xpListString{"a", ""})),
               carried(mdl_Prop1DArrayInt(cls_xp1DArrayInt{7})),
               carried(mdl_PropList1DArrayListFloat(cls_xp1DArrayListFloat{{1.0F}, {}})), table, jagged);

    // What the class alone decides.
    const std::set<cow_String> constant = {"type", "m_Represents"};
    for (const unsigned typeId : Registrar().TypeIds())
    {
        const cls_ClassMetadata& meta = *Registrar().Find(typeId);
        SCOPED_TRACE(meta.Name().AsCharPtr());
        // The tests' own classes lie above the library's components.
        if (cls_ComponentOf(typeId) >= 0x7E00)
            continue;
        ASSERT_NE(meta.Adapter(), nullptr) << "nobody could read it";
        EXPECT_EQ(samples.count(typeId) == 0, meta.Adapter()->IsAbstract())
            << "a new class: give it a sample here";
        const auto [first, last] = samples.equal_range(typeId);
        for (auto sample = first; sample != last; ++sample)
            EXPECT_EQ(sample->second.Again(sample->second.bytes), sample->second.bytes);
        for (const cls_Attribute& attribute : meta.Attributes())
            EXPECT_TRUE(constant.count(attribute.name) > 0 ||
                        std::any_of(samples.begin(), samples.end(),
                                    [&](const auto& sample) {
                                        return Registrar().InheritanceCheck(sample.first, typeId) &&
                                               sample.second.Tells(meta, attribute);
                                    }))
                << attribute.name << ": give it a value that a fresh object does not have";
    }
}

TEST_F(Memento, SharedBodiesAreStoredOnceAndEditsInBetweenDetach)
{
    Value shared(new omu_PrimString("first"));
    const Value same = shared;
    const Bytes bytes = Written([&](idb_MementoWrite& memento) {
        memento.Add("a", shared);
        memento.Add("same", same);
        dynamic_cast<omu_PrimString&>(shared.Get()) = omu_PrimString("second");
        memento.Add("b", shared);
        memento.Add("none", Value());
    });
    idb_MementoRead memento(bytes);
    Value a, again, b, none(new omu_PrimNone);
    memento.Root("a", a);
    memento.Root("same", again);
    memento.Root("b", b);
    memento.Root("none", none);
    EXPECT_TRUE(a.SharesWith(again) && a->AsString(0) == "'first'" && b->AsString(0) == "'second'");
    EXPECT_TRUE(none.IsNull());
    EXPECT_EQ(memento.RootNames(), (cow_List<cow_String>{"a", "same", "b", "none"}));
    EXPECT_RAISE(memento.Root("a"), idb_MementoException,
                 "idb_MementoRead: object 1 (omu_PrimString) cannot be held as a 0x1 here");
    EXPECT_RAISE(memento.Root("c", a), idb_MementoException, "idb_MementoRead: there is no object named c");
}

class Stranger : public omu_InterfaceObj
{
public:
    Stranger() { SetTypeDesc(DescribeType("Part", nullptr, nullptr, nullptr, nullptr)); }
    Stranger* Copy() const override { return new Stranger(*this); }
};

// What nothing could read again does not get out, and the memento is failed for good.
TEST_F(Memento, WhatCannotComeBackIsRefusedByName)
{
    omu_PrimTuple deep;
    for (int i = 0; i < 250; ++i)
        deep = TupleOf(deep);
    const std::pair<std::unique_ptr<omu_Primitive>, const char*> rows[] = {
        {std::make_unique<omu_PrimTuple>(TupleOf("x", TupleOf(Stranger()))),
         "nex_PrimException: Part cannot be stored"},
        {std::make_unique<omu_PyObjectWrapper>(), "nex_PrimException: omu_PyObjectWrapper cannot be stored"},
        {std::make_unique<omu_PrimException>(omu_PyOrvexException("no")),
         "idb_MementoException: idb_MementoWrite: class omu_PyOrvexException (0x130032) has no metadata"},
        {std::make_unique<omu_PrimTuple>(deep),
         "idb_MementoException: idb_MementoWrite: limit exceeded: nesting depth"}};
    for (const auto& [value, text] : rows)
    {
        idb_MementoWrite memento;
        memento.Add("good", omu_PrimNone());
        EXPECT_ERROR(memento.Add("bad", value.get()), text);
        EXPECT_ERROR(memento.Add("good again", omu_PrimNone()), text);
        EXPECT_ERROR(memento.Finish(), text);
        EXPECT_RAISE(memento.Bytes(), idb_MementoException, "idb_MementoWrite: the memento is not finished");
    }
    idb_MementoWrite memento;
    EXPECT_RAISE(memento.WriteInt({0, "n"}, 1), idb_MementoException,
                 "idb_MementoWrite: n is no object, and a memento holds named objects");
    EXPECT_RAISE(memento.MakeWriteListPrim(1, 1), idb_MementoException,
                 "idb_MementoWrite: no attribute is being written");
    memento.Add("a", omu_PrimNone());
    memento.Finish();
    memento.Finish();
    EXPECT_RAISE(memento.Add("b", omu_PrimNone()), idb_MementoException,
                 "idb_MementoWrite: the memento is finished");
}

// Whatever a writer lets through under some limits, a reader under the same lets through, whichever root is
// asked for first.
TEST_F(Memento, LimitsOfWriterAndReaderAgree)
{
    const auto write = [](const idb_MementoLimits& limits) {
        Value inner(new omu_PrimString("text"));
        idb_MementoWrite memento(limits);
        for (const char* name : {"a", "b", "c"})
        {
            Value outer(new omu_PrimTuple(TupleOf(TupleOf(*inner))));
            memento.Add(name, outer);
            inner = outer;
        }
        memento.Add("null", Value());
        memento.Finish();
        return memento.TakeBytes();
    };
    const auto agree = [&](auto member, unsigned most) {
        int written = 0;
        for (unsigned value = 0; value <= most; ++value)
        {
            idb_MementoLimits limits;
            limits.*member = value;
            Bytes bytes;
            if (orvex_testing::Raised<idb_MementoException>([&] { bytes = write(limits); }) !=
                "nothing was raised")
                continue;
            ++written;
            Value back;
            EXPECT_NO_THROW(idb_MementoRead(bytes, limits).Root("c", back)) << value;
        }
        EXPECT_TRUE(written > 0 && written <= static_cast<int>(most)) << written;
    };
    agree(&idb_MementoLimits::bytes, 2000);
    agree(&idb_MementoLimits::objects, 12);
    agree(&idb_MementoLimits::classes, 6);
    agree(&idb_MementoLimits::attributes, 4);
    agree(&idb_MementoLimits::depth, 12);
    agree(&idb_MementoLimits::text, 20);
    // References that cost a few bytes each, and no more than that.
    idb_MementoLimits meagre;
    meagre.budgetBase = 1000;
    omu_PrimList nulls(0, 0);
    omu_PrimDictionary<int> byNumber;
    for (int i = 0; i < 1000; ++i)
    {
        nulls.Put(static_cast<omu_Primitive*>(nullptr));
        byNumber.Put(i, static_cast<omu_Primitive*>(nullptr));
    }
    const Bytes bytes =
        Written([&](idb_MementoWrite& memento) { memento.Add("a", TupleOf(nulls, byNumber)); });
    EXPECT_NO_THROW(idb_MementoRead(bytes, meagre).Root("a"));
}

// The class counts that announces itself: constants without metadata are stored as plain ones.
TEST_F(Memento, ConstantsGoByWhatTheyAnnounce)
{
    const Bytes bytes = Written([](idb_MementoWrite& memento) {
        memento.Add("t", omu_TrueFalseConst(true));
        memento.Add("all", TupleOf(omu_YesNoConst(false), omu_OnOffConst(true)));
    });
    idb_MementoRead memento(bytes);
    omu_PrimEnumBase constant;
    memento.Root("t", constant);
    EXPECT_EQ(constant.GetString(), "TRUE");
    Value all;
    memento.Root("all", all);
    EXPECT_EQ(all->AsString(0), "(NO, ON)");
}
}
