#pragma once

#include <atr_String.h>
#include <memory>
#include <omu_PyObjectOps.h>

class omu_PrimList;

/// A counted pointer to an object of the scripting language, of which this library knows nothing: what the
/// values that wrap one hold. Over std::shared_ptr; the scripting kernel gives it the deleter that lets the
/// object go, on whichever thread the last copy dies.
///
/// Every question goes to the installed omu_PyObjectOps. Without them, and for a null pointer, the answers
/// are those given here.
class OXU_EXPORT omu_PyObjectHandle
{
public:
    omu_PyObjectHandle() noexcept = default;
    explicit omu_PyObjectHandle(std::shared_ptr<void> object) noexcept : m_Object(std::move(object)) {}

    bool IsNull() const noexcept { return m_Object == nullptr; }
    const std::shared_ptr<void>& Get() const noexcept { return m_Object; }

    /// "scripting object".
    atr_String TypeName() const;
    /// "<scripting object>".
    cow_String Repr() const;
    /// 0.
    int Length() const;
    /// The item under a key, or at an index, as a new value that the caller owns; null.
    omu_Primitive* Item(const omu_Primitive& key) const;
    /// All items by index.
    omu_PrimList AsList() const;

    /// The same object, or equal ones by the operations.
    friend OXU_EXPORT bool operator==(const omu_PyObjectHandle& a, const omu_PyObjectHandle& b);

private:
    /// Null without operations or without an object.
    const omu_PyObjectOps* Ops() const noexcept;

    std::shared_ptr<void> m_Object;
};
