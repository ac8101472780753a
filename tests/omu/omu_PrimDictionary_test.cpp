#include <memory>
#include <nex_RangeException.h>
#include <omu_PrimDictionary.h>
#include <omu_PrimNumber.h>
#include <omu_PrimString.h>
#include <omu_PrimTranslatedString.h>
#include <omu_PrimType.h>
#include <omu_PrimWrapper.h>

#include <gtest/gtest.h>

namespace
{
using StrDictionary = omu_PrimDictionary<cow_String>;
using IntDictionary = omu_PrimDictionary<int>;

TEST(PrimDictionary, TextKeepsTheOrderOfInsertion)
{
    StrDictionary dictionary;
    dictionary.Reserve(9);
    EXPECT_EQ(dictionary.AsString(0), "{}");
    dictionary.Put("b", omu_PrimNumber(2.0));
    dictionary.Put("a", omu_PrimNumber(1));
    EXPECT_EQ(dictionary.AsString(0), "{'b': 2.0, 'a': 1}");
    dictionary.Put("b", omu_PrimString("x"));
    EXPECT_EQ(dictionary.AsString(0), "{'b': 'x', 'a': 1}");
    EXPECT_TRUE(dictionary.Remove("b"));
    dictionary.Put("b", omu_PrimNumber(3));
    EXPECT_EQ(dictionary.AsString(0), "{'a': 1, 'b': 3}");
    EXPECT_FALSE(dictionary.Remove("c"));
    dictionary.Clear();
    EXPECT_EQ(dictionary.Length(), 0);
}

TEST(PrimDictionary, TextNestsAndQuotesKeys)
{
    IntDictionary inner;
    inner.Put(-1, omu_PrimString("it's"));
    StrDictionary outer;
    outer.Put("a'\"", inner);
    outer.Put("none", std::unique_ptr<omu_Primitive>());
    EXPECT_EQ(outer.AsString(0), "{'a\\'\"': {-1: \"it's\"}, 'none': None}");
    EXPECT_TRUE(outer.Has("none"));
    EXPECT_EQ(outer.Get("none"), nullptr);
}

TEST(PrimDictionary, LooksUpByWholeKeys)
{
    StrDictionary dictionary;
    dictionary.Put(cow_String("k", 1), omu_PrimNumber(1));
    dictionary.Put(cow_String("k\0k", 3), omu_PrimNumber(2));
    ASSERT_EQ(dictionary.Length(), 2);
    EXPECT_EQ(dictionary.Get(cow_String("k\0k", 3))->AsString(0), "2");
    EXPECT_EQ(dictionary.Get("kk"), nullptr);
    EXPECT_FALSE(dictionary.Has("kk"));
    EXPECT_EQ(dictionary.Keys(), (cow_List<cow_String>{cow_String("k", 1), cow_String("k\0k", 3)}));
    EXPECT_EQ(dictionary.KeyAt(0), "k");
    EXPECT_EQ(dictionary.ValueAt(1)->AsString(0), "2");
    EXPECT_EQ(dictionary.Values(),
              (cow_List<const omu_Primitive*>{dictionary.ValueAt(0), dictionary.ValueAt(1)}));
    EXPECT_THROW(static_cast<void>(dictionary.KeyAt(2)), nex_RangeException);
    EXPECT_THROW(static_cast<void>(dictionary.ValueAt(-1)), nex_RangeException);
}

TEST(PrimDictionary, OwnsItsValues)
{
    auto number = std::make_unique<omu_PrimNumber>(1);
    const omu_Primitive* const taken = number.get();
    StrDictionary dictionary;
    dictionary.Put("taken", std::move(number));
    EXPECT_EQ(dictionary.Get("taken"), taken);

    auto* const given = new omu_PrimNumber(3);
    dictionary.Put("given", given);
    EXPECT_EQ(dictionary.Get("given"), given);

    const omu_PrimNumber mine(2);
    dictionary.Put("copied", mine);
    EXPECT_NE(dictionary.Get("copied"), &mine);
    EXPECT_TRUE(*dictionary.Get("copied") == mine);
}

TEST(PrimDictionary, CopiesShareUntilOneIsWritten)
{
    StrDictionary dictionary;
    dictionary.Put("a", omu_PrimNumber(1));
    StrDictionary copy(dictionary);
    EXPECT_EQ(copy.Get("a"), dictionary.Get("a"));
    copy.Put("b", omu_PrimNumber(2));
    EXPECT_EQ(dictionary.Length(), 1);
    EXPECT_EQ(copy.Get("a"), dictionary.Get("a"));
    EXPECT_TRUE(copy.Remove("a"));
    EXPECT_TRUE(dictionary.Has("a"));
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
    EXPECT_EQ(omu_PrimWrapper().AsString(0), "<wrapper object>");
    EXPECT_EQ(omu_PrimWrapper(3, &PART).AsString(0), "<type object>");
    EXPECT_EQ(WrapperWith("name", omu_PrimString("P1")).AsString(0), "<type object named P1>");
    EXPECT_EQ(WrapperWith("name", omu_PrimTranslatedString("P1")).AsString(0), "<type object named P1>");
    EXPECT_EQ(WrapperWith("name", omu_PrimString("P1"), nullptr).AsString(0), "<wrapper object named P1>");
    EXPECT_EQ(WrapperWith("name", omu_PrimString("")).AsString(0), "<type object>");
    EXPECT_EQ(WrapperWith("name", omu_PrimNumber(1)).AsString(0), "<type object>") << "not a text";
    EXPECT_EQ(WrapperWith("Name", omu_PrimString("P1")).AsString(0), "<type object>");
}

TEST(PrimWrapper, LooksAtTheObjectAndSharesTheMembers)
{
    EXPECT_EQ(omu_PrimWrapper().TypeString(), atr_String("wrapper"));
    const omu_PrimWrapper wrapper = WrapperWith("a", omu_PrimNumber(1));
    EXPECT_EQ(wrapper.TypeString(), atr_String("type"));
    const omu_PrimWrapper copy(wrapper);
    EXPECT_EQ(copy.Object(), &PART);
    EXPECT_EQ(copy.MemberDictionary().Get("a"), wrapper.MemberDictionary().Get("a"));
}

// A wrapper that was stored and read back knows no object, and is equal all the same.
TEST(PrimWrapper, EqualityAsksForTheObjectWhereBothKnowTheirs)
{
    const omu_PrimWrapper wrapper = WrapperWith("a", omu_PrimNumber(1));
    const omu_PrimType same("Part");
    EXPECT_TRUE(wrapper == WrapperWith("a", omu_PrimNumber(1)));
    EXPECT_TRUE(wrapper == WrapperWith("a", omu_PrimNumber(1), nullptr));
    EXPECT_FALSE(wrapper == WrapperWith("a", omu_PrimNumber(1), &same)) << "another object, equal as it is";
    EXPECT_FALSE(wrapper == WrapperWith("a", omu_PrimNumber(2)));
    EXPECT_FALSE(wrapper == omu_PrimWrapper(1, &PART, wrapper.MemberDictionary()));
}
}
