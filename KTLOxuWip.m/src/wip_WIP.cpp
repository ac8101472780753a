#include <wip_WIP.h>

wip_WIP::wip_WIP() = default;

wip_WIP::~wip_WIP() = default;
