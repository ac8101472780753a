#include <gsl_Point.h>
#include <gsl_ScriptText.h>
#include <gsl_Vector.h>
#include <omu_PrimTuple.h>

namespace
{
template <class T>
omu_PrimTuple TupleOf(const T& t)
{
    omu_PrimTuple tuple;
    tuple.Put(t.X());
    tuple.Put(t.Y());
    tuple.Put(t.Z());
    return tuple;
}

template <class T, class U>
cow_String PairText(const T& a, const U& b)
{
    omu_PrimTuple pair;
    pair.Put(TupleOf(a));
    pair.Put(TupleOf(b));
    return pair.AsString(0);
}
}

cow_String gsl_ScriptText::Of(const gsl_Point& point)
{
    return TupleOf(point).AsString(0);
}

cow_String gsl_ScriptText::Of(const gsl_Point& point, const gsl_Vector& direction)
{
    return PairText(point, direction);
}

cow_String gsl_ScriptText::Of(const gsl_Point& from, const gsl_Point& to)
{
    return PairText(from, to);
}
