// What the model's classes store: names, order and types against the registered metadata, round trips, and
// data that contradicts itself. Every kind of attribute is first read from an argument.
#include <KTLOxuMdl.h>
#include <KTLOxuOmu.h>
#include <climits>
#include <cls_ClassRegistrar.h>
#include <cls_MetadataRegistrar.h>
#include <cmath>
#include <mdl_JaggedArray.h>
#include <mdl_PropAttributeGet.h>
#include <mdl_PropertyTable.h>
#include <nex_RangeException.h>
#include <omu_ArgTypeErrorException.h>
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
    /// The object is declared by that text and comes back by type id as one that stores the same, under the
    /// same identifier.
    template <class T>
    T ThereAndBack(const T& object, const std::string& declaration)
    {
        const cls_ClassMetadata* meta = cls_MetadataRegistrar::Instance().Registrar().Find(T::TypeId());
        std::string declared = std::string(meta->Name().View());
        for (const cls_Attribute& one : meta->Attributes())
            declared += " " + std::string(one.name.View()) + "/" + std::to_string(int(one.type)) + "/" +
                        std::to_string(int(one.collection));
        EXPECT_EQ(declared, declaration);
        const int number = store_.Write(object);
        const std::unique_ptr<cls_Persistent> created = store_.Create(number);
        const T& back = dynamic_cast<const T&>(*created);
        EXPECT_EQ(store_.Describe(store_.Write(back)), store_.Describe(number));
        EXPECT_TRUE(back.Uid() == object.Uid() && back.DynTypeId() == T::TypeId() && meta->Dtor() != nullptr);
        EXPECT_EQ(store_.Faults(), "");
        return back;
    }

    /// An attribute that reads the argument has that value; stored and read back it equals itself. A
    /// dictionary is none of the kinds.
    template <class T>
    void ExpectAttribute(const omu_PrimTuple& argument, const T& value, const std::string& declaration)
    {
        mdl_PropAttr<T> attribute;
        omu_Arguments arguments(argument);
        arguments.Begin();
        EXPECT_TRUE(mdl_PropAttributeGet<T>::Get(arguments, attribute, "value", false, false));
        EXPECT_TRUE(attribute == value && attribute == State::SET && !(attribute == T())) << declaration;
        EXPECT_TRUE(ThereAndBack(attribute, declaration) == attribute);
        omu_Arguments wrong = Args(DictionaryOf<int>({1}, TupleOf(2)));
        wrong.Begin();
        EXPECT_FALSE(mdl_PropAttributeGet<T>::Get(wrong, attribute, "value", false, true));
        EXPECT_THROW(wrong.End(), omu_ArgTypeErrorException);
        attribute = State::FREED;
        EXPECT_TRUE(attribute == T() && ThereAndBack(attribute, declaration) == attribute);
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
    ExpectAttribute(TupleOf(-3), -3, "mdl_PropInt value/5/0 state/14/0");
    ExpectAttribute(TupleOf(true), true, "mdl_PropBool value/13/0 state/14/0");
    ExpectAttribute(TupleOf(2), 2.0, "mdl_PropDouble value/10/0 state/14/0");
    ExpectAttribute(TupleOf("a\nb"), cow_String("a\nb"), "mdl_PropString value/11/0 state/14/0");
    ExpectAttribute(TupleOf(TupleOf(3, 1)), cls_xpListInt{3, 1}, "mdl_PropListInt value/15/54 state/14/0");
    ExpectAttribute(TupleOf(TupleOf("", "x")), cls_xpListString{"", "x"},
                    "mdl_PropListString value/15/55 state/14/0");
    ExpectAttribute(TupleOf(TupleOf(7)), cls_xp1DArrayInt{7}, "mdl_Prop1DArrayInt value/15/84 state/14/0");
    const Lists lists{{1.0F, 0.5F}, {}, {-2.0F}};
    ExpectAttribute(TupleOf(TupleOf(TupleOf(1, 0.5), TupleOf(), TupleOf(-2.0))), lists,
                    "mdl_PropList1DArrayListFloat lengths/15/54 value/15/53 state/14/0");
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
    EXPECT_FALSE(table.AddRow({1.0}) || mdl_PropertyTable().AddRow({}));
    const auto back = ThereAndBack(table, "mdl_PropertyTable names/15/55 rows/5/0 values/15/52");
    EXPECT_TRUE(back.Rows() == 4 && back.Columns() == 2 && back.Value(2, 1) == 90.0);
    // Outside clamped, between on the line, at the jump the later row.
    for (const auto& [x, y] : {std::pair{-5.0, 200.0}, {25, 195}, {99, 180.2}, {100, 90}, {1e300, 0.1}})
        EXPECT_DOUBLE_EQ(back.Interpolate(1, x), y) << x;
    EXPECT_TRUE(std::isnan(back.Interpolate(1, std::nan(""))));
    EXPECT_THROW((void)back.Value(0, 2), nex_RangeException);
    EXPECT_THROW((void)mdl_PropertyTable({"T"}).Interpolate(0, 1.0), nex_RangeException);
    const int stored = store_.Write(table);
    for (const int rows : {-1, 0, 3, 5, INT_MAX})
    {
        store_.LastPart(stored).Set("rows", cls_AttributeType::INT, rows);
        EXPECT_THROW((void)store_.Read<mdl_PropertyTable>(stored), omu_ValueErrorException) << rows;
    }
}

TEST_F(ModelPersistence, OfJaggedArrays)
{
    mdl_JaggedArray jagged;
    ThereAndBack(jagged, "mdl_JaggedArray offsets/15/54 values/15/54");
    for (const cow_List<int>& row : {cow_List<int>{4, 5}, {}, {6}})
        jagged.AddRow(row);
    const auto back = ThereAndBack(jagged, "mdl_JaggedArray offsets/15/54 values/15/54");
    EXPECT_TRUE(back.Rows() == 3 && back.Length(0) == 2 && back.Length(1) == 0 && back.Value(2, 0) == 6);
    EXPECT_THROW((void)back.Value(0, 2), nex_RangeException);
    for (const cow_List<int>& offsets :
         {cow_List<int>{}, {0}, {0, 1}, {1, 3}, {0, 3, 2}, {0, 4, 3}, {0, -1, 3}})
        ExpectRefused(jagged, "offsets", offsets);
}
}
