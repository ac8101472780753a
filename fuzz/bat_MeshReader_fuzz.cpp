// Whatever bytes come in, the mesh readers answer with finite triangles that the bytes can hold, or refuse.

#include <bat_MeshError.h>
#include <bat_MeshReader.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace
{
void Require(bool condition)
{
    if (!condition)
    {
        std::abort();
    }
}
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    try
    {
        const bat_TriangleMesh mesh = bat_ParseMesh(bytes, "input");
        // The shortest way to a triangle is one more corner, "1 ", of a polygon.
        Require(!mesh.IsEmpty() && mesh.Length() <= size / 2);
        for (const double coordinate : mesh.Coordinates())
        {
            Require(std::isfinite(coordinate));
        }
    }
    catch (const bat_MeshError& error)
    {
        Require(!error.Reason().empty() && error.File() == "input");
        for (const char* c = error.what(); *c; ++c)
        {
            Require(*c >= ' ' && *c <= '~');
        }
    }
    return 0;
}
