#include <cls_ObjectSink.h>

cls_ObjectSink::~cls_ObjectSink() = default;
