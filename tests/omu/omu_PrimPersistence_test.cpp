// Values written into memory and read back, and the layouts of earlier releases.

#include <KTLBas.h>
#include <KTLOxuOmu.h>
#include <cls_AdapterBase.h>
#include <cls_ClassRegistrar.h>
#include <cls_MetadataRegistrar.h>
#include <functional>
#include <memory>
#include <omu_OverflowErrorException.h>
#include <omu_PrimArray.h>
#include <omu_PrimBool.h>
#include <omu_PrimBoolean.h>
#include <omu_PrimComplex.h>
#include <omu_PrimDictionary.h>
#include <omu_PrimEnumBase_1.h>
#include <omu_PrimException.h>
#include <omu_PrimExpr.h>
#include <omu_PrimList.h>
#include <omu_PrimNone.h>
#include <omu_PrimNumber.h>
#include <omu_PrimNumber_800.h>
#include <omu_PrimNumber_832.h>
#include <omu_PrimPath.h>
#include <omu_PrimString.h>
#include <omu_PrimTranslatedString.h>
#include <omu_PrimType.h>
#include <omu_PrimWrapper.h>
#include <omu_ValueErrorException.h>
#include <ostream>
#include <string>
#include <testing/ExpectRaise.h>
#include <testing/MemoryStore.h>
#include <testing/StartGuard.h>
#include <vector>

#include <gtest/gtest.h>

namespace
{
using DataTypeEnm = omu_PrimNumber::DataTypeEnm;
using StrDictionary = omu_PrimDictionary<cow_String>;
using IntDictionary = omu_PrimDictionary<int>;

const cls_ClassRegistrar& Registrar()
{
    return omi_Singleton<cls_MetadataRegistrar>::Instance().Registrar();
}

class Persistence : public testing::Test
{
protected:
    const StartGuard<KTLBas_initialize, KTLBas_finalize> base_;
    const StartGuard<KTLOxuOmu_initialize, KTLOxuOmu_finalize> omu_;
    MemoryStore store_;
};

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

struct Stored
{
    const char* name;
    std::function<std::unique_ptr<omu_Primitive>()> make;
    const char* shape; // Describe's lines
};

void PrintTo(const Stored& row, std::ostream* out)
{
    *out << row.name;
}

template <class T, class... Arguments>
std::function<std::unique_ptr<omu_Primitive>()> Maker(Arguments... arguments)
{
    return [=] { return std::make_unique<T>(arguments...); };
}

class EveryStoredKind : public testing::TestWithParam<Stored>
{
protected:
    const StartGuard<KTLBas_initialize, KTLBas_finalize> base_;
    const StartGuard<KTLOxuOmu_initialize, KTLOxuOmu_finalize> omu_;
    MemoryStore store_;
};

TEST_P(EveryStoredKind, ComesBackEqual)
{
    const std::unique_ptr<omu_Primitive> value = GetParam().make();
    const int number = store_.WriteShared(value.get());
    EXPECT_EQ(store_.Faults(), "");
    EXPECT_EQ(store_.Describe(number), GetParam().shape);

    const std::unique_ptr<cls_Persistent> back = store_.Create(number);
    const auto* read = dynamic_cast<const omu_Primitive*>(back.get());
    ASSERT_NE(read, nullptr);
    EXPECT_TRUE(*read == *value);
    EXPECT_EQ(read->AsString(0), value->AsString(0));
    EXPECT_EQ(read->TypeString(), value->TypeString());
    EXPECT_EQ(read->DynTypeId(), value->DynTypeId());
    EXPECT_EQ(read->Uid(), value->Uid()) << "the identity is the stored one";
}

// Data cannot make an object of one class pass for another kind.
TEST_P(EveryStoredKind, KindCodeIsTheClasss)
{
    const std::unique_ptr<omu_Primitive> value = GetParam().make();
    const int number = store_.WriteShared(value.get());
    for (const char forged : {'\0', '?', value->IsType('s') ? 'i' : 's'})
    {
        store_.Part(number, omu_Primitive::TypeId()).Set("type", cls_AttributeType::CHAR, forged);
        const std::unique_ptr<cls_Persistent> back = store_.Create(number);
        const auto& read = dynamic_cast<const omu_Primitive&>(*back);
        EXPECT_FALSE(read.IsType(forged)) << forged;
        EXPECT_TRUE(read == *value);
    }
}

TEST_P(EveryStoredKind, AbsentAttributesLeaveTheDefault)
{
    const std::unique_ptr<omu_Primitive> value = GetParam().make();
    const int number = store_.WriteShared(value.get());
    for (MemoryPart& part : store_.At(number).parts)
        part.attributes.clear();
    if (value->DynTypeId() == omu_OnOffConst::TypeId())
    {
        EXPECT_THROW(store_.Create(number), omu_ValueErrorException) << "no name is none of its two";
        return;
    }
    const std::unique_ptr<cls_Persistent> back = store_.Create(number);
    const auto& read = dynamic_cast<const omu_Primitive&>(*back);
    EXPECT_EQ(read.DynTypeId(), value->DynTypeId());
    EXPECT_FALSE(read.IsType('\0'));
    EXPECT_TRUE(read == *std::unique_ptr<omu_Primitive>(read.Copy()));
    static_cast<void>(read.AsString(0));
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, EveryStoredKind,
    testing::Values(
        Stored{"Int", Maker<omu_PrimNumber>(-7),
               "omu_Primitive\n  type CHAR 'i'\nomu_PrimNumber\n  value DOUBLE -7\n  uvalue STRING '0'\n"
               "  dataType ENUM 'INT'\n"},
        Stored{
            "Unsigned", Maker<omu_PrimNumber>(4294967295u),
            "omu_Primitive\n  type CHAR 'i'\nomu_PrimNumber\n  value DOUBLE 0\n  uvalue STRING '4294967295'\n"
            "  dataType ENUM 'UINT'\n"},
        Stored{"LargestUnsigned", Maker<omu_PrimNumber>(18446744073709549568.0, DataTypeEnm::UINT),
               "omu_Primitive\n  type CHAR 'i'\nomu_PrimNumber\n  value DOUBLE 0\n"
               "  uvalue STRING '18446744073709549568'\n  dataType ENUM 'UINT'\n"},
        Stored{"Float", Maker<omu_PrimNumber>(0.5f),
               "omu_Primitive\n  type CHAR 'f'\nomu_PrimNumber\n  value DOUBLE 0.5\n  uvalue STRING '0'\n"
               "  dataType ENUM 'FLOAT'\n"},
        Stored{"String", Maker<omu_PrimString>(cow_String("a\nb")),
               "omu_Primitive\n  type CHAR 's'\nomu_PrimString\n  value STRING 'a\nb'\n"},
        Stored{"TranslatedString", Maker<omu_PrimTranslatedString>(atr_String("text")),
               "omu_Primitive\n  type CHAR 'l'\nomu_PrimTranslatedString\n  value MESSAGE 'text'\n"},
        Stored{"Boolean", Maker<omu_PrimBoolean>(true),
               "omu_Primitive\n  type CHAR 'b'\nomu_PrimBoolean\n  value BOOL true\n"},
        Stored{"None", Maker<omu_PrimNone>(false),
               "omu_Primitive\n  type CHAR 'n'\nomu_PrimNone\n  isSet BOOL false\n"},
        Stored{"Complex", Maker<omu_PrimComplex>(omi_complex(1.5, -2.0)),
               "omu_Primitive\n  type CHAR 'x'\nomu_PrimComplex\n  real DOUBLE 1.5\n  imaginary DOUBLE -2\n"},
        Stored{"Expression", Maker<omu_PrimExpr>(cow_String("a + b")),
               "omu_Primitive\n  type CHAR 'e'\nomu_PrimExpr\n  value STRING 'a + b'\n"},
        Stored{"Type", Maker<omu_PrimType>(cow_String("Odb")),
               "omu_Primitive\n  type CHAR 't'\nomu_PrimType\n  typeString STRING 'Odb'\n"},
        Stored{
            "ObjectPath", Maker<omu_PrimPath>(cow_List<cow_String>{"mdb", "models"}),
            "omu_Primitive\n  type CHAR 'p'\nomu_PrimPath\n  context OBJECT/55 ['mdb', 'models'] columns 1\n"
            "  contextType INT 1\n"},
        Stored{"Constant", Maker<omu_PrimEnumBase>(cow_String("ANYTHING")),
               "omu_Primitive\n  type CHAR 'c'\nomu_PrimEnum\n  stringValue STRING 'ANYTHING'\n"},
        Stored{"OnOff", Maker<omu_OnOffConst>(false),
               "omu_Primitive\n  type CHAR 'c'\nomu_PrimEnum\n  stringValue STRING 'OFF'\nomu_OnOffConst\n"},
        Stored{"Exception",
               Maker<omu_PrimException>(omu_ValueErrorException(atr_String("bad")), cow_String("line 1")),
               "omu_Primitive\n  type CHAR 'E'\nomu_PrimException\n  exception OBJECT #2\n"
               "  traceback STRING 'line 1'\n"},
        Stored{
            "NoException", Maker<omu_PrimException>(),
            "omu_Primitive\n  type CHAR 'E'\nomu_PrimException\n  exception OBJECT null\n  traceback STRING "
            "''\n"},
        Stored{"Dictionary", [] { return std::make_unique<StrDictionary>(SomeDictionary()); },
               "omu_Primitive\n  type CHAR '{'\nomu_PrimDictionaryBase\n  m_Represents CHAR 's'\n"
               "omu_PrimStrDictionary\n  m_map OBJECT/2 {'number': #2, 'nothing': null, 'inner': #3}\n"},
        Stored{"IntDictionary", Maker<IntDictionary>(),
               "omu_Primitive\n  type CHAR '{'\nomu_PrimDictionaryBase\n  m_Represents CHAR 'i'\n"
               "omu_PrimIntDictionary\n  m_map OBJECT/3 {}\n"},
        Stored{"Wrapper", [] { return std::make_unique<omu_PrimWrapper>(4, nullptr, SomeDictionary()); },
               "omu_Primitive\n  type CHAR '<'\nomu_PrimWrapper\n  objectType INT 4\n  members OBJECT #2\n"},
        Stored{"Tuple", Maker<omu_PrimTuple>(cow_List<double>{1.5, 2.5}),
               "omu_Primitive\n  type CHAR '('\nomu_PrimSequence\nomu_PrimTuple\n"
               "  primVector OBJECT/1 [#2, #3]\n"},
        Stored{"List", [] { return std::make_unique<omu_PrimList>(SomeList()); },
               "omu_Primitive\n  type CHAR '('\nomu_PrimSequence\nomu_PrimTuple\n"
               "  primVector OBJECT/1 [#2, null, #3]\nomu_PrimList\n  maxSize INT 7\n"},
        Stored{"Array", Maker<omu_PrimArray>(cow_List<int>{2, 1}, cow_List<float>{0.5F, 1.5F}),
               "omu_Primitive\n  type CHAR 'o'\nomu_PrimSequence\nomu_PrimArray\n"
               "  m_shape OBJECT/54 [2, 1] columns 1\n  m_ints OBJECT/54 [] columns 1\n"
               "  m_floats OBJECT/53 [0.5, 1.5] columns 1\n  m_doubles OBJECT/52 [] columns 1\n"}),
    [](const auto& row) { return row.param.name; });

TEST_F(Persistence, DictionaryRefusesKeysOfAnotherKind)
{
    const int number = store_.Write(SomeDictionary());
    EXPECT_EQ(store_.Read<StrDictionary>(number).Represents(), 's');
    store_.Part(number, omu_PrimDictionaryBase::TypeId()).Set("m_Represents", cls_AttributeType::CHAR, 'i');
    EXPECT_RAISE(store_.Read<StrDictionary>(number), omu_ValueErrorException,
                 "omu_PrimDictionaryBase(const cls_ReadVisitor&) - m_Represents not allowed: i");
}

TEST_F(Persistence, WrapperForgetsItsObject)
{
    const omu_PrimType part("Part");
    const int number = store_.Write(omu_PrimWrapper(4, &part, SomeDictionary()));
    const auto back = store_.Read<omu_PrimWrapper>(number);
    EXPECT_EQ(back.Object(), nullptr);
    EXPECT_EQ(back.ObjectType(), 4);
}

TEST_F(Persistence, ListRefusesMoreThanItsMaximum)
{
    const int number = store_.Write(SomeList());
    store_.LastPart(number).Set("maxSize", cls_AttributeType::INT, 2);
    EXPECT_RAISE(store_.Read<omu_PrimList>(number), omu_OverflowErrorException,
                 "list is full; maximum size is 2");
}

// A body that two tuples share is stored once and read once.
TEST_F(Persistence, SharedItemStaysShared)
{
    omu_PrimTuple tuple;
    tuple.Put(omu_PrimString("x"));
    const std::unique_ptr<omu_PrimTuple> twice(tuple.Repeat(2));
    const int number = store_.Write(*twice);
    EXPECT_EQ(store_.Count(), 2);
    const auto back = store_.Read<omu_PrimTuple>(number);
    EXPECT_EQ(back[0], back[1]);
}

struct ArrayFault
{
    const char* name;
    cow_List<int> shape, ints;
    cow_List<double> doubles;
    const char* message;
};

void PrintTo(const ArrayFault& row, std::ostream* out)
{
    *out << row.name;
}

class StoredArray : public testing::TestWithParam<ArrayFault>
{};

TEST_P(StoredArray, IsRefused)
{
    const StartGuard<KTLOxuOmu_initialize, KTLOxuOmu_finalize> omu;
    MemoryStore store;
    const int number = store.Write(omu_PrimArray());
    MemoryPart& part = store.LastPart(number);
    part.Set("m_shape", cls_AttributeType::OBJECT, MemoryList{GetParam().shape},
             cls_CollectionType::LIST_INT);
    part.Set("m_ints", cls_AttributeType::OBJECT, MemoryList{GetParam().ints}, cls_CollectionType::LIST_INT);
    part.Set("m_doubles", cls_AttributeType::OBJECT, MemoryList{GetParam().doubles},
             cls_CollectionType::LIST_DOUBLE);
    EXPECT_RAISE(store.Read<omu_PrimArray>(number), omu_ValueErrorException, GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, StoredArray,
    testing::Values(ArrayFault{"TooFew", {2, 2}, {1, 2, 3}, {}, "array shape holds 4 elements, got 3"},
                    ArrayFault{"NoData", {3}, {}, {}, "array shape holds 3 elements, got 0"},
                    ArrayFault{"TwoTypes", {2}, {1}, {1.0}, "array has elements of more than one type"},
                    ArrayFault{"NoShape", {}, {1}, {}, "array must have 1 to 16 dimensions, got 0"},
                    ArrayFault{"Negative", {-1, -1}, {1}, {}, "array dimension must be positive, got -1"}),
    [](const auto& row) { return row.param.name; });

TEST_F(Persistence, ValueSharedByTwoDictionariesIsStoredOnce)
{
    StrDictionary outer;
    const StrDictionary inner = SomeDictionary();
    outer.Put("a", inner);
    const StrDictionary again(outer);
    const int first = store_.Write(outer);
    const int count = store_.Count();
    const int second = store_.Write(again);
    EXPECT_EQ(store_.Count(), count + 1) << "the second dictionary alone";
    EXPECT_TRUE(store_.Read<StrDictionary>(first) == store_.Read<StrDictionary>(second));
}

// Constants of an enumeration, and of the boolean pairs without metadata, are stored as their base class.
TEST_F(Persistence, EnumerationsAreStoredAsTheirBase)
{
    const char* const shape = "omu_Primitive\n  type CHAR 'c'\nomu_PrimEnum\n  stringValue STRING '%'\n";
    const auto shapeOf = [&](const char* name) {
        return std::string(shape).replace(std::string(shape).find('%'), 1, name);
    };
    const omu_PrimEnum<DataTypeEnm, 1> dataType(DataTypeEnm::FLOAT);
    const omu_TrueFalseConst truth(true);
    const omu_YesNoConst assent(false);
    EXPECT_EQ(store_.Describe(store_.WriteShared(&dataType)), shapeOf("FLOAT"));
    EXPECT_EQ(store_.Faults(), "");
    // These two have a type id and announce another one, so the store's own check is not asked.
    const int number = store_.WriteShared(&truth);
    EXPECT_EQ(store_.Describe(number), shapeOf("TRUE"));
    EXPECT_EQ(store_.Describe(store_.WriteShared(&assent)), shapeOf("NO"));
    EXPECT_TRUE(store_.Read<omu_TrueFalseConst>(number) == truth);
    EXPECT_EQ(store_.Read<omu_TrueFalseConst>(number).Uid(), truth.Uid());
}

// An object made by type id keeps its name unchecked; only the enumeration refuses it.
TEST_F(Persistence, ForeignNameIsRefusedByTheEnumerationAlone)
{
    const int number = store_.Write(omu_PrimEnumBase("int"));
    const std::unique_ptr<cls_Persistent> back = store_.Create(number);
    EXPECT_EQ(dynamic_cast<omu_PrimEnumBase&>(*back).GetString(), "int");
    EXPECT_THROW((store_.Read<omu_PrimEnum<DataTypeEnm, 1>>(number)), omu_ValueErrorException);
    EXPECT_THROW(store_.Read<omu_YesNoConst>(number), omu_ValueErrorException);
}

TEST_F(Persistence, OnOffRefusesAForeignNameInItsBasePart)
{
    const int number = store_.Write(omu_OnOffConst(true));
    store_.Part(number, omu_PrimEnumBase::TypeId())
        .Set("stringValue", cls_AttributeType::STRING, cow_String("YES"));
    EXPECT_THROW(store_.Create(number), omu_ValueErrorException);
}

struct OldNumber
{
    const char* name;
    unsigned version;
    DataTypeEnm dataType;
    double stored;
    omu_PrimNumber wanted;
};

void PrintTo(const OldNumber& row, std::ostream* out)
{
    *out << row.name;
}

class OldNumberLayout : public testing::TestWithParam<OldNumber>
{};

TEST_P(OldNumberLayout, IsRead)
{
    const OldNumber& row = GetParam();
    MemoryStore store;
    const int number = store.Write(omu_PrimNumber(0.0));
    MemoryPart& part = store.LastPart(number);
    part.version = row.version;
    part.attributes.clear();
    part.Set("value", cls_AttributeType::DOUBLE, row.stored);
    part.Set("dataType", cls_AttributeType::ENUM, omu_PrimEnum<DataTypeEnm, 1>(row.dataType).GetString());
    const auto read = store.Read<omu_PrimNumber>(number);
    EXPECT_TRUE(read == row.wanted) << read.AsString(0);
    EXPECT_EQ(read.DataType(), row.wanted.DataType());
    EXPECT_EQ(read.AsString(0), row.wanted.AsString(0));
    EXPECT_TRUE(read.IsType(row.wanted.IsType('i') ? 'i' : 'f'));

    // There was no unsigned field: what stands under its name means nothing.
    part.Set("uvalue", cls_AttributeType::STRING, cow_String("99"));
    EXPECT_TRUE(store.Read<omu_PrimNumber>(number) == row.wanted);
}

using enum DataTypeEnm;
INSTANTIATE_TEST_SUITE_P(
    Rows, OldNumberLayout,
    testing::Values(OldNumber{"Int800", 800, INT, 7.0, omu_PrimNumber(7)},
                    OldNumber{"Double801", 801, DOUBLE, 2.5, omu_PrimNumber(2.5)},
                    OldNumber{"Unsigned800", 800, UINT, 4294967295.0, omu_PrimNumber(4294967295u)},
                    OldNumber{"Unsigned817", 817, UINT, 5.0, omu_PrimNumber(5u)},
                    OldNumber{"Unsigned832", 832, UINT, 5.0, omu_PrimNumber(5u)},
                    OldNumber{"Unsigned834", 834, UINT, 5.0, omu_PrimNumber(5u)},
                    OldNumber{"NegativeUnsigned", 832, UINT, -5.0, omu_PrimNumber(0u)},
                    OldNumber{"Float832", 832, FLOAT, 0.5, omu_PrimNumber(0.5f)},
                    OldNumber{"Older", 203, SHORT, -3.0, omu_PrimNumber(static_cast<short>(-3))}),
    [](const auto& row) { return row.param.name; });

TEST_F(Persistence, PresentNumberLayoutReadsItsUnsignedField)
{
    const int number = store_.Write(omu_PrimNumber(5u));
    MemoryPart& part = store_.LastPart(number);
    ASSERT_EQ(part.version, 835u);
    part.Set("value", cls_AttributeType::DOUBLE, 9.0);
    EXPECT_TRUE(store_.Read<omu_PrimNumber>(number) == omu_PrimNumber(5u))
        << "the double of an unsigned number is 0";

    const int integer = store_.Write(omu_PrimNumber(5));
    store_.LastPart(integer).Set("uvalue", cls_AttributeType::STRING, cow_String("7"));
    EXPECT_TRUE(store_.Read<omu_PrimNumber>(integer) == omu_PrimNumber(5))
        << "and the unsigned field of others";
}

TEST_F(Persistence, NumberRefusesWhatIsNoUnsignedNumber)
{
    const int number = store_.Write(omu_PrimNumber(5u));
    for (const char* digits : {"", "-1", "+1", " 1", "1 ", "1.0", "18446744073709551616", "x"})
    {
        store_.LastPart(number).Set("uvalue", cls_AttributeType::STRING, cow_String(digits));
        try
        {
            store_.Read<omu_PrimNumber>(number);
            ADD_FAILURE() << "read: " << digits;
        }
        catch (const omu_ValueErrorException& error)
        {
            EXPECT_EQ(error.JournalMessage(),
                      cow_String("omu_PrimNumber(const cls_ReadVisitor&) - uvalue not allowed: ") + digits);
        }
    }
    store_.LastPart(number).Set("uvalue", cls_AttributeType::STRING, cow_String("18446744073709551615"));
    EXPECT_EQ(store_.Read<omu_PrimNumber>(number).AsString(0), "18446744073709551615");
}

TEST_F(Persistence, NumberRefusesAnUnknownDataType)
{
    const int number = store_.Write(omu_PrimNumber(5));
    store_.LastPart(number).Set("dataType", cls_AttributeType::ENUM, cow_String("int"));
    EXPECT_THROW(store_.Read<omu_PrimNumber>(number), omu_ValueErrorException);
}

TEST_F(Persistence, WrapperWithoutMembersHasNone)
{
    const int number = store_.Write(omu_PrimWrapper());
    store_.LastPart(number).Set("members", cls_AttributeType::OBJECT, MemoryReference{0});
    EXPECT_EQ(store_.Read<omu_PrimWrapper>(number).MemberDictionary().Length(), 0);
}

TEST_F(Persistence, VersionsAndParents)
{
    struct Row
    {
        unsigned typeId;
        const char* name;
        unsigned version;
        unsigned parent;
    };
    constexpr unsigned PRIMITIVE = 0x00130011;
    for (const Row& row :
         {Row{PRIMITIVE, "omu_Primitive", 514, 1},
          Row{omu_PrimNumber::TypeId(), "omu_PrimNumber", 835, PRIMITIVE},
          Row{omu_PrimString::TypeId(), "omu_PrimString", 800, PRIMITIVE},
          Row{omu_PrimTranslatedString::TypeId(), "omu_PrimTranslatedString", 800, PRIMITIVE},
          Row{omu_PrimBoolean::TypeId(), "omu_PrimBoolean", 800, PRIMITIVE},
          Row{omu_PrimNone::TypeId(), "omu_PrimNone", 800, PRIMITIVE},
          Row{omu_PrimComplex::TypeId(), "omu_PrimComplex", 800, PRIMITIVE},
          Row{omu_PrimExpr::TypeId(), "omu_PrimExpr", 800, PRIMITIVE},
          Row{omu_PrimType::TypeId(), "omu_PrimType", 800, PRIMITIVE},
          Row{omu_PrimPath::TypeId(), "omu_PrimPath", 800, PRIMITIVE},
          Row{omu_PrimException::TypeId(), "omu_PrimException", 800, PRIMITIVE},
          Row{omu_PrimWrapper::TypeId(), "omu_PrimWrapper", 800, PRIMITIVE},
          Row{omu_PrimSequence::TypeId(), "omu_PrimSequence", 800, PRIMITIVE},
          Row{omu_PrimTuple::TypeId(), "omu_PrimTuple", 800, omu_PrimSequence::TypeId()},
          Row{omu_PrimList::TypeId(), "omu_PrimList", 800, omu_PrimTuple::TypeId()},
          Row{omu_PrimArray::TypeId(), "omu_PrimArray", 800, omu_PrimSequence::TypeId()},
          Row{omu_PrimDictionaryBase::TypeId(), "omu_PrimDictionaryBase", 800, PRIMITIVE},
          Row{StrDictionary::TypeId(), "omu_PrimStrDictionary", 800, omu_PrimDictionaryBase::TypeId()},
          Row{IntDictionary::TypeId(), "omu_PrimIntDictionary", 800, omu_PrimDictionaryBase::TypeId()},
          Row{omu_PrimEnumBase::TypeId(), "omu_PrimEnum", 514, PRIMITIVE},
          Row{omu_OnOffConst::TypeId(), "omu_OnOffConst", 800, omu_PrimEnumBase::TypeId()}})
    {
        const cls_ClassMetadata* meta = Registrar().Find(row.typeId);
        ASSERT_NE(meta, nullptr) << row.name;
        EXPECT_EQ(meta->Name(), row.name);
        EXPECT_EQ(meta->Version(), row.version) << row.name;
        EXPECT_EQ(meta->ParentTypeId(), row.parent) << row.name;
        EXPECT_NE(Registrar().FindDtor(row.typeId), nullptr) << row.name;
        const bool hasOwn = row.typeId == PRIMITIVE || row.typeId == omu_PrimBoolean::TypeId() ||
                            row.typeId == omu_PrimEnumBase::TypeId();
        EXPECT_EQ(meta->Dtor() != nullptr, hasOwn) << row.name;
    }
    for (const unsigned bare : {omu_TrueFalseConst::TypeId(), omu_YesNoConst::TypeId(), 0x0013002Du})
        EXPECT_EQ(Registrar().Find(bare), nullptr) << bare;
}

TEST_F(Persistence, DestructorHooksFreeABody)
{
    Registrar().FindDtor(omu_PrimBoolean::TypeId())(new omu_PrimBoolean(true));
    Registrar().FindDtor(omu_PrimEnumBase::TypeId())(new omu_PrimEnumBase("ON"));
    Registrar().FindDtor(omu_PrimString::TypeId())(static_cast<omu_Primitive*>(new omu_PrimString("text")));
}

TEST_F(Persistence, AbstractClassesAreNotMadeByTypeId)
{
    for (const unsigned typeId :
         {omu_Primitive::TypeId(), omu_PrimDictionaryBase::TypeId(), omu_PrimSequence::TypeId()})
        EXPECT_TRUE(Registrar().Find(typeId)->Adapter()->IsAbstract());
}

std::string Declared(void (*declare)(cls_ClassRegistrar&), unsigned typeId)
{
    cls_ClassRegistrar registrar;
    declare(registrar);
    const cls_ClassMetadata* meta = registrar.Find(typeId);
    std::string text = std::string(meta->Name().View()) + " " + std::to_string(meta->Version());
    for (const cls_Attribute& attribute : meta->Attributes())
        text += " " + std::string(attribute.name.View()) + "/" +
                std::to_string(static_cast<unsigned>(attribute.type));
    return text;
}

TEST(OldLayouts, AreDeclared)
{
    const unsigned number = omu_PrimNumber::TypeId();
    EXPECT_EQ(Declared(&omu_PrimNumber_800::InitializeMetadata, number),
              "omu_PrimNumber 800 value/10 dataType/14");
    EXPECT_EQ(Declared(&omu_PrimNumber_832::InitializeMetadata, number),
              "omu_PrimNumber 832 value/10 dataType/14");
    EXPECT_EQ(Declared(&omu_PrimNumber::InitializeMetadata, number),
              "omu_PrimNumber 835 value/10 uvalue/11 dataType/14");
    EXPECT_EQ(Declared(&omu_PrimEnumBase_1::InitializeMetadata, omu_PrimEnumBase::TypeId()),
              "omu_PrimEnum 1 stringValue/11");
    EXPECT_EQ(omu_PrimNumber_800::TypeId(), number);
    EXPECT_EQ(omu_PrimNumber_832::TypeId(), number);
    EXPECT_EQ(omu_PrimEnumBase_1::TypeId(), omu_PrimEnumBase::TypeId());
}
}
