#pragma once

#include <idb_MementoException.h>
#include <nex_RaiseWith.h>
#include <oxu_FormatMessage.h>

#include <cstdint>
#include <string>

/// How this module raises: idb_MementoException with a message of parts, each once as a text here.
namespace idb_Fault
{
using Place = idb_MementoException::Place;

/// Any number as text: positions and lengths are wider than the message facility's numbers.
template <class N>
cow_String Text(N number)
{
    return cow_String(std::to_string(number));
}
/// "0x13002d".
cow_String Hexadecimal(unsigned typeId);

template <class... Arguments>
[[noreturn]] void Raise(const char* source, int line, const Place& place, const char* messageTemplate,
                        const Arguments&... arguments)
{
    nex_Raise(idb_MementoException(oxu_FormatMessage(messageTemplate, arguments...), place), source, line);
}

inline constexpr const char* NOT_A_MEMENTO = "idb_MementoRead: not a memento";
inline constexpr const char* TOO_NEW = "idb_MementoRead: format %d.%d is newer than %d.%d";
inline constexpr const char* BAD_CHECKSUM = "idb_MementoRead: checksum mismatch in section %s at byte %d";
inline constexpr const char* DATA_ENDS = "idb_MementoRead: data ends at byte %d, %d more needed";
inline constexpr const char* DATA_GOES_ON = "idb_MementoRead: data goes on at byte %d, %d bytes too many";
inline constexpr const char* BAD_DATA = "idb_MementoRead: %s";
inline constexpr const char* CANNOT_OPEN = "idb_MementoRead: cannot read %s: %s";
inline constexpr const char* SECTION_UNKNOWN = "idb_MementoRead: section %s at byte %d must be understood";
inline constexpr const char* SECTION_PLACE = "idb_MementoRead: section %s at byte %d, expected %s";
inline constexpr const char* SECTION_MISSING = "idb_MementoRead: section %s is missing";
inline constexpr const char* BAD_DIGEST = "idb_MementoRead: digest mismatch in section ENDM at byte %d";
inline constexpr const char* BAD_COUNT = "idb_MementoRead: section %s counts %d objects, section ENDM %d";
inline constexpr const char* BAD_NUMBER =
    "idb_MementoRead: object number %d at byte %d, there are %d objects";
inline constexpr const char* BAD_REFERENCE = "idb_MementoRead: object number %d, there are %d objects";
inline constexpr const char* NUMBER_TWICE = "idb_MementoRead: object number %d stands twice, at byte %d";
inline constexpr const char* BAD_CLASS = "idb_MementoRead: class index %d at byte %d, there are %d classes";
inline constexpr const char* CLASS_TWICE = "idb_MementoRead: class %s (%s) stands twice, at byte %d";
inline constexpr const char* NAME_TWICE = "idb_MementoRead: name %s stands twice, at byte %d";
inline constexpr const char* NO_ROOT = "idb_MementoRead: there is no object named %s";
inline constexpr const char* ROOT_TYPE = "idb_MementoRead: %s is an object, expected type %d";

inline constexpr const char* OBJECT_DATA = "idb_MementoRead: object %d (%s): %s";
inline constexpr const char* NOT_KNOWN = "idb_MementoRead: object %d: class %s (%s) is not known";
inline constexpr const char* OTHER_NAME = "idb_MementoRead: object %d: class %s (%s) is known as %s";
inline constexpr const char* IS_ABSTRACT = "idb_MementoRead: object %d: class %s (%s) is abstract";
inline constexpr const char* NO_BASE = "idb_MementoRead: object %d (%s): part %s is no base of part %s";
inline constexpr const char* BAD_LAST_PART = "idb_MementoRead: object %d (%s): its last part is of class %s";
inline constexpr const char* BAD_ATTRIBUTE =
    "idb_MementoRead: object %d (%s): attribute index %d at byte %d, the class has %d";
inline constexpr const char* ATTRIBUTE_TWICE = "idb_MementoRead: object %d (%s): attribute %s stands twice";
inline constexpr const char* BAD_TYPE =
    "idb_MementoRead: object %d (%s): attribute %s has type %d, expected %d";
inline constexpr const char* BAD_COLLECTION =
    "idb_MementoRead: object %d (%s): attribute %s has collection type %d, expected %d";
inline constexpr const char* KEY_TWICE = "idb_MementoRead: key %s stands twice in the map at byte %d";
inline constexpr const char* NULL_VALUE = "idb_MementoRead: a null reference where a %s is held by value";
inline constexpr const char* CYCLIC = "idb_MementoRead: object %d is part of a cyclic reference";
inline constexpr const char* WRONG_CLASS = "idb_MementoRead: object %d is a %s, expected a %s";
inline constexpr const char* NOT_HELD = "idb_MementoRead: object %d (%s) cannot be held as a %s here";
inline constexpr const char* READ_LIMIT = "idb_MementoRead: limit exceeded: %s";

inline constexpr const char* WRITE_LIMIT = "idb_MementoWrite: limit exceeded: %s";
inline constexpr const char* NO_METADATA = "idb_MementoWrite: class %s (%s) has no metadata";
inline constexpr const char* WRITE_ABSTRACT = "idb_MementoWrite: class %s (%s) is abstract";
inline constexpr const char* NOT_ANNOUNCED = "idb_MementoWrite: class %s (%s) writes nothing";
inline constexpr const char* WRITES_AS = "idb_MementoWrite: class %s (%s) writes itself as %s";
inline constexpr const char* WRITE_NO_BASE = "idb_MementoWrite: class %s writes a base part as %s";
inline constexpr const char* NOT_DECLARED = "idb_MementoWrite: class %s does not declare the attribute %s";
inline constexpr const char* WRITTEN_TWICE = "idb_MementoWrite: class %s writes the attribute %s twice";
inline constexpr const char* WRITTEN_TYPE =
    "idb_MementoWrite: class %s writes the attribute %s as type %d, declared %d";
inline constexpr const char* WRITTEN_COLLECTION =
    "idb_MementoWrite: class %s writes the attribute %s as collection type %d, declared %d";
inline constexpr const char* WRITE_CYCLIC = "idb_MementoWrite: a %s is part of a cyclic reference";
inline constexpr const char* NAME_WITH_ZERO = "idb_MementoWrite: the name %s holds a zero byte";
inline constexpr const char* WRITE_NAME_TWICE = "idb_MementoWrite: name %s is given twice";
inline constexpr const char* WRITE_KEY_TWICE = "idb_MementoWrite: key %s is given twice";
inline constexpr const char* NO_OBJECT =
    "idb_MementoWrite: %s is no object, and a memento holds named objects";
inline constexpr const char* FINISHED = "idb_MementoWrite: the memento is finished";
inline constexpr const char* NOT_FINISHED = "idb_MementoWrite: the memento is not finished";
inline constexpr const char* NOTHING_WRITTEN = "idb_MementoWrite: no attribute is being written";
inline constexpr const char* INCOMPLETE = "idb_MementoWrite: an object of class %s could not be written";
inline constexpr const char* CANNOT_WRITE = "idb_MementoWrite: cannot write %s: %s";

// What exceptions and summaries name in several places.
inline constexpr const char* TOTAL_BYTES = "total bytes";
inline constexpr const char* OBJECTS = "objects";
inline constexpr const char* CLASSES = "classes";
inline constexpr const char* ATTRIBUTES = "attributes of a class";
inline constexpr const char* DEPTH = "nesting depth";
inline constexpr const char* TEXT_LENGTH = "text length";
inline constexpr const char* BUDGET = "allocation budget";
}
