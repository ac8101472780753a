#include <atr_SubstituteFormat.h>
#include <atr_translate.h>
#include <cow_MissingKey.h>
#include <nex_PrimException.h>
#include <nex_RaiseWith.h>

namespace
{
constexpr char NAMED[] = "key '%s' not found";
constexpr char UNNAMED[] = "key not found";
}

void cow_RaiseMissingKey(const cow_String* key)
{
    atr_String message = atr_translate(key ? NAMED : UNNAMED);
    if (key)
        atr_SubstituteFormat(message, 1, *key);
    nex_Raise(nex_PrimException(message), "Base/cow/cow_MissingKey", __LINE__);
}
