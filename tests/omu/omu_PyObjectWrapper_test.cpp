// Values that stand for objects of the scripting language: without its operations, and with them.

#include <nex_PrimException.h>
#include <nex_RangeException.h>
#include <omu_ListPyObjectWrapper.h>
#include <omu_PyObjectWrapper.h>
#include <testing/ValueTesting.h>

namespace
{
// A script's list of ints, and what the scripting kernel does with it.
using ScriptList = std::vector<int>;

class ListOps : public omu_PyObjectOps
{
public:
    ListOps() : former_(Install(this)) {}
    ~ListOps() override { Install(former_); }

    cow_String TypeName(const void*) const override { return "IntList"; }
    cow_String Repr(const void* object) const override { return omu_PrimList(AsInts(object)).AsString(0); }
    bool Equal(const void* a, const void* b) const override { return AsInts(a) == AsInts(b); }
    int Length(const void* object) const override { return AsInts(object).Length(); }
    omu_Primitive* Item(const void* object, const omu_Primitive& key) const override
    {
        const auto* index = dynamic_cast<const omu_PrimNumber*>(&key);
        return index != nullptr ? new omu_PrimNumber(AsInts(object).Get(int(index->Value()))) : nullptr;
    }

private:
    static cow_List<int> AsInts(const void* object)
    {
        const auto& list = *static_cast<const ScriptList*>(object);
        return cow_List<int>::FromArray(list.data(), int(list.size()));
    }

    const omu_PyObjectOps* former_;
};

omu_PyObjectHandle Handle(const ScriptList& list)
{
    return omu_PyObjectHandle(std::make_shared<ScriptList>(list));
}

TEST(PyObjectWrapper, WithoutOperations)
{
    const omu_PyObjectHandle object = Handle({1, 2});
    const omu_PyObjectWrapper wrapper(object);
    EXPECT_EQ(Text(wrapper), "<scripting object>");
    EXPECT_EQ(wrapper.TypeString(), atr_String("scripting object"));
    EXPECT_TRUE(wrapper == omu_PyObjectWrapper(object)) << "the same object";
    EXPECT_FALSE(wrapper == omu_PyObjectWrapper(Handle({1, 2})));
    EXPECT_EQ(omu_ListPyObjectWrapper(object).Length(), 0);
}

TEST(PyObjectWrapper, WithOperations)
{
    const ListOps ops;
    const omu_PyObjectWrapper wrapper(Handle({1, 2}));
    EXPECT_EQ(Text(wrapper), "[1, 2]");
    EXPECT_EQ(wrapper.TypeString(), atr_String("IntList"));
    EXPECT_TRUE(wrapper == omu_PyObjectWrapper(Handle({1, 2}))) << "equal objects";
    EXPECT_FALSE(wrapper == omu_PyObjectWrapper(Handle({1, 3})));
    EXPECT_FALSE(wrapper == omu_PyObjectWrapper());
    EXPECT_FALSE(wrapper == omu_ListPyObjectWrapper(wrapper.Object())) << "another class";
}

TEST(PyObjectWrapper, ListIsLeftWhereItIs)
{
    const ListOps ops;
    const auto script = std::make_shared<ScriptList>(ScriptList{1, 2});
    omu_ListPyObjectWrapper list{omu_PyObjectHandle(script)};
    script->push_back(3);
    EXPECT_EQ(list.Length(), 3);
    EXPECT_EQ(Text(list.Index(2)), "3");
    EXPECT_ERROR(list.Index(3), "nex_RangeException: index 3 out of range, length 3");
    EXPECT_EQ(Text(list.Slice(1, 9)), "[2, 3]");
    EXPECT_EQ(Text(list.Concat(&list)), "[1, 2, 3, 1, 2, 3]");
    EXPECT_EQ(Text(omu_PrimTuple(cow_List<int>{0}).Concat(&list)), "(0, 1, 2, 3)");
    EXPECT_EQ(list.AsList().AsListInt(), (cow_List<int>{1, 2, 3}));
    EXPECT_ERROR(list.Put(4), "nex_PrimException: Error: Illegal operation for type.");
}
}
