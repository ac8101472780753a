#pragma once

#include <aio_ostream.h>

/// Manipulator of the Print operations: that many blanks, none for a negative count.
struct gsl_Indent
{
    explicit gsl_Indent(int blanks) : count(blanks) {}

    int count;
};

aio_ostream& operator<<(aio_ostream& stream, const gsl_Indent& indent);
