// A small application for Python: it registers a root and a command, of which the module `orvex` knows
// nothing.
//
// An application's own plug-in looks the same: a shared library that links KTLOxuGeom::KTLOxuGeom, puts its
// roots and commands into the command table, and is loaded once `orvex` is. That makes orvex.mdb and
// orvex.Model(name=...) answer. What stands behind them is in tests/testing/SampleRepository.h: models with
// parts, a dictionary, a sequence.

#include <pybind11/pybind11.h>
#include <testing/SampleRepository.h>

PYBIND11_MODULE(orvex_sample, module)
{
    module.doc() = "A sample application: importing it registers the root mdb and the command Model.";
    // Starts the library, whose command table this is.
    pybind11::module_::import("orvex");
    const auto install = [] { sample::Install(omu_CommandTable::Instance(), sample::NewDatabase()); };
    install();
    module.def("reset", install, "Starts over with a fresh database; handles on the former one are stale.");
}
