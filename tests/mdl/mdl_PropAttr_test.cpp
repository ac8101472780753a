// The states of a propagating attribute, the statuses of an object, and what a command may give for one.
#include <KTLOxuMdl.h>
#include <KTLOxuOmu.h>
#include <functional>
#include <limits>
#include <mdl_PropAttributeGet.h>
#include <mdl_PropAttributeGetFromTuple.h>
#include <nex_PrimException.h>
#include <omu_PrimNone.h>
#include <omu_SymbolicConstantTable.h>
#include <random>
#include <testing/ExpectRaise.h>
#include <testing/StartGuard.h>
#include <testing/ValueTesting.h>

namespace
{
using State = mdl_PropAttributeStateEnm;
using Status = mdl_PropagationStatusEnm;
using StateConstant = omu_PrimEnum<State, 1>;

// "5 SET".
std::string Describe(const mdl_PropDouble& attribute)
{
    const cow_String state = StateConstant(attribute.State()).GetString();
    return std::to_string(static_cast<int>(attribute.ConstGet())) + " " + state.AsCharPtr();
}

TEST(PropAttr, RandomOperationsFollowTheModel)
{
    // A value and a state with rules that are tables. By state: free, active, modified, condition modified.
    const char* const predicates[] = {"F---", "-AM-", "-A--", "F-MC", "----", "----", "----", "----"};
    const int next[] = {0, 2, 2, 0, 4, 5, 6, 7};
    // By status: z takes it with zero, = changes nothing, x refuses; not restricted, restricted.
    const char* const statuses[] = {"xz=zxxxx", "zz=xxxxx"};
    std::mt19937 engine(31);
    const auto draw = [&](int count) { return static_cast<int>(engine() % static_cast<unsigned>(count)); };
    mdl_PropDouble attributes[2];
    std::pair<int, int> models[2];
    int value = 0, state = 0, which = 0, refused = 0;
    const auto a = [&](int i = 0) -> mdl_PropDouble& { return attributes[(which + i) % 2]; };
    const auto m = [&](int i = 0) -> std::pair<int, int>& { return models[(which + i) % 2]; };
    const std::function<void()> operations[] = {
        [&] { a().Get() += value, m() = std::pair(m().first + value, 1); },
        [&] { a() = value, m() = std::pair(value, 1); },
        [&] { a() = State(state), m() = std::pair(state == 0 || state == 3 ? 0 : m().first, state); },
        [&] { a().ForceState(State(state)), m().second = state; },
        [&] { a().Zero(), m().first = 0; },
        [&] { a().Modify(a(1)), m() = m(1).second == 1 || m(1).second == 3 ? m(1) : m(); },
        [&] { a().Propagate(), m().second = next[m().second]; },
        [&] { a() = a(1), m() = m(1); },
        [&] {
            const int restricted = draw(2);
            const char rule = statuses[restricted][state];
            m() = rule == 'z' ? std::pair(0, state) : m();
            const std::string told = Outcome([&] {
                a().SetStatus("x", StateConstant(State(state)), restricted == 1);
                return "";
            });
            ASSERT_EQ(!told.empty(), rule == 'x');
            refused += told.empty() ? 0 : 1;
        }};
    for (int step = 0; step < 20000; ++step)
    {
        which = draw(2), state = draw(8), value = 1 + draw(9);
        const cls_Uid uid = a().Uid();
        operations[draw(9)]();
        ASSERT_TRUE(a() == m().first && a() == State(m().second)) << step << Describe(a());
        const std::string found = {a().IsFree() ? 'F' : '-', a().IsActive() ? 'A' : '-',
                                   a().IsModified() ? 'M' : '-', a().IsConditionModified() ? 'C' : '-'};
        ASSERT_EQ(found, predicates[m().second]);
        ASSERT_EQ(a() == a(1), m() == m(1));
        ASSERT_EQ(a().Uid(), uid) << "assignment keeps the identifier";
    }
    EXPECT_GT(refused, 500);
}

TEST(PropAttr, KeepsItsOddRules)
{
    mdl_PropInt given(7);
    EXPECT_TRUE(given == State::UNSET && given == 7) << "constructed is not SET";
    static_cast<void>(given.Get());
    EXPECT_TRUE(given == State::SET) << "access for writing alone sets";
    given = State::ABS_DEFAULT;
    EXPECT_TRUE(given == 7 && given != State::SET) << "an enumerator is a state, not the number 6";
    const mdl_PropDouble notANumber(std::numeric_limits<double>::quiet_NaN());
    EXPECT_FALSE(notANumber == notANumber);
    EXPECT_EQ(mdl_PropInt(given).Uid(), given.Uid()) << "a copy is the same";
}

TEST(PropagationStatus, IsInItsSetsAndAConstant)
{
    std::string general, active, deactivated;
    for (int value = -70; value <= 200; ++value)
    {
        const auto status = static_cast<Status>(value);
        general += mdl_generalAnalysisStatus(status) ? " " + std::to_string(value) : "";
        active += mdl_activePropagationStatus(status) ? " " + std::to_string(value) : "";
        deactivated += mdl_deactivatedPropagationStatus(status) ? " " + std::to_string(value) : "";
    }
    EXPECT_EQ(general, " 0 1 2 3 4 5");
    EXPECT_EQ(active, " 1 2 3 8 9 10 12 16");
    EXPECT_EQ(deactivated, " 4 5 11");
    const StartGuard<KTLOxuOmu_initialize, KTLOxuOmu_finalize> omu;
    const StartGuard<KTLOxuMdl_initialize, KTLOxuMdl_finalize> mdl;
    const omu_SymbolicConstantTable& constants = omu_SymbolicConstantTable::Instance();
    EXPECT_TRUE(constants.IsMember("COMP_DEFAULT") && constants.IsMember("PROPAGATED_FROM_FREQUENCY"));
}

// What an attribute of 5 UNCHANGED comes to; a fault leaves it.
template <class Source, class Read>
std::string AfterReading(Source source, bool isOptional, Read read)
{
    mdl_PropDouble attribute(5.0);
    attribute.ForceState(State::UNCHANGED);
    const std::string outcome = Outcome([&] {
        source.Begin();
        if (isOptional)
            source.Optional();
        const bool delivered = read(source, attribute);
        source.End();
        return Describe(attribute) + (delivered ? "" : ", not given");
    });
    EXPECT_TRUE(outcome.find(':') == std::string::npos || Describe(attribute) == "5 UNCHANGED");
    return outcome;
}

TEST(PropAttributeGet, TriesValueStatusAndNoneInThisOrder)
{
    constexpr const char* REFUSED = "nex_PrimException: Invalid propagation status for 'arg1' attribute.";
    constexpr const char* NO_NONE = "TypeError: arg1; found None, expecting float";
    omu_PrimEnumBase foreign;
    foreign.SetValue("SOLID");
    const auto constant = [](State state) { return TupleOf(StateConstant(state)); };
    const struct
    {
        omu_PrimTuple items;
        const char* outcomes[4]; // not restricted, restricted, the same with None allowed; null as before
        bool isOptional = false;
    } rows[] = {
        {TupleOf(7), {"7 SET"}},
        {constant(State::UNSET), {REFUSED, "0 UNSET", REFUSED, "0 UNSET"}},
        {constant(State::SET), {"0 SET"}},
        {constant(State::UNCHANGED), {"5 UNCHANGED"}},
        {constant(State::FREED), {"0 FREED", REFUSED, "0 FREED", REFUSED}},
        {constant(State::COMP_DEFAULT), {REFUSED}},
        {TupleOf(omu_PrimNone()), {NO_NONE, NO_NONE, "0 FREED", "0 UNSET"}},
        {TupleOf("7"), {"TypeError: arg1; found string, expecting float"}},
        {TupleOf(foreign), {"TypeError: arg1; found SOLID, expecting float"}},
        {TupleOf(), {"TypeError: not all required arguments specified; expected 1, got 0"}},
        {TupleOf(), {"5 UNCHANGED, not given"}, true},
    };
    for (const auto& row : rows)
        for (int flags = 0, shown = 0; flags < 4; ++flags)
        {
            SCOPED_TRACE(Text(row.items) + ", flags " + std::to_string(flags));
            shown = row.outcomes[flags] != nullptr ? flags : shown;
            const auto byKeyword = [&](omu_Arguments& source, mdl_PropDouble& attribute) {
                return mdl_PropAttributeGet<double>::Get(source, attribute, "arg1", flags % 2 == 1,
                                                         flags > 1);
            };
            const auto byPlace = [&](omu_PrimTuple& source, mdl_PropDouble& attribute) {
                return mdl_PropAttributeGetFromTuple<double>::Get(source, attribute, flags % 2 == 1,
                                                                  flags > 1);
            };
            omu_Arguments arguments;
            if (row.items.Length() > 0)
                arguments.Put("arg1", row.items.Index(0));
            EXPECT_EQ(AfterReading(row.items, row.isOptional, byPlace), row.outcomes[shown]);
            EXPECT_EQ(AfterReading(arguments, row.isOptional, byKeyword), row.outcomes[shown]);
        }
}
}
