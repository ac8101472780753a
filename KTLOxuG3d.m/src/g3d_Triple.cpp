#include <cls_ClassRegistrar.h>
#include <cls_Fields.h>
#include <cls_TypeAdapter.h>
#include <g3d_Point.h>
#include <g3d_Vector.h>

namespace
{
constexpr unsigned LAYOUT_RELEASE = 203;
}

template <class Self>
constexpr auto g3d_Triple<Self>::Fields()
{
    return cls_Fields(cls_Field{"x", &g3d_Triple::x_}, cls_Field{"y", &g3d_Triple::y_},
                      cls_Field{"z", &g3d_Triple::z_});
}

template <class Self>
void g3d_Triple<Self>::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta = registrar.Create(Self::NAME, Self::TypeId(), LAYOUT_RELEASE,
                                               cls_TypeAdapter<Self>::Instance(), cls_UniversalRoot);
    Fields().Declare(meta);
    meta.AddDtor(&CowDtor);
}

template <class Self>
void g3d_Triple<Self>::CowDtor(void* body)
{
    delete static_cast<Self*>(body);
}

template <class Self>
g3d_Triple<Self>::g3d_Triple(const cls_ReadVisitor& reader)
{
    Fields().Read(reader, *this);
}

template <class Self>
void g3d_Triple<Self>::DBWrite(const cls_WriteVisitor& writer) const
{
    if (writer.AnnounceValue(Self::TypeId()))
        Fields().Write(writer, *this);
}

template class g3d_Triple<g3d_Point>;
template class g3d_Triple<g3d_Vector>;
