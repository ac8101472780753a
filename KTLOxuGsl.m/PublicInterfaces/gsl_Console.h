#pragma once

#include <aio_istream.h>
#include <aio_ostream.h>
#include <oxu_Export.h>

/// How much the geometry tells a person at a console, and where: from level 2 on gsl_WaitForCR prompts. Level
/// 0 and the standard error stream from the start; a null printer gives that stream again. The printer is
/// looked at, not owned.
OXU_EXPORT void gsl_SetDebug(int level, aio_ostream* printer);

/// Prompts for the return key, where the debug level asks for it, and reads up to and including the end of
/// the line, or to the end of the stream.
OXU_EXPORT void gsl_WaitForCR(aio_istream& stream);

/// Reads up to and including the end of the line, or to the end of the stream.
OXU_EXPORT void gsl_EatToEnd(aio_istream& stream);
