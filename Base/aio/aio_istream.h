#pragma once

#include <iosfwd>

/// Stream for text input: std::istream. Declared only; who reads from it includes `<istream>`.
using aio_istream = std::istream;
