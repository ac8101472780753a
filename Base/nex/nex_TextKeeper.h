#pragma once

#include <bas_Export.h>
#include <cow_String.h>

#include <atomic>

/// Keeps every distinct text that an exception has handed out as a C string, until the exception dies.
///
/// Beneath: an atomic single-linked list, newest first. A message may change between two calls of
/// what(), because its fields may be filled late; the pointer of the first call stays valid all the
/// same, and two threads may ask one exception at once. Copies begin empty: each exception object owns
/// the texts that it gave out.
class BAS_EXPORT nex_TextKeeper
{
public:
    nex_TextKeeper() noexcept = default;
    nex_TextKeeper(const nex_TextKeeper&) noexcept {}
    nex_TextKeeper& operator=(const nex_TextKeeper&) noexcept { return *this; }
    ~nex_TextKeeper();

    /// The text as a C string that lives as long as this keeper. May throw std::bad_alloc.
    const char* Keep(const cow_String& text);

private:
    struct Node;
    std::atomic<Node*> newest_{nullptr};
};
