#pragma once

// The members of gsl_Definition, for the one source file that uses an instance.

#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cmath>
#include <gsl_Definition.h>
#include <gsl_HitRecord.h>
#include <gsl_ModelAccess.h>
#include <gsl_Util.h>
#include <omu_PrimEnumCodec.h>

// The traits of a Method are INVALID, DIRECTION (the key under which the direction is stored) and
// `bool IsFree(Method)`.

/// The attributes. Append only: a retired field keeps its place.
template <class Method>
constexpr auto gsl_DefinitionFields()
{
    using D = gsl_Definition<Method>;
    return cls_Fields(cls_Field{"_ok", &D::ok}, cls_Field{"_point", &D::point},
                      cls_Field{gsl_DefinitionTraits<Method>::DIRECTION, &D::direction},
                      cls_Field{"_method", &D::method}, cls_Field{"_flip", &D::flip},
                      cls_Field{"parent_ids", &D::parentIds}, cls_Field{"owner_feat_id", &D::ownerFeatId});
}

template <class Method>
gsl_Definition<Method>::gsl_Definition() : method(Traits::INVALID)
{}

template <class Method>
gsl_Definition<Method>::gsl_Definition(const gsl_Point& place, const gsl_Vector& way, Method definedBy)
    : method(definedBy)
{
    Place(place, way);
}

template <class Method>
gsl_Definition<Method>::gsl_Definition(const cls_ReadVisitor& reader) : gsl_Definition()
{
    gsl_DefinitionFields<Method>().Read(reader, *this);
    // A unit vector, within the tolerance, keeps its bits.
    const double length = direction.Vector().Magnitude();
    if (!(std::abs(length - 1.0) <= gsl_Util::Instance().LinearTolerance()))
    {
        // Not-a-number and infinity pass the test of Normalize, but have no direction either.
        gsl_Vector unit = direction.Vector();
        const bool good = std::isfinite(length) && unit.Normalize();
        direction.SetVector(good ? unit : gsl_Vector());
        ok = ok && good;
    }
    if (!ok || method == Traits::INVALID)
    {
        Invalidate();
    }
}

template <class Method>
void gsl_Definition<Method>::Place(const gsl_Point& place, const gsl_Vector& way)
{
    gsl_Vector unit = way;
    point = place;
    if (!unit.Normalize())
    {
        unit = gsl_Vector();
        method = Traits::INVALID;
    }
    ok = method != Traits::INVALID;
    direction.SetVector(unit);
}

template <class Method>
void gsl_Definition<Method>::SetParents(Method definedBy, const cow_List<int>& ids, bool reversed)
{
    parentIds = ids;
    flip = reversed;
    method = direction.Vector().CachedMagnitude() > 0.0 ? definedBy : Traits::INVALID;
    ok = method != Traits::INVALID;
}

template <class Method>
void gsl_Definition<Method>::Invalidate() noexcept
{
    ok = false;
    method = Traits::INVALID;
}

template <class Method>
bool gsl_Definition<Method>::Regenerate(bool (gsl_ModelAccess::*find)(Method, const cow_List<int>&,
                                                                      gsl_Point&, gsl_Vector&) const)
{
    gsl_Point place;
    gsl_Vector way;
    const gsl_ModelAccess* model = gsl_ModelAccess::Current();
    if (method == Traits::INVALID || model == nullptr || !(model->*find)(method, parentIds, place, way) ||
        !way.Normalize())
    {
        Invalidate();
        return false;
    }
    if (flip)
    {
        way.Negate();
    }
    Place(place, way);
    return true;
}

template <class Method>
bool gsl_Definition<Method>::IsFree() const noexcept
{
    return Traits::IsFree(method);
}

template <class Method>
bool gsl_Definition<Method>::CreateHitRecord(unsigned typeId, const gsl_Point& at, gsl_HitRecord& out) const
{
    if (!ok || IsFree())
    {
        return false;
    }
    out = gsl_HitRecord{typeId, static_cast<int>(method), parentIds, at, direction.Vector()};
    return true;
}

template <class Method>
void gsl_Definition<Method>::Declare(cls_ClassMetadata& meta)
{
    gsl_DefinitionFields<Method>().Declare(meta);
}

template <class Method>
void gsl_Definition<Method>::DBWrite(const cls_WriteVisitor& writer) const
{
    gsl_DefinitionFields<Method>().Write(writer, *this);
}
