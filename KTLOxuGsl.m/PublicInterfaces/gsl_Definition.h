#pragma once

#include <cow_List.h>
#include <gsl_PersistentVector.h>
#include <gsl_Point.h>

class cls_ClassMetadata;
class cls_ReadVisitor;
class cls_WriteVisitor;
class gsl_ModelAccess;
struct gsl_HitRecord;

/// Specialised for each Method by the one source file that uses it; see gsl_DefinitionBody.h.
template <class Method>
struct gsl_DefinitionTraits;

/// Where a plane or a line lies and how it was defined; Method is the enumeration of its definition methods.
///
/// A direction shorter than gsl_Util's linear tolerance is none: what has none is not ok, its method is the
/// invalid one and its direction zero. What Regenerate() refused is not ok either but keeps its last place.
template <class Method>
struct gsl_Definition
{
    using Traits = gsl_DefinitionTraits<Method>;

    bool ok = false;
    gsl_Point point;
    gsl_PersistentVector direction; ///< unit, zero when there is none; a plane's normal
    Method method;
    bool flip = false;       ///< the direction is the reverse of the defining entity's
    cow_List<int> parentIds; ///< the model entities from which it was built
    int ownerFeatId = 0;     ///< 0 when no feature owns it

    /// Not ok, at the origin.
    gsl_Definition();
    gsl_Definition(const gsl_Point& place, const gsl_Vector& way, Method definedBy);
    /// A stored direction that is no unit vector is made one; without a direction the rest is not ok.
    explicit gsl_Definition(const cls_ReadVisitor& reader);

    /// Takes over place and direction, normalised.
    void Place(const gsl_Point& place, const gsl_Vector& way);
    /// What the SetParents of planes and lines do.
    void SetParents(Method definedBy, const cow_List<int>& ids, bool reversed);
    void Invalidate() noexcept;
    /// Places it anew by that look-up of gsl_ModelAccess. Without a hook, or when it refuses: false, not ok.
    [[nodiscard]] bool Regenerate(bool (gsl_ModelAccess::*find)(Method, const cow_List<int>&, gsl_Point&,
                                                                gsl_Vector&) const);

    /// Defined by points and vectors alone: there is nothing in the model to ask.
    bool IsFree() const noexcept;
    /// false, and out unchanged, when it is not ok or was not picked on the model.
    [[nodiscard]] bool CreateHitRecord(unsigned typeId, const gsl_Point& at, gsl_HitRecord& out) const;

    /// The persistent attributes of the class that has this one.
    static void Declare(cls_ClassMetadata& meta);
    void DBWrite(const cls_WriteVisitor& writer) const;
};
