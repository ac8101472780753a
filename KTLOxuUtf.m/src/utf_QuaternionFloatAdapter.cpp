#include <utf_QuaternionFloatAdapter.h>

const cls_AdapterBase* utf_QuaternionFloatAdapter::Instance()
{
    static const utf_QuaternionFloatAdapter adapter;
    return &adapter;
}
