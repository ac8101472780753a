#include <cls_AbsTypeAdapter.h>
#include <cls_ClassRegistrar.h>
#include <cls_TypeId.h>
#include <gtest/gtest.h>
#include <nex_InternalException.h>
#include <testing/ExpectRaise.h>
#include <typ_ArchCompTable.h>

#include <random>
#include <set>
#include <string>
#include <thread>

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

struct SomeClass
{
    static unsigned TypeId() { return Id(1); }
};
const cls_AdapterBase* const ADAPTER = cls_AbsTypeAdapter<SomeClass>::Instance();

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

// A component table whose class 1 has another registered name, and whose classes 2 and 3 have no record.
// Class 4 is its own parent; 5 and 6 are each other's.
class Registrar : public testing::Test
{
protected:
    Registrar()
    {
        static constexpr typ_Entry ROWS[] = {
            {0, 1, 0, nullptr},
            {7, 1, 0, "tst_TableName"},
            {7, 1, TABLE_ONLY, "tst_Child"},
            {7, 2, TABLE_ONLY, "tst_Grandchild"},
            {7, 4, TABLE_ONLY, "tst_Own"},
            {7, 6, TABLE_ONLY, "tst_Left"},
            {7, 5, TABLE_ONLY, "tst_Right"},
            {7, 99, TABLE_ONLY, "tst_Orphan"},
        };
        typ_ArchCompTable::InsertEntry(TABLE_ONLY, typ_ArchCompEntry(ROWS, 8));
    }

    cls_ClassRegistrar registrar;
};

TEST_F(Registrar, FindsByIdAndByNameAndKeepsRecordsInPlace)
{
    EXPECT_EQ(registrar.LastDeclared(), nullptr);
    const cls_ClassMetadata& record = registrar.Create("tst_Some", Id(1), 203, ADAPTER, Id(7));
    EXPECT_EQ(registrar.LastDeclared(), &record);
    for (unsigned i = 2; i < 500; ++i)
        Declare(registrar, Id(i), cls_UniversalRoot);
    EXPECT_EQ(registrar.Find(Id(1)), &record);
    EXPECT_EQ(registrar.Find(Id(500)), nullptr);
    EXPECT_EQ(registrar.Find(cow_String("tst_Some")), &record);
    EXPECT_EQ(registrar.Find(cow_String("tst_Some\0", 9)), nullptr) << "names are whole texts";
    EXPECT_EQ(record.Version(), 203u);
    EXPECT_EQ(record.Adapter(), ADAPTER);
    EXPECT_EQ(registrar.TypeIds().Length(), 499);
    EXPECT_EQ(registrar.TypeIds().Get(498), Id(499));
}

TEST_F(Registrar, ADeclarationMayBeRepeatedButNotContradicted)
{
    cls_ClassMetadata& record = registrar.Create("tst_Some", Id(1), 800, ADAPTER, Id(7));
    AddInt(record, 0, "x");
    EXPECT_EQ(&registrar.Create("tst_Some", Id(1), 800, ADAPTER, Id(7)), &record);
    AddInt(record, 0, "x");
    EXPECT_EQ(record.Attributes().size(), 1u);
    struct Row
    {
        const char* name;
        unsigned id, version;
        const cls_AdapterBase* adapter;
        unsigned parent;
        const char* refusal;
    };
    constexpr char OTHER[] = "tst_Some (0x7e200001) is declared as tst_Some (0x7e200001) with other data";
    for (const Row& row :
         {Row{"tst_Some", Id(1), 801, ADAPTER, Id(7), OTHER},
          Row{"tst_Some", Id(1), 800, nullptr, Id(7), OTHER},
          Row{"tst_Some", Id(1), 800, ADAPTER, Id(8), OTHER},
          Row{"tst_Else", Id(1), 800, ADAPTER, Id(7),
              "tst_Else (0x7e200001) is declared as tst_Some (0x7e200001) with other data"},
          Row{"tst_Some", Id(2), 800, ADAPTER, Id(7),
              "tst_Some (0x7e200002) has the name of class tst_Some (0x7e200001)"},
          Row{"", Id(3), 800, nullptr, 1, " (0x7e200003) cannot be declared"},
          Row{"tst_Zero", 0, 800, nullptr, 1, "tst_Zero (0x0) cannot be declared"},
          Row{"tst_Root", cls_UniversalRoot, 800, nullptr, 1, "tst_Root (0x1) cannot be declared"}})
        EXPECT_RAISE(registrar.Create(row.name, row.id, row.version, row.adapter, row.parent),
                     nex_InternalException,
                     ("cls_ClassRegistrar: class " + std::string(row.refusal)).c_str());
    EXPECT_EQ(registrar.TypeIds().Length(), 1);
}

TEST(cls_ClassMetadata, RefusesWhatContradictsItself)
{
    cls_ClassMetadata record("tst_Some", Id(1), 800, nullptr, cls_UniversalRoot);
    AddInt(record, 0, "x");
    AddInt(record, 5, "y"); // retired indices leave gaps
    const auto refuses = [&record](int index, const char* name, const char* text) {
        EXPECT_RAISE(AddInt(record, index, name), nex_InternalException, text);
    };
    refuses(6, "x", "cls_ClassMetadata: class tst_Some: attribute x is declared twice");
    refuses(5, "z", "cls_ClassMetadata: class tst_Some: attribute z repeats a field index");
    refuses(6, "", "cls_ClassMetadata: class tst_Some: an attribute has no name");
    refuses(6, nullptr, "cls_ClassMetadata: class tst_Some: an attribute has no name");
    EXPECT_EQ(record.FindAttribute("y")->index, 5);
    EXPECT_EQ(record.FindAttribute("z"), nullptr);
    EXPECT_RAISE(record.AddDtor(nullptr), nex_InternalException,
                 "cls_ClassMetadata: class tst_Some: the destructor hook is null");
    record.AddDtor(&FreeSome);
    record.AddDtor(&FreeSome);
    EXPECT_RAISE(record.AddDtor(&FreeOther), nex_InternalException,
                 "cls_ClassMetadata: class tst_Some: the destructor hook differs from the former one");
    EXPECT_EQ(record.Dtor(), &FreeSome);

    record.Redeclare();
    refuses(5, "y", "cls_ClassMetadata: class tst_Some: attribute y differs from the former declaration");
    record.Redeclare();
    AddInt(record, 0, "x");
    AddInt(record, 5, "y");
    refuses(6, "z", "cls_ClassMetadata: class tst_Some: attribute z differs from the former declaration");
    EXPECT_EQ(record.Attributes().size(), 2u);
}

TEST_F(Registrar, FindsAClassUnderTheNameOfItsComponentTableToo)
{
    EXPECT_EQ(registrar.Find(cow_String("tst_TableName")), nullptr) << "a row alone is no record";
    const auto& record = registrar.Create("tst_MetadataName", InTable(1), 800, nullptr, cls_UniversalRoot);
    EXPECT_EQ(registrar.Find(cow_String("tst_TableName")), &record);
    EXPECT_EQ(registrar.Find(cow_String("tst_MetadataName")), &record);
    EXPECT_EQ(registrar.NameOf(InTable(1)), "tst_MetadataName");
    EXPECT_EQ(registrar.NameOf(InTable(2)), "tst_Child");
    EXPECT_EQ(registrar.NameOf(Id(0x2d)), "0x7e20002d");
    const auto& usurper = registrar.Create("tst_TableName", Id(1), 800, nullptr, cls_UniversalRoot);
    EXPECT_EQ(registrar.Find(cow_String("tst_TableName")), &usurper) << "a registered name goes first";
}

TEST_F(Registrar, InheritanceAndHooksFallBackOnTheComponentTable)
{
    EXPECT_TRUE(registrar.InheritanceCheck(InTable(3), InTable(1))) << "rows alone";
    EXPECT_FALSE(registrar.InheritanceCheck(InTable(7), InTable(1))) << "a parent past the end of the table";
    EXPECT_FALSE(registrar.InheritanceCheck(InTable(0), InTable(1))) << "an empty slot";
    EXPECT_FALSE(registrar.InheritanceCheck(InTable(4), InTable(1))) << "its own parent";
    EXPECT_TRUE(registrar.InheritanceCheck(InTable(5), InTable(6)));
    EXPECT_EQ(registrar.FindDtor(InTable(5)), nullptr) << "a circle of two";

    registrar.Create("tst_Top", InTable(1), 800, nullptr, Id(5)).AddDtor(&FreeSome);
    Declare(registrar, Id(1), InTable(3));
    registrar.Create("tst_Hooked", Id(2), 800, nullptr, Id(1)).AddDtor(&FreeOther);
    Declare(registrar, Id(3), Id(2));
    EXPECT_TRUE(registrar.InheritanceCheck(Id(1), Id(5))) << "records at both ends of rows";
    EXPECT_EQ(registrar.FindDtor(Id(1)), &FreeSome) << "through two classes that only a table knows";
    EXPECT_EQ(registrar.FindDtor(Id(3)), &FreeOther) << "the nearest";
    EXPECT_EQ(registrar.FindDtor(Id(1000)), nullptr);

    Declare(registrar, InTable(3), Id(9));
    EXPECT_FALSE(registrar.InheritanceCheck(InTable(3), InTable(1))) << "a record goes before the table";
}

TEST_F(Registrar, InheritanceAgreesWithASetOfVisitedClassesOnRandomParents)
{
    std::mt19937 random(20240);
    int answers[2] = {};
    for (int round = 0; round < 200; ++round)
    {
        cls_ClassRegistrar drawn;
        const unsigned count = 1 + static_cast<unsigned>(random() % 12);
        std::vector<unsigned> parent(count + 1);
        for (unsigned i = 1; i <= count; ++i)
        {
            const unsigned draw = static_cast<unsigned>(random() % (count + 3));
            // Any class, itself too; the root; or a class that nobody declared.
            parent[i] = draw == 0 ? cls_UniversalRoot : Id(draw);
            Declare(drawn, Id(i), parent[i]);
        }
        for (unsigned type = 1; type <= count + 1; ++type) // the last without a record
        {
            ASSERT_TRUE(drawn.InheritanceCheck(Id(type), cls_UniversalRoot));
            ASSERT_FALSE(drawn.InheritanceCheck(Id(type), 0) || drawn.InheritanceCheck(0, Id(type)));
            std::set<unsigned> ancestors;
            unsigned at = Id(type);
            while (ancestors.insert(at).second && at != cls_UniversalRoot && cls_IndexOf(at) <= count)
                at = parent[cls_IndexOf(at)];
            for (unsigned base = 1; base <= count + 2; ++base)
            {
                const bool expected = ancestors.count(Id(base)) != 0;
                ++answers[expected];
                ASSERT_EQ(drawn.InheritanceCheck(Id(type), Id(base)), expected)
                    << "round " << round << ", class " << type << ", base " << base;
            }
        }
    }
    EXPECT_GT(std::min(answers[0], answers[1]), 1000);
}

int lateRuns = 0;

void DeclareMatrix(cls_ClassRegistrar& registrar)
{
    ++lateRuns;
    EXPECT_EQ(registrar.Find(Id(40)), nullptr) << "it may look itself up";
    AddInt(registrar.Create("tst_Matrix", Id(40), 203, nullptr, Id(41)), 0, "x");
}
void DeclareNothing(cls_ClassRegistrar&) {}
template <unsigned Index>
void DeclareAnother(cls_ClassRegistrar& registrar)
{
    registrar.Create("tst_Another", Id(Index), 800, nullptr, cls_UniversalRoot);
}

class LateDeclaration : public testing::Test
{
protected:
    LateDeclaration()
    {
        lateRuns = 0;
        registrar.DeclareLate(Id(40), "tst_Matrix", &DeclareMatrix);
        registrar.DeclareLate(Id(40), "tst_Matrix", &DeclareMatrix);
    }

    cls_ClassRegistrar registrar;
};

TEST_F(LateDeclaration, RunsOnceOnTheFirstLookUpOfItsClass)
{
    EXPECT_EQ(registrar.Find(Id(41)), nullptr);
    EXPECT_EQ(registrar.Find(cow_String("tst_Matri")), nullptr);
    EXPECT_EQ(registrar.TypeIds(), cow_List<unsigned>({Id(40)})) << "announced is known";
    EXPECT_EQ(lateRuns, 0);
    Declare(registrar, Id(46), Id(40));
    EXPECT_TRUE(registrar.InheritanceCheck(Id(46), Id(41))) << "that asks for it";
    const cls_ClassMetadata* record = registrar.Find(cow_String("tst_Matrix"));
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(registrar.Find(Id(40)), record);
    EXPECT_EQ(record->Attributes().size(), 1u);
    EXPECT_EQ(lateRuns, 1);
}

TEST_F(LateDeclaration, ItsNameAndIdAreTaken)
{
    EXPECT_RAISE(
        registrar.DeclareLate(Id(40), "tst_Matrix", &DeclareNothing), nex_InternalException,
        "cls_ClassRegistrar: class tst_Matrix (0x7e200028) is announced as tst_Matrix with other data");
    constexpr char NAME[] =
        "cls_ClassRegistrar: class tst_Matrix (0x7e200032) has the name of class tst_Matrix (0x7e200028)";
    EXPECT_RAISE(registrar.DeclareLate(Id(50), "tst_Matrix", &DeclareNothing), nex_InternalException, NAME);
    EXPECT_RAISE(registrar.Create("tst_Matrix", Id(50), 800, nullptr, 1), nex_InternalException, NAME);
    EXPECT_EQ(lateRuns, 0);
    Declare(registrar, Id(51), cls_UniversalRoot);
    registrar.DeclareLate(Id(51), "tst_Known", &DeclareNothing);
    EXPECT_EQ(registrar.Find(cow_String("tst_Known")), nullptr) << "it was declared before";
}

TEST_F(LateDeclaration, MustDeclareItsClassAndNoOther)
{
    registrar.DeclareLate(Id(42), "tst_Nothing", &DeclareNothing);
    registrar.DeclareLate(Id(47), "tst_Wrong", &DeclareAnother<43>);
    registrar.DeclareLate(Id(44), "tst_Named", &DeclareAnother<44>);
    for (int again = 0; again < 2; ++again)
        EXPECT_RAISE(
            registrar.Find(Id(42)), nex_InternalException,
            "cls_ClassRegistrar: the late declaration of tst_Nothing (0x7e20002a) does not declare it");
    EXPECT_RAISE(registrar.Find(Id(47)), nex_InternalException,
                 "cls_ClassRegistrar: the late declaration of tst_Wrong (0x7e20002f) declares another class, "
                 "tst_Another (0x7e20002b)");
    EXPECT_RAISE(registrar.Find(Id(44)), nex_InternalException,
                 "cls_ClassRegistrar: class tst_Another (0x7e20002c) was announced as tst_Named");
    EXPECT_EQ(registrar.Find(Id(43)), nullptr);
}

TEST_F(LateDeclaration, RunsOnceForManyThreads)
{
    const cls_ClassMetadata* found[4] = {};
    std::vector<std::thread> threads;
    for (const cls_ClassMetadata*& slot : found)
        threads.emplace_back([this, &slot] { slot = registrar.Find(Id(40)); });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(lateRuns, 1);
    for (const cls_ClassMetadata* slot : found)
        EXPECT_EQ(slot, registrar.Find(Id(40)));
}
}
