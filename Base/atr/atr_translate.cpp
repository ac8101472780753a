#include <atr_Catalogue.h>
#include <atr_Format.h>
#include <atr_translate.h>

atr_String atr_translate(const char* messageTemplate)
{
    atr_String::Source source;
    source.original = messageTemplate;
    const atr_Catalogue* catalogue = atr_InstalledCatalogue();
    if (!catalogue || !catalogue->Lookup(source.original, source.format))
        source.format = source.original;

    atr_String message;
    message.text_ = atr_Format(source.format, source.arguments);
    message.source_ = cow_Shared<atr_String::Source>(std::move(source));
    return message;
}
