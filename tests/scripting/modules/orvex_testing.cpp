// What the tests of the Python module need on the other side: commands that hand values back, every exception
// of the library, values that die on another thread, and one signature read both ways for the benchmark.

#include <bio_DataException.h>
#include <chrono>
#include <functional>
#include <g3d_ColorErrorException.h>
#include <map>
#include <memory>
#include <new>
#include <nex_InternalException.h>
#include <nex_RangeException.h>
#include <omu_AccessErrorException.h>
#include <omu_ArgNumberErrorException.h>
#include <omu_ArgTypeErrorException.h>
#include <omu_Arguments.h>
#include <omu_AttributeErrorException.h>
#include <omu_CommandTable.h>
#include <omu_FontErrorException.h>
#include <omu_GenericTypeErrorException.h>
#include <omu_GuiAccessErrorException.h>
#include <omu_IndexErrorException.h>
#include <omu_KeyErrorException.h>
#include <omu_KeywordErrorException.h>
#include <omu_KeywordTypeErrorException.h>
#include <omu_NameErrorException.h>
#include <omu_OrvNameErrorException.h>
#include <omu_OverflowErrorException.h>
#include <omu_PrimException.h>
#include <omu_PrimExpr.h>
#include <omu_PrimNone.h>
#include <omu_PrimString.h>
#include <omu_PyOrvexException.h>
#include <omu_RangeErrorException.h>
#include <omu_SymbolicConstantData.h>
#include <omu_SymbolicConstantTable.h>
#include <omu_ValueErrorException.h>
#include <omu_ZeroDivisionErrorException.h>
#include <pybind11/pybind11.h>
#include <stdexcept>
#include <string>
#include <thread>

namespace py = pybind11;

namespace
{
using Result = std::unique_ptr<omu_Primitive>;

template <class E>
[[noreturn]] void Raise(const std::function<void(E&)>& fill)
{
    E exception;
    fill(exception);
    throw exception;
}

[[noreturn]] void RaiseArgType()
{
    Raise<omu_ArgTypeErrorException>([](auto& e) {
        e.m_ArgNum = 2;
        e.m_Expecting = "float";
        e.m_Found = "string";
        e.m_NestingStr = "s.f";
    });
}

[[noreturn]] void RaiseKeywordType()
{
    Raise<omu_KeywordTypeErrorException>([](auto& e) {
        e.m_Keyword = "width";
        e.m_Expecting = "float";
        e.m_Found = "string";
    });
}

[[noreturn]] void RaiseRange()
{
    Raise<omu_RangeErrorException>([](auto& e) {
        e.m_Keyword = "n";
        e.m_KeywordType = 1;
        e.SetLowerLimitAsInt(1);
        e.m_LowerLimitQualifier = 1;
    });
}

// Every class, by its name.
const std::map<std::string, std::function<void()>> FAILURES = {
    {"omu_AccessErrorException", [] { throw omu_AccessErrorException("mdb.models['M']"); }},
    {"omu_ArgNumberErrorException",
     [] {
         Raise<omu_ArgNumberErrorException>([](auto& e) {
             e.m_Expecting = 1;
             e.m_Found = 4;
         });
     }},
    {"omu_ArgTypeErrorException", &RaiseArgType},
    {"omu_AttributeErrorException",
     [] {
         Raise<omu_AttributeErrorException>([](auto& e) {
             e.m_ErrorType = 1;
             e.m_Attribute = "name";
         });
     }},
    {"g3d_ColorErrorException", [] { throw g3d_ColorErrorException("Reddish"); }},
    {"omu_FontErrorException", [] { throw omu_FontErrorException("Courier"); }},
    {"omu_GenericTypeErrorException", [] { throw omu_GenericTypeErrorException(); }},
    {"omu_GuiAccessErrorException", [] { throw omu_GuiAccessErrorException("highlight"); }},
    {"omu_IndexErrorException", [] { throw omu_IndexErrorException(-1); }},
    {"omu_KeyErrorException", [] { throw omu_KeyErrorException("P'1"); }},
    {"omu_KeywordErrorException",
     [] { Raise<omu_KeywordErrorException>([](auto& e) { e.m_Keyword = "widht"; }); }},
    {"omu_KeywordTypeErrorException", &RaiseKeywordType},
    {"omu_NameErrorException", [] { throw omu_NameErrorException(atr_String("no such name")); }},
    {"omu_OrvNameErrorException", [] { Raise<omu_OrvNameErrorException>([](auto& e) { e.m_Error = 2; }); }},
    {"omu_OverflowErrorException", [] { throw omu_OverflowErrorException(atr_String("too much")); }},
    {"omu_PyOrvexException", [] { throw omu_PyOrvexException("plain words"); }},
    {"omu_RangeErrorException", &RaiseRange},
    {"omu_ValueErrorException", [] { throw omu_ValueErrorException(atr_String("not allowed")); }},
    {"omu_ZeroDivisionErrorException", [] { throw omu_ZeroDivisionErrorException(atr_String("by zero")); }},
    {"nex_PrimException", [] { throw nex_PrimException(atr_String("refused")); }},
    {"nex_InternalException", [] { throw nex_InternalException(atr_String("broken")); }},
    {"nex_RangeException", [] { throw nex_RangeException(7, 3); }},
    {"bio_DataException", [] { throw bio_DataException::BadBool(5, 7); }},
    {"std::bad_alloc", [] { throw std::bad_alloc(); }},
    {"std::runtime_error", [] { throw std::runtime_error("run time"); }},
    {"int", [] { throw 7; }}};

// Of a command that takes one value.
const omu_Primitive& Only(const omu_Arguments& arguments)
{
    return *arguments[0];
}

Result kept;

Result FailedValue()
{
    try
    {
        RaiseRange();
    }
    catch (const nex_CommandException& exception)
    {
        return std::make_unique<omu_PrimException>(exception);
    }
}

template <class F>
void OnThread(F work)
{
    const py::gil_scoped_release released;
    std::thread(work).join();
}

struct Five
{
    int count = 0;
    double scale = 1.0;
    std::string name;
    double x = 0.0;
    double y = 0.0;
    std::string type;
};

// So that neither way of reading is optimised away.
Five last;

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

const std::map<std::string, std::function<Result(omu_Arguments&)>> COMMANDS = {
    {"echo", [](omu_Arguments& a) { return Result(Only(a).Copy()); }},
    {"text", [](omu_Arguments& a) { return std::make_unique<omu_PrimString>(Only(a).AsString(0)); }},
    {"typeText",
     [](omu_Arguments& a) { return std::make_unique<omu_PrimString>(Only(a).TypeString().AsString()); }},
    {"callText", [](omu_Arguments& a) { return std::make_unique<omu_PrimString>(a.AsString(0)); }},
    {"equal", [](omu_Arguments& a) { return std::make_unique<omu_PrimNumber>(*a[0] == *a[1] ? 1 : 0); }},
    {"expression", [](omu_Arguments& a) { return std::make_unique<omu_PrimExpr>(Only(a).AsString(0)); }},
    {"failure", [](omu_Arguments&) { return FailedValue(); }},
    {"fail",
     [](omu_Arguments& a) -> Result {
         cow_String name;
         a.Begin();
         a.Get(name, "name");
         a.End();
         FAILURES.at(name.AsCharPtr())();
         return nullptr;
     }},
    {"keep",
     [](omu_Arguments& a) -> Result {
         kept.reset(Only(a).Copy());
         return nullptr;
     }},
    {"kept", [](omu_Arguments&) { return Result(kept->Copy()); }},
    {"length",
     [](omu_Arguments& a) {
         return std::make_unique<omu_PrimNumber>(dynamic_cast<const omu_PrimSequence&>(Only(a)).Length());
     }},
    {"dropOnThread",
     [](omu_Arguments&) -> Result {
         OnThread([] { kept.reset(); });
         return nullptr;
     }},
    {"textOnThread",
     [](omu_Arguments& a) -> Result {
         cow_String text;
         OnThread([&] { text = Only(a).AsString(0); });
         return std::make_unique<omu_PrimString>(text);
     }},
    {"nap",
     [](omu_Arguments&) -> Result {
         const py::gil_scoped_release released;
         std::this_thread::sleep_for(std::chrono::milliseconds(300));
         return nullptr;
     }},
    {"five",
     [](omu_Arguments& a) -> Result {
         ReadFive(a);
         return nullptr;
     }},
};
}

PYBIND11_MODULE(orvex_testing, module)
{
    const py::module_ orvex = py::module_::import("orvex");
    for (const auto& [name, command] : COMMANDS)
        omu_CommandTable::Instance().Register(
            cow_String(name.c_str()),
            [run = &command](omu_Arguments& arguments) { return (*run)(arguments).release(); });
    py::list failures;
    for (const auto& failure : FAILURES)
        failures.append(failure.first);
    module.attr("FAILURES") = failures;
    module.def("fail", [](const std::string& name) { FAILURES.at(name)(); });
    module.def("add_constant", [](const char* name, bool inScript) {
        if (inScript)
            omu_SymbolicConstantData(name, 0, true);
        else
            omu_SymbolicConstantTable::Instance().AddString(name);
    });
    module.def(
        "plain_five",
        [](int count, double scale, const std::string& name, const std::pair<double, double>& point,
           const py::object& type) {
            last.count = count;
            last.scale = scale;
            last.name = name;
            last.x = point.first;
            last.y = point.second;
            last.type = py::str(type.attr("name"));
        },
        py::arg("count"), py::arg("scale"), py::arg("name"), py::arg("point"), py::arg("type"));
}
