#pragma once

/// Gives every name of the annotations' enumerations an id in the symbolic-constant table, where it has none.
void annC_RegisterConstants();
