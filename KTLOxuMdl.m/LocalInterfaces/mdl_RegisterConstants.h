#pragma once

/// Gives every name of the model's enumerations an id in the symbolic-constant table, where it has none.
void mdl_RegisterConstants();
