#include <vwr_PictureError.h>

vwr_PictureError::vwr_PictureError(const std::string& sentence)
    : nex_Exception(atr_String(cow_String(std::string_view(sentence))))
{}

cow_String vwr_PictureError::AsString() const
{
    return Named("vwr_PictureError");
}

void vwr_PictureError::Propagate() const
{
    throw *this;
}

vwr_PictureError* vwr_PictureError::Copy() const
{
    return new vwr_PictureError(*this);
}
