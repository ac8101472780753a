#pragma once

#include <omu_EnumEntry.h>
#include <omu_PrimEnum.h>
#include <omu_SymbolicConstantTable.h>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

/// What holds for the table of every enumeration that scripts see. A module describes its enumerations and
/// instantiates the suite once:
///
///     struct LineStyles
///     {
///         using Constant = omu_PrimEnum<annC_LineStyleEnm, 1>;
///         using Value = annC_LineStyleEnm;
///         // In the order of the table.
///         static std::vector<omu_EnumEntry> Rows() { return {{"SOLID", 0}, {"DASHED", 2}, ...}; }
///         // Where names need not be upper case: static constexpr bool ANY_CASE = true;
///     };
///     using AnnEnumerations = testing::Types<LineStyles, ...>;
///     INSTANTIATE_TYPED_TEST_SUITE_P(Ann, EnumTable, AnnEnumerations);
template <class Case>
class EnumTable : public testing::Test
{
protected:
    static std::vector<omu_EnumEntry> Table()
    {
        std::vector<omu_EnumEntry> rows;
        for (const omu_EnumEntry* row = Case::Constant::table; row->name != nullptr; ++row)
            rows.push_back(*row);
        return rows;
    }
};
TYPED_TEST_SUITE_P(EnumTable);

TYPED_TEST_P(EnumTable, HasItsRowsInOrder)
{
    const std::vector<omu_EnumEntry> wanted = TypeParam::Rows();
    const std::vector<omu_EnumEntry> found = this->Table();
    const cow_Map<cow_String, unsigned> map = typename TypeParam::Constant().PermissibleValues();
    ASSERT_EQ(found.size(), wanted.size());
    ASSERT_EQ(map.Length(), static_cast<int>(wanted.size()));
    for (int i = 0; i < map.Length(); ++i)
    {
        const omu_EnumEntry& row = wanted[static_cast<std::size_t>(i)];
        EXPECT_STREQ(found[static_cast<std::size_t>(i)].name, row.name) << "row " << i;
        EXPECT_EQ(found[static_cast<std::size_t>(i)].value, row.value) << row.name;
        EXPECT_EQ(map.KeyAt(i), row.name);
        EXPECT_EQ(map.ValueAt(i), static_cast<unsigned>(row.value));
    }
}

TYPED_TEST_P(EnumTable, NamesAreLegalAndUnique)
{
    std::set<std::string> names;
    std::set<int> values;
    for (const omu_EnumEntry& row : this->Table())
    {
        std::string name = row.name;
        if constexpr (requires { TypeParam::ANY_CASE; })
            for (char& c : name)
                if (c >= 'a' && c <= 'z')
                    c = static_cast<char>(c - 'a' + 'A');
        EXPECT_TRUE(omu_SymbolicConstantTable::IsValidSymConstName(cow_String(name))) << row.name;
        EXPECT_TRUE(names.insert(row.name).second) << row.name << " stands twice";
        EXPECT_TRUE(values.insert(row.value).second) << row.value << " stands twice";
    }
    EXPECT_FALSE(names.empty());
}

TYPED_TEST_P(EnumTable, NameGivesValueGivesName)
{
    using Constant = typename TypeParam::Constant;
    using Value = typename TypeParam::Value;
    for (const omu_EnumEntry& row : this->Table())
    {
        const auto value = static_cast<Value>(row.value);
        EXPECT_EQ(static_cast<Value>(Constant(cow_String(row.name))), value) << row.name;
        EXPECT_EQ(Constant(value).GetString(), row.name);
        EXPECT_EQ(Constant(omu_PrimEnumBase(row.name)).GetString(), row.name);
    }
    EXPECT_EQ(Constant().GetString(), this->Table().front().name);
}

REGISTER_TYPED_TEST_SUITE_P(EnumTable, HasItsRowsInOrder, NamesAreLegalAndUnique, NameGivesValueGivesName);
