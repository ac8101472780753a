#pragma once

/// What a persistent attribute holds. The values are stored: never renumber. There is none for 64-bit
/// unsigned numbers, which are written as decimal text.
enum class cls_AttributeType : unsigned {
    CHAR = 1,
    INT = 5,
    FLOAT = 9,
    DOUBLE = 10,
    STRING = 11,
    /// A translatable message, stored as its final text.
    MESSAGE = 12,
    BOOL = 13,
    /// An enumeration, stored by member name.
    ENUM = 14,
    /// An object, or a collection: see the attribute's type id and collection code.
    OBJECT = 15
};
