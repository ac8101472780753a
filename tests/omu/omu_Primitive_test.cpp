// What all values have in common: kind code, text, identity, equality across kinds, and what is stored of
// them.

#include <KTLOxuOmu.h>
#include <cls_ClassRegistrar.h>
#include <cls_MetadataRegistrar.h>
#include <omu_DictIntPyObjectWrapper.h>
#include <omu_DictPyObjectWrapper.h>
#include <omu_DictStrPyObjectWrapper.h>
#include <omu_ListPyObjectWrapper.h>
#include <omu_PrimArray.h>
#include <omu_PrimBool.h>
#include <omu_PrimBoolean.h>
#include <omu_PrimComplex.h>
#include <omu_PrimException.h>
#include <omu_PrimExpr.h>
#include <omu_PrimNone.h>
#include <omu_PrimPath.h>
#include <omu_PrimTranslatedString.h>
#include <omu_PrimType.h>
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
using Texts = cow_List<cow_String>;

struct Kind
{
    Cell cell;
    char code;
    const char* text;
    const char* stored; // MemoryStore's lines behind those of the root; or the refusal
};

// Unequal among themselves, one for each class and a few beside.
const std::vector<Kind>& Kinds()
{
    constexpr const char* OBJECT = "<scripting object>";
    omu_PrimList list(3, 7); // something, nothing and something nested
    list.Put("a");
    list.Put(static_cast<omu_Primitive*>(nullptr));
    list.Put(omu_PrimTuple(cow_List<int>{1, 2}));
    const omu_PrimDictionary<cow_String> dictionary = DictionaryOf(
        Texts{"number", "nothing", "inner"},
        TupleOf(1.5, static_cast<omu_Primitive*>(nullptr), DictionaryOf(cow_List<int>{-3}, TupleOf("x"))));
    static const std::vector<Kind> kinds = {
        {omu_PrimNumber(-7), 'i', "-7",
         "omu_PrimNumber\n  value DOUBLE -7\n  uvalue STRING '0'\n  dataType ENUM 'INT'\n"},
        {omu_PrimString("a\nb"), 's', "'a\\nb'", "omu_PrimString\n  value STRING 'a\nb'\n"},
        {omu_PrimTranslatedString("a'b"), 'l', "\"a'b\"",
         "omu_PrimTranslatedString\n  value MESSAGE 'a'b'\n"},
        {omu_PrimBoolean(true), 'b', "True", "omu_PrimBoolean\n  value BOOL true\n"},
        {omu_PrimNone(), 'n', "None", "omu_PrimNone\n  isSet BOOL true\n"},
        {omu_PrimComplex(omi_complex(1.5, -2.0)), 'x', "(1.5-2j)",
         "omu_PrimComplex\n  real DOUBLE 1.5\n  imaginary DOUBLE -2\n"},
        {omu_PrimExpr("a'b"), 'e', "a'b", "omu_PrimExpr\n  value STRING 'a'b'\n"},
        {omu_PrimType("Odb"), 't', "Odb", "omu_PrimType\n  typeString STRING 'Odb'\n"},
        {omu_PrimPath(Texts{"mdb", "m"}), 'p', "'mdb.m'",
         "omu_PrimPath\n  context OBJECT/55 ['mdb', 'm'] columns 1\n  contextType INT 1\n"},
        {omu_PrimException(omu_ValueErrorException("no"), "line 1"), 'E', "omu_PrimException object",
         "omu_PrimException\n  exception OBJECT #2\n  traceback STRING 'line 1'\n"},
        {omu_PrimEnumBase("SOLID"), 'c', "SOLID", "omu_PrimEnum\n  stringValue STRING 'SOLID'\n"},
        // Constants of an enumeration, and of the boolean pairs without metadata, are stored as their base.
        {omu_PrimEnum<DataTypeEnm, 1>(DataTypeEnm::INT), 'c', "INT",
         "omu_PrimEnum\n  stringValue STRING 'INT'\n"},
        {omu_TrueFalseConst(true), 'c', "TRUE", "omu_PrimEnum\n  stringValue STRING 'TRUE'\n"},
        {omu_YesNoConst(false), 'c', "NO", "omu_PrimEnum\n  stringValue STRING 'NO'\n"},
        {omu_OnOffConst(false), 'c', "OFF", "omu_PrimEnum\n  stringValue STRING 'OFF'\nomu_OnOffConst\n"},
        {dictionary, '{', "{'number': 1.5, 'nothing': None, 'inner': {-3: 'x'}}",
         "omu_PrimDictionaryBase\n  m_Represents CHAR 's'\n"
         "omu_PrimStrDictionary\n  m_map OBJECT/2 {'number': #2, 'nothing': null, 'inner': #3}\n"},
        {omu_PrimDictionary<int>(), '{', "{}",
         "omu_PrimDictionaryBase\n  m_Represents CHAR 'i'\nomu_PrimIntDictionary\n  m_map OBJECT/3 {}\n"},
        {omu_PrimTuple(cow_List<double>{1.5, 2.5}), '(', "(1.5, 2.5)",
         "omu_PrimSequence\nomu_PrimTuple\n  primVector OBJECT/1 [#2, #3]\n"},
        {list, '(', "['a', None, (1, 2)]",
         "omu_PrimSequence\nomu_PrimTuple\n  primVector OBJECT/1 [#2, null, #3]\n"
         "omu_PrimList\n  maxSize INT 7\n"},
        {omu_PrimArray(cow_List<int>{2, 1}, cow_List<float>{0.5F, 1.5F}), 'o', "((0.5,), (1.5,))",
         "omu_PrimSequence\nomu_PrimArray\n  m_shape OBJECT/54 [2, 1] columns 1\n"
         "  m_ints OBJECT/54 [] columns 1\n  m_floats OBJECT/53 [0.5, 1.5] columns 1\n"
         "  m_doubles OBJECT/52 [] columns 1\n"},
        {omu_PrimWrapper(4, nullptr, dictionary), '<', "<wrapper object>",
         "omu_PrimWrapper\n  objectType INT 4\n  members OBJECT #2\n"},
        {omu_PyObjectWrapper(), 'W', OBJECT, "omu_PyObjectWrapper cannot be stored"},
        {omu_DictPyObjectWrapper(), '{', OBJECT, "omu_DictPyObjectWrapper cannot be stored"},
        {omu_DictIntPyObjectWrapper(), '{', OBJECT, "omu_DictIntPyObjectWrapper cannot be stored"},
        {omu_DictStrPyObjectWrapper(), '{', OBJECT, "omu_DictStrPyObjectWrapper cannot be stored"},
        {omu_ListPyObjectWrapper(), 'L', OBJECT, "omu_ListPyObjectWrapper cannot be stored"},
    };
    return kinds;
}

TEST(Kinds, EqualThemselvesAlone)
{
    const StartGuard<KTLOxuOmu_initialize, KTLOxuOmu_finalize> running; // classes know their bases from there
    for (const Kind& kind : Kinds())
    {
        SCOPED_TRACE(kind.text);
        const std::unique_ptr<omu_Primitive> copy((*kind.cell).Copy());
        EXPECT_NE(copy->Uid(), (*kind.cell).Uid()) << "an identity of its own";
        for (const char code : std::string("ifslbnxetpEc(o{WL<"))
            EXPECT_EQ(copy->IsType(code), code == kind.code) << code;
        EXPECT_EQ(copy->AsString(3), kind.text) << "the hint is ignored";
        EXPECT_EQ(copy->AsRepr(), kind.text);
        EXPECT_TRUE(copy->IsA(omu_Primitive::TypeId()) && copy->IsA(copy->DynTypeId()));
        for (const Kind& other : Kinds())
            EXPECT_EQ(*copy == *other.cell, &other == &kind) << other.text;
    }
}

// What comes back of it equals it.
void ExpectStored(const Kind& kind)
{
    const omu_Primitive& value = *kind.cell;
    SCOPED_TRACE(kind.text);
    MemoryStore store;
    if (std::string(kind.stored).ends_with("cannot be stored"))
    {
        EXPECT_ERROR(store.WriteShared(&value), std::string("nex_PrimException: ") + kind.stored);
        return;
    }
    const cls_ClassRegistrar& registrar = cls_MetadataRegistrar::Instance().Registrar();
    // Two announce their base, as which they are written.
    const bool pair = registrar.Find(value.DynTypeId()) == nullptr;
    const int number =
        pair ? store.Write(dynamic_cast<const omu_PrimEnumBase&>(value)) : store.WriteShared(&value);
    EXPECT_EQ(store.Faults(), "");
    EXPECT_EQ(store.Describe(number),
              std::string("omu_Primitive\n  type CHAR '") + kind.code + "'\n" + kind.stored);
    // Data cannot make an object of one class pass for another kind.
    for (const char code : {kind.code, '\0', kind.code == 's' ? 'i' : 's'})
    {
        store.Part(number, omu_Primitive::TypeId()).Set("type", cls_AttributeType::CHAR, code);
        const std::unique_ptr<cls_Persistent> back = store.Create(number);
        const auto& read = dynamic_cast<const omu_Primitive&>(*back);
        EXPECT_TRUE(read.IsType(kind.code)) << code;
        EXPECT_TRUE(read == value);
        EXPECT_EQ(Text(read), kind.text);
        EXPECT_EQ(read.Uid(), value.Uid()) << "the identity is the stored one";
        EXPECT_EQ(read.DynTypeId(), pair ? omu_PrimEnumBase::TypeId() : value.DynTypeId());
    }
    for (MemoryPart& part : store.At(number).parts)
        part.attributes.clear();
    if (value.DynTypeId() == omu_OnOffConst::TypeId()) // no name is none of its two
        EXPECT_THROW(store.Create(number), omu_ValueErrorException);
    else // absent attributes leave the default
        EXPECT_FALSE(dynamic_cast<const omu_Primitive&>(*store.Create(number)).IsType('\0'));
}

TEST(Kinds, ComeBackEqual)
{
    const StartGuard<KTLOxuOmu_initialize, KTLOxuOmu_finalize> running;
    for (const Kind& kind : Kinds())
        ExpectStored(kind);
}
}
