#include <cls_Persistent.h>

cls_Persistent::~cls_Persistent() = default;
