#pragma once

#include <omu_PrimEnum.h>
#include <oxu_Export.h>

// What a model's objects and their attributes are in an analysis step. Scripts and mementos see the names:
// never renumber, never rename.

/// How an attribute's value relates to the analysis step before.
enum class mdl_PropAttributeStateEnm {
    UNSET = 0,     ///< no value in this step; it is zero
    SET = 1,       ///< given in this step
    UNCHANGED = 2, ///< carried over from the step before
    FREED = 3,     ///< removed in this step; it is zero
    NOT_APPLICABLE = 4,
    // Plain states that callers set and test; nothing here gives them a meaning.
    INVALID = 5,
    ABS_DEFAULT = 6,
    COMP_DEFAULT = 7
};

/// The status of a whole object in an analysis step.
enum class mdl_PropagationStatusEnm {
    NOT_YET_ACTIVE = 0,
    CREATED = 1,
    PROPAGATED = 2,
    MODIFIED = 3,
    DEACTIVATED = 4,
    NO_LONGER_ACTIVE = 5,
    TYPE_NOT_APPLICABLE = 6,
    INSTANCE_NOT_APPLICABLE = 7,
    BUILT_INTO_BASE_STATE = 8,
    PROPAGATED_FROM_BASE_STATE = 9,
    MODIFIED_FROM_BASE_STATE = 10,
    DEACTIVATED_FROM_BASE_STATE = 11,
    BUILT_INTO_MODES = 12,
    COMPUTED = 13,
    PROPAGATED_FROM_COMPUTED = 14,
    RESET_TO_INITIAL = 15,
    PROPAGATED_FROM_FREQUENCY = 16
};

template <>
OXU_EXPORT const omu_EnumEntry omu_PrimEnum<mdl_PropAttributeStateEnm, 1>::table[];
template <>
OXU_EXPORT const omu_EnumEntry omu_PrimEnum<mdl_PropagationStatusEnm, 1>::table[];

// Three sets of statuses, of which the first overlaps the others. In none of them, on purpose:
// TYPE_NOT_APPLICABLE, INSTANCE_NOT_APPLICABLE, COMPUTED, PROPAGATED_FROM_COMPUTED and RESET_TO_INITIAL. Any
// number may be asked; one that is no status is in no set.

/// NOT_YET_ACTIVE, CREATED, PROPAGATED, MODIFIED, DEACTIVATED or NO_LONGER_ACTIVE.
[[nodiscard]] OXU_EXPORT bool mdl_generalAnalysisStatus(mdl_PropagationStatusEnm status);
/// CREATED, PROPAGATED, MODIFIED, BUILT_INTO_BASE_STATE, PROPAGATED_FROM_BASE_STATE,
/// MODIFIED_FROM_BASE_STATE, BUILT_INTO_MODES or PROPAGATED_FROM_FREQUENCY.
[[nodiscard]] OXU_EXPORT bool mdl_activePropagationStatus(mdl_PropagationStatusEnm status);
/// DEACTIVATED, NO_LONGER_ACTIVE or DEACTIVATED_FROM_BASE_STATE.
[[nodiscard]] OXU_EXPORT bool mdl_deactivatedPropagationStatus(mdl_PropagationStatusEnm status);
