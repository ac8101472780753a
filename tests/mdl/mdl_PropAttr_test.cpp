// The states of a propagating attribute, and what a command may give for one.
#include <functional>
#include <mdl_PropAttributeGet.h>
#include <mdl_PropAttributeGetFromTuple.h>
#include <omu_PrimNone.h>
#include <random>
#include <testing/ValueTesting.h>

namespace
{
using State = mdl_PropAttributeStateEnm;
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
    std::mt19937 engine(31);
    const auto draw = [&](int count) { return static_cast<int>(engine() % static_cast<unsigned>(count)); };
    mdl_PropDouble attributes[2];
    std::pair<int, int> models[2];
    int value = 0, state = 0, which = 0;
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
        [&] { a() = a(1), m() = m(1); }};
    for (int step = 0; step < 20000; ++step)
    {
        which = draw(2), state = draw(8), value = 1 + draw(9);
        const cls_Uid uid = a().Uid();
        operations[draw(8)]();
        ASSERT_TRUE(a() == m().first && a() == State(m().second)) << step << Describe(a());
        const std::string found = {a().IsFree() ? 'F' : '-', a().IsActive() ? 'A' : '-',
                                   a().IsModified() ? 'M' : '-', a().IsConditionModified() ? 'C' : '-'};
        ASSERT_EQ(found, predicates[m().second]);
        ASSERT_EQ(a() == a(1), m() == m(1));
        ASSERT_EQ(a().Uid(), uid) << "assignment keeps the identifier";
    }
}

TEST(PropAttr, KeepsItsOddRules)
{
    mdl_PropInt given(7);
    EXPECT_TRUE(given == State::UNSET && given == 7) << "constructed is not SET";
    given = State::ABS_DEFAULT;
    EXPECT_TRUE(given == 7 && given == State::ABS_DEFAULT) << "an enumerator is a state, not the number 6";
}

TEST(PropagationStatus, IsInTheSetsOfItsNumberAndNoOtherNumberInAny)
{
    // From NOT_YET_ACTIVE to PROPAGATED_FROM_FREQUENCY: the sum of 1 general, 2 active, 4 deactivated.
    const std::string sets = "13335500222420002";
    for (int number = -70; number < 140; ++number)
    {
        const auto status = mdl_PropagationStatusEnm(number);
        EXPECT_EQ(mdl_generalAnalysisStatus(status) + 2 * mdl_activePropagationStatus(status) +
                      4 * mdl_deactivatedPropagationStatus(status),
                  number >= 0 && number < 17 ? sets[static_cast<std::size_t>(number)] - '0' : 0)
            << number;
    }
}

// What an attribute of 5 UNCHANGED comes to, which need not be given; a fault leaves it.
template <class Source, class Read>
std::string AfterReading(Source source, Read read)
{
    mdl_PropDouble attribute(5.0);
    attribute.ForceState(State::UNCHANGED);
    const std::string outcome = Outcome([&] {
        source.Begin();
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
    } rows[] = {
        {TupleOf(7), {"7 SET"}},
        {constant(State::UNSET), {REFUSED, "0 UNSET", REFUSED, "0 UNSET"}},
        {constant(State::SET), {"0 SET"}},
        {constant(State::UNCHANGED), {"5 UNCHANGED"}},
        {constant(State::FREED), {"0 FREED", REFUSED, "0 FREED", REFUSED}},
        {constant(State::COMP_DEFAULT), {REFUSED}},
        {TupleOf(omu_PrimNone()), {NO_NONE, NO_NONE, "0 FREED", "0 UNSET"}},
        {TupleOf(foreign), {"TypeError: arg1; found SOLID, expecting float"}},
        {TupleOf(), {"5 UNCHANGED, not given"}},
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
            EXPECT_EQ(AfterReading(row.items, byPlace), row.outcomes[shown]);
            EXPECT_EQ(AfterReading(arguments, byKeyword), row.outcomes[shown]);
        }
}
}
