#pragma once

/// The architecture components, whose tables their <prefix>_ArchEntry() gives: the high half of a type id.
/// Stored data holds these numbers, so they never change.
enum oxu_Component : unsigned short {
    oxu_ROOT = 0x0, ///< the universal root is its entry 1
    oxu_MDL = 0x0A,
    oxu_OMU = 0x13,
    oxu_NEX = 0x1F, ///< the base library's exceptions; entry 3 is the command exception
    oxu_G3D = 0x24,
    oxu_GSL = 0x30A,
    oxu_ANN = 0x350,
};

/// The kinds of a component table's entries.
enum oxu_EntryKind : unsigned {
    oxu_EMPTY = 0, ///< reserved or retired: never used again, so that later indices stay
    oxu_EXCEPTION = 4,
    oxu_VALUE = 7,
};
