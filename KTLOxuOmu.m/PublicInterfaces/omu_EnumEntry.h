#pragma once

/// One row of an enumeration's table: a member's name in scripts and in stored data, and its value.
///
/// A table ends with a row whose name is null.
struct omu_EnumEntry
{
    const char* name;
    int value;
};
