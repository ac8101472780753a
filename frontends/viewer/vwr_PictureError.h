#pragma once

#include <nex_Exception.h>

#include <string>

/// A picture that was not made, and why, in one sentence. Where the system refused the file GetCode() is the
/// number of errno, else 0.
///
/// Written and read back as the nex_Exception that it is.
class vwr_PictureError : public nex_Exception
{
public:
    explicit vwr_PictureError(const std::string& sentence);

    cow_String AsString() const override;
    [[noreturn]] void Propagate() const override;
    vwr_PictureError* Copy() const override;
};
