#include <atr_SubstituteFormat.h>
#include <atr_translate.h>
#include <bio_DataException.h>

#include <string>

namespace
{
atr_String Filled(const char* messageTemplate, const std::string& first, const std::string& second)
{
    atr_String message = atr_translate(messageTemplate);
    // As text: positions may be wider than the facility's numbers.
    atr_SubstituteFormat(message, 1, first.c_str());
    atr_SubstituteFormat(message, 2, second.c_str());
    return message;
}
}

bio_DataException bio_DataException::EndOfData(std::size_t position, std::size_t missing)
{
    return bio_DataException(
        Filled("data ends at byte %d, %d more needed", std::to_string(position), std::to_string(missing)),
        position, missing);
}

bio_DataException bio_DataException::BadLength(std::size_t position, int length)
{
    return bio_DataException(
        Filled("length %d at byte %d is not possible", std::to_string(length), std::to_string(position)),
        position, 0);
}

bio_DataException bio_DataException::BadBool(std::size_t position, int value)
{
    return bio_DataException(
        Filled("bool %d at byte %d is neither 0 nor 1", std::to_string(value), std::to_string(position)),
        position, 0);
}

bio_DataException::bio_DataException(const atr_String& message, std::size_t position, std::size_t missing)
    : nex_PrimException(message), position_(position), missing_(missing)
{}
bio_DataException::bio_DataException(const bio_DataException&) = default;
bio_DataException& bio_DataException::operator=(const bio_DataException&) = default;
bio_DataException::~bio_DataException() = default;

cow_String bio_DataException::AsString() const
{
    return Named("bio_DataException");
}

void bio_DataException::Propagate() const
{
    throw *this;
}

bio_DataException* bio_DataException::Copy() const
{
    return new bio_DataException(*this);
}
