#include <cls_Series.h>
#include <gtest/gtest.h>
#include <nex_InternalException.h>

#include <set>

namespace
{
TEST(cls_CollectionsMatch, HoldsForTheThreeRulesAndNothingElse)
{
    std::set<std::pair<unsigned, unsigned>> alike = {{2, 93}, {2, 112}, {93, 112}};
    for (const unsigned list : {51u, 52u, 53u, 54u, 55u, 57u}) // 56 has no element type
        alike.insert({list, list + 30});
    for (unsigned a = 0; a <= 130; ++a)
        for (unsigned b = 0; b <= 130; ++b)
            ASSERT_EQ(
                cls_CollectionsMatch(static_cast<cls_CollectionType>(a), static_cast<cls_CollectionType>(b)),
                a == b || alike.count({std::min(a, b), std::max(a, b)}) != 0)
                << a << " and " << b;
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
    for (unsigned i = 0; i < 6; ++i)
    {
        EXPECT_EQ(static_cast<unsigned>(cls_ListCode(sinks[i])), lists[i]);
        if (i == 0)
            continue;
        EXPECT_EQ(static_cast<unsigned>(cls_MapCode(cls_KeySink(&texts), sinks[i])), 61 + i);
        EXPECT_EQ(static_cast<unsigned>(cls_MapCode(cls_KeySink(&ints), sinks[i])), 71 + i);
    }
    EXPECT_EQ(cls_ListCode(cls_PrimSpan(std::span<const cow_String>())), cls_CollectionType::LIST_STRING);
    EXPECT_EQ(cls_ObjectMapCode(cls_KeySpan(std::span<const int>())), cls_CollectionType::MAP_INT_OBJ);
    EXPECT_EQ(cls_ObjectMapCode(cls_KeySink(&texts)), cls_CollectionType::MAP_STRING_OBJ);
    EXPECT_THROW(cls_MapCode(cls_KeySink(&texts), cls_PrimSink(&bools)), nex_InternalException);
}
}
