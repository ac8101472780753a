#pragma once

#include <cls_AttributeType.h>
#include <cls_CollectionType.h>

// The names of the codes by which class metadata describe an attribute; null for a number that is no code.

const char* bat_CodeName(cls_AttributeType code);
const char* bat_CodeName(cls_CollectionType code);
