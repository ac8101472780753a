#include <cls_WriteVisitor.h>

cls_WriteVisitor::~cls_WriteVisitor() = default;

bool cls_WriteVisitor::AnnounceValue(unsigned typeId) const
{
    return Announce(typeId, cls_Uid::Null());
}

void cls_WriteVisitor::PutSharedList(const cls_FieldHandle& field, const cls_PrimList& list,
                                     int columns) const
{
    std::visit([&](const auto* values) { PutList(field, SpanOf(*values), columns); }, list);
}
