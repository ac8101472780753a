#pragma once

/// One row of a component table: a class, or an empty slot that keeps later indices from moving.
///
/// Indices are part of the type ids in stored data and are never reused.
struct typ_Entry
{
    /// 0 for an empty slot, 4 for an exception class, 7 for a value or object class.
    unsigned kind;
    unsigned short parentIndex;
    /// Component of the parent; 0 with parent index 1 is the universal root.
    unsigned short parentComponent;
    /// Null for an empty slot.
    const char* name;
};
