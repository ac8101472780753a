#include <atr_String.h>

#include <ostream>

cow_String atr_String::Template() const noexcept
{
    return source_ ? source_->original : cow_String();
}

cow_List<cow_String> atr_String::Arguments() const noexcept
{
    return source_ ? source_->arguments : cow_List<cow_String>();
}

std::ostream& operator<<(std::ostream& out, const atr_String& message)
{
    return out << message.text_;
}
