#pragma once

#include <cow_List.h>
#include <cow_String.h>
#include <oxu_Export.h>

#include <cstdint>
#include <vector>

class idb_MementoRead;

/// What a memento holds, told without building an object: for people who want to know what a file is.
struct OXU_EXPORT idb_MementoSummary
{
    /// A part of the file.
    struct Section
    {
        cow_String tag;
        std::uint64_t offset; ///< of its first byte
        std::uint64_t bytes;  ///< of its payload
    };
    /// A class of its objects, or the parent of one.
    struct Class
    {
        cow_String name;
        unsigned typeId;
        unsigned version;
        cow_String parent; ///< name of the parent as far as the memento or the registrar knows it, else "0x…"
        int attributes;    ///< of its own
        std::uint32_t objects; ///< of this very class; parents alone have none
        std::uint64_t bytes;   ///< of their bodies
        bool isKnown;          ///< registered under this id and name
    };
    /// An object that has a name.
    struct Root
    {
        cow_String name;
        std::uint32_t number; ///< 0 for null
        cow_String className; ///< empty for null
    };

    explicit idb_MementoSummary(const idb_MementoRead& memento);

    int majorFormat;
    int minorFormat;
    std::uint64_t bytes; ///< of the whole memento
    std::uint32_t objects;
    std::vector<Section> sections;
    std::vector<Class> classes;
    std::vector<Root> roots;
    /// idb_MementoRead::Warnings(), then a sentence for each class that is not known.
    cow_List<cow_String> warnings;
};
