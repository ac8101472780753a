// Stored values that were tampered with, shared, or written by earlier releases.

#include <KTLBas.h>
#include <KTLOxuOmu.h>
#include <omu_PrimArray.h>
#include <omu_PrimBool.h>
#include <omu_PrimDictionary.h>
#include <omu_PrimWrapper.h>
#include <omu_QueryPathMsg.h>
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
    const StartGuard<KTLBas_initialize, KTLBas_finalize> base_;
    const StartGuard<KTLOxuOmu_initialize, KTLOxuOmu_finalize> omu_;
    MemoryStore store_;
};

// One attribute of a stored value is replaced: what reading comes to.
TEST_F(Persistence, WhatDisagreesIsRefused)
{
    const auto text = [](const char* of) { return cow_String(of); };
    const Cell number = omu_PrimNumber(5u);
    const Cell array = omu_PrimArray(Ints{2, 2}, Ints{1, 2, 3, 4});
    const std::string digits = "ValueError: omu_PrimNumber(const cls_ReadVisitor&) - uvalue not allowed: ";
    const struct
    {
        Cell stored;
        const char* attribute;
        MemoryValue replaced;
        std::string outcome;
    } rows[] = {
        {StrDictionary(), "m_Represents", 'i',
         "ValueError: omu_PrimDictionaryBase(const cls_ReadVisitor&) - m_Represents not allowed: i"},
        {omu_PrimList(Ints{1, 2, 3}), "maxSize", 2, "OverflowError: list is full; maximum size is 2"},
        {omu_PrimWrapper(4, nullptr, StrDictionary()), "members", MemoryReference{0}, "<wrapper object>"},
        // An object made by type id keeps its name unchecked; only the enumeration refuses it.
        {omu_PrimEnumBase("ON"), "stringValue", text("int"), "int"},
        {omu_OnOffConst(true), "stringValue", text("YES"),
         "ValueError: omu_PrimEnum(const cls_ReadVisitor&) - str not allowed: YES  Permissible: {ON: 1, OFF: "
         "0}"},
        {number, "dataType", text("int"),
         "ValueError: omu_PrimEnum(const cow_String&) - str not allowed: int  "
         "Permissible: {SCHAR: 0, SHORT: 1, INT: 2, FLOAT: 3, DOUBLE: 4, UINT: 5}"},
        // One of the two fields of a number is read, by its data type.
        {number, "value", 9.0, "5"},
        {number, "dataType", text("INT"), "0"},
        {number, "uvalue", text("18446744073709551615"), "18446744073709551615"},
        {number, "uvalue", text("18446744073709551616"), digits + "18446744073709551616"},
        {number, "uvalue", text(""), digits},
        {number, "uvalue", text("-1"), digits + "-1"},
        {array, "m_shape", MemoryList{Ints{3}}, "ValueError: array shape holds 3 elements, got 4"},
        {array, "m_shape", MemoryList{Ints{-1, -4}}, "ValueError: array dimension must be positive, got -1"},
        {array, "m_doubles", MemoryList{cow_List<double>{1.0}},
         "ValueError: array has elements of more than one type"}};
    for (const auto& row : rows)
    {
        MemoryStore store;
        const int stored = store.WriteShared(row.stored.value.get());
        for (MemoryPart& part : store.At(stored).parts)
            if (const MemoryAttribute* found = part.Find(row.attribute))
                part.Set(row.attribute, found->type, row.replaced, found->collection);
        EXPECT_EQ(Outcome([&] {
                      const std::unique_ptr<cls_Persistent> read = store.Create(stored);
                      return Text(dynamic_cast<const omu_Primitive&>(*read));
                  }),
                  row.outcome)
            << row.attribute;
    }
}

TEST_F(Persistence, QueryPathMessageComesBackEqual)
{
    const omu_QueryPathMsg message(true);
    const int number = store_.Write(message);
    EXPECT_EQ(store_.Describe(number), "omu_QueryPathMsg\n  valueIsDelta BOOL true\n");
    const std::unique_ptr<cls_Persistent> back = store_.Create(number);
    const auto& read = dynamic_cast<const omu_QueryPathMsg&>(*back);
    EXPECT_TRUE(read.ValueIsDelta() && read.Uid() == message.Uid());
}

// A body that is shared is stored once and read once.
TEST_F(Persistence, SharedItemStaysShared)
{
    const std::unique_ptr<omu_PrimTuple> twice(TupleOf("x").Repeat(2));
    const int number = store_.Write(*twice);
    EXPECT_EQ(store_.Count(), 2);
    const auto back = store_.Read<omu_PrimTuple>(number);
    EXPECT_EQ(back[0], back[1]);
}

TEST_F(Persistence, NumbersOfEarlierReleasesAreRead)
{
    using enum DataTypeEnm;
    for (const auto& [version, dataType, stored, wanted] :
         {std::tuple(800u, INT, 7.0, omu_PrimNumber(7)),
          {800u, UINT, 4294967295.0, omu_PrimNumber(4294967295u)},
          {832u, UINT, -5.0, omu_PrimNumber(0u)},
          {203u, SHORT, -3.0, omu_PrimNumber(short(-3))}})
    {
        const int number = store_.Write(omu_PrimNumber(0.0));
        MemoryPart& part = store_.LastPart(number);
        part.version = version;
        part.attributes.clear();
        part.Set("value", cls_AttributeType::DOUBLE, stored);
        part.Set("uvalue", cls_AttributeType::STRING, cow_String("99")); // there was none: it means nothing
        part.Set("dataType", cls_AttributeType::ENUM, omu_PrimEnum<DataTypeEnm, 1>(dataType).GetString());
        const auto read = store_.Read<omu_PrimNumber>(number);
        EXPECT_TRUE(read == wanted) << version << ' ' << read.AsString(0);
        EXPECT_EQ(read.DataType(), wanted.DataType());
    }
}
}
