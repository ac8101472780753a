#include <scr_ConstantTable.h>
#include <scr_Constants.h>

void scr_ConstantTable::CreatePythonSymbolicConstant(cow_String name, int)
{
    const pybind11::gil_scoped_acquire locked;
    scr_Constants::Make(name);
}
