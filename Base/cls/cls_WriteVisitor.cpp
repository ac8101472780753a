#include <cls_WriteVisitor.h>

cls_WriteVisitor::~cls_WriteVisitor() = default;

bool cls_WriteVisitor::AnnounceValue(unsigned typeId) const
{
    return Announce(typeId, cls_Uid::Null());
}
