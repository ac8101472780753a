// Arrows, texts and anchors: defaults, identities, and their stored form.

#include <KTLOxuAnn.h>
#include <KTLOxuMdl.h>
#include <KTLOxuOmu.h>
#include <annC_AnnotationClient.h>
#include <annC_AnnotationContainer.h>
#include <annC_Arrow.h>
#include <annC_Point3DAnchor.h>
#include <annC_Text.h>
#include <gtest/gtest.h>
#include <nex_PrimException.h>
#include <testing/ExpectRaise.h>
#include <testing/MemoryStore.h>
#include <testing/StartGuard.h>

namespace
{
TEST(AnnotationModule, StopsWithItsOwnClientAndLeavesAFrontEndsAlone)
{
    int running = 0;
    const auto runOnce = [&running] {
        KTLOxuAnn_initialize(running);
        annC_AnnotationClient::Instance();
        KTLOxuAnn_finalize(running);
    };
    runOnce();
    EXPECT_FALSE(annC_AnnotationClient::Exists());
    const annC_AnnotationClient own;
    runOnce();
    EXPECT_EQ(&annC_AnnotationClient::Instance(), &own);
}

class Objects : public testing::Test
{
    StartGuard<KTLOxuOmu_initialize, KTLOxuOmu_finalize> omu_;
    StartGuard<KTLOxuMdl_initialize, KTLOxuMdl_finalize> mdl_;
    StartGuard<KTLOxuAnn_initialize, KTLOxuAnn_finalize> ann_;
};

TEST_F(Objects, DefaultsAsStored)
{
    MemoryStore store;
    const int arrow = store.Write(annC_Arrow());
    EXPECT_EQ(store.Faults(), "");
    EXPECT_EQ(store.Describe(arrow), "annC_Annotation\n"
                                     "annC_Arrow\n"
                                     "  startPointX DOUBLE 0\n  startPointY DOUBLE 0\n"
                                     "  endPointX DOUBLE 0\n  endPointY DOUBLE 0\n"
                                     "  startAnchor OBJECT #2\n  endAnchor OBJECT #3\n"
                                     "  startHeadStyle ENUM 'NONE'\n  endHeadStyle ENUM 'FILLED_ARROW'\n"
                                     "  startGap DOUBLE 0\n  endGap DOUBLE 0\n  color STRING 'White'\n"
                                     "  lineStyle ENUM 'SOLID'\n  lineThickness ENUM 'VERY_THIN'\n");
    EXPECT_EQ(store.Describe(2), "annC_Anchor\nannC_NamedAnchor\n  position ENUM 'BOTTOM_LEFT'\n");
}

TEST_F(Objects, ComeBackWithTheirAnchorsShared)
{
    annC_Arrow arrow;
    arrow.startAnchor = annC_AnchorCow(new annC_Point3DAnchor(1.0, 2.0, 3.0));
    arrow.endAnchor = arrow.startAnchor;
    MemoryStore store;
    const auto back = store.Read<annC_Arrow>(store.Write(arrow));
    EXPECT_TRUE(back.startAnchor.SharesWith(back.endAnchor));
    EXPECT_EQ(dynamic_cast<const annC_Point3DAnchor&>(*back.endAnchor).positionZ, 3.0);
    EXPECT_EQ(back.Uid(), arrow.Uid());
    EXPECT_EQ(back.AnnotationUid(), arrow.AnnotationUid());
    EXPECT_EQ(back.endAnchor->AnchorUid(), arrow.endAnchor->AnchorUid());
}

TEST_F(Objects, AContainerComesBackInItsOrder)
{
    annC_AnnotationContainer container;
    for (const char* name : {"back", "middle", "front"})
        container.Insert(name, new annC_Text);
    container.SendToBack("middle");
    MemoryStore store;
    const auto back = store.Read<annC_AnnotationContainer>(store.Write(container));
    EXPECT_EQ(back.Keys(), (cow_List<cow_String>{"front", "back", "middle"}));
    EXPECT_EQ(back.Uid(), container.Uid());
    EXPECT_EQ(back.RepositoryUid(), container.RepositoryUid());
    EXPECT_EQ(back.ExtensionUid(), container.ExtensionUid());
}

TEST_F(Objects, AStoredNameWithoutAnAnnotationIsRefused)
{
    struct : annC_AnnotationContainer
    {
        void DBWrite(const cls_WriteVisitor& writer) const override
        {
            if (!writer.Announce(TypeId(), Uid()))
                return;
            mdl_Repository::DBWrite(writer.BaseWriter());
            writer.WriteSharedMap({0, "m_map"}, cow_Map<cow_String, annC_AnnotationCow>{{"a", {}}});
        }
    } damaged;
    MemoryStore store;
    const int number = store.Write(damaged);
    EXPECT_RAISE(store.Read<annC_AnnotationContainer>(number), nex_PrimException,
                 "no annotation, or more than one, is called a");
}

TEST_F(Objects, CopiesShareAnchorsAndIdentitiesUntilTheyAreRenewed)
{
    const annC_Arrow arrow;
    const std::unique_ptr<annC_Arrow> copy(arrow.Copy());
    EXPECT_TRUE(copy->startAnchor.SharesWith(arrow.startAnchor));
    EXPECT_EQ(copy->Uid(), arrow.Uid());
    copy->NewUid();
    EXPECT_FALSE(copy->Uid() == arrow.Uid() || copy->AnnotationUid() == arrow.AnnotationUid());
    const annC_AnnotationContainer container;
    annC_AnnotationContainer other(container);
    other.NewUid();
    EXPECT_FALSE(other.Uid() == container.Uid() || other.RepositoryUid() == container.RepositoryUid() ||
                 other.ExtensionUid() == container.ExtensionUid());
}
}
