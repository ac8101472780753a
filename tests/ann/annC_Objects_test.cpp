// Arrows, texts and anchors: defaults, moving, identities, and their stored form.

#include <KTLOxuAnn.h>
#include <KTLOxuMdl.h>
#include <KTLOxuOmu.h>
#include <annC_AnnotationContainer.h>
#include <annC_Arrow.h>
#include <annC_NamedAnchor.h>
#include <annC_Point3DAnchor.h>
#include <annC_Text.h>
#include <annC_ViewportAnchor.h>
#include <gtest/gtest.h>
#include <omu_SymbolicConstantTable.h>
#include <omu_ValueErrorException.h>
#include <testing/ExpectRaise.h>
#include <testing/MemoryStore.h>
#include <testing/StartGuard.h>

namespace
{
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
    const int text = store.Write(annC_Text());
    EXPECT_EQ(store.Faults(), "");
    EXPECT_EQ(store.Describe(arrow), "annC_Annotation\n"
                                     "annC_Arrow\n"
                                     "  startPointX DOUBLE 0\n  startPointY DOUBLE 0\n"
                                     "  endPointX DOUBLE 0\n  endPointY DOUBLE 0\n"
                                     "  startAnchor OBJECT #2\n  endAnchor OBJECT #3\n"
                                     "  startHeadStyle ENUM 'NONE'\n  endHeadStyle ENUM 'FILLED_ARROW'\n"
                                     "  startGap DOUBLE 0\n  endGap DOUBLE 0\n  color STRING 'White'\n"
                                     "  lineStyle ENUM 'SOLID'\n  lineThickness ENUM 'VERY_THIN'\n");
    EXPECT_EQ(store.Describe(text), "annC_Annotation\n"
                                    "annC_Text\n"
                                    "  text STRING ''\n  offsetX DOUBLE 0\n  offsetY DOUBLE 0\n"
                                    "  anchor OBJECT #5\n  referencePoint OBJECT #6\n"
                                    "  rotationAngle DOUBLE 0\n"
                                    "  font STRING '-*-helvetica-medium-r-normal-*-*-120-'\n"
                                    "  color STRING 'White'\n  backgroundStyle ENUM 'TRANSPARENT'\n"
                                    "  backgroundColor STRING 'Black'\n  box BOOL false\n"
                                    "  justification ENUM 'LEFT'\n");
    EXPECT_EQ(store.Describe(2), "annC_Anchor\nannC_NamedAnchor\n  position ENUM 'BOTTOM_LEFT'\n");
}

TEST_F(Objects, ComeBackWithTheirAnchorsShared)
{
    annC_Arrow arrow;
    arrow.startAnchor = annC_AnchorCow(new annC_Point3DAnchor(1.0, 2.0, 3.0));
    arrow.endAnchor = arrow.startAnchor;
    arrow.lineStyle = annC_LineStyleEnm::DOTTED;
    arrow.color = "Red";
    MemoryStore store;
    const int number = store.Write(arrow);
    const auto back = store.Read<annC_Arrow>(number);
    EXPECT_EQ(back.lineStyle, annC_LineStyleEnm::DOTTED);
    EXPECT_EQ(back.color, "Red");
    EXPECT_TRUE(back.startAnchor.SharesWith(back.endAnchor));
    EXPECT_EQ(dynamic_cast<const annC_Point3DAnchor&>(*back.endAnchor).positionZ, 3.0);
    EXPECT_EQ(back.Uid(), arrow.Uid());
    EXPECT_EQ(back.AnnotationUid(), arrow.AnnotationUid());
    EXPECT_EQ(back.endAnchor->AnchorUid(), arrow.endAnchor->AnchorUid());

    store.LastPart(number).Set("lineStyle", cls_AttributeType::ENUM, cow_String("DASH"));
    EXPECT_RAISE(store.Read<annC_Arrow>(number), omu_ValueErrorException,
                 "omu_PrimEnum(const cow_String&) - str not allowed: DASH  Permissible: "
                 "{SOLID: 0, DASHED: 2, DOTTED: 1, DOT_DASH: 3, NONE: 4}");
}

TEST_F(Objects, AContainerComesBackInItsOrder)
{
    annC_AnnotationContainer container;
    for (const char* name : {"back", "middle", "front"})
        container.Insert(name, new annC_Text);
    container.SendToBack("middle");
    MemoryStore store;
    const int number = store.Write(container);
    EXPECT_EQ(store.Faults(), "");
    const auto back = store.Read<annC_AnnotationContainer>(number);
    EXPECT_EQ(back.Keys(), (cow_List<cow_String>{"front", "back", "middle"}));
    EXPECT_EQ(back.Uid(), container.Uid());
    EXPECT_EQ(back.RepositoryUid(), container.RepositoryUid());
    EXPECT_EQ(back.ExtensionUid(), container.ExtensionUid());
}

TEST_F(Objects, MovingLeavesAnchorsAndCopiesKeepIdentities)
{
    annC_Arrow arrow;
    const std::unique_ptr<annC_Arrow> copy(arrow.Copy());
    copy->Translate(1.5, -2.0);
    EXPECT_EQ(copy->startPointX, 1.5);
    EXPECT_EQ(copy->endPointY, -2.0);
    EXPECT_TRUE(copy->startAnchor.SharesWith(arrow.startAnchor));
    EXPECT_EQ(copy->Uid(), arrow.Uid());
    const cls_Uid own = arrow.Uid();
    copy->NewUid();
    EXPECT_EQ(arrow.Uid(), own);
    EXPECT_FALSE(copy->Uid() == own);
    EXPECT_FALSE(copy->AnnotationUid() == arrow.AnnotationUid());
    annC_Text text;
    text.Translate(3.0, 4.0);
    EXPECT_EQ(text.offsetY, 4.0);
}

TEST_F(Objects, OneConstantServesEveryEnumerationThatHasTheName)
{
    omu_SymbolicConstantTable& constants = omu_SymbolicConstantTable::Instance();
    for (const char* name : {"BOTTOM_LEFT", "TOP_RIGHT", "NONE", "DOT_DASH", "CENTER", "MATCH"})
        EXPECT_TRUE(constants.IsMember(name)) << name;
    EXPECT_TRUE((omu_PrimEnum<annC_JustificationEnm, 1>(annC_JustificationEnm::CENTER) ==
                 omu_PrimEnum<annC_RelativePositionEnm, 1>(annC_RelativePositionEnm::CENTER)));
}
}
