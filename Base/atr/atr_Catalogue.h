#pragma once

#include <bas_Export.h>
#include <cow_String.h>

/// Where atr_translate looks templates up: derive, install, and keep it alive while it is installed.
class BAS_EXPORT atr_Catalogue
{
public:
    virtual ~atr_Catalogue();

    /// Puts the translation of a template into `translation` and answers true; false leaves it alone and
    /// the template is used as written. May be called from several threads at once.
    virtual bool Lookup(const cow_String& messageTemplate, cow_String& translation) const = 0;
};

/// Makes this catalogue the one in force, null for none; gives back the former one. Not owned. Messages
/// made before keep their text.
BAS_EXPORT const atr_Catalogue* atr_InstallCatalogue(const atr_Catalogue* catalogue) noexcept;

/// The catalogue in force, null for none.
BAS_EXPORT const atr_Catalogue* atr_InstalledCatalogue() noexcept;
