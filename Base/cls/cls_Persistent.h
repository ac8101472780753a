#pragma once

#include <bas_Export.h>

/// Common polymorphic root of everything that a type adapter creates.
///
/// It promises a virtual destructor and nothing else. Use cls_PersistentCast to come back to a class:
/// the registered parent of a class is not always its C++ base, so the cast is always checked.
class BAS_EXPORT cls_Persistent
{
public:
    cls_Persistent() = default;
    cls_Persistent(const cls_Persistent&) = default;
    cls_Persistent& operator=(const cls_Persistent&) = default;
    virtual ~cls_Persistent();
};
