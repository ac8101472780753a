// Dictionaries of values, and the wrappers whose members they hold.

#include <nex_RangeException.h>
#include <omu_PrimDictionary.h>
#include <omu_PrimTranslatedString.h>
#include <omu_PrimType.h>
#include <omu_PrimWrapper.h>
#include <testing/ValueTesting.h>

namespace
{
using StrDictionary = omu_PrimDictionary<cow_String>;
using IntDictionary = omu_PrimDictionary<int>;

TEST(PrimDictionary, KeepsTheOrderOfInsertion)
{
    StrDictionary dictionary;
    dictionary.Reserve(9);
    EXPECT_EQ(Text(dictionary), "{}");
    dictionary.Put("b", omu_PrimNumber(2.0));
    dictionary.Put("a", omu_PrimNumber(1));
    dictionary.Put("b", omu_PrimString("x"));
    EXPECT_EQ(Text(dictionary), "{'b': 'x', 'a': 1}") << "what is replaced keeps its place";
    EXPECT_TRUE(dictionary.Remove("b") && !dictionary.Remove("c"));
    IntDictionary inner;
    inner.Put(-1, omu_PrimString("it's"));
    dictionary.Put("b'\"", inner);
    dictionary.Put("none", std::unique_ptr<omu_Primitive>());
    EXPECT_EQ(Text(dictionary), "{'a': 1, 'b\\'\"': {-1: \"it's\"}, 'none': None}");
    EXPECT_TRUE(dictionary.Has("none"));
    EXPECT_EQ(dictionary.Get("none"), nullptr);
    dictionary.Clear();
    EXPECT_EQ(dictionary.Length(), 0);
}

TEST(PrimDictionary, LooksUpByWholeKeys)
{
    const cow_String longer("k\0k", 3);
    StrDictionary dictionary;
    dictionary.Put("k", omu_PrimNumber(1));
    dictionary.Put(longer, omu_PrimNumber(2));
    EXPECT_EQ(Text(*dictionary.Get(longer)), "2");
    EXPECT_EQ(dictionary.Keys(), (cow_List<cow_String>{"k", longer}));
    EXPECT_EQ(dictionary.Values().Get(1), dictionary.ValueAt(1));
    EXPECT_ERROR(dictionary.KeyAt(2), "nex_RangeException: index 2 out of range, length 2");
    EXPECT_ERROR(dictionary.ValueAt(-1), "nex_RangeException: index -1 out of range, length 2");
}

TEST(PrimDictionary, OwnsItsValuesAndSharesThemWithCopies)
{
    auto* const given = new omu_PrimNumber(3);
    const omu_PrimNumber mine(2);
    StrDictionary dictionary;
    dictionary.Put("given", given);
    dictionary.Put("copied", mine);
    EXPECT_EQ(dictionary.Get("given"), given);
    EXPECT_NE(dictionary.Get("copied"), &mine);
    StrDictionary copy(dictionary);
    EXPECT_EQ(copy.Get("given"), given);
    copy.Put("b", mine);
    EXPECT_EQ(copy.Get("given"), given);
    EXPECT_TRUE(copy.Remove("given"));
    EXPECT_EQ(Text(dictionary), "{'given': 3, 'copied': 2}");
}

TEST(PrimDictionary, EqualityAsksForKeysAndValuesAlone)
{
    StrDictionary a;
    a.Put("x", omu_PrimNumber(1));
    a.Put("y", omu_PrimNumber(2));
    StrDictionary b;
    b.Put("y", omu_PrimNumber(2.0));
    b.Put("x", omu_PrimNumber(1));
    EXPECT_TRUE(a == b) << "whatever the order";
    b.Put("y", omu_PrimString("2"));
    EXPECT_FALSE(a == b);
    EXPECT_TRUE(b.Remove("y"));
    EXPECT_FALSE(a == b);
    b.Put("z", omu_PrimNumber(2));
    EXPECT_FALSE(a == b) << "as long, with another key";
    EXPECT_FALSE(StrDictionary() == IntDictionary()) << "two classes, also when both are empty";
}

const omu_PrimType PART("Part");

omu_PrimWrapper WrapperWith(const char* key, const omu_Primitive& value, const omu_Primitive* object = &PART)
{
    omu_PrimWrapper::Members members;
    members.Put(key, value);
    return omu_PrimWrapper(0, object, members);
}

TEST(PrimWrapper, TextNamesTheObject)
{
    EXPECT_EQ(Text(omu_PrimWrapper(3, &PART)), "<type object>");
    EXPECT_EQ(omu_PrimWrapper(3, &PART).TypeString(), atr_String("type"));
    EXPECT_EQ(Text(WrapperWith("name", omu_PrimString("P1"))), "<type object named P1>");
    EXPECT_EQ(Text(WrapperWith("name", omu_PrimTranslatedString("P1"))), "<type object named P1>");
    EXPECT_EQ(Text(WrapperWith("name", omu_PrimString("P1"), nullptr)), "<wrapper object named P1>");
    EXPECT_EQ(Text(WrapperWith("name", omu_PrimString(""))), "<type object>");
    EXPECT_EQ(Text(WrapperWith("name", omu_PrimNumber(1))), "<type object>") << "not a text";
    EXPECT_EQ(Text(WrapperWith("Name", omu_PrimString("P1"))), "<type object>");
}

// A wrapper that was stored and read back knows no object, and is equal all the same.
TEST(PrimWrapper, EqualityAsksForTheObjectWhereBothKnowTheirs)
{
    const omu_PrimWrapper wrapper = WrapperWith("a", omu_PrimNumber(1));
    const omu_PrimType same("Part");
    EXPECT_TRUE(wrapper == omu_PrimWrapper(wrapper));
    EXPECT_TRUE(wrapper == WrapperWith("a", omu_PrimNumber(1), nullptr));
    EXPECT_FALSE(wrapper == WrapperWith("a", omu_PrimNumber(1), &same)) << "another object, equal as it is";
    EXPECT_FALSE(wrapper == WrapperWith("a", omu_PrimNumber(2)));
    EXPECT_FALSE(wrapper == omu_PrimWrapper(1, &PART, wrapper.MemberDictionary()));
}
}
