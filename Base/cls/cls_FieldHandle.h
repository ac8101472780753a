#pragma once

/// A persistent attribute of a class: its field index and the name under which it is stored.
///
/// Data is matched by name. Indices are append only; a retired field keeps its index.
struct cls_FieldHandle
{
    int index;
    const char* name;
};
