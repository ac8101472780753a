#include <utf_QuaternionDoubleAdapter.h>

const cls_AdapterBase* utf_QuaternionDoubleAdapter::Instance()
{
    static const utf_QuaternionDoubleAdapter adapter;
    return &adapter;
}
