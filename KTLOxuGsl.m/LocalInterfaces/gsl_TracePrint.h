#pragma once

#include <cstdio>
#include <initializer_list>
#include <variant>

/// What a "%d", "%lf" or "%s" of gsl_TracePrint stands for.
using gsl_TraceValue = std::variant<int, double, const char*>;

/// fprintf for "%d", "%lf" and "%s" alone, the same bytes in every locale: six decimals behind a point.
/// REQUIRES: as many values as placeholders, each of its kind.
void gsl_TracePrint(FILE* stream, const char* format, std::initializer_list<gsl_TraceValue> values);
