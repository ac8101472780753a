#include <nex_RangeException.h>
#include <omu_Table.h>
#include <testing/ValueTesting.h>

namespace
{
TEST(Table, LinesUpItsColumns)
{
    omu_Table table({"Name", "Value", "Note"});
    EXPECT_ERROR(table.Put(0, 0, "x"), "nex_RangeException: index 0 out of range, length 0");
    EXPECT_EQ(table.AddRow(), 0);
    table.Put(0, 0, "x");
    table.Put(0, 1, omu_PrimNumber(1.5));
    EXPECT_EQ(table.AddRow(), 1);
    table.Put(1, 0, "\xC3\xA4\xC3\xA4\xC3\xA4"); // three code points in six bytes
    table.Put(1, 1, omu_PrimEnumBase("SOLID"));
    table.Put(1, 2, "two\nlines");
    EXPECT_EQ(table.AsString(), "Name  Value  Note\n"
                                "x     1.5\n"
                                "\xC3\xA4\xC3\xA4\xC3\xA4   SOLID  two lines\n");
    EXPECT_EQ(table.Get(0, 2), nullptr);
    EXPECT_ERROR(table.Get(1, 3), "nex_RangeException: index 3 out of range, length 3");
    omu_Table unnamed({"", ""});
    EXPECT_EQ(unnamed.AsString(), "") << "no heading";
    unnamed.AddRow();
    unnamed.Put(0, 1, "Arrow");
    EXPECT_EQ(unnamed.AsString(), "  Arrow\n");
}
}
