#include <pybind11/pybind11.h>
#include <scr_Array.h>
#include <scr_Call.h>
#include <scr_Constants.h>
#include <scr_Exceptions.h>
#include <scr_Files.h>
#include <scr_Library.h>
#include <scr_MeshHealth.h>
#include <scr_Names.h>
#include <scr_Object.h>
#include <scr_PlainValues.h>
#include <scr_Travel.h>

PYBIND11_MODULE(_orvex, module)
{
    module.doc() = "The compiled part of orvex.";
    module.attr("__version__") = ORVEX_VERSION;
    scr_RegisterExceptions(module);
    scr_RegisterConstants(module);
    scr_RegisterArray(module);
    scr_RegisterPlainValues(module);
    scr_RegisterCall(module);
    scr_RegisterObject(module);
    scr_RegisterNames(module);
    scr_RegisterTravel(module);
    scr_RegisterMeshHealth(module);
    scr_RegisterFiles(module);
    scr_Library::Start();
    scr_Library::StopAtExit();
}
