#include <wip_WipReporter.h>

wip_WipReporter::~wip_WipReporter() = default;

void wip_WipReporter::FacilityMessage(const atr_String&, int, int, int, omu_PrimTuple&) {}
