#pragma once

#include <nex_Exception.h>

/// A promise inside the system was broken; nothing that a user did wrong.
///
/// Has no type id of its own: it is written, and read back, as the nex_Exception that it is.
class BAS_EXPORT nex_InternalException : public nex_Exception
{
public:
    explicit nex_InternalException(const atr_String& message);
    nex_InternalException(const nex_InternalException&);
    nex_InternalException& operator=(const nex_InternalException&);
    ~nex_InternalException() override;

    cow_String AsString() const override;
    [[noreturn]] void Propagate() const override;
    nex_InternalException* Copy() const override;
};
