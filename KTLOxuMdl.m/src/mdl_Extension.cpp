#include <cls_AbsTypeAdapter.h>
#include <cls_ClassMetadata.h>
#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_WriteVisitor.h>
#include <mdl_Extension.h>

namespace
{
constexpr unsigned LAYOUT_RELEASE = 401;

void Free(void* body)
{
    delete static_cast<mdl_Extension*>(body);
}
}

void mdl_Extension::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    registrar
        .Create("mdl_Extension", TypeId(), LAYOUT_RELEASE, cls_AbsTypeAdapter<mdl_Extension>::Instance(),
                cls_UniversalRoot)
        .AddDtor(&Free);
}

mdl_Extension::mdl_Extension(const cls_ReadVisitor& reader) : uid_(reader.Uid()) {}

mdl_Extension* mdl_Extension::GetValue()
{
    return this;
}

const mdl_Extension* mdl_Extension::ConstGetValue() const
{
    return this;
}

unsigned mdl_Extension::DynTypeId() const
{
    return TypeId();
}

void mdl_Extension::DBWrite(const cls_WriteVisitor& writer) const
{
    static_cast<void>(writer.Announce(TypeId(), uid_));
}

void mdl_Extension::NewUid()
{
    uid_ = cls_Uid();
}
