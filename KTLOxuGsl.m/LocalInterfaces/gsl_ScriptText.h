#pragma once

#include <cow_String.h>

class gsl_Point;
class gsl_Vector;

/// Geometry as the scripting language writes it: tuples of floats.
class gsl_ScriptText
{
public:
    gsl_ScriptText() = delete;

    /// "(1.0, 2.0, 3.0)".
    static cow_String Of(const gsl_Point& point);
    /// "((1.0, 2.0, 3.0), (0.0, 0.0, 1.0))".
    static cow_String Of(const gsl_Point& point, const gsl_Vector& direction);
    static cow_String Of(const gsl_Point& from, const gsl_Point& to);
};
