// What the tests of the Python module need on the other side: commands that hand values back, exceptions of
// the library, values that die on another thread, and one signature read both ways for the benchmark.

#include <bio_DataException.h>
#include <chrono>
#include <functional>
#include <g3d_ColorErrorException.h>
#include <map>
#include <memory>
#include <new>
#include <nex_RangeException.h>
#include <omu_Arguments.h>
#include <omu_CommandTable.h>
#include <omu_OrvNameErrorException.h>
#include <omu_PrimException.h>
#include <omu_PrimExpr.h>
#include <omu_PrimNone.h>
#include <omu_PrimString.h>
#include <omu_PyOrvexException.h>
#include <omu_SymbolicConstantTable.h>
#include <omu_ZeroDivisionErrorException.h>
#include <pybind11/pybind11.h>
#include <stdexcept>
#include <string>
#include <thread>

namespace py = pybind11;

namespace
{
using Result = std::unique_ptr<omu_Primitive>;

// By the class that arrives; some with what sets them apart from others of the class.
const std::map<std::string, std::function<void()>> FAILURES = {
    {"ColorError", [] { throw g3d_ColorErrorException("Reddish"); }},
    {"Error", [] { throw nex_PrimException(atr_String("refused")); }},
    {"IndexError, nex", [] { throw nex_RangeException(7, 3); }},
    {"MementoError", [] { throw bio_DataException::BadBool(5, 7); }},
    {"MemoryError", [] { throw std::bad_alloc(); }},
    {"OrvexError", [] { throw omu_PyOrvexException("plain words"); }},
    {"OrvexNameError", [] { throw omu_OrvNameErrorException(); }},
    {"RuntimeError", [] { throw std::runtime_error("run time"); }},
    {"RuntimeError, int", [] { throw 7; }},
    {"ZeroDivisionError", [] { throw omu_ZeroDivisionErrorException(atr_String("by zero")); }}};

Result kept;

template <class F>
void OnThread(F work)
{
    const py::gil_scoped_release released;
    std::thread(work).join();
}

// So that neither way of reading is optimised away.
struct Five
{
    int count = 0;
    double scale = 1.0;
    std::string name;
    double x = 0.0;
    double y = 0.0;
    std::string type;
} last;

void ReadFive(omu_Arguments& arguments)
{
    static const cow_String COUNT("count");
    static const cow_String SCALE("scale");
    static const cow_String NAME("name");
    static const cow_String POINT("point");
    static const cow_String TYPE("type");
    cow_String name;
    omu_PrimTuple point;
    omu_PrimEnum<omu_PrimNumber::DataTypeEnm, 1> type;
    arguments.Begin();
    arguments.Get(last.count, COUNT);
    arguments.Get(last.scale, SCALE);
    arguments.Get(name, NAME);
    arguments.Get(point, POINT);
    arguments.Get(type, TYPE);
    arguments.End();
    point.Begin();
    point.Get(last.x);
    point.Get(last.y);
    point.End();
}

Result Text(const cow_String& text)
{
    return std::make_unique<omu_PrimString>(text);
}

const std::map<std::string, std::function<Result(omu_Arguments&)>> ANSWERS = {
    {"echo", [](omu_Arguments& a) { return Result(a[0]->Copy()); }},
    {"text", [](omu_Arguments& a) { return Text(a[0]->AsString(0)); }},
    {"callText", [](omu_Arguments& a) { return Text(a.AsString(0)); }},
    {"equal", [](omu_Arguments& a) { return std::make_unique<omu_PrimNumber>(*a[0] == *a[1] ? 1 : 0); }},
    {"expression", [](omu_Arguments& a) { return std::make_unique<omu_PrimExpr>(a[0]->AsString(0)); }},
    {"failure",
     [](omu_Arguments&) { return std::make_unique<omu_PrimException>(omu_PyOrvexException("plain words")); }},
    {"kept", [](omu_Arguments&) { return Result(kept->Copy()); }},
    {"length",
     [](omu_Arguments& a) {
         return std::make_unique<omu_PrimNumber>(dynamic_cast<const omu_PrimSequence&>(*a[0]).Length());
     }},
    {"textOnThread", [](omu_Arguments& a) {
         cow_String text;
         OnThread([&] { text = a[0]->AsString(0); });
         return Text(text);
     }}};

const std::map<std::string, std::function<void(omu_Arguments&)>> ACTS = {
    {"fail", [](omu_Arguments& a) { FAILURES.at(dynamic_cast<const omu_PrimString&>(*a[0]).AsCharPtr())(); }},
    {"keep", [](omu_Arguments& a) { kept.reset(a[0]->Copy()); }},
    {"dropOnThread", [](omu_Arguments&) { OnThread([] { kept.reset(); }); }},
    {"nap",
     [](omu_Arguments&) { OnThread([] { std::this_thread::sleep_for(std::chrono::milliseconds(300)); }); }},
    {"five", &ReadFive}};
}

PYBIND11_MODULE(orvex_testing, module)
{
    const py::module_ orvex = py::module_::import("orvex");
    for (const auto& [name, command] : ANSWERS)
        omu_CommandTable::Instance().Register(
            cow_String(name.c_str()), [run = &command](omu_Arguments& a) { return (*run)(a).release(); });
    for (const auto& [name, command] : ACTS)
        omu_CommandTable::Instance().Register(cow_String(name.c_str()),
                                              [run = &command](omu_Arguments& a) -> omu_Primitive* {
                                                  (*run)(a);
                                                  return nullptr;
                                              });
    py::list failures;
    for (const auto& failure : FAILURES)
        failures.append(failure.first);
    module.attr("FAILURES") = failures;
    module.def("fail", [](const std::string& name) { FAILURES.at(name)(); });
    module.def("add_constant",
               [](const char* name) { omu_SymbolicConstantTable::Instance().AddString(name); });
    module.def(
        "plain_five",
        [](int count, double scale, const std::string& name, const std::pair<double, double>& point,
           const py::object& type) {
            last = {count, scale, name, point.first, point.second, py::str(type.attr("name"))};
        },
        py::arg("count"), py::arg("scale"), py::arg("name"), py::arg("point"), py::arg("type"));
}
