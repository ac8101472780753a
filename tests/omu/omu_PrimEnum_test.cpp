// The constants of an enumeration and of the boolean pairs: every way in, and what each refuses.

#include <omu_PrimBool.h>
#include <omu_PrimNumber.h>
#include <omu_ValueErrorException.h>
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
using DataTypeConst = omu_PrimEnum<omu_PrimNumber::DataTypeEnm, 1>;

template <class F>
std::string RefusalOf(F make)
{
    try
    {
        static_cast<void>(make());
    }
    catch (const omu_ValueErrorException& error)
    {
        EXPECT_EQ(error.Source(), "ProtectedInterfaces/omu_PrimEnum");
        EXPECT_GT(error.Line(), 0);
        return std::string(error.JournalMessage().View());
    }
    return "not refused";
}

TEST(PrimEnum, RefusesAnUnknownName)
{
    EXPECT_EQ(RefusalOf([] { return DataTypeConst(cow_String("int")); }),
              "omu_PrimEnum(const cow_String&) - str not allowed: int  "
              "Permissible: {SCHAR: 0, SHORT: 1, INT: 2, FLOAT: 3, DOUBLE: 4, UINT: 5}");
    // The whole name is compared, and shown unread also where it looks like a template.
    for (const cow_String& name : {cow_String(), cow_String("GLOSS"), cow_String("NONE\0", 5),
                                   cow_String("NONE "), cow_String("None"), cow_String("%s%d")})
    {
        const std::string message =
            "omu_PrimEnum(const cow_String&) - str not allowed: " + std::string(name.View()) +
            "  Permissible: {GLOSSY: 0, NONE: 1}";
        EXPECT_EQ(RefusalOf([&] { return FinishConst(name); }), message);
    }
    FinishConst finish(Finish::NONE);
    finish.SetValue("DULL"); // unchecked
    EXPECT_EQ(RefusalOf([&] { return static_cast<Finish>(finish); }),
              "omu_PrimEnum(const cow_String&) - str not allowed: DULL  Permissible: {GLOSSY: 0, NONE: 1}");
    finish.SetValue(nullptr);
    EXPECT_EQ(finish.GetString(), "");
}

// The other ways in; the one that takes a constant does not list what is permissible, on purpose.
TEST(PrimEnum, EachWayInHasItsMessage)
{
    EXPECT_EQ(RefusalOf([] { return ShapeConst(static_cast<Shape>(3)); }),
              "omu_PrimEnum(Enum) - Enum value not allowed: 3  Permissible: {SPHERE: 7, CUBE: 2, NONE: "
              "4294967295}");
    EXPECT_EQ(RefusalOf([] { return FinishConst(static_cast<Finish>(-1)); }),
              "omu_PrimEnum(Enum) - Enum value not allowed: -1  Permissible: {GLOSSY: 0, NONE: 1}");
    EXPECT_EQ(RefusalOf([] { return FinishConst(ShapeConst(Shape::CUBE)); }),
              "omu_PrimEnum(const omu_PrimEnumBase&) - str not allowed: CUBE");
    EXPECT_EQ(
        RefusalOf([] { return omu_OnOffConst(static_cast<const omu_PrimEnumBase&>(omu_YesNoConst())); }),
        "omu_PrimEnum(const omu_PrimEnumBase&) - str not allowed: YES");
    MemoryStore store;
    const int number = store.Write(omu_PrimEnumBase("CUBE"));
    EXPECT_EQ(static_cast<Shape>(store.Read<ShapeConst>(number)), Shape::CUBE);
    EXPECT_EQ(
        RefusalOf([&] { return store.Read<FinishConst>(number); }),
        "omu_PrimEnum(const cls_ReadVisitor&) - str not allowed: CUBE  Permissible: {GLOSSY: 0, NONE: 1}");
}

TEST(PrimEnum, TextsGoByTheTablesOrder)
{
    const ShapeConst shape(Shape::CUBE);
    const std::unique_ptr<const omu_PrimEnumBase> copy(shape.Copy());
    for (const omu_PrimEnumBase* one : {copy.get(), static_cast<const omu_PrimEnumBase*>(&shape)})
    {
        EXPECT_EQ(one->TypeString(), atr_String("SPHERE or CUBE or NONE"));
        EXPECT_EQ(one->PermissibleValuesAsString(), "{SPHERE: 7, CUBE: 2, NONE: 4294967295}");
        EXPECT_EQ(one->DynTypeId(), 0x0013001Bu) << "no type id of its own";
    }
    EXPECT_EQ(omu_PrimEnumBase("CUBE").PermissibleValuesAsString(), "{}");
    EXPECT_EQ(omu_OnOffConst(false).PermissibleValuesAsString(), "{ON: 1, OFF: 0}");
    EXPECT_EQ(omu_TrueFalseConst(false).PermissibleValuesAsString(), "{TRUE: 1, FALSE: 0}");
    EXPECT_EQ(omu_YesNoConst(false).PermissibleValuesAsString(), "{YES: 1, NO: 0}");
    EXPECT_EQ(omu_OnOffConst::FamilyName(), "ON_OFF");
    EXPECT_EQ(omu_TrueFalseConst::FamilyName(), "TRUE_FALSE");
    EXPECT_EQ(omu_YesNoConst::FamilyName(), "YES_NO");
}

// By name alone, on purpose: NONE of one enumeration is NONE of every other.
TEST(PrimEnum, EqualAcrossEnumerations)
{
    EXPECT_EQ(static_cast<Finish>(FinishConst(ShapeConst(Shape::NONE))), Finish::NONE);
    EXPECT_TRUE(ShapeConst(Shape::NONE) == FinishConst(Finish::NONE));
    EXPECT_TRUE(omu_PrimEnumBase("NONE") == ShapeConst(Shape::NONE));
    EXPECT_FALSE(ShapeConst(Shape::CUBE) == FinishConst(Finish::NONE));
    EXPECT_FALSE(omu_PrimEnumBase(cow_String("NONE\0", 5)) == omu_PrimEnumBase("NONE"));
}

TEST(PrimBool, TakesANameNotTheTruthOfAPointer)
{
    EXPECT_FALSE(static_cast<bool>(omu_YesNoConst("NO")));
    EXPECT_EQ(RefusalOf([] { return omu_OnOffConst("YES"); }),
              "omu_PrimEnum(const cow_String&) - str not allowed: YES  Permissible: {ON: 1, OFF: 0}");
}
}
