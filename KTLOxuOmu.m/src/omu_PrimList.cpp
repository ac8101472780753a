#include <algorithm>
#include <cls_ClassRegistrar.h>
#include <cls_ReadVisitor.h>
#include <cls_TypeAdapter.h>
#include <cls_WriteVisitor.h>
#include <nex_RaiseWith.h>
#include <omu_OverflowErrorException.h>
#include <omu_PrimList.h>
#include <omu_PrimVisitor.h>
#include <oxu_FormatMessage.h>

namespace
{
constexpr const char* SOURCE = "KTLOxuOmu.m/src/omu_PrimList";
constexpr const char* INDEX_RETURNED_NULL = "List Index returned NULL";
constexpr const char* TOO_LONG = "repeated list is too long";
constexpr const char* FULL = "list is full; maximum size is %d";
// Stored order: append only. A retired field keeps its index.
enum Field { MAX_SIZE };
constexpr cls_FieldHandle FIELDS[] = {{MAX_SIZE, "maxSize"}};
constexpr unsigned LAYOUT_RELEASE = 800;
}

void omu_PrimList::InitializeMetadata(cls_ClassRegistrar& registrar)
{
    cls_ClassMetadata& meta =
        registrar.Create("omu_PrimList", TypeId(), LAYOUT_RELEASE, cls_TypeAdapter<omu_PrimList>::Instance(),
                         omu_PrimTuple::TypeId());
    meta.AddAttribute(FIELDS[MAX_SIZE], cls_AttributeType::INT, cls_UniversalRoot,
                      cls_CollectionType::SINGLE);
}

omu_PrimList::omu_PrimList(int count, int maxSize, char kind)
    : omu_PrimTuple(maxSize > 0 ? std::min(count, maxSize) : count, kind), m_MaxSize(maxSize)
{}

omu_PrimList::omu_PrimList(const cls_ReadVisitor& reader) : omu_PrimTuple(reader.BaseReader())
{
    reader.ReadInt(FIELDS[MAX_SIZE], m_MaxSize);
    omu_PrimList::RequireRoom(Length());
}

omu_PrimList* omu_PrimList::Slice(int from, int to) const
{
    auto slice = std::make_unique<omu_PrimList>();
    SliceInto(*slice, from, to, {INDEX_RETURNED_NULL, TOO_LONG, SOURCE, __LINE__});
    return slice.release();
}

omu_PrimList* omu_PrimList::Repeat(int count) const
{
    auto repeated = std::make_unique<omu_PrimList>();
    RepeatInto(*repeated, count, {INDEX_RETURNED_NULL, TOO_LONG, SOURCE, __LINE__});
    return repeated.release();
}

omu_PrimList* omu_PrimList::Concat(const omu_PrimSequence* other) const
{
    auto joined = std::make_unique<omu_PrimList>();
    ConcatInto(*joined, other, {INDEX_RETURNED_NULL, TOO_LONG, SOURCE, __LINE__});
    return joined.release();
}

atr_String omu_PrimList::TypeString() const
{
    return "list";
}

cow_String omu_PrimList::AsString(int) const
{
    return Joined('[', ']', false);
}

void omu_PrimList::Accept(omu_PrimVisitor* visitor)
{
    visitor->VisitList(*this);
}

omu_PrimList* omu_PrimList::Copy() const
{
    return new omu_PrimList(*this);
}

unsigned omu_PrimList::DynTypeId() const
{
    return TypeId();
}

void omu_PrimList::DBWrite(const cls_WriteVisitor& writer) const
{
    if (!writer.Announce(TypeId(), Uid()))
        return;
    omu_PrimTuple::DBWrite(writer.BaseWriter());
    writer.WriteInt(FIELDS[MAX_SIZE], m_MaxSize);
}

void omu_PrimList::RequireRoom(int length) const
{
    if (m_MaxSize > 0 && length > m_MaxSize)
        nex_Raise(omu_OverflowErrorException(oxu_FormatMessage(FULL, m_MaxSize)), SOURCE, __LINE__);
}
