#include <cls_ClassRegistrar.h>
#include <cls_TypeId.h>
#include <gtest/gtest.h>
#include <nex_InternalException.h>
#include <testing/ExpectRaise.h>
#include <typ_ArchCompTable.h>

#include <string>
#include <thread>

// Which classes there are: the component tables, and the registrar with the metadata.

namespace
{
constexpr unsigned short TABLE_ONLY = 0x7E21;

constexpr unsigned Id(unsigned index)
{
    return cls_MakeTypeId(0x7E20, index);
}
constexpr unsigned InTable(unsigned index)
{
    return cls_MakeTypeId(TABLE_ONLY, index);
}

void FreeSome(void*) {}
void FreeOther(void*) {}

void Declare(cls_ClassRegistrar& registrar, unsigned typeId, unsigned parent)
{
    registrar.Create(("tst_" + std::to_string(typeId)).c_str(), typeId, 800, nullptr, parent);
}

void AddInt(cls_ClassMetadata& record, int index, const char* name)
{
    record.AddAttribute({index, name}, cls_AttributeType::INT, cls_UniversalRoot, cls_CollectionType::SINGLE);
}

// Classes 2 and 3 have no record. Tables spell an empty slot in the ways of 0 and 4; rows 5 and 6 lack one
// half of an entry.
constexpr typ_Entry ROWS[] = {{0, 1, 0, nullptr},
                              {7, 1, 0, "tst_TableName"},
                              {7, 1, TABLE_ONLY, "tst_Child"},
                              {7, 2, TABLE_ONLY, "tst_Grandchild"},
                              {0, 0, 0, nullptr},
                              {0, 1, 0, "tst_NoKind"},
                              {7, 1, 0, nullptr}};

class Registrar : public testing::Test
{
protected:
    Registrar()
    {
        typ_ArchCompTable::InsertEntry(TABLE_ONLY, typ_ArchCompEntry(ROWS, 7));
        typ_ArchCompTable::InsertEntry(TABLE_ONLY, typ_ArchCompEntry(ROWS, 7));
        lateRuns = 0;
        late.DeclareLate(Id(40), "tst_Matrix", &DeclareMatrix);
        late.DeclareLate(Id(40), "tst_Matrix", &DeclareMatrix);
    }
    static void DeclareMatrix(cls_ClassRegistrar& registrar)
    {
        ++lateRuns;
        EXPECT_EQ(registrar.Find(Id(40)), nullptr) << "it may look itself up";
        AddInt(registrar.Create("tst_Matrix", Id(40), 203, nullptr, Id(41)), 0, "x");
    }
    static void DeclareAnother(cls_ClassRegistrar& registrar) { Declare(registrar, Id(43), Id(7)); }

    cls_ClassRegistrar registrar;
    cls_ClassRegistrar late; // with a class that is declared on its first look-up
    static inline int lateRuns = 0;
};

TEST_F(Registrar, AComponentTableIsTakenOnceAndHoldsItsNamedRows)
{
    EXPECT_RAISE(typ_ArchCompTable::InsertEntry(TABLE_ONLY, typ_ArchCompEntry(ROWS, 6)),
                 nex_InternalException, "typ_ArchCompTable: component 32289 has another table already");
    for (const unsigned index : {0u, 4u, 5u, 6u, 7u, 0xFFFFu})
        EXPECT_EQ(typ_ArchCompTable::Find(InTable(index)), nullptr) << index;
    EXPECT_EQ(typ_ArchCompTable::Find(InTable(2)), &ROWS[2]);
    EXPECT_EQ(typ_ArchCompTable::FindByName("tst_Child"), InTable(2));
    for (const char* name : {"tst_NoKind", "tst_Chil", ""})
        EXPECT_EQ(typ_ArchCompTable::FindByName(name), 0u) << name;
}

TEST_F(Registrar, ADeclarationMayBeRepeatedButNotContradicted)
{
    cls_ClassMetadata& record = registrar.Create("tst_Some", Id(1), 800, nullptr, Id(7));
    AddInt(record, 0, "x");
    EXPECT_EQ(&registrar.Create("tst_Some", Id(1), 800, nullptr, Id(7)), &record);
    AddInt(record, 0, "x");
    EXPECT_EQ(record.Attributes().size(), 1u);
    const auto refuses = [&](const char* name, unsigned id, unsigned version, const std::string& text) {
        EXPECT_RAISE(registrar.Create(name, id, version, nullptr, Id(7)), nex_InternalException,
                     "cls_ClassRegistrar: class " + text);
    };
    const std::string other = " (0x7e200001) is declared as tst_Some (0x7e200001) with other data";
    refuses("tst_Some", Id(1), 801, "tst_Some" + other);
    refuses("tst_Else", Id(1), 800, "tst_Else" + other);
    refuses("tst_Some", Id(2), 800, "tst_Some (0x7e200002) has the name of class tst_Some (0x7e200001)");
    refuses("tst_Root", cls_UniversalRoot, 800, "tst_Root (0x1) cannot be declared");
}

TEST(cls_ClassMetadata, RefusesWhatContradictsItself)
{
    cls_ClassMetadata record("tst_Some", Id(1), 800, nullptr, cls_UniversalRoot);
    AddInt(record, 0, "x");
    AddInt(record, 5, "y"); // retired indices leave gaps
    record.AddDtor(&FreeSome);
    record.AddDtor(&FreeSome);
    const auto refuses = [&](auto add, const std::string& text) {
        EXPECT_RAISE(add(), nex_InternalException, "cls_ClassMetadata: class tst_Some: " + text);
    };
    refuses([&] { AddInt(record, 6, "x"); }, "attribute x is declared twice");
    refuses([&] { AddInt(record, 5, "z"); }, "attribute z repeats a field index");
    refuses([&] { record.AddDtor(&FreeOther); }, "the destructor hook differs from the former one");
    record.Redeclare();
    refuses([&] { AddInt(record, 5, "y"); }, "attribute y differs from the former declaration");
    EXPECT_EQ(record.Attributes().size(), 2u);
}

TEST_F(Registrar, NamesInheritanceAndHooksFallBackOnTheComponentTable)
{
    EXPECT_EQ(registrar.Find(cow_String("tst_TableName")), nullptr) << "a row alone is no record";
    EXPECT_TRUE(registrar.InheritanceCheck(InTable(3), InTable(1))) << "rows alone";
    auto& record = registrar.Create("tst_MetadataName", InTable(1), 800, nullptr, Id(5));
    record.AddDtor(&FreeSome);
    EXPECT_EQ(registrar.Find(cow_String("tst_TableName")), &record);
    EXPECT_EQ(registrar.NameOf(Id(0x2d)), "0x7e20002d");

    Declare(registrar, Id(1), InTable(3));
    registrar.Create("tst_Hooked", Id(2), 800, nullptr, Id(1)).AddDtor(&FreeOther);
    EXPECT_TRUE(registrar.InheritanceCheck(Id(1), Id(5))) << "records at both ends of rows";
    EXPECT_EQ(registrar.FindDtor(Id(1)), &FreeSome) << "through two classes that only a table knows";
    EXPECT_EQ(registrar.FindDtor(Id(2)), &FreeOther) << "the nearest";
    Declare(registrar, InTable(3), Id(9));
    EXPECT_FALSE(registrar.InheritanceCheck(InTable(3), InTable(1))) << "a record goes before the table";
}

// Chains that run back into themselves at each of their places, as hostile tables may have them.
TEST_F(Registrar, InheritanceHoldsAlongChainsAndCirclesOfAnyLength)
{
    for (unsigned back = 1; back <= 40; ++back)
    {
        cls_ClassRegistrar chain;
        for (unsigned i = 1; i <= 40; ++i)
            Declare(chain, Id(i), i < 40 ? Id(i + 1) : Id(back));
        for (unsigned i = 1; i <= 40; ++i)
            ASSERT_TRUE(chain.InheritanceCheck(Id(1), Id(i))) << i << ", back at " << back;
        ASSERT_EQ(chain.InheritanceCheck(Id(40), Id(20)), back <= 20);
        ASSERT_FALSE(chain.InheritanceCheck(Id(1), Id(41)));
    }
}

TEST_F(Registrar, ALateDeclarationRunsOnceOnTheFirstLookUpOfManyThreads)
{
    Declare(late, Id(46), Id(40));
    EXPECT_EQ(lateRuns, 0);
    bool found[4] = {};
    std::vector<std::thread> threads;
    for (bool& slot : found)
        threads.emplace_back([&] { slot = late.InheritanceCheck(Id(46), Id(41)); });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_TRUE(found[0] && found[1] && found[2] && found[3]);
    EXPECT_EQ(late.Find(Id(40))->Attributes().size(), 1u);
    EXPECT_EQ(lateRuns, 1);
}

TEST_F(Registrar, ALateDeclarationHasItsNameTakenAndDeclaresNothingElse)
{
    const auto refuses = [&](auto call, const std::string& text) {
        EXPECT_RAISE(call(), nex_InternalException, "cls_ClassRegistrar: " + text);
    };
    refuses([&] { late.DeclareLate(Id(40), "tst_Matrix", &DeclareAnother); },
            "class tst_Matrix (0x7e200028) is announced as tst_Matrix with other data");
    refuses([&] { late.DeclareLate(Id(50), "tst_Matrix", &DeclareMatrix); },
            "class tst_Matrix (0x7e200032) has the name of class tst_Matrix (0x7e200028)");
    late.DeclareLate(Id(42), "tst_Nothing", [](cls_ClassRegistrar&) {});
    late.DeclareLate(Id(47), "tst_Wrong", &DeclareAnother);
    refuses([&] { late.Find(Id(42)); },
            "the late declaration of tst_Nothing (0x7e20002a) does not declare it");
    refuses([&] { late.Find(Id(47)); }, "the late declaration of tst_Wrong (0x7e20002f) declares another "
                                        "class, tst_2116026411 (0x7e20002b)");
}
}
