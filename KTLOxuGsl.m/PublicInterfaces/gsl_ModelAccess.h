#pragma once

#include <cow_List.h>
#include <omi_Singleton.h>
#include <oxu_Export.h>

enum class gsl_DirMethod;
enum class gsl_DotMethod;
enum class gsl_LineMethod;
class gsl_Point;
class gsl_Vector;

/// The process's way to the model: recomputes geometry from the identities on which it was once picked.
///
/// There is none until an application derives from this class and makes an object, which becomes the hook;
/// the object made last wins. When the hook's object dies there is none again. An answer of false means that
/// the model no longer holds what was picked; outputs are then ignored. Directions may have any length but
/// zero. An exception passes through to the caller and leaves the asking object as it was.
class OXU_EXPORT gsl_ModelAccess : public omi_Singleton<gsl_ModelAccess>
{
public:
    /// Makes this object the hook.
    gsl_ModelAccess();
    virtual ~gsl_ModelAccess();

    /// The hook; null when there is none.
    static const gsl_ModelAccess* Current();

    /// A point on the plane and its normal, as the entity has it: a flipped plane reverses it itself.
    [[nodiscard]] virtual bool FindPlane(gsl_DirMethod method, const cow_List<int>& parentIds,
                                         gsl_Point& point, gsl_Vector& normal) const = 0;
    /// A point on the line and its direction, as the entity has it: a flipped line reverses it itself.
    [[nodiscard]] virtual bool FindLine(gsl_LineMethod method, const cow_List<int>& parentIds,
                                        gsl_Point& point, gsl_Vector& direction) const = 0;
    /// The place of a dot; geometryData are the parameters that were set on it.
    [[nodiscard]] virtual bool FindDot(gsl_DotMethod method, int instanceId, int entityId,
                                       const cow_List<double>& geometryData, gsl_Point& point) const = 0;
    /// Identity of the feature that owns the entity; 0 when it has none.
    virtual int FindOwner(int instanceId, int entityId) const;
};
