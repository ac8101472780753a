// What the model's classes take from arguments and from storage, and data that contradicts itself.
#include <KTLOxuMdl.h>
#include <KTLOxuOmu.h>
#include <climits>
#include <mdl_JaggedArray.h>
#include <mdl_PropAttributeGet.h>
#include <mdl_PropertyTable.h>
#include <nex_RangeException.h>
#include <omu_ValueErrorException.h>
#include <testing/MemoryStore.h>
#include <testing/StartGuard.h>
#include <testing/ValueTesting.h>

namespace
{
using State = mdl_PropAttributeStateEnm;
using Lists = cls_xp1DArrayListFloat;

class ModelPersistence : public testing::Test
{
protected:
    /// An attribute that reads the argument has that value.
    template <class T>
    void ExpectAttribute(const omu_PrimTuple& argument, const T& value)
    {
        mdl_PropAttr<T> attribute;
        omu_Arguments arguments(argument);
        arguments.Begin();
        EXPECT_TRUE(mdl_PropAttributeGet<T>::Get(arguments, attribute, "value", false, false));
        EXPECT_TRUE(attribute == value && attribute == State::SET && !(attribute == T())) << Text(argument);
    }

    /// The stored object is refused with that list in place of its own.
    template <class T>
    void ExpectRefused(const T& object, const char* name, const cow_List<int>& wrong)
    {
        const int number = store_.Write(object);
        store_.LastPart(number).Set(name, cls_AttributeType::OBJECT, MemoryList{wrong},
                                    cls_CollectionType::LIST_INT);
        EXPECT_THROW((void)store_.Read<T>(number), omu_ValueErrorException) << Text(omu_PrimTuple(wrong));
    }

    const StartGuard<KTLOxuOmu_initialize, KTLOxuOmu_finalize> omu_;
    const StartGuard<KTLOxuMdl_initialize, KTLOxuMdl_finalize> mdl_;
    MemoryStore store_;
};

TEST_F(ModelPersistence, OfEveryKindOfAttribute)
{
    ExpectAttribute(TupleOf(-3), -3);
    ExpectAttribute(TupleOf(true), true);
    ExpectAttribute(TupleOf(2), 2.0);
    ExpectAttribute(TupleOf("a\nb"), cow_String("a\nb"));
    ExpectAttribute(TupleOf(TupleOf(3, 1)), cls_xpListInt{3, 1});
    ExpectAttribute(TupleOf(TupleOf("", "x")), cls_xpListString{"", "x"});
    ExpectAttribute(TupleOf(TupleOf(7)), cls_xp1DArrayInt{7});
    ExpectAttribute(TupleOf(TupleOf(TupleOf(1, 0.5), TupleOf(), TupleOf(-2.0))),
                    Lists{{1.0F, 0.5F}, {}, {-2.0F}});
    mdl_PropAttr<Lists> attribute;
    omu_Arguments arguments = Args(Keyword("rows", TupleOf(TupleOf(1.0), TupleOf("x"))));
    arguments.Begin();
    EXPECT_ERROR(mdl_PropAttributeGet<Lists>::Get(arguments, attribute, "rows", false, false),
                 "TypeError: rows[1]; found tuple, expecting sequence of Floats");
    for (const cow_List<int>& lengths : {cow_List<int>{}, {3}, {5, -1}, {2, 2}, {4, INT_MAX}})
        ExpectRefused(mdl_PropAttr<Lists>(Lists{{1.0F, 2.0F}, {3.0F, 4.0F, 5.0F}}), "lengths", lengths);
}

TEST_F(ModelPersistence, OfTables)
{
    mdl_PropertyTable table(cow_List<cow_String>{"T", "E"});
    for (const cow_List<double>& row : {cow_List<double>{0, 200}, {100, 180}, {100, 90}, {200, 0.1}})
        EXPECT_TRUE(table.AddRow(row));
    EXPECT_FALSE(table.AddRow({1.0}));
    const int stored = store_.Write(table);
    const auto back = store_.Read<mdl_PropertyTable>(stored);
    // Outside clamped, between on the line, at the jump the later row.
    for (const auto& [x, y] : {std::pair{-5.0, 200.0}, {25, 195}, {99, 180.2}, {100, 90}, {1e300, 0.1}})
        EXPECT_DOUBLE_EQ(back.Interpolate(1, x), y) << x;
    EXPECT_THROW((void)mdl_PropertyTable({"T"}).Interpolate(0, 1.0), nex_RangeException);
    for (const int rows : {-1, 0, 3, 5, INT_MAX})
    {
        store_.LastPart(stored).Set("rows", cls_AttributeType::INT, rows);
        EXPECT_THROW((void)store_.Read<mdl_PropertyTable>(stored), omu_ValueErrorException) << rows;
    }
}

TEST_F(ModelPersistence, OfJaggedArrays)
{
    mdl_JaggedArray jagged;
    for (const cow_List<int>& row : {cow_List<int>{4, 5}, {}, {6}})
        jagged.AddRow(row);
    const auto back = store_.Read<mdl_JaggedArray>(store_.Write(jagged));
    EXPECT_TRUE(back.Rows() == 3 && back.Length(0) == 2 && back.Length(1) == 0 && back.Value(2, 0) == 6);
    for (const cow_List<int>& offsets :
         {cow_List<int>{}, {0}, {0, 1}, {1, 3}, {0, 3, 2}, {0, 4, 3}, {0, -1, 3}})
        ExpectRefused(jagged, "offsets", offsets);
}
}
