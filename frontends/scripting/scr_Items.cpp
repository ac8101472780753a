#include <algorithm>
#include <climits>
#include <memory>
#include <omu_DictIntObj.h>
#include <omu_PrimList.h>
#include <omu_SeqIntObj.h>
#include <scr_Exceptions.h>
#include <scr_Items.h>
#include <scr_Object.h>
#include <scr_Own.h>
#include <scr_Running.h>
#include <scr_Values.h>
#include <string>

namespace py = pybind11;

namespace
{
// Calls the function that takes the object as what it is. `refusal` says what an object that is neither is
// not: "has no len()".
template <class Sequence, class Dictionary>
auto Either(const scr_Object& self, const char* refusal, Sequence asSequence, Dictionary asDictionary)
{
    const scr_Running running;
    const omu_InterfaceObj& object = self.Get();
    object.RequireLive();
    if (const auto* sequence = dynamic_cast<const omu_SeqIntObj*>(&object))
        return asSequence(*sequence);
    if (const auto* dictionary = dynamic_cast<const omu_DictIntObj*>(&object))
        return asDictionary(*dictionary);
    scr_Exceptions::Throw("TypeError",
                          "'" + std::string(object.TypeString().AsCharPtr()) + "' object " + refusal);
}

// An index of Python, which may be of any size. One below every sequence is the smallest int, which the
// library's conversion makes the first.
int IndexOf(const py::handle& index)
{
    if (!PyIndex_Check(index.ptr()))
        scr_Exceptions::Throw("TypeError", std::string("indices of a sequence are integers or slices, not ") +
                                               Py_TYPE(index.ptr())->tp_name);
    const auto number = scr_Own(PyNumber_Index(index.ptr()));
    int overflow = 0;
    const long value = PyLong_AsLongAndOverflow(number.ptr(), &overflow);
    if (overflow > 0 || value > INT_MAX)
        scr_Exceptions::ThrowIndex(number, py::str(py::repr(number)));
    return overflow < 0 || value < INT_MIN ? INT_MIN : static_cast<int>(value);
}

struct Range
{
    int from;
    int to;
};

Range RangeOf(const omu_SeqIntObj& sequence, const py::object& slice)
{
    const auto end = [&](const char* name, int otherwise) {
        const py::object given = slice.attr(name);
        return given.is_none() ? otherwise : sequence.ConvertIndex(IndexOf(given));
    };
    if (!slice.attr("step").is_none() && IndexOf(slice.attr("step")) != 1)
        scr_Exceptions::Throw("ValueError", "a slice of a sequence takes no step");
    const int from = end("start", 0);
    return {from, std::max(from, end("stop", sequence.Length()))};
}

py::object Owned(omu_Primitive* value)
{
    return scr_Values::ToPython(std::unique_ptr<omu_Primitive>(value));
}

std::unique_ptr<omu_Primitive> Key(const py::object& key)
{
    return scr_Values::FromPython(key.ptr());
}

constexpr const char* HAS_NO_ITEMS = "is not subscriptable";
}

int scr_Items::Length(const scr_Object& self)
{
    const auto length = [](const auto& object) { return object.Length(); };
    return Either(self, "has no len()", length, length);
}

py::object scr_Items::Iterate(const scr_Object& self)
{
    return Either(
        self, "is not iterable",
        [](const omu_SeqIntObj& sequence) -> py::object {
            // By position, so that a sequence may shrink under the loop.
            const auto elements = scr_Object::Make(std::shared_ptr<omu_InterfaceObj>(sequence.Copy()));
            return scr_Own(PySeqIter_New(elements.ptr()));
        },
        [](const omu_DictIntObj& dictionary) -> py::object { return py::iter(Owned(dictionary.KeyList())); });
}

bool scr_Items::Contains(const scr_Object& self, const py::object& item)
{
    return Either(
        self, "is not iterable",
        [&item](const omu_SeqIntObj& sequence) {
            const std::unique_ptr<omu_Primitive> wanted = Key(item);
            for (int i = 0; i < sequence.Length(); ++i)
            {
                const std::unique_ptr<omu_Primitive> element(sequence.Index(i));
                if (element != nullptr ? *element == *wanted : item.is_none())
                    return true;
            }
            return false;
        },
        [&item](const omu_DictIntObj& dictionary) { return dictionary.HasItem(*Key(item)); });
}

py::object scr_Items::Get(const scr_Object& self, const py::object& key)
{
    return Either(
        self, HAS_NO_ITEMS,
        [&key](const omu_SeqIntObj& sequence) {
            if (!py::isinstance<py::slice>(key))
                return Owned(sequence.Index(sequence.ConvertSubscrIndex(IndexOf(key))));
            const Range range = RangeOf(sequence, key);
            return Owned(sequence.Slice(range.from, range.to));
        },
        [&key](const omu_DictIntObj& dictionary) { return Owned(dictionary.Item(*Key(key))); });
}

void scr_Items::Set(const scr_Object& self, const py::object& key, const py::object& value)
{
    Either(
        self, "does not support item assignment",
        [&](const omu_SeqIntObj& sequence) {
            if (py::isinstance<py::slice>(key))
                scr_Exceptions::Throw("TypeError", "a slice of a sequence cannot be assigned");
            Owned(sequence.Assign(sequence.ConvertSubscrIndex(IndexOf(key)), *Key(value)));
        },
        [&](const omu_DictIntObj& dictionary) { dictionary.AssignItem(*Key(key), *Key(value)); });
}

void scr_Items::Delete(const scr_Object& self, const py::object& key)
{
    Either(
        self, "does not support item deletion",
        [&key](const omu_SeqIntObj& sequence) {
            if (py::isinstance<py::slice>(key))
            {
                const Range range = RangeOf(sequence, key);
                Owned(sequence.RemoveSlice(range.from, range.to));
            }
            else
                Owned(sequence.Remove(sequence.ConvertSubscrIndex(IndexOf(key))));
        },
        [&key](const omu_DictIntObj& dictionary) { dictionary.RemoveItem(*Key(key)); });
}
