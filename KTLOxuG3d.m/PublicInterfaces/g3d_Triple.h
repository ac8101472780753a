#pragma once

#include <cls_Persistent.h>
#include <cls_TypeId.h>
#include <oxu_Export.h>

class cls_ClassRegistrar;
class cls_ReadVisitor;
class cls_WriteVisitor;

/// What g3d_Point and g3d_Vector share: three numbers in single precision, as the view's pipeline holds them.
///
/// Self is the class that derives from it. A value without an identity: equality is exact, component by
/// component.
template <class Self>
class OXU_EXPORT g3d_Triple : public cls_Persistent
{
public:
    virtual unsigned DynTypeId() const { return Self::TypeId(); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    /// Frees a body that cow_ handles share.
    static void CowDtor(void* body);

    /// All zero.
    g3d_Triple() = default;
    g3d_Triple(float x, float y, float z) : x_(x), y_(y), z_(z) {}
    explicit g3d_Triple(const cls_ReadVisitor& reader);

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

    friend bool operator==(const Self& a, const Self& b) noexcept
    {
        return a.X() == b.X() && a.Y() == b.Y() && a.Z() == b.Z();
    }

private:
    static constexpr auto Fields();

    float x_ = 0.0f;
    float y_ = 0.0f;
    float z_ = 0.0f;
};
