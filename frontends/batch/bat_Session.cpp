#include <KTLOxuGeom.h>
#include <bat_Session.h>
#include <wip_WIP.h>

bat_Session::bat_Session(wip_WipReporter& reporter) : reporter_(reporter)
{
    KTLOxuGeom_initialize(running_);
    wip_WIP::Instance().SetWipReporter(&reporter_);
}

bat_Session::~bat_Session()
{
    wip_WIP::Instance().RemoveWipReporter(&reporter_);
    KTLOxuGeom_finalize(running_);
}
