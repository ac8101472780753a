#pragma once

/// What an interface object behaves like in the scripting language.
enum class omu_PythonType { OBJECT = 0, SEQUENCE = 1, MAPPING = 2, NUMBER = 3 };
