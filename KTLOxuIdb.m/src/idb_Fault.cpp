#include <idb_Fault.h>

#include <charconv>

cow_String idb_Fault::Hexadecimal(unsigned typeId)
{
    char digits[8];
    const char* const end = std::to_chars(digits, digits + sizeof digits, typeId, 16).ptr;
    return cow_String("0x").Append(std::string_view(digits, static_cast<std::size_t>(end - digits)));
}
