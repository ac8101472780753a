#include <memory>
#include <omu_PrimBool.h>
#include <omu_PrimEnum.h>
#include <omu_PrimNumber.h>
#include <omu_ValueErrorException.h>
#include <string>
#include <testing/EnumTableTest.h>
#include <testing/MemoryStore.h>

#include <gtest/gtest.h>

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

struct DataTypes
{
    using Constant = DataTypeConst;
    using Value = omu_PrimNumber::DataTypeEnm;
    static std::vector<omu_EnumEntry> Rows()
    {
        return {{"SCHAR", 0}, {"SHORT", 1}, {"INT", 2}, {"FLOAT", 3}, {"DOUBLE", 4}, {"UINT", 5}};
    }
};
struct OnOff
{
    using Constant = omu_OnOffConst;
    using Value = bool;
    static std::vector<omu_EnumEntry> Rows() { return {{"ON", 1}, {"OFF", 0}}; }
};
struct TrueFalse
{
    using Constant = omu_TrueFalseConst;
    using Value = bool;
    static std::vector<omu_EnumEntry> Rows() { return {{"TRUE", 1}, {"FALSE", 0}}; }
};
struct YesNo
{
    using Constant = omu_YesNoConst;
    using Value = bool;
    static std::vector<omu_EnumEntry> Rows() { return {{"YES", 1}, {"NO", 0}}; }
};
using OmuEnumerations = testing::Types<DataTypes, OnOff, TrueFalse, YesNo>;
INSTANTIATE_TYPED_TEST_SUITE_P(Omu, EnumTable, OmuEnumerations);

template <class F>
std::string RefusalOf(F make)
{
    try
    {
        make();
    }
    catch (const omu_ValueErrorException& error)
    {
        EXPECT_EQ(error.Source(), "ProtectedInterfaces/omu_PrimEnum");
        EXPECT_GT(error.Line(), 0);
        EXPECT_STREQ(error.PythonType(), "ValueError");
        return std::string(error.JournalMessage().View());
    }
    return "not refused";
}

TEST(PrimEnum, RefusesAnUnknownName)
{
    EXPECT_EQ(RefusalOf([] { DataTypeConst(cow_String("int")); }),
              "omu_PrimEnum(const cow_String&) - str not allowed: int  "
              "Permissible: {SCHAR: 0, SHORT: 1, INT: 2, FLOAT: 3, DOUBLE: 4, UINT: 5}");
    EXPECT_EQ(RefusalOf([] { FinishConst(cow_String("")); }),
              "omu_PrimEnum(const cow_String&) - str not allowed:   Permissible: {GLOSSY: 0, NONE: 1}");
    EXPECT_EQ(RefusalOf([] { FinishConst(cow_String("GLOSS")); }),
              "omu_PrimEnum(const cow_String&) - str not allowed: GLOSS  Permissible: {GLOSSY: 0, NONE: 1}");
}

TEST(PrimEnum, ComparesTheWholeName)
{
    EXPECT_NE(RefusalOf([] { FinishConst(cow_String("NONE\0", 5)); }), "not refused");
    EXPECT_NE(RefusalOf([] { FinishConst(cow_String("NONE ")); }), "not refused");
    EXPECT_NE(RefusalOf([] { FinishConst(cow_String("None")); }), "not refused");
}

// The name given is shown as it is, also where it looks like a placeholder.
TEST(PrimEnum, ShowsTheNameUnread)
{
    EXPECT_EQ(RefusalOf([] { FinishConst(cow_String("%s%d")); }),
              "omu_PrimEnum(const cow_String&) - str not allowed: %s%d  Permissible: {GLOSSY: 0, NONE: 1}");
}

TEST(PrimEnum, RefusesAnUnknownValue)
{
    EXPECT_EQ(RefusalOf([] { ShapeConst(static_cast<Shape>(3)); }),
              "omu_PrimEnum(Enum) - Enum value not allowed: 3  Permissible: {SPHERE: 7, CUBE: 2, NONE: "
              "4294967295}");
    EXPECT_EQ(RefusalOf([] { FinishConst(static_cast<Finish>(-1)); }),
              "omu_PrimEnum(Enum) - Enum value not allowed: -1  Permissible: {GLOSSY: 0, NONE: 1}");
    EXPECT_EQ(ShapeConst(Shape::NONE).GetString(), "NONE");
}

// The one route whose message does not list what is permissible.
TEST(PrimEnum, RefusesAForeignConstant)
{
    EXPECT_EQ(RefusalOf([] { FinishConst(ShapeConst(Shape::CUBE)); }),
              "omu_PrimEnum(const omu_PrimEnumBase&) - str not allowed: CUBE");
}

TEST(PrimEnum, TakesAConstantByItsName)
{
    EXPECT_EQ(static_cast<Finish>(FinishConst(ShapeConst(Shape::NONE))), Finish::NONE);
    EXPECT_EQ(static_cast<Shape>(ShapeConst(omu_PrimEnumBase("SPHERE"))), Shape::SPHERE);
}

TEST(PrimEnum, RefusesAnUnknownNameInStoredData)
{
    MemoryStore store;
    const int number = store.Write(omu_PrimEnumBase("CUBE"));
    EXPECT_EQ(static_cast<Shape>(store.Read<ShapeConst>(number)), Shape::CUBE);
    EXPECT_EQ(
        RefusalOf([&] { store.Read<FinishConst>(number); }),
        "omu_PrimEnum(const cls_ReadVisitor&) - str not allowed: CUBE  Permissible: {GLOSSY: 0, NONE: 1}");
}

TEST(PrimEnum, RefusesToTurnAForeignNameIntoAValue)
{
    FinishConst finish(Finish::NONE);
    finish.SetValue("DULL");
    EXPECT_EQ(finish.GetString(), "DULL");
    EXPECT_EQ(RefusalOf([&] { static_cast<void>(static_cast<Finish>(finish)); }),
              "omu_PrimEnum(const cow_String&) - str not allowed: DULL  Permissible: {GLOSSY: 0, NONE: 1}");
    finish.SetValue("GLOSSY");
    EXPECT_EQ(static_cast<Finish>(finish), Finish::GLOSSY);
    finish.SetValue(nullptr);
    EXPECT_EQ(finish.GetString(), "");
}

TEST(PrimEnum, FirstOfTheTableByDefault)
{
    EXPECT_EQ(static_cast<Shape>(ShapeConst()), Shape::SPHERE);
    EXPECT_TRUE(static_cast<bool>(omu_OnOffConst()));
}

TEST(PrimEnum, TextsGoByTheTablesOrder)
{
    const ShapeConst shape(Shape::CUBE);
    EXPECT_EQ(shape.TypeString(), atr_String("SPHERE or CUBE or NONE"));
    EXPECT_EQ(shape.PermissibleValuesAsString(), "{SPHERE: 7, CUBE: 2, NONE: 4294967295}");
    EXPECT_EQ(shape.AsString(0), "CUBE");
    const omu_PrimEnumBase base("CUBE");
    EXPECT_EQ(base.TypeString(), atr_String(""));
    EXPECT_EQ(base.PermissibleValuesAsString(), "{}");
    EXPECT_EQ(base.PermissibleValues().Length(), 0);
}

// By name alone, on purpose: NONE of one enumeration is NONE of every other.
TEST(PrimEnum, EqualAcrossEnumerations)
{
    EXPECT_TRUE(ShapeConst(Shape::NONE) == FinishConst(Finish::NONE));
    EXPECT_TRUE(omu_PrimEnumBase("NONE") == ShapeConst(Shape::NONE));
    EXPECT_FALSE(ShapeConst(Shape::CUBE) == FinishConst(Finish::NONE));
    EXPECT_TRUE(ShapeConst(Shape::CUBE) != ShapeConst(Shape::SPHERE));
    EXPECT_FALSE(omu_PrimEnumBase(cow_String("NONE\0", 5)) == omu_PrimEnumBase("NONE"));
}

TEST(PrimEnum, HasNoTypeIdOfItsOwn)
{
    EXPECT_EQ(ShapeConst().DynTypeId(), 0x0013001Bu);
    EXPECT_EQ(DataTypeConst().DynTypeId(), 0x0013001Bu);
    EXPECT_EQ(omu_PrimEnumBase().DynTypeId(), 0x0013001Bu);
}

TEST(PrimEnum, CopyKeepsItsEnumeration)
{
    const std::unique_ptr<omu_PrimEnumBase> copy(ShapeConst(Shape::CUBE).Copy());
    EXPECT_NE(dynamic_cast<ShapeConst*>(copy.get()), nullptr);
    EXPECT_EQ(copy->PermissibleValuesAsString(), "{SPHERE: 7, CUBE: 2, NONE: 4294967295}");
    const std::unique_ptr<omu_PrimEnumBase> onOff(omu_OnOffConst(false).Copy());
    EXPECT_NE(dynamic_cast<omu_OnOffConst*>(onOff.get()), nullptr);
}

TEST(PrimBool, ConvertsToAndFromBool)
{
    EXPECT_EQ(omu_OnOffConst(true).GetString(), "ON");
    EXPECT_EQ(omu_TrueFalseConst(false).GetString(), "FALSE");
    EXPECT_EQ(omu_YesNoConst("NO").GetString(), "NO") << "a name, not the truth of a pointer";
    EXPECT_FALSE(static_cast<bool>(omu_YesNoConst("NO")));
    EXPECT_TRUE(static_cast<bool>(omu_TrueFalseConst(cow_String("TRUE"))));
}

TEST(PrimBool, NamesItsFamily)
{
    EXPECT_EQ(omu_OnOffConst::FamilyName(), "ON_OFF");
    EXPECT_EQ(omu_TrueFalseConst::FamilyName(), "TRUE_FALSE");
    EXPECT_EQ(omu_YesNoConst::FamilyName(), "YES_NO");
    EXPECT_EQ(omu_OnOffConst().TypeString(), atr_String("ON or OFF"));
}

TEST(PrimBool, LooksAnotherConstantUpInItsOwnTable)
{
    EXPECT_TRUE(static_cast<bool>(omu_OnOffConst(omu_PrimEnumBase("ON"))));
    EXPECT_EQ(RefusalOf([] { omu_OnOffConst(static_cast<const omu_PrimEnumBase&>(omu_YesNoConst(true))); }),
              "omu_PrimEnum(const omu_PrimEnumBase&) - str not allowed: YES");
    EXPECT_EQ(RefusalOf([] { omu_OnOffConst("YES"); }),
              "omu_PrimEnum(const cow_String&) - str not allowed: YES  Permissible: {ON: 1, OFF: 0}");
}
}
