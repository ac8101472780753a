#include <concepts>
#include <cstdint>
#include <mdl_Enumerations.h>

namespace
{
using State = mdl_PropAttributeStateEnm;
using Status = mdl_PropagationStatusEnm;

constexpr std::uint64_t SetOf(std::same_as<Status> auto... members)
{
    return ((std::uint64_t{1} << static_cast<int>(members)) | ...);
}

constexpr std::uint64_t GENERAL = SetOf(Status::NOT_YET_ACTIVE, Status::CREATED, Status::PROPAGATED,
                                        Status::MODIFIED, Status::DEACTIVATED, Status::NO_LONGER_ACTIVE);
constexpr std::uint64_t ACTIVE =
    SetOf(Status::CREATED, Status::PROPAGATED, Status::MODIFIED, Status::BUILT_INTO_BASE_STATE,
          Status::PROPAGATED_FROM_BASE_STATE, Status::MODIFIED_FROM_BASE_STATE, Status::BUILT_INTO_MODES,
          Status::PROPAGATED_FROM_FREQUENCY);
constexpr std::uint64_t DEACTIVATED =
    SetOf(Status::DEACTIVATED, Status::NO_LONGER_ACTIVE, Status::DEACTIVATED_FROM_BASE_STATE);

// A shift by 64 or more, or by a negative count, would be undefined.
bool IsIn(std::uint64_t set, Status status)
{
    const int value = static_cast<int>(status);
    return value >= 0 && value < 64 && ((set >> value) & 1) != 0;
}
}

template <>
const omu_EnumEntry omu_PrimEnum<State, 1>::table[] = {
    {"UNSET", int(State::UNSET)},
    {"SET", int(State::SET)},
    {"UNCHANGED", int(State::UNCHANGED)},
    {"FREED", int(State::FREED)},
    {"NOT_APPLICABLE", int(State::NOT_APPLICABLE)},
    {"INVALID", int(State::INVALID)},
    {"ABS_DEFAULT", int(State::ABS_DEFAULT)},
    {"COMP_DEFAULT", int(State::COMP_DEFAULT)},
    {nullptr, 0},
};

template <>
const omu_EnumEntry omu_PrimEnum<Status, 1>::table[] = {
    {"NOT_YET_ACTIVE", int(Status::NOT_YET_ACTIVE)},
    {"CREATED", int(Status::CREATED)},
    {"PROPAGATED", int(Status::PROPAGATED)},
    {"MODIFIED", int(Status::MODIFIED)},
    {"DEACTIVATED", int(Status::DEACTIVATED)},
    {"NO_LONGER_ACTIVE", int(Status::NO_LONGER_ACTIVE)},
    {"TYPE_NOT_APPLICABLE", int(Status::TYPE_NOT_APPLICABLE)},
    {"INSTANCE_NOT_APPLICABLE", int(Status::INSTANCE_NOT_APPLICABLE)},
    {"BUILT_INTO_BASE_STATE", int(Status::BUILT_INTO_BASE_STATE)},
    {"PROPAGATED_FROM_BASE_STATE", int(Status::PROPAGATED_FROM_BASE_STATE)},
    {"MODIFIED_FROM_BASE_STATE", int(Status::MODIFIED_FROM_BASE_STATE)},
    {"DEACTIVATED_FROM_BASE_STATE", int(Status::DEACTIVATED_FROM_BASE_STATE)},
    {"BUILT_INTO_MODES", int(Status::BUILT_INTO_MODES)},
    {"COMPUTED", int(Status::COMPUTED)},
    {"PROPAGATED_FROM_COMPUTED", int(Status::PROPAGATED_FROM_COMPUTED)},
    {"RESET_TO_INITIAL", int(Status::RESET_TO_INITIAL)},
    {"PROPAGATED_FROM_FREQUENCY", int(Status::PROPAGATED_FROM_FREQUENCY)},
    {nullptr, 0},
};

bool mdl_generalAnalysisStatus(Status status)
{
    return IsIn(GENERAL, status);
}

bool mdl_activePropagationStatus(Status status)
{
    return IsIn(ACTIVE, status);
}

bool mdl_deactivatedPropagationStatus(Status status)
{
    return IsIn(DEACTIVATED, status);
}
