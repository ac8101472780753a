// What all values have in common: kind code, type name, text, identity, equality across kinds, visiting, type
// id, and what is stored of them.

#include <KTLOxuOmu.h>
#include <cls_ClassRegistrar.h>
#include <cls_MetadataRegistrar.h>
#include <functional>
#include <omu_DictIntPyObjectWrapper.h>
#include <omu_DictPyObjectWrapper.h>
#include <omu_DictStrPyObjectWrapper.h>
#include <omu_ListPyObjectWrapper.h>
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
#include <omu_PrimVisitor.h>
#include <omu_PrimWrapper.h>
#include <omu_PyObjectWrapper.h>
#include <omu_ValueErrorException.h>
#include <testing/MemoryStore.h>
#include <testing/StartGuard.h>
#include <testing/ValueTesting.h>
#include <vector>

namespace
{
using DataTypeEnm = omu_PrimNumber::DataTypeEnm;
using DataTypeConst = omu_PrimEnum<DataTypeEnm, 1>;
using StrDictionary = omu_PrimDictionary<cow_String>;
using IntDictionary = omu_PrimDictionary<int>;
using Make = std::function<std::unique_ptr<omu_Primitive>()>;

template <class T, class... Arguments>
Make New(Arguments... arguments)
{
    return [=] { return std::make_unique<T>(arguments...); };
}

StrDictionary SomeDictionary()
{
    StrDictionary dictionary;
    dictionary.Put("number", omu_PrimNumber(1.5));
    dictionary.Put("nothing", std::unique_ptr<omu_Primitive>());
    IntDictionary inner;
    inner.Put(-3, omu_PrimString("x"));
    dictionary.Put("inner", inner);
    return dictionary;
}

// Something, nothing and something nested.
omu_PrimList SomeList()
{
    omu_PrimList list(3, 7);
    list.Put("a");
    list.Put(static_cast<omu_Primitive*>(nullptr));
    list.Put(omu_PrimTuple(cow_List<int>{1, 2}));
    return list;
}

struct Kind : NamedRow
{
    Make make;
    char code;
    const char* typeString;
    const char* text;
    unsigned typeId;
    const char* stored; // MemoryStore's lines behind those of the root; or the refusal
};

// Unequal among themselves, one for each class and a few beside.
const std::vector<Kind>& Kinds()
{
    constexpr const char* OBJECT = "<scripting object>";
    constexpr const char* TYPES = "SCHAR or SHORT or INT or FLOAT or DOUBLE or UINT";
    static const std::vector<Kind> kinds = {
        {"Int", New<omu_PrimNumber>(-7), 'i', "int", "-7", 0x00130016,
         "omu_PrimNumber\n  value DOUBLE -7\n  uvalue STRING '0'\n  dataType ENUM 'INT'\n"},
        {"Unsigned", New<omu_PrimNumber>(18446744073709549568.0, DataTypeEnm::UINT), 'i', "int",
         "18446744073709549568", 0x00130016,
         "omu_PrimNumber\n  value DOUBLE 0\n  uvalue STRING '18446744073709549568'\n  dataType ENUM "
         "'UINT'\n"},
        {"Float", New<omu_PrimNumber>(0.5f), 'f', "float", "0.5", 0x00130016,
         "omu_PrimNumber\n  value DOUBLE 0.5\n  uvalue STRING '0'\n  dataType ENUM 'FLOAT'\n"},
        {"String", New<omu_PrimString>("a\nb"), 's', "string", "'a\\nb'", 0x00130018,
         "omu_PrimString\n  value STRING 'a\nb'\n"},
        {"TranslatedString", New<omu_PrimTranslatedString>("a'b"), 'l', "tran_string", "\"a'b\"", 0x00130030,
         "omu_PrimTranslatedString\n  value MESSAGE 'a'b'\n"},
        {"True", New<omu_PrimBoolean>(true), 'b', "Boolean", "True", 0x00130031,
         "omu_PrimBoolean\n  value BOOL true\n"},
        {"False", New<omu_PrimBoolean>(false), 'b', "Boolean", "False", 0x00130031,
         "omu_PrimBoolean\n  value BOOL false\n"},
        {"None", New<omu_PrimNone>(), 'n', "None", "None", 0x0013001D, "omu_PrimNone\n  isSet BOOL true\n"},
        {"UnsetNone", New<omu_PrimNone>(false), 'n', "None", "None", 0x0013001D,
         "omu_PrimNone\n  isSet BOOL false\n"},
        {"Complex", New<omu_PrimComplex>(omi_complex(1.5, -2.0)), 'x', "complex", "(1.5-2j)", 0x00130022,
         "omu_PrimComplex\n  real DOUBLE 1.5\n  imaginary DOUBLE -2\n"},
        {"Expression", New<omu_PrimExpr>("a'b"), 'e', "expression", "a'b", 0x0013001A,
         "omu_PrimExpr\n  value STRING 'a'b'\n"},
        {"Type", New<omu_PrimType>("Odb"), 't', "type", "Odb", 0x0013001F,
         "omu_PrimType\n  typeString STRING 'Odb'\n"},
        {"Path", New<omu_PrimPath>(cow_List<cow_String>{"mdb", "m"}), 'p', "path", "'mdb.m'", 0x00130017,
         "omu_PrimPath\n  context OBJECT/55 ['mdb', 'm'] columns 1\n  contextType INT 1\n"},
        {"Exception", New<omu_PrimException>(omu_ValueErrorException("no"), "line 1"), 'E', "exception",
         "omu_PrimException object", 0x0013002F,
         "omu_PrimException\n  exception OBJECT #2\n  traceback STRING 'line 1'\n"},
        {"NoException", New<omu_PrimException>(), 'E', "exception", "omu_PrimException object", 0x0013002F,
         "omu_PrimException\n  exception OBJECT null\n  traceback STRING ''\n"},
        {"Constant", New<omu_PrimEnumBase>("SOLID"), 'c', "", "SOLID", 0x0013001B,
         "omu_PrimEnum\n  stringValue STRING 'SOLID'\n"},
        // Constants of an enumeration, and of the boolean pairs without metadata, are stored as their base.
        {"Enumeration", New<DataTypeConst>(DataTypeEnm::INT), 'c', TYPES, "INT", 0x0013001B,
         "omu_PrimEnum\n  stringValue STRING 'INT'\n"},
        {"TrueFalse", New<omu_TrueFalseConst>(true), 'c', "TRUE or FALSE", "TRUE", 0x00130026,
         "omu_PrimEnum\n  stringValue STRING 'TRUE'\n"},
        {"YesNo", New<omu_YesNoConst>(false), 'c', "YES or NO", "NO", 0x00130027,
         "omu_PrimEnum\n  stringValue STRING 'NO'\n"},
        {"OnOff", New<omu_OnOffConst>(false), 'c', "ON or OFF", "OFF", 0x00130025,
         "omu_PrimEnum\n  stringValue STRING 'OFF'\nomu_OnOffConst\n"},
        {"StrDictionary", [] { return std::make_unique<StrDictionary>(SomeDictionary()); }, '{', "dictionary",
         "{'number': 1.5, 'nothing': None, 'inner': {-3: 'x'}}", 0x00130014,
         "omu_PrimDictionaryBase\n  m_Represents CHAR 's'\n"
         "omu_PrimStrDictionary\n  m_map OBJECT/2 {'number': #2, 'nothing': null, 'inner': #3}\n"},
        {"IntDictionary", New<IntDictionary>(), '{', "dictionary", "{}", 0x00130013,
         "omu_PrimDictionaryBase\n  m_Represents CHAR 'i'\nomu_PrimIntDictionary\n  m_map OBJECT/3 {}\n"},
        {"Tuple", New<omu_PrimTuple>(cow_List<double>{1.5, 2.5}), '(', "tuple", "(1.5, 2.5)", 0x00130019,
         "omu_PrimSequence\nomu_PrimTuple\n  primVector OBJECT/1 [#2, #3]\n"},
        {"List", [] { return std::make_unique<omu_PrimList>(SomeList()); }, '(', "list",
         "['a', None, (1, 2)]", 0x00130015,
         "omu_PrimSequence\nomu_PrimTuple\n  primVector OBJECT/1 [#2, null, #3]\n"
         "omu_PrimList\n  maxSize INT 7\n"},
        {"Array", New<omu_PrimArray>(cow_List<int>{2, 1}, cow_List<float>{0.5F, 1.5F}), 'o', "array",
         "((0.5,), (1.5,))", 0x00130021,
         "omu_PrimSequence\nomu_PrimArray\n  m_shape OBJECT/54 [2, 1] columns 1\n"
         "  m_ints OBJECT/54 [] columns 1\n  m_floats OBJECT/53 [0.5, 1.5] columns 1\n"
         "  m_doubles OBJECT/52 [] columns 1\n"},
        {"Wrapper", [] { return std::make_unique<omu_PrimWrapper>(4, nullptr, SomeDictionary()); }, '<',
         "wrapper", "<wrapper object>", 0x0013001E,
         "omu_PrimWrapper\n  objectType INT 4\n  members OBJECT #2\n"},
        {"ScriptObject", New<omu_PyObjectWrapper>(), 'W', "scripting object", OBJECT, 0x00130029,
         "omu_PyObjectWrapper cannot be stored"},
        {"ScriptDictionary", New<omu_DictPyObjectWrapper>(), '{', "scripting object", OBJECT, 0x0013002A,
         "omu_DictPyObjectWrapper cannot be stored"},
        {"ScriptIntDictionary", New<omu_DictIntPyObjectWrapper>(), '{', "scripting object", OBJECT,
         0x0013002B, "omu_DictIntPyObjectWrapper cannot be stored"},
        {"ScriptStrDictionary", New<omu_DictStrPyObjectWrapper>(), '{', "scripting object", OBJECT,
         0x0013002C, "omu_DictStrPyObjectWrapper cannot be stored"},
        {"ScriptList", New<omu_ListPyObjectWrapper>(), 'L', "scripting object", OBJECT, 0x0013002E,
         "omu_ListPyObjectWrapper cannot be stored"},
    };
    return kinds;
}

// Most kinds have an operation that takes nothing else; these could be mistaken for one another.
class NamingVisitor : public omu_PrimVisitor
{
public:
    void VisitPrimitive(omu_Primitive& value) override { seen = &value; }
    void VisitDictionary(omu_PrimDictionaryBase&) override { called = "dictionary"; }
    void VisitTuple(omu_PrimTuple&) override { called = "tuple"; }
    void VisitList(omu_PrimList&) override { called = "list"; }
    void VisitScriptObject(omu_Primitive&, const omu_PyObjectHandle&) override
    {
        called = "scripting object";
    }

    omu_Primitive* seen = nullptr;
    std::string called;
};

class EveryKind : public testing::TestWithParam<Kind>
{
protected:
    const StartGuard<KTLOxuOmu_initialize, KTLOxuOmu_finalize> running_;
    const std::unique_ptr<omu_Primitive> value_ = GetParam().make();
};

// And so has a copy, which has an identity of its own.
TEST_P(EveryKind, HasItsCodeNameTextAndTypeId)
{
    const Kind& kind = GetParam();
    const std::unique_ptr<omu_Primitive> copy(value_->Copy());
    EXPECT_NE(copy->Uid(), value_->Uid());
    EXPECT_FALSE(copy->Uid().IsNull());
    for (omu_Primitive* value : {value_.get(), copy.get()})
    {
        for (const char code : std::string("ifslbnxetpEc(o{WL<"))
            EXPECT_EQ(value->IsType(code), code == kind.code) << code;
        EXPECT_EQ(value->TypeString(), kind.typeString);
        EXPECT_EQ(Text(*value), kind.text);
        EXPECT_EQ(value->AsString(3), kind.text) << "the hint is ignored";
        EXPECT_EQ(value->AsRepr(), kind.text);
        EXPECT_EQ(value->DynTypeId(), kind.typeId);
        EXPECT_TRUE(value->IsA(omu_Primitive::TypeId()) && value->IsA(kind.typeId));
        EXPECT_EQ(value->IsA(omu_PrimString::TypeId()), kind.code == 's');
        EXPECT_EQ(value->IsA(omu_PrimEnumBase::TypeId()), kind.code == 'c');
        NamingVisitor visitor;
        value->Accept(&visitor);
        EXPECT_EQ(visitor.called, visitor.seen == value ? "" : kind.typeString);
        omu_PrimVisitor nothing;
        value->Accept(&nothing);
    }
}

TEST_P(EveryKind, EqualsItselfAlone)
{
    const std::unique_ptr<omu_Primitive> copy(value_->Copy());
    for (const Kind& other : Kinds())
    {
        const bool same = GetParam().name == std::string(other.name);
        const std::unique_ptr<omu_Primitive> made = other.make();
        EXPECT_EQ(*value_ == *made, same) << other.name;
        EXPECT_EQ(*copy == *made, same) << other.name;
        EXPECT_EQ(*value_ != *made, !same) << other.name;
    }
}

TEST_P(EveryKind, ComesBackEqual)
{
    const Kind& kind = GetParam();
    const bool pair = kind.typeId == omu_TrueFalseConst::TypeId() || kind.typeId == omu_YesNoConst::TypeId();
    MemoryStore store; // which is told that those two announce their base
    if (std::string(kind.stored).ends_with("cannot be stored"))
    {
        EXPECT_ERROR(store.WriteShared(value_.get()), std::string("nex_PrimException: ") + kind.stored);
        return;
    }
    const int number =
        pair ? store.Write(dynamic_cast<const omu_PrimEnumBase&>(*value_)) : store.WriteShared(value_.get());
    EXPECT_EQ(store.Faults(), "");
    EXPECT_EQ(store.Describe(number),
              std::string("omu_Primitive\n  type CHAR '") + kind.code + "'\n" + kind.stored);
    const cls_ClassRegistrar& registrar = cls_MetadataRegistrar::Instance().Registrar();
    const cls_ClassMetadata* meta = registrar.Find(kind.typeId);
    ASSERT_EQ(meta == nullptr, pair);
    if (!pair)
    {
        EXPECT_EQ(meta->Version(), kind.typeId == omu_PrimNumber::TypeId()     ? 835u
                                   : kind.typeId == omu_PrimEnumBase::TypeId() ? 514u
                                                                               : 800u);
        EXPECT_NE(registrar.FindDtor(kind.typeId), nullptr);
        EXPECT_EQ(meta->Dtor() != nullptr,
                  kind.typeId == omu_PrimBoolean::TypeId() || kind.typeId == omu_PrimEnumBase::TypeId());
    }
    // Data cannot make an object of one class pass for another kind.
    for (const char code : {kind.code, '\0', '?', kind.code == 's' ? 'i' : 's'})
    {
        store.Part(number, omu_Primitive::TypeId()).Set("type", cls_AttributeType::CHAR, code);
        const std::unique_ptr<cls_Persistent> back = store.Create(number);
        const auto& read = dynamic_cast<const omu_Primitive&>(*back);
        EXPECT_TRUE(read.IsType(kind.code)) << code;
        EXPECT_TRUE(read == *value_);
        EXPECT_EQ(Text(read), kind.text);
        EXPECT_EQ(read.Uid(), value_->Uid()) << "the identity is the stored one";
        EXPECT_EQ(read.DynTypeId(), pair ? omu_PrimEnumBase::TypeId() : kind.typeId);
    }
    for (MemoryPart& part : store.At(number).parts)
        part.attributes.clear();
    if (kind.typeId == omu_OnOffConst::TypeId())
    {
        EXPECT_THROW(store.Create(number), omu_ValueErrorException) << "no name is none of its two";
        return;
    }
    const std::unique_ptr<cls_Persistent> back = store.Create(number);
    const auto& read = dynamic_cast<const omu_Primitive&>(*back);
    EXPECT_FALSE(read.IsType('\0')) << "absent attributes leave the default";
    EXPECT_TRUE(read == *std::unique_ptr<omu_Primitive>(read.Copy()));
    static_cast<void>(read.AsString(0));
}

INSTANTIATE_TEST_SUITE_P(Kinds, EveryKind, testing::ValuesIn(Kinds()),
                         [](const auto& kind) { return std::string(kind.param.name); });
}
