#pragma once

#include <gsl_Dot.h>
#include <oxu_Export.h>

/// The straight piece between two picked points.
class OXU_EXPORT gsl_ModelSegment : public cls_Persistent
{
public:
    static constexpr unsigned TypeId() noexcept { return cls_MakeTypeId(0x30A, 11); }
    virtual unsigned DynTypeId() const { return TypeId(); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);
    /// Destructor hook of the metadata: deletes a gsl_ModelSegment made by new.
    static void CowDtor(void* body);

    /// Between two invalid dots.
    gsl_ModelSegment() = default;
    gsl_ModelSegment(const gsl_Dot& point1, const gsl_Dot& point2) : point1_(point1), point2_(point2) {}
    explicit gsl_ModelSegment(const cls_ReadVisitor& reader);

    /// Regenerates both dots, also the second when the first fails. false when either did.
    [[nodiscard]] bool Regenerate();

    const gsl_Dot& Point1() const noexcept { return point1_; }
    const gsl_Dot& Point2() const noexcept { return point2_; }
    /// Unit vector from the first dot to the second, zero when they are within gsl_Util's linear tolerance.
    gsl_Vector Direction() const;
    double Length() const noexcept { return point1_.GetPoint().GetDistance(point2_.GetPoint()); }

    virtual void DBWrite(const cls_WriteVisitor& writer) const;

private:
    static constexpr auto Fields();

    gsl_Dot point1_;
    gsl_Dot point2_;
    cls_Uid uid_;
};
