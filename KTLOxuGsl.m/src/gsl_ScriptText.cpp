#include <gsl_Point.h>
#include <gsl_ScriptText.h>
#include <gsl_Vector.h>
#include <omu_PrimTuple.h>

namespace
{
omu_PrimTuple TupleOf(double x, double y, double z)
{
    omu_PrimTuple tuple;
    tuple.Put(x);
    tuple.Put(y);
    tuple.Put(z);
    return tuple;
}

cow_String PairText(const omu_PrimTuple& a, const omu_PrimTuple& b)
{
    omu_PrimTuple pair;
    pair.Put(a);
    pair.Put(b);
    return pair.AsString(0);
}
}

cow_String gsl_ScriptText::Of(const gsl_Point& point)
{
    return TupleOf(point.X(), point.Y(), point.Z()).AsString(0);
}

cow_String gsl_ScriptText::Of(const gsl_Point& point, const gsl_Vector& direction)
{
    return PairText(TupleOf(point.X(), point.Y(), point.Z()),
                    TupleOf(direction.X(), direction.Y(), direction.Z()));
}

cow_String gsl_ScriptText::Of(const gsl_Point& from, const gsl_Point& to)
{
    return PairText(TupleOf(from.X(), from.Y(), from.Z()), TupleOf(to.X(), to.Y(), to.Z()));
}
