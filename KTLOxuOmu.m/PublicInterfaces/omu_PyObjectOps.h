#pragma once

#include <cow_String.h>
#include <oxu_Export.h>

class omu_Primitive;

/// What this library may ask of an object of the scripting language that passes through it unconverted.
///
/// The scripting kernel derives from this class and installs one object, before the first such value is made.
/// `object` is what the kernel gave to the omu_PyObjectHandle, never null. Calls come from whichever thread
/// uses the value: an implementation takes the locks that it needs. What it throws passes through the caller.
class OXU_EXPORT omu_PyObjectOps
{
public:
    virtual ~omu_PyObjectOps();

    /// The name of the object's type, as type errors show it.
    virtual cow_String TypeName(const void* object) const = 0;
    /// The object as the scripting language writes it.
    virtual cow_String Repr(const void* object) const = 0;
    virtual bool Equal(const void* a, const void* b) const = 0;
    /// Number of items; 0 for an object that has no length.
    virtual int Length(const void* object) const = 0;
    /// The item under a key, or at an index, as a new value that the caller owns; null when there is none.
    virtual omu_Primitive* Item(const void* object, const omu_Primitive& key) const = 0;

    /// Makes `ops`, which the caller keeps alive, the ones in use; null takes them out. Returns the former.
    static const omu_PyObjectOps* Install(const omu_PyObjectOps* ops) noexcept;
    /// Null when none are installed.
    static const omu_PyObjectOps* Installed() noexcept;
};
