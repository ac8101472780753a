#include <cls_Series.h>
#include <nex_Raise.h>

namespace
{
using Code = cls_CollectionType;

// By position of the alternative in cls_PrimSpan and cls_PrimSink: bool, int, unsigned, float, double, text.
constexpr Code LIST_CODES[] = {Code::LIST_BOOL,  Code::LIST_INT,    Code::LIST_UINT,
                               Code::LIST_FLOAT, Code::LIST_DOUBLE, Code::LIST_STRING};
constexpr Code MAP_CODES[2][6] = {{Code::SINGLE, Code::MAP_INT_INT, Code::MAP_INT_UINT, Code::MAP_INT_FLOAT,
                                   Code::MAP_INT_DOUBLE, Code::MAP_INT_STRING},
                                  {Code::SINGLE, Code::MAP_STRING_INT, Code::MAP_STRING_UINT,
                                   Code::MAP_STRING_FLOAT, Code::MAP_STRING_DOUBLE, Code::MAP_STRING_STRING}};
constexpr Code OBJECT_MAP_CODES[] = {Code::MAP_INT_OBJ, Code::MAP_STRING_OBJ};

Code MapCode(std::size_t key, std::size_t value)
{
    const Code code = MAP_CODES[key][value];
    if (code == Code::SINGLE)
        nex_RaiseInternal("cls_MapCode: a map to bool has no collection code", "Base/cls/cls_Series",
                          __LINE__);
    return code;
}
}

cls_CollectionType cls_ListCode(const cls_PrimSpan& elements)
{
    return LIST_CODES[elements.index()];
}

cls_CollectionType cls_ListCode(const cls_PrimSink& elements)
{
    return LIST_CODES[elements.index()];
}

cls_CollectionType cls_MapCode(const cls_KeySpan& keys, const cls_PrimSpan& values)
{
    return MapCode(keys.index(), values.index());
}

cls_CollectionType cls_MapCode(const cls_KeySink& keys, const cls_PrimSink& values)
{
    return MapCode(keys.index(), values.index());
}

cls_CollectionType cls_ObjectMapCode(const cls_KeySpan& keys)
{
    return OBJECT_MAP_CODES[keys.index()];
}

cls_CollectionType cls_ObjectMapCode(const cls_KeySink& keys)
{
    return OBJECT_MAP_CODES[keys.index()];
}
