#include <scr_ValueReader.h>
#include <scr_ValueWriter.h>
#include <scr_Values.h>

std::unique_ptr<omu_Primitive> scr_Values::FromPython(PyObject* object)
{
    return scr_ValueReader().Read(object);
}

void scr_Values::Append(omu_PrimTuple& sequence, PyObject* object)
{
    scr_ValueReader().Append(sequence, object);
}

pybind11::object scr_Values::ToPython(const omu_Primitive* value)
{
    scr_ValueWriter writer;
    return writer.Write(value);
}

pybind11::object scr_Values::ToPython(std::unique_ptr<omu_Primitive> value)
{
    scr_ValueWriter writer;
    return writer.Write(std::move(value));
}
