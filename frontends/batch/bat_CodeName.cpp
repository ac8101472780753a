#include <bat_CodeName.h>

#define CODE(Type, name)                                                                                     \
    case Type::name:                                                                                         \
        return #name

const char* bat_CodeName(cls_AttributeType code)
{
    switch (code)
    {
        CODE(cls_AttributeType, CHAR);
        CODE(cls_AttributeType, INT);
        CODE(cls_AttributeType, FLOAT);
        CODE(cls_AttributeType, DOUBLE);
        CODE(cls_AttributeType, STRING);
        CODE(cls_AttributeType, MESSAGE);
        CODE(cls_AttributeType, BOOL);
        CODE(cls_AttributeType, ENUM);
        CODE(cls_AttributeType, OBJECT);
    }
    return nullptr;
}

const char* bat_CodeName(cls_CollectionType code)
{
    switch (code)
    {
        CODE(cls_CollectionType, SINGLE);
        CODE(cls_CollectionType, LIST_OBJ);
        CODE(cls_CollectionType, MAP_STRING_OBJ);
        CODE(cls_CollectionType, MAP_INT_OBJ);
        CODE(cls_CollectionType, LIST_BOOL);
        CODE(cls_CollectionType, LIST_DOUBLE);
        CODE(cls_CollectionType, LIST_FLOAT);
        CODE(cls_CollectionType, LIST_INT);
        CODE(cls_CollectionType, LIST_STRING);
        CODE(cls_CollectionType, LIST_UINT);
        CODE(cls_CollectionType, MAP_STRING_DOUBLE);
        CODE(cls_CollectionType, MAP_STRING_FLOAT);
        CODE(cls_CollectionType, MAP_STRING_INT);
        CODE(cls_CollectionType, MAP_STRING_STRING);
        CODE(cls_CollectionType, MAP_STRING_UINT);
        CODE(cls_CollectionType, MAP_INT_DOUBLE);
        CODE(cls_CollectionType, MAP_INT_FLOAT);
        CODE(cls_CollectionType, MAP_INT_INT);
        CODE(cls_CollectionType, MAP_INT_STRING);
        CODE(cls_CollectionType, MAP_INT_UINT);
        CODE(cls_CollectionType, ARRAY_BOOL);
        CODE(cls_CollectionType, ARRAY_DOUBLE);
        CODE(cls_CollectionType, ARRAY_FLOAT);
        CODE(cls_CollectionType, ARRAY_INT);
        CODE(cls_CollectionType, ARRAY_STRING);
        CODE(cls_CollectionType, ARRAY_UINT);
        CODE(cls_CollectionType, MAP_STRING_OBJ_93);
        CODE(cls_CollectionType, MAP_STRING_OBJ_112);
    }
    return nullptr;
}
