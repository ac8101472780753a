#include <atr_SubstituteFormat.h>
#include <atr_translate.h>
#include <cls_AdapterBase.h>
#include <cls_MetadataRegistrar.h>
#include <nex_PrimException.h>
#include <nex_RaiseWith.h>

cls_AdapterBase::~cls_AdapterBase() = default;

void cls_AdapterBase::RaiseAbstract(unsigned typeId)
{
    atr_String message = atr_translate("cls_AbsTypeAdapter: class %s is abstract and cannot be created");
    atr_SubstituteFormat(message, 1, cls_MetadataRegistrar::Instance().Registrar().NameOf(typeId));
    nex_Raise(nex_PrimException(message), "Base/cls/cls_AbsTypeAdapter", __LINE__);
}
