#include <cls_CollectionType.h>

namespace
{
constexpr unsigned SERIES_DISTANCE = 30;

// The code by which all codes that are read alike are known.
unsigned Representative(cls_CollectionType code)
{
    const unsigned number = static_cast<unsigned>(code);
    switch (code)
    {
    case cls_CollectionType::ARRAY_BOOL:
    case cls_CollectionType::ARRAY_DOUBLE:
    case cls_CollectionType::ARRAY_FLOAT:
    case cls_CollectionType::ARRAY_INT:
    case cls_CollectionType::ARRAY_STRING:
    case cls_CollectionType::ARRAY_UINT:
        return number - SERIES_DISTANCE;
    case cls_CollectionType::MAP_STRING_OBJ_93:
    case cls_CollectionType::MAP_STRING_OBJ_112:
        return static_cast<unsigned>(cls_CollectionType::MAP_STRING_OBJ);
    default:
        return number;
    }
}
}

bool cls_CollectionsMatch(cls_CollectionType a, cls_CollectionType b)
{
    return Representative(a) == Representative(b);
}
