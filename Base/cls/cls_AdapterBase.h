#pragma once

#include <bas_Export.h>

#include <memory>

class cls_Persistent;
class cls_ReadVisitor;

/// Creates objects of one class from a reader. Adapters are stateless constants that live for ever.
class BAS_EXPORT cls_AdapterBase
{
public:
    virtual ~cls_AdapterBase();

    /// A new object read from the reader. An abstract class refuses with nex_PrimException
    /// "cls_AbsTypeAdapter: class %s is abstract and cannot be created".
    virtual std::unique_ptr<cls_Persistent> Create(const cls_ReadVisitor& reader) const = 0;
    virtual bool IsAbstract() const = 0;

protected:
    [[noreturn]] static void RaiseAbstract(unsigned typeId);
};
