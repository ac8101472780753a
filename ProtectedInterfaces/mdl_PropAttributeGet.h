#pragma once

#include <mdl_PropagatingAttribute.h>
#include <omu_Arguments.h>

/// Reads an argument of a command into an attribute, for every T that mdl_PropAttr has.
///
/// The argument is, in this order: a value of T, which makes the attribute SET; the symbolic constant of a
/// status, taken by mdl_PropAttr::SetStatus with the flag restricted; with noneAllowed None, which zeroes the
/// value and makes the attribute UNSET when restricted, else FREED. For anything else the fault is kept for
/// End and says that a T was expected; a status that may not be given raises nex_PrimException at once, as
/// does omu_ArgTypeErrorException a wrong list within an array of lists.
///
/// True when this very read delivered. Otherwise, also when it raises, the attribute is as it was: an
/// optional argument that was not given changes nothing.
template <class T>
class OXU_EXPORT mdl_PropAttributeGet
{
public:
    mdl_PropAttributeGet() = delete;

    /// `restricted` is that of mdl_PropAttr::SetStatus, noneAllowed tells whether None may be given.
    static bool Get(omu_Arguments& arguments, mdl_PropAttr<T>& attribute, const char* keyword,
                    bool restricted, bool noneAllowed);
};
