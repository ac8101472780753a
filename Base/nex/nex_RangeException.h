#pragma once

#include <nex_Exception.h>

/// An index outside a container: "index %d out of range, length %d".
///
/// Has no type id of its own: it is written, and read back, as the nex_Exception that it is.
class BAS_EXPORT nex_RangeException : public nex_Exception
{
public:
    nex_RangeException(long long index, long long length);
    nex_RangeException(const nex_RangeException&);
    nex_RangeException& operator=(const nex_RangeException&);
    ~nex_RangeException() override;

    cow_String AsString() const override;
    [[noreturn]] void Propagate() const override;
    nex_RangeException* Copy() const override;

    long long Index() const { return index_; }
    long long Length() const { return length_; }

private:
    long long index_;
    long long length_;
};
