#pragma once

#include <cow_String.h>

class omu_Primitive;

/// An object as it is written where its path is not: "<Part object>", or "<Part object named P1>" when `name`
/// is a string, of either kind, that is not empty.
cow_String omu_ObjectText(const cow_String& typeName, const omu_Primitive* name = nullptr);
