// Stored values that were tampered with, shared, or written by earlier releases.

#include <KTLBas.h>
#include <KTLOxuOmu.h>
#include <cls_AdapterBase.h>
#include <cls_ClassRegistrar.h>
#include <cls_MetadataRegistrar.h>
#include <omu_InterfaceObj.h>
#include <omu_PrimArray.h>
#include <omu_PrimBool.h>
#include <omu_PrimBoolean.h>
#include <omu_PrimDictionary.h>
#include <omu_PrimEnumBase_1.h>
#include <omu_PrimNumber_800.h>
#include <omu_PrimNumber_832.h>
#include <omu_PrimType.h>
#include <omu_PrimWrapper.h>
#include <omu_ValueErrorException.h>
#include <testing/MemoryStore.h>
#include <testing/StartGuard.h>
#include <testing/ValueTesting.h>

namespace
{
using DataTypeEnm = omu_PrimNumber::DataTypeEnm;
using StrDictionary = omu_PrimDictionary<cow_String>;
using Ints = cow_List<int>;

class Persistence : public testing::Test
{
protected:
    static const cls_ClassRegistrar& Registrar() { return cls_MetadataRegistrar::Instance().Registrar(); }

    const StartGuard<KTLBas_initialize, KTLBas_finalize> base_;
    const StartGuard<KTLOxuOmu_initialize, KTLOxuOmu_finalize> omu_;
    MemoryStore store_;
};

TEST_F(Persistence, WhatDisagreesIsRefused)
{
    StrDictionary empty;
    const int dictionary = store_.Write(empty);
    store_.Part(dictionary, omu_PrimDictionaryBase::TypeId())
        .Set("m_Represents", cls_AttributeType::CHAR, 'i');
    EXPECT_ERROR(store_.Read<StrDictionary>(dictionary),
                 "ValueError: omu_PrimDictionaryBase(const cls_ReadVisitor&) - m_Represents not allowed: i");

    const int list = store_.Write(omu_PrimList(Ints{1, 2, 3}));
    store_.LastPart(list).Set("maxSize", cls_AttributeType::INT, 2);
    EXPECT_ERROR(store_.Read<omu_PrimList>(list), "OverflowError: list is full; maximum size is 2");

    // An object made by type id keeps its name unchecked; only the enumeration refuses it.
    const int constant = store_.Write(omu_PrimEnumBase("int"));
    const std::unique_ptr<cls_Persistent> back = store_.Create(constant);
    EXPECT_EQ(dynamic_cast<omu_PrimEnumBase&>(*back).GetString(), "int");
    EXPECT_THROW((store_.Read<omu_PrimEnum<DataTypeEnm, 1>>(constant)), omu_ValueErrorException);
    EXPECT_THROW(store_.Read<omu_YesNoConst>(constant), omu_ValueErrorException);
    const int onOff = store_.Write(omu_OnOffConst(true));
    store_.Part(onOff, omu_PrimEnumBase::TypeId())
        .Set("stringValue", cls_AttributeType::STRING, cow_String("YES"));
    EXPECT_THROW(store_.Create(onOff), omu_ValueErrorException);
    const int number = store_.Write(omu_PrimNumber(5));
    store_.LastPart(number).Set("dataType", cls_AttributeType::ENUM, cow_String("int"));
    EXPECT_THROW(store_.Read<omu_PrimNumber>(number), omu_ValueErrorException);
}

TEST_F(Persistence, WrapperForgetsItsObject)
{
    const omu_PrimType part("Part");
    const int number = store_.Write(omu_PrimWrapper(4, &part, StrDictionary()));
    EXPECT_EQ(store_.Read<omu_PrimWrapper>(number).Object(), nullptr);
    EXPECT_EQ(store_.Read<omu_PrimWrapper>(number).ObjectType(), 4);
    store_.LastPart(number).Set("members", cls_AttributeType::OBJECT, MemoryReference{0});
    EXPECT_EQ(store_.Read<omu_PrimWrapper>(number).MemberDictionary().Length(), 0);
}

// A body that is shared is stored once and read once.
TEST_F(Persistence, SharedItemStaysShared)
{
    const std::unique_ptr<omu_PrimTuple> twice(TupleOf("x").Repeat(2));
    const int number = store_.Write(*twice);
    EXPECT_EQ(store_.Count(), 2);
    const auto back = store_.Read<omu_PrimTuple>(number);
    EXPECT_EQ(back[0], back[1]);

    StrDictionary outer;
    outer.Put("a", *twice);
    const int first = store_.Write(outer);
    const int count = store_.Count();
    const int second = store_.Write(StrDictionary(outer));
    EXPECT_EQ(store_.Count(), count + 1) << "the second dictionary alone";
    EXPECT_TRUE(store_.Read<StrDictionary>(first) == store_.Read<StrDictionary>(second));
}

class Part : public omu_InterfaceObj
{
public:
    Part() { SetTypeDesc(DescribeType("Part", nullptr, nullptr, nullptr, nullptr)); }
    Part* Copy() const override { return new Part(*this); }
};

// Nothing could create it again: what holds one is refused, by name, and not written unreadable.
TEST_F(Persistence, InterfaceObjectIsRefusedWhereverItLies)
{
    StrDictionary members;
    members.Put("part", Part());
    const char* const refused = "nex_PrimException: Part cannot be stored";
    EXPECT_ERROR(MemoryStore().Write(TupleOf(1, Part())), refused);
    EXPECT_ERROR(MemoryStore().Write(TupleOf("x", TupleOf(Part()))), refused);
    EXPECT_ERROR(MemoryStore().Write(members), refused);
    EXPECT_ERROR(MemoryStore().Write(omu_PrimWrapper(4, nullptr, members)), refused);
}

TEST_F(Persistence, ArrayWhoseShapeAndElementsDisagreeIsRefused)
{
    const struct
    {
        Ints shape, ints;
        cow_List<double> doubles;
        const char* message;
    } rows[] = {{{2, 2}, {1, 2, 3}, {}, "ValueError: array shape holds 4 elements, got 3"},
                {{2}, {1}, {1.0}, "ValueError: array has elements of more than one type"},
                {{}, {1}, {}, "ValueError: array must have 1 to 16 dimensions, got 0"},
                {{-1, -1}, {1}, {}, "ValueError: array dimension must be positive, got -1"}};
    for (const auto& [shape, ints, doubles, message] : rows)
    {
        const int number = store_.Write(omu_PrimArray());
        MemoryPart& part = store_.LastPart(number);
        using enum cls_CollectionType;
        part.Set("m_shape", cls_AttributeType::OBJECT, MemoryList{shape}, LIST_INT);
        part.Set("m_ints", cls_AttributeType::OBJECT, MemoryList{ints}, LIST_INT);
        part.Set("m_doubles", cls_AttributeType::OBJECT, MemoryList{doubles}, LIST_DOUBLE);
        EXPECT_ERROR(store_.Read<omu_PrimArray>(number), message);
    }
}

TEST_F(Persistence, NumbersOfEarlierReleasesAreRead)
{
    using enum DataTypeEnm;
    const struct
    {
        unsigned version;
        DataTypeEnm dataType;
        double stored;
        omu_PrimNumber wanted;
    } rows[] = {{800, INT, 7.0, omu_PrimNumber(7)},
                {801, DOUBLE, 2.5, omu_PrimNumber(2.5)},
                {800, UINT, 4294967295.0, omu_PrimNumber(4294967295u)},
                {832, UINT, 5.0, omu_PrimNumber(5u)},
                {834, UINT, 5.0, omu_PrimNumber(5u)},
                {832, UINT, -5.0, omu_PrimNumber(0u)},
                {203, SHORT, -3.0, omu_PrimNumber(static_cast<short>(-3))}};
    for (const auto& [version, dataType, stored, wanted] : rows)
    {
        const int number = store_.Write(omu_PrimNumber(0.0));
        MemoryPart& part = store_.LastPart(number);
        part.version = version;
        part.attributes.clear();
        part.Set("value", cls_AttributeType::DOUBLE, stored);
        part.Set("dataType", cls_AttributeType::ENUM, omu_PrimEnum<DataTypeEnm, 1>(dataType).GetString());
        const auto read = store_.Read<omu_PrimNumber>(number);
        EXPECT_TRUE(read == wanted) << version << ' ' << read.AsString(0);
        EXPECT_EQ(read.DataType(), wanted.DataType());
        EXPECT_TRUE(read.IsType(wanted.IsType('i') ? 'i' : 'f'));
        // There was no unsigned field: what stands under its name means nothing.
        part.Set("uvalue", cls_AttributeType::STRING, cow_String("99"));
        EXPECT_TRUE(store_.Read<omu_PrimNumber>(number) == wanted) << version;
    }
}

TEST_F(Persistence, PresentNumberLayoutReadsOneOfItsFields)
{
    const int number = store_.Write(omu_PrimNumber(5u));
    MemoryPart& part = store_.LastPart(number);
    part.Set("value", cls_AttributeType::DOUBLE, 9.0);
    EXPECT_TRUE(store_.Read<omu_PrimNumber>(number) == omu_PrimNumber(5u)) << "the double is 0";
    for (const char* digits : {"", "-1", "+1", " 1", "1 ", "1.0", "18446744073709551616", "x"})
    {
        const std::string message =
            std::string("ValueError: omu_PrimNumber(const cls_ReadVisitor&) - uvalue not allowed: ") + digits;
        part.Set("uvalue", cls_AttributeType::STRING, cow_String(digits));
        EXPECT_ERROR(store_.Read<omu_PrimNumber>(number), message);
    }
    part.Set("uvalue", cls_AttributeType::STRING, cow_String("18446744073709551615"));
    EXPECT_EQ(Text(store_.Read<omu_PrimNumber>(number)), "18446744073709551615");
    part.Set("dataType", cls_AttributeType::ENUM, cow_String("INT"));
    EXPECT_TRUE(store_.Read<omu_PrimNumber>(number) == omu_PrimNumber(9)) << "and the unsigned field";
}

TEST_F(Persistence, AbstractClassesAndDestructorHooks)
{
    for (const unsigned typeId :
         {omu_Primitive::TypeId(), omu_PrimDictionaryBase::TypeId(), omu_PrimSequence::TypeId()})
    {
        EXPECT_TRUE(Registrar().Find(typeId)->Adapter()->IsAbstract());
        EXPECT_EQ(Registrar().Find(typeId)->Version(), typeId == omu_Primitive::TypeId() ? 514u : 800u);
    }
    EXPECT_NE(Registrar().Find(omu_Primitive::TypeId())->Dtor(), nullptr);
    Registrar().FindDtor(omu_PrimBoolean::TypeId())(new omu_PrimBoolean(true));
    Registrar().FindDtor(omu_PrimEnumBase::TypeId())(new omu_PrimEnumBase("ON"));
    Registrar().FindDtor(omu_PrimString::TypeId())(static_cast<omu_Primitive*>(new omu_PrimString("text")));
}

std::string Declared(void (*declare)(cls_ClassRegistrar&), unsigned typeId)
{
    cls_ClassRegistrar registrar;
    declare(registrar);
    const cls_ClassMetadata* meta = registrar.Find(typeId);
    std::string text = std::string(meta->Name().View()) + " " + std::to_string(meta->Version());
    for (const cls_Attribute& attribute : meta->Attributes())
        text += " " + std::string(attribute.name.View()) + "/" + std::to_string(unsigned(attribute.type));
    return text;
}

TEST(OldLayouts, AreDeclared)
{
    EXPECT_EQ(Declared(&omu_PrimNumber_800::InitializeMetadata, omu_PrimNumber_800::TypeId()),
              "omu_PrimNumber 800 value/10 dataType/14");
    EXPECT_EQ(Declared(&omu_PrimNumber_832::InitializeMetadata, omu_PrimNumber_832::TypeId()),
              "omu_PrimNumber 832 value/10 dataType/14");
    EXPECT_EQ(Declared(&omu_PrimEnumBase_1::InitializeMetadata, omu_PrimEnumBase_1::TypeId()),
              "omu_PrimEnum 1 stringValue/11");
}
}
