#pragma once

#include <cls_TypeAdapter.h>
#include <oxu_Export.h>
#include <utf_Quaternion.h>

/// What the metadata of a class of utf_Quaternion<double> names as its adapter: makes one from a reader.
class OXU_EXPORT utf_QuaternionDoubleAdapter final : public cls_TypeAdapter<utf_Quaternion<double>>
{
public:
    /// One for the process.
    static const cls_AdapterBase* Instance();
};
