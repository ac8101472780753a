#pragma once

#include <bas_Export.h>

#include <any>
#include <memory>

class cls_AdapterBase;
class cls_Persistent;

/// Takes the objects that a reader found, one by one in stored order: a single one for an attribute that
/// holds one object, each element of a list, each value of a map.
///
/// The reader creates every stored body once and keeps beside it a std::any of its own, empty at first. The
/// first sink that takes the body leaves something in it, as a rule a share, for those that meet the body
/// later: a body whose any is not empty goes to TakeShared. A Take function that answers false has taken
/// nothing: the object is of another class than the sink holds, or the sink cannot hold null or that share;
/// the reader reports that with the position in its data.
class BAS_EXPORT cls_ObjectSink
{
public:
    virtual ~cls_ObjectSink();

    /// The class that the attribute's objects must descend from. The reader checks it besides the cast.
    virtual unsigned DeclaredTypeId() const = 0;
    /// The adapter of that very class, so that a reader needs no registrar where a stored object is of the
    /// declared class itself; null where the sink knows none.
    virtual const cls_AdapterBase* DeclaredAdapter() const = 0;

    [[nodiscard]] virtual bool TakeNull() = 0;
    /// An object that was created just now. `shared` is the body's own any.
    [[nodiscard]] virtual bool TakeNew(std::unique_ptr<cls_Persistent> object, std::any& shared) = 0;
    /// A body that a sink took before, by what that sink left in `shared`.
    [[nodiscard]] virtual bool TakeShared(const std::any& shared) = 0;
};
