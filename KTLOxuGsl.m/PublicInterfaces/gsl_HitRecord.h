#pragma once

#include <cow_List.h>
#include <gsl_Point.h>
#include <gsl_Vector.h>

/// What a pick in the view would have reported for a dot, line or plane that was built from the model.
struct gsl_HitRecord
{
    unsigned typeId = 0;     ///< class of the geometry, e.g. gsl_Plane::TypeId()
    int method = 0;          ///< its definition method, as the class's enumeration numbers it
    cow_List<int> parentIds; ///< the model identities picked; of a dot: part instance, then entity
    gsl_Point point;         ///< place of the pick
    gsl_Vector direction;    ///< normal of a plane, direction of a line, zero for a dot
};
