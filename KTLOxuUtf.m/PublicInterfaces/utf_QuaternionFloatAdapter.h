#pragma once

#include <cls_TypeAdapter.h>
#include <oxu_Export.h>
#include <utf_Quaternion.h>

/// What the metadata of a class of utf_Quaternion<float> names as its adapter: makes one from a reader.
class OXU_EXPORT utf_QuaternionFloatAdapter final : public cls_TypeAdapter<utf_Quaternion<float>>
{
public:
    /// One for the process.
    static const cls_AdapterBase* Instance();
};
