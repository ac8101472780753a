#pragma once

#include <cls_Persistent.h>
#include <cls_TypeId.h>
#include <oxu_Export.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// A free vector of the 3D view, in single precision, as the view's pipeline holds it.
///
/// A value without an identity: equality is exact, component by component.
class OXU_EXPORT g3d_Vector : public cls_Persistent
{
public:
    static constexpr unsigned TypeId() noexcept { return cls_MakeTypeId(0x24, 1); }
    virtual unsigned DynTypeId() const { return TypeId(); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    /// Frees a body that cow_ handles share.
    static void CowDtor(void* body);

    /// The zero vector.
    g3d_Vector() = default;
    g3d_Vector(float x, float y, float z) : x_(x), y_(y), z_(z) {}
    explicit g3d_Vector(const cls_ReadVisitor& reader);

    void Set(float x, float y, float z) noexcept
    {
        x_ = x;
        y_ = y;
        z_ = z;
    }

    float X() const noexcept { return x_; }
    float Y() const noexcept { return y_; }
    float Z() const noexcept { return z_; }

    virtual void DBWrite(const cls_WriteVisitor& writer) const;

    friend bool operator==(const g3d_Vector& a, const g3d_Vector& b) noexcept
    {
        return a.x_ == b.x_ && a.y_ == b.y_ && a.z_ == b.z_;
    }

private:
    float x_ = 0.0f;
    float y_ = 0.0f;
    float z_ = 0.0f;
};
