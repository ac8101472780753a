#include <KTLOxuGeom.h>
#include <cstdio>
#include <gsl_Triangle.h>
#include <omu_PrimNumber.h>

int main()
{
    int running = 0;
    KTLOxuGeom_initialize(running);
    const double area = gsl_Triangle({0, 0, 0}, {2, 0, 0}, {0, 2, 0}).Area();
    std::printf("area %s, %d running\n", omu_PrimNumber(area).AsRepr().AsCharPtr(), running);
    KTLOxuGeom_finalize(running);
    return area == 2.0 && running == 0 ? 0 : 1;
}
