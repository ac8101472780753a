#include <cls_CollectionType.h>
#include <cls_Series.h>
#include <gtest/gtest.h>
#include <nex_InternalException.h>

#include <set>

namespace
{
bool Match(unsigned a, unsigned b)
{
    return cls_CollectionsMatch(static_cast<cls_CollectionType>(a), static_cast<cls_CollectionType>(b));
}
}

TEST(cls_CollectionsMatch, HoldsForTheThreeRulesAndNothingElse)
{
    std::set<std::pair<unsigned, unsigned>> alike;
    for (unsigned list : {51u, 52u, 53u, 54u, 55u, 57u})
        alike.insert({list, list + 30});
    alike.insert({2, 93});
    alike.insert({2, 112});
    alike.insert({93, 112});
    for (unsigned a = 0; a <= 130; ++a)
        for (unsigned b = a; b <= 130; ++b)
        {
            const bool expected = a == b || alike.count({a, b}) != 0;
            ASSERT_EQ(Match(a, b), expected) << a << " and " << b;
            ASSERT_EQ(Match(b, a), expected) << b << " and " << a;
        }
    EXPECT_TRUE(Match(4000000000u, 4000000000u));
    EXPECT_FALSE(Match(56, 86)) << "reserved codes have no element type";
}

TEST(cls_Series, NamesTheCodeOfEveryCollection)
{
    cow_List<int> ints;
    cow_List<bool> bools;
    cow_List<unsigned> unsigneds;
    cow_List<float> floats;
    cow_List<double> doubles;
    cow_List<cow_String> texts;
    const cls_PrimSink sinks[] = {&bools, &doubles, &floats, &ints, &texts, &unsigneds};
    const unsigned lists[] = {51, 52, 53, 54, 55, 57};
    const unsigned byText[] = {0, 62, 63, 64, 65, 66};
    const unsigned byInt[] = {0, 72, 73, 74, 75, 76};
    cow_List<int> intKeys;
    for (int i = 0; i < 6; ++i)
    {
        EXPECT_EQ(static_cast<unsigned>(cls_ListCode(sinks[i])), lists[i]);
        if (i == 0)
            continue;
        EXPECT_EQ(static_cast<unsigned>(cls_MapCode(cls_KeySink(&texts), sinks[i])), byText[i]);
        EXPECT_EQ(static_cast<unsigned>(cls_MapCode(cls_KeySink(&intKeys), sinks[i])), byInt[i]);
    }
    EXPECT_EQ(cls_ListCode(cls_PrimSpan(std::span<const bool>())), cls_CollectionType::LIST_BOOL);
    EXPECT_EQ(cls_ListCode(cls_PrimSpan(std::span<const cow_String>())), cls_CollectionType::LIST_STRING);
    EXPECT_EQ(cls_ObjectMapCode(cls_KeySpan(std::span<const int>())), cls_CollectionType::MAP_INT_OBJ);
    EXPECT_EQ(cls_ObjectMapCode(cls_KeySink(&texts)), cls_CollectionType::MAP_STRING_OBJ);
    EXPECT_THROW(cls_MapCode(cls_KeySink(&texts), cls_PrimSink(&bools)), nex_InternalException);
}
