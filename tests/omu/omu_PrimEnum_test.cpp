// The constants of an enumeration and of the boolean pairs: every way in, and what each refuses.

#include <omu_PrimBool.h>
#include <omu_PrimNumber.h>
#include <testing/MemoryStore.h>
#include <testing/ValueTesting.h>

namespace
{
/// Values that neither ascend nor begin at 0, and one that no unsigned value can show as it is.
enum class Shape { SPHERE = 7, CUBE = 2, NONE = -1 };
/// NONE again, with another value.
enum class Finish { GLOSSY = 0, NONE = 1 };
}

template <>
const omu_EnumEntry omu_PrimEnum<Shape, 1>::table[] = {
    {"SPHERE", int(Shape::SPHERE)}, {"CUBE", int(Shape::CUBE)}, {"NONE", int(Shape::NONE)}, {nullptr, 0}};
template <>
const omu_EnumEntry omu_PrimEnum<Finish, 1>::table[] = {
    {"GLOSSY", int(Finish::GLOSSY)}, {"NONE", int(Finish::NONE)}, {nullptr, 0}};

namespace
{
using ShapeConst = omu_PrimEnum<Shape, 1>;
using FinishConst = omu_PrimEnum<Finish, 1>;

TEST(PrimEnum, EachWayInHasItsMessage)
{
    const std::string byName = "ValueError: omu_PrimEnum(const cow_String&) - str not allowed: ";
    const std::string finishes = "  Permissible: {GLOSSY: 0, NONE: 1}";
    EXPECT_ERROR(omu_OnOffConst("YES"), byName + "YES  Permissible: {ON: 1, OFF: 0}");
    // The whole name is compared, and shown unread also where it looks like a template.
    for (const cow_String& name : {cow_String(), cow_String("GLOSS"), cow_String("NONE\0", 5),
                                   cow_String("NONE "), cow_String("None"), cow_String("%s%d")})
        EXPECT_ERROR(FinishConst{name}, byName + std::string(name.View()) + finishes);
    FinishConst finish(Finish::NONE);
    finish.SetValue("DULL"); // unchecked
    EXPECT_ERROR(static_cast<Finish>(finish), byName + "DULL" + finishes);
    EXPECT_ERROR(ShapeConst(static_cast<Shape>(3)),
                 "ValueError: omu_PrimEnum(Enum) - Enum value not allowed: "
                 "3  Permissible: {SPHERE: 7, CUBE: 2, NONE: 4294967295}");
    // The one that takes a constant does not list what is permissible, on purpose.
    EXPECT_ERROR(FinishConst(ShapeConst(Shape::CUBE)),
                 "ValueError: omu_PrimEnum(const omu_PrimEnumBase&) - str not allowed: CUBE");
    MemoryStore store;
    const int number = store.Write(omu_PrimEnumBase("CUBE"));
    EXPECT_EQ(static_cast<Shape>(store.Read<ShapeConst>(number)), Shape::CUBE);
    EXPECT_ERROR(store.Read<FinishConst>(number),
                 "ValueError: omu_PrimEnum(const cls_ReadVisitor&) - str not allowed: CUBE" + finishes);
}

// By name alone, on purpose: NONE of one enumeration is NONE of every other.
TEST(PrimEnum, NamesGoAcrossEnumerations)
{
    EXPECT_EQ(static_cast<Finish>(FinishConst(ShapeConst(Shape::NONE))), Finish::NONE);
    EXPECT_TRUE(ShapeConst(Shape::NONE) == FinishConst(Finish::NONE));
    EXPECT_FALSE(static_cast<bool>(omu_YesNoConst("NO"))) << "a name, not the truth of a pointer";
    EXPECT_EQ(ShapeConst(Shape::CUBE).TypeString(), atr_String("SPHERE or CUBE or NONE"));
}
}
