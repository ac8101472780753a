#include <cls_AbsTypeAdapter.h>
#include <cls_ClassRegistrar.h>
#include <cls_TypeId.h>
#include <gtest/gtest.h>
#include <nex_InternalException.h>
#include <typ_ArchCompTable.h>

#include <functional>
#include <random>
#include <set>
#include <string>
#include <thread>

namespace
{
constexpr unsigned short COMPONENT = 0x7E20;
constexpr unsigned short TABLE_ONLY = 0x7E21;

constexpr unsigned Id(unsigned index)
{
    return cls_MakeTypeId(COMPONENT, index);
}

cow_String RefusalOf(const std::function<void()>& action)
{
    try
    {
        action();
    }
    catch (const nex_InternalException& error)
    {
        return error.UserReport();
    }
    return "accepted";
}

struct SomeClass
{
    static unsigned TypeId() { return Id(1); }
};
const cls_AdapterBase* SomeAdapter()
{
    return cls_AbsTypeAdapter<SomeClass>::Instance();
}

void FreeSome(void*) {}
void FreeOther(void*) {}

// A table whose class 1 has another registered name, and whose classes 2 and 3 have no record. Class 4 is its
// own parent; 5 and 6 are each other's.
constexpr typ_Entry ROWS[] = {
    {0, 1, 0, nullptr},
    {7, 1, 0, "tst_TableName"},
    {7, 1, TABLE_ONLY, "tst_Child"},
    {7, 2, TABLE_ONLY, "tst_Grandchild"},
    {7, 4, TABLE_ONLY, "tst_Own"},
    {7, 6, TABLE_ONLY, "tst_Left"},
    {7, 5, TABLE_ONLY, "tst_Right"},
    {7, 99, TABLE_ONLY, "tst_Orphan"},
};
void InsertTable()
{
    typ_ArchCompTable::InsertEntry(TABLE_ONLY, typ_ArchCompEntry(ROWS, 8));
}
constexpr unsigned InTable(unsigned index)
{
    return cls_MakeTypeId(TABLE_ONLY, index);
}

void Declare(cls_ClassRegistrar& registrar, unsigned typeId, unsigned parent)
{
    registrar.Create(("tst_" + std::to_string(typeId)).c_str(), typeId, 800, nullptr, parent);
}
}

TEST(cls_ClassRegistrar, FindsByIdAndByName)
{
    cls_ClassRegistrar registrar;
    EXPECT_EQ(registrar.Find(Id(1)), nullptr);
    EXPECT_EQ(registrar.LastDeclared(), nullptr);
    cls_ClassMetadata& record = registrar.Create("tst_Some", Id(1), 203, SomeAdapter(), cls_UniversalRoot);
    EXPECT_EQ(registrar.Find(Id(1)), &record);
    EXPECT_EQ(registrar.Find(cow_String("tst_Some")), &record);
    EXPECT_EQ(registrar.Find(cow_String("tst_Som")), nullptr);
    EXPECT_EQ(registrar.Find(cow_String("tst_Some\0", 9)), nullptr) << "names are whole texts";
    EXPECT_EQ(record.Version(), 203u);
    EXPECT_EQ(record.Adapter(), SomeAdapter());
    EXPECT_EQ(registrar.LastDeclared(), &record);
}

TEST(cls_ClassRegistrar, RecordsStayWhereTheyAre)
{
    cls_ClassRegistrar registrar;
    cls_ClassMetadata& first = registrar.Create("tst_First", Id(1), 800, nullptr, cls_UniversalRoot);
    for (unsigned i = 2; i < 500; ++i)
        Declare(registrar, Id(i), cls_UniversalRoot);
    EXPECT_EQ(registrar.Find(Id(1)), &first);
    EXPECT_EQ(registrar.TypeIds().Length(), 499);
    EXPECT_EQ(registrar.TypeIds().Get(0), Id(1));
    EXPECT_EQ(registrar.TypeIds().Get(498), Id(499));
}

TEST(cls_ClassRegistrar, TheSameDeclarationAgainGivesTheSameRecord)
{
    cls_ClassRegistrar registrar;
    const auto declare = [&registrar]() -> cls_ClassMetadata& {
        cls_ClassMetadata& record = registrar.Create("tst_Some", Id(1), 800, SomeAdapter(), Id(7));
        record.AddAttribute({0, "x"}, cls_AttributeType::DOUBLE, cls_UniversalRoot,
                            cls_CollectionType::SINGLE);
        record.AddAttribute({1, "y"}, cls_AttributeType::DOUBLE, cls_UniversalRoot,
                            cls_CollectionType::SINGLE);
        record.AddDtor(&FreeSome);
        return record;
    };
    cls_ClassMetadata& record = declare();
    EXPECT_EQ(&declare(), &record);
    EXPECT_EQ(record.Attributes().size(), 2u);
    EXPECT_EQ(registrar.TypeIds().Length(), 1);
}

TEST(cls_ClassRegistrar, OtherDataUnderAKnownTypeIdOrNameIsRefused)
{
    cls_ClassRegistrar registrar;
    registrar.Create("tst_Some", Id(1), 800, SomeAdapter(), Id(7));
    const cow_String otherData = "cls_ClassRegistrar: class tst_Some (0x7e200001) is declared as tst_Some "
                                 "(0x7e200001) with other data";
    EXPECT_EQ(RefusalOf([&] { registrar.Create("tst_Some", Id(1), 801, SomeAdapter(), Id(7)); }), otherData);
    EXPECT_EQ(RefusalOf([&] { registrar.Create("tst_Some", Id(1), 800, nullptr, Id(7)); }), otherData);
    EXPECT_EQ(RefusalOf([&] { registrar.Create("tst_Some", Id(1), 800, SomeAdapter(), Id(8)); }), otherData);
    EXPECT_EQ(RefusalOf([&] { registrar.Create("tst_Else", Id(1), 800, SomeAdapter(), Id(7)); }),
              "cls_ClassRegistrar: class tst_Else (0x7e200001) is declared as tst_Some (0x7e200001) with "
              "other data");
    EXPECT_EQ(RefusalOf([&] { registrar.Create("tst_Some", Id(2), 800, SomeAdapter(), Id(7)); }),
              "cls_ClassRegistrar: class tst_Some (0x7e200002) has the name of class tst_Some (0x7e200001)");
    EXPECT_EQ(registrar.Find(Id(1))->Version(), 800u);
    EXPECT_EQ(registrar.Find(Id(2)), nullptr);
}

TEST(cls_ClassRegistrar, ClassesWithoutANameOrIdCannotBeDeclared)
{
    cls_ClassRegistrar registrar;
    EXPECT_EQ(RefusalOf([&] { registrar.Create("", Id(1), 800, nullptr, cls_UniversalRoot); }),
              "cls_ClassRegistrar: class  (0x7e200001) cannot be declared");
    EXPECT_EQ(RefusalOf([&] { registrar.Create("tst_Zero", 0, 800, nullptr, cls_UniversalRoot); }),
              "cls_ClassRegistrar: class tst_Zero (0x0) cannot be declared");
    EXPECT_EQ(
        RefusalOf([&] { registrar.Create("tst_Root", cls_UniversalRoot, 800, nullptr, cls_UniversalRoot); }),
        "cls_ClassRegistrar: class tst_Root (0x1) cannot be declared");
}

TEST(cls_ClassMetadata, RefusesRepeatedAndNamelessAttributes)
{
    cls_ClassMetadata record("tst_Some", Id(1), 800, nullptr, cls_UniversalRoot);
    const auto add = [&record](int index, const char* name) {
        record.AddAttribute({index, name}, cls_AttributeType::INT, cls_UniversalRoot,
                            cls_CollectionType::SINGLE);
    };
    add(0, "x");
    add(5, "y"); // retired indices leave gaps
    EXPECT_EQ(RefusalOf([&] { add(6, "x"); }),
              "cls_ClassMetadata: class tst_Some: attribute x is declared twice");
    EXPECT_EQ(RefusalOf([&] { add(5, "z"); }),
              "cls_ClassMetadata: class tst_Some: attribute z repeats a field index");
    EXPECT_EQ(RefusalOf([&] { add(6, ""); }), "cls_ClassMetadata: class tst_Some: an attribute has no name");
    EXPECT_EQ(RefusalOf([&] { add(6, nullptr); }),
              "cls_ClassMetadata: class tst_Some: an attribute has no name");
    EXPECT_EQ(record.Attributes().size(), 2u);
    add(6, "z");
    EXPECT_EQ(record.FindAttribute("z")->index, 6);
    EXPECT_EQ(record.FindAttribute("w"), nullptr);
}

TEST(cls_ClassMetadata, ARepeatedDeclarationMustAgreeInEveryAttribute)
{
    cls_ClassMetadata record("tst_Some", Id(1), 800, nullptr, cls_UniversalRoot);
    const auto add = [&record](int index, const char* name, cls_AttributeType type) {
        record.AddAttribute({index, name}, type, cls_UniversalRoot, cls_CollectionType::SINGLE);
    };
    add(0, "x", cls_AttributeType::INT);
    add(1, "y", cls_AttributeType::INT);
    const cow_String differs =
        "cls_ClassMetadata: class tst_Some: attribute y differs from the former declaration";
    record.Redeclare();
    add(0, "x", cls_AttributeType::INT);
    EXPECT_EQ(RefusalOf([&] { add(1, "y", cls_AttributeType::FLOAT); }), differs);
    record.Redeclare();
    EXPECT_EQ(RefusalOf([&] { add(1, "y", cls_AttributeType::INT); }), differs) << "out of order";
    record.Redeclare();
    add(0, "x", cls_AttributeType::INT);
    add(1, "y", cls_AttributeType::INT);
    EXPECT_EQ(RefusalOf([&] { add(2, "z", cls_AttributeType::INT); }),
              "cls_ClassMetadata: class tst_Some: attribute z differs from the former declaration")
        << "one more than before";
    EXPECT_EQ(record.Attributes().size(), 2u);
}

TEST(cls_ClassMetadata, HasOneDestructorHook)
{
    cls_ClassMetadata record("tst_Some", Id(1), 800, nullptr, cls_UniversalRoot);
    EXPECT_EQ(record.Dtor(), nullptr);
    EXPECT_EQ(RefusalOf([&] { record.AddDtor(nullptr); }),
              "cls_ClassMetadata: class tst_Some: the destructor hook is null");
    record.AddDtor(&FreeSome);
    record.AddDtor(&FreeSome);
    EXPECT_EQ(RefusalOf([&] { record.AddDtor(&FreeOther); }),
              "cls_ClassMetadata: class tst_Some: the destructor hook differs from the former one");
    EXPECT_EQ(record.Dtor(), &FreeSome);
}

TEST(cls_ClassRegistrar, FindsAClassUnderTheNameOfItsComponentTableToo)
{
    InsertTable();
    cls_ClassRegistrar registrar;
    EXPECT_EQ(registrar.Find(cow_String("tst_TableName")), nullptr) << "a row alone is no record";
    cls_ClassMetadata& record =
        registrar.Create("tst_MetadataName", InTable(1), 800, nullptr, cls_UniversalRoot);
    EXPECT_EQ(registrar.Find(cow_String("tst_TableName")), &record);
    EXPECT_EQ(registrar.Find(cow_String("tst_MetadataName")), &record);
    EXPECT_EQ(registrar.NameOf(InTable(1)), "tst_MetadataName");
    EXPECT_EQ(registrar.NameOf(InTable(2)), "tst_Child");
    EXPECT_EQ(registrar.NameOf(Id(0x2d)), "0x7e20002d");
    EXPECT_EQ(registrar.NameOf(0), "0x0");
}

TEST(cls_ClassRegistrar, ARegisteredNameGoesBeforeATableName)
{
    InsertTable();
    cls_ClassRegistrar registrar;
    registrar.Create("tst_MetadataName", InTable(1), 800, nullptr, cls_UniversalRoot);
    cls_ClassMetadata& usurper = registrar.Create("tst_TableName", Id(1), 800, nullptr, cls_UniversalRoot);
    EXPECT_EQ(registrar.Find(cow_String("tst_TableName")), &usurper);
}

TEST(cls_InheritanceCheck, FollowsParentsWhateverTheOrderOfDeclaration)
{
    cls_ClassRegistrar registrar;
    Declare(registrar, Id(3), Id(2));
    Declare(registrar, Id(2), Id(1));
    Declare(registrar, Id(1), cls_UniversalRoot);
    Declare(registrar, Id(4), Id(1));
    EXPECT_TRUE(registrar.InheritanceCheck(Id(3), Id(1)));
    EXPECT_TRUE(registrar.InheritanceCheck(Id(3), Id(2)));
    EXPECT_TRUE(registrar.InheritanceCheck(Id(3), Id(3)));
    EXPECT_FALSE(registrar.InheritanceCheck(Id(1), Id(3)));
    EXPECT_FALSE(registrar.InheritanceCheck(Id(4), Id(2)));
}

TEST(cls_InheritanceCheck, EqualIdsAndTheRootNeedNoRecord)
{
    const cls_ClassRegistrar registrar;
    EXPECT_TRUE(registrar.InheritanceCheck(Id(9), Id(9)));
    EXPECT_TRUE(registrar.InheritanceCheck(Id(9), cls_UniversalRoot));
    EXPECT_TRUE(registrar.InheritanceCheck(0, cls_UniversalRoot));
    EXPECT_TRUE(registrar.InheritanceCheck(cls_UniversalRoot, cls_UniversalRoot));
    EXPECT_FALSE(registrar.InheritanceCheck(Id(9), Id(8)));
    EXPECT_FALSE(registrar.InheritanceCheck(cls_UniversalRoot, Id(8)));
    EXPECT_FALSE(registrar.InheritanceCheck(0, Id(8)));
    EXPECT_FALSE(registrar.InheritanceCheck(Id(8), 0));
}

TEST(cls_InheritanceCheck, FallsBackOnTheComponentTable)
{
    InsertTable();
    cls_ClassRegistrar registrar;
    EXPECT_TRUE(registrar.InheritanceCheck(InTable(3), InTable(1))) << "rows alone";
    Declare(registrar, Id(1), InTable(3));
    EXPECT_TRUE(registrar.InheritanceCheck(Id(1), InTable(1))) << "a record above rows";
    Declare(registrar, InTable(1), Id(5));
    Declare(registrar, Id(5), cls_UniversalRoot);
    EXPECT_TRUE(registrar.InheritanceCheck(Id(1), Id(5))) << "records at both ends";
    EXPECT_FALSE(registrar.InheritanceCheck(InTable(7), InTable(1)))
        << "the parent is past the end of the table";
    EXPECT_FALSE(registrar.InheritanceCheck(InTable(0), InTable(1))) << "an empty slot";
}

TEST(cls_InheritanceCheck, ARecordGoesBeforeTheTable)
{
    InsertTable();
    cls_ClassRegistrar registrar;
    Declare(registrar, InTable(3), Id(5));
    EXPECT_FALSE(registrar.InheritanceCheck(InTable(3), InTable(1)));
    EXPECT_TRUE(registrar.InheritanceCheck(InTable(3), Id(5)));
}

TEST(cls_InheritanceCheck, EndsInTablesThatRunInACircle)
{
    InsertTable();
    const cls_ClassRegistrar registrar;
    EXPECT_FALSE(registrar.InheritanceCheck(InTable(4), InTable(1)));
    EXPECT_FALSE(registrar.InheritanceCheck(InTable(5), InTable(1)));
    EXPECT_TRUE(registrar.InheritanceCheck(InTable(5), InTable(6)));
    EXPECT_EQ(registrar.FindDtor(InTable(5)), nullptr);
}

TEST(cls_InheritanceCheck, EndsInCirclesOfEveryLengthBehindTailsOfEveryLength)
{
    for (unsigned tail = 0; tail <= 9; ++tail)
    {
        for (unsigned circle = 1; circle <= 9; ++circle)
        {
            SCOPED_TRACE(std::to_string(tail) + " before a circle of " + std::to_string(circle));
            cls_ClassRegistrar registrar;
            const unsigned count = tail + circle;
            for (unsigned i = 1; i <= count; ++i)
                Declare(registrar, Id(i), i < count ? Id(i + 1) : Id(tail + 1));
            EXPECT_FALSE(registrar.InheritanceCheck(Id(1), Id(1000)));
            for (unsigned i = 1; i <= count; ++i)
                EXPECT_TRUE(registrar.InheritanceCheck(Id(1), Id(i))) << "class " << i << " is passed";
        }
    }
}

TEST(cls_InheritanceCheck, WalksLongChains)
{
    cls_ClassRegistrar registrar;
    constexpr unsigned LENGTH = 20000;
    for (unsigned i = 1; i < LENGTH; ++i)
        Declare(registrar, Id(i), Id(i + 1));
    Declare(registrar, Id(LENGTH), cls_UniversalRoot);
    EXPECT_TRUE(registrar.InheritanceCheck(Id(1), Id(LENGTH)));
    EXPECT_FALSE(registrar.InheritanceCheck(Id(1), Id(LENGTH + 1)));
}

TEST(cls_InheritanceCheck, AgreesWithASetOfVisitedClassesOnRandomParents)
{
    std::mt19937 random(20240);
    int yes = 0;
    int no = 0;
    for (int round = 0; round < 200; ++round)
    {
        cls_ClassRegistrar registrar;
        const unsigned count = 1 + static_cast<unsigned>(random() % 12);
        std::vector<unsigned> parent(count + 1);
        for (unsigned i = 1; i <= count; ++i)
        {
            const unsigned draw = static_cast<unsigned>(random() % (count + 3));
            // Any class, itself too; the root; or a class that nobody declared.
            parent[i] = draw == 0 ? cls_UniversalRoot : Id(draw);
            Declare(registrar, Id(i), parent[i]);
        }
        for (unsigned type = 1; type <= count; ++type)
        {
            std::set<unsigned> ancestors;
            unsigned at = Id(type);
            while (ancestors.insert(at).second && at != cls_UniversalRoot && cls_IndexOf(at) <= count)
                at = parent[cls_IndexOf(at)];
            for (unsigned base = 1; base <= count + 2; ++base)
            {
                const bool expected = ancestors.count(Id(base)) != 0;
                (expected ? yes : no) += 1;
                ASSERT_EQ(registrar.InheritanceCheck(Id(type), Id(base)), expected)
                    << "round " << round << ", class " << type << ", base " << base;
            }
        }
    }
    EXPECT_GT(yes, 1000);
    EXPECT_GT(no, 1000);
}

TEST(cls_ClassRegistrar, FindsTheDestructorHookOfTheNearestParent)
{
    InsertTable();
    cls_ClassRegistrar registrar;
    registrar.Create("tst_Root", InTable(1), 800, nullptr, cls_UniversalRoot).AddDtor(&FreeSome);
    Declare(registrar, Id(1), InTable(3));
    Declare(registrar, Id(2), Id(1));
    registrar.Create("tst_Own", Id(3), 800, nullptr, Id(2)).AddDtor(&FreeOther);
    Declare(registrar, Id(4), Id(3));
    Declare(registrar, Id(5), Id(99));
    EXPECT_EQ(registrar.FindDtor(Id(2)), &FreeSome) << "through two classes that only a table knows";
    EXPECT_EQ(registrar.FindDtor(Id(3)), &FreeOther);
    EXPECT_EQ(registrar.FindDtor(Id(4)), &FreeOther);
    EXPECT_EQ(registrar.FindDtor(Id(5)), nullptr);
    EXPECT_EQ(registrar.FindDtor(Id(1000)), nullptr);
}

namespace
{
int lateRuns = 0;

void DeclareMatrix(cls_ClassRegistrar& registrar)
{
    ++lateRuns;
    registrar.Create("tst_Matrix", Id(40), 203, nullptr, Id(41))
        .AddAttribute({0, "x"}, cls_AttributeType::BOOL, cls_UniversalRoot, cls_CollectionType::SINGLE);
}
void DeclareNothing(cls_ClassRegistrar&) {}
void DeclareAnother(cls_ClassRegistrar& registrar)
{
    registrar.Create("tst_Another", Id(43), 800, nullptr, cls_UniversalRoot);
}
void DeclareRenamed(cls_ClassRegistrar& registrar)
{
    registrar.Create("tst_Renamed", Id(44), 800, nullptr, cls_UniversalRoot);
}
void DeclareAskingForItself(cls_ClassRegistrar& registrar)
{
    EXPECT_EQ(registrar.Find(Id(45)), nullptr);
    registrar.Create("tst_Self", Id(45), 800, nullptr, cls_UniversalRoot);
    EXPECT_NE(registrar.Find(Id(45)), nullptr);
}

class LateDeclaration : public testing::Test
{
protected:
    void SetUp() override
    {
        lateRuns = 0;
        registrar.DeclareLate(Id(40), "tst_Matrix", &DeclareMatrix);
    }

    cls_ClassRegistrar registrar;
};
}

TEST_F(LateDeclaration, RunsOnFirstLookUpByIdAndOnce)
{
    EXPECT_EQ(lateRuns, 0);
    const cls_ClassMetadata* record = registrar.Find(Id(40));
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record->Version(), 203u);
    EXPECT_EQ(record->Attributes().size(), 1u);
    EXPECT_EQ(registrar.Find(Id(40)), record);
    EXPECT_EQ(registrar.Find(cow_String("tst_Matrix")), record);
    EXPECT_EQ(lateRuns, 1);
}

TEST_F(LateDeclaration, RunsOnFirstLookUpByName)
{
    const cls_ClassMetadata* record = registrar.Find(cow_String("tst_Matrix"));
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record->TypeId(), Id(40));
    EXPECT_EQ(lateRuns, 1);
}

TEST_F(LateDeclaration, OtherLookUpsDoNotRunIt)
{
    EXPECT_EQ(registrar.Find(Id(41)), nullptr);
    EXPECT_EQ(registrar.Find(cow_String("tst_Matri")), nullptr);
    EXPECT_EQ(registrar.TypeIds(), cow_List<unsigned>({Id(40)})) << "announced is known";
    EXPECT_EQ(lateRuns, 0);
}

TEST_F(LateDeclaration, CountsForInheritance)
{
    Declare(registrar, Id(46), Id(40));
    EXPECT_TRUE(registrar.InheritanceCheck(Id(46), Id(41)));
    EXPECT_EQ(lateRuns, 1);
}

TEST_F(LateDeclaration, AnnouncedAgainOrDeclaredInAdvanceChangesNothing)
{
    registrar.DeclareLate(Id(40), "tst_Matrix", &DeclareMatrix);
    EXPECT_EQ(RefusalOf([&] { registrar.DeclareLate(Id(40), "tst_Matrix", &DeclareNothing); }),
              "cls_ClassRegistrar: class tst_Matrix (0x7e200028) is announced as tst_Matrix with other data");
    EXPECT_EQ(
        RefusalOf([&] { registrar.DeclareLate(Id(50), "tst_Matrix", &DeclareNothing); }),
        "cls_ClassRegistrar: class tst_Matrix (0x7e200032) has the name of class tst_Matrix (0x7e200028)");
    DeclareMatrix(registrar);
    const cls_ClassMetadata* record = registrar.Find(Id(40));
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record->Attributes().size(), 1u);
    Declare(registrar, Id(51), cls_UniversalRoot);
    registrar.DeclareLate(Id(51), "tst_Known", &DeclareNothing);
    EXPECT_NE(registrar.Find(Id(51)), nullptr) << "an announcement of a declared class is not needed";
    EXPECT_EQ(registrar.Find(cow_String("tst_Known")), nullptr);
}

TEST_F(LateDeclaration, ItsNameIsTakenAlthoughItHasNotRun)
{
    EXPECT_EQ(
        RefusalOf([&] { registrar.Create("tst_Matrix", Id(60), 800, nullptr, cls_UniversalRoot); }),
        "cls_ClassRegistrar: class tst_Matrix (0x7e20003c) has the name of class tst_Matrix (0x7e200028)");
    EXPECT_EQ(lateRuns, 0);
}

TEST_F(LateDeclaration, MustDeclareItsClassAndNoOther)
{
    registrar.DeclareLate(Id(42), "tst_Nothing", &DeclareNothing);
    registrar.DeclareLate(Id(47), "tst_Wrong", &DeclareAnother);
    registrar.DeclareLate(Id(44), "tst_Named", &DeclareRenamed);
    const cow_String nothing =
        "cls_ClassRegistrar: the late declaration of tst_Nothing (0x7e20002a) does not declare it";
    EXPECT_EQ(RefusalOf([&] { static_cast<void>(registrar.Find(Id(42))); }), nothing);
    EXPECT_EQ(RefusalOf([&] { static_cast<void>(registrar.Find(Id(42))); }), nothing) << "and again";
    EXPECT_EQ(RefusalOf([&] { static_cast<void>(registrar.Find(Id(47))); }),
              "cls_ClassRegistrar: the late declaration of tst_Wrong (0x7e20002f) declares another class, "
              "tst_Another (0x7e20002b)");
    EXPECT_EQ(RefusalOf([&] { static_cast<void>(registrar.Find(Id(44))); }),
              "cls_ClassRegistrar: class tst_Renamed (0x7e20002c) was announced as tst_Named");
    EXPECT_EQ(registrar.Find(Id(43)), nullptr);
    EXPECT_NE(registrar.Find(Id(40)), nullptr) << "the others are well";
}

TEST_F(LateDeclaration, MayLookItselfUp)
{
    registrar.DeclareLate(Id(45), "tst_Self", &DeclareAskingForItself);
    EXPECT_NE(registrar.Find(Id(45)), nullptr);
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
    {
        ASSERT_NE(slot, nullptr);
        EXPECT_EQ(slot, found[0]);
        EXPECT_EQ(slot->Attributes().size(), 1u);
    }
}
