#include <cls_ReadVisitor.h>

cls_ReadVisitor::~cls_ReadVisitor() = default;
