#pragma once

#include <iosfwd>

/// Stream for text output: std::ostream. Declared only; who writes to it includes `<ostream>`.
using aio_ostream = std::ostream;
