#include <climits>
#include <scr_Array.h>
#include <scr_ArrayReader.h>
#include <scr_Exceptions.h>
#include <scr_Instance.h>
#include <scr_Own.h>
#include <scr_Values.h>
#include <string>
#include <vector>

namespace py = pybind11;

namespace
{
using ElementTypeEnm = omu_PrimArray::ElementTypeEnm;

PyTypeObject* type = nullptr;

// The letters of array.array.
const char* FormatOf(const omu_PrimArray& array)
{
    switch (array.ElementType())
    {
    case ElementTypeEnm::INT:
        return "i";
    case ElementTypeEnm::FLOAT:
        return "f";
    default:
        return "d";
    }
}

ElementTypeEnm TypeOf(const std::string& format)
{
    if (format == "i")
        return ElementTypeEnm::INT;
    if (format == "f")
        return ElementTypeEnm::FLOAT;
    if (format == "d")
        return ElementTypeEnm::DOUBLE;
    scr_Exceptions::Throw("ValueError", "format must be 'i', 'f' or 'd', not '" + format + "'");
}

py::tuple ShapeOf(const omu_PrimArray& array)
{
    py::tuple shape(static_cast<std::size_t>(array.Rank()));
    for (int i = 0; i < array.Rank(); ++i)
        shape[static_cast<std::size_t>(i)] = array.Shape().Get(i);
    return shape;
}

py::object ElementOf(const omu_PrimArray& array, int place)
{
    const omu_PrimNumber number = array.Element(place);
    if (array.ElementType() == ElementTypeEnm::INT)
        return py::int_(static_cast<int>(number.Value()));
    return py::float_(number.Value());
}

// The part of a dimension that begins at `place` of the row-by-row order, which moves behind it.
py::object ListOf(const omu_PrimArray& array, int dimension, int& place)
{
    if (dimension == array.Rank())
        return ElementOf(array, place++);
    py::list list;
    for (int i = 0; i < array.Shape().Get(dimension); ++i)
        list.append(ListOf(array, dimension + 1, place));
    return list;
}

py::object ToList(const omu_PrimArray& array)
{
    int place = 0;
    return ListOf(array, 0, place);
}

py::buffer_info BufferOf(const omu_PrimArray& array)
{
    const auto info = [&array](const auto& elements) {
        using Element = std::remove_cvref_t<decltype(elements.Get(0))>;
        std::vector<py::ssize_t> shape;
        for (const int length : array.Shape())
            shape.push_back(length);
        return py::buffer_info(const_cast<Element*>(elements.Data()), sizeof(Element), FormatOf(array),
                               array.Rank(), shape, py::detail::c_strides(shape, sizeof(Element)), true);
    };
    switch (array.ElementType())
    {
    case ElementTypeEnm::INT:
        return info(array.Ints());
    case ElementTypeEnm::FLOAT:
        return info(array.Floats());
    default:
        return info(array.Doubles());
    }
}

[[noreturn]] void RefuseFloats()
{
    scr_Exceptions::Throw("TypeError", "an Array of format 'i' takes no float");
}

// Nested lists and tuples on their way into an array: the shape is that of the first of each level, and every
// other must have it too.
class NestedReader
{
public:
    omu_PrimArray Read(const py::handle& values, const std::string& format)
    {
        Descend(values, 0);
        if (elements_.empty())
            shape_ = cow_List<int>{0};
        const bool allInts = !hasFloats_;
        const ElementTypeEnm wanted =
            !format.empty() ? TypeOf(format) : (allInts ? ElementTypeEnm::INT : ElementTypeEnm::DOUBLE);
        if (wanted == ElementTypeEnm::DOUBLE)
            return omu_PrimArray(shape_, As<double>());
        if (wanted == ElementTypeEnm::FLOAT)
            return omu_PrimArray(shape_, As<float>());
        if (!allInts)
            RefuseFloats();
        return omu_PrimArray(shape_, As<int>());
    }

private:
    void Descend(const py::handle& values, int level)
    {
        if (!py::isinstance<py::list>(values) && !py::isinstance<py::tuple>(values))
            return Add(values, level);
        if (level == omu_PrimArray::MAX_RANK)
            scr_Exceptions::Throw("ValueError", "an Array has at most 16 dimensions");
        const auto items = scr_Own(PySequence_Tuple(values.ptr()));
        const auto length = static_cast<int>(std::min<std::size_t>(py::len(items), INT_MAX));
        if (level == shape_.Length() && elements_.empty() && !closed_)
            shape_.Append(length);
        else if (level >= shape_.Length() || shape_.Get(level) != length)
            RaiseRagged();
        for (const py::handle item : items)
            Descend(item, level + 1);
        if (level + 1 == shape_.Length())
            closed_ = true;
    }
    void Add(const py::handle& value, int level)
    {
        const bool isFloat = PyFloat_Check(value.ptr());
        if (level == 0 || (!isFloat && (!PyLong_Check(value.ptr()) || PyBool_Check(value.ptr()))))
            scr_Exceptions::Throw("TypeError",
                                  std::string("an Array takes numbers in lists or tuples, not ") +
                                      Py_TYPE(value.ptr())->tp_name);
        if (level != shape_.Length())
            RaiseRagged();
        const double number = PyFloat_AsDouble(value.ptr());
        if (!isFloat && (PyErr_Occurred() != nullptr || number < INT_MIN || number > INT_MAX))
        {
            PyErr_Clear();
            scr_Exceptions::Throw("OverflowError",
                                  "an integer of an Array must be -2147483648 to 2147483647");
        }
        hasFloats_ = hasFloats_ || isFloat;
        // Lists that contain one another may unfold to more than any memory holds.
        if (elements_.size() >= static_cast<std::size_t>(scr_Values::MAX_ITEMS))
            scr_Exceptions::Throw("OverflowError", "an Array takes at most " +
                                                       std::to_string(scr_Values::MAX_ITEMS) +
                                                       " numbers from lists");
        if (elements_.size() % 65536 == 0 && PyErr_CheckSignals() != 0)
            throw py::error_already_set();
        elements_.push_back(number);
    }
    [[noreturn]] static void RaiseRagged()
    {
        scr_Exceptions::Throw("ValueError", "the rows of an Array must be of equal length and depth");
    }
    template <class T>
    cow_List<T> As() const
    {
        std::vector<T> elements;
        elements.reserve(elements_.size());
        for (const double element : elements_)
            elements.push_back(static_cast<T>(element));
        return cow_List<T>::FromArray(elements.data(), static_cast<int>(elements.size()));
    }

    cow_List<int> shape_;
    std::vector<double> elements_;
    bool hasFloats_ = false;
    bool closed_ = false; // the first row of numbers ended: its depth is that of all
};

omu_PrimArray Converted(const omu_PrimArray& array, ElementTypeEnm wanted)
{
    if (array.ElementType() == wanted)
        return array;
    if (wanted == ElementTypeEnm::INT)
        RefuseFloats();
    const auto elements = [&array]<class T>(T) {
        cow_List<T> list;
        list.Reserve(array.Size());
        for (int i = 0; i < array.Size(); ++i)
            list.Append(static_cast<T>(array.Element(i).Value()));
        return list;
    };
    return wanted == ElementTypeEnm::FLOAT ? omu_PrimArray(array.Shape(), elements(0.0F))
                                           : omu_PrimArray(array.Shape(), elements(0.0));
}

omu_PrimArray New(const py::object& values, const py::object& format)
{
    const std::string wanted = format.is_none() ? std::string() : std::string(py::str(format));
    const omu_PrimArray* array = scr_FindArray(values.ptr());
    std::unique_ptr<omu_Primitive> read;
    if (array == nullptr)
    {
        read = scr_ArrayReader::Read(values.ptr());
        array = dynamic_cast<const omu_PrimArray*>(read.get());
    }
    if (array == nullptr)
        return NestedReader().Read(values, wanted);
    return wanted.empty() ? *array : Converted(*array, TypeOf(wanted));
}

// As Python means an index: from the end when negative.
int PositionOf(const omu_PrimArray& array, int dimension, const py::handle& index)
{
    const int length = array.Shape().Get(dimension);
    const Py_ssize_t given = PyNumber_AsSsize_t(index.ptr(), PyExc_IndexError);
    if (given == -1 && PyErr_Occurred() != nullptr)
        throw py::error_already_set();
    const Py_ssize_t position = given < 0 ? given + length : given;
    if (position < 0 || position >= length)
        scr_Exceptions::ThrowIndex(py::int_(given), "index " + std::to_string(given) +
                                                        " out of range, length " + std::to_string(length));
    return static_cast<int>(position);
}

py::object ItemOf(const omu_PrimArray& array, const py::object& key)
{
    if (py::isinstance<py::slice>(key))
    {
        py::ssize_t start = 0;
        py::ssize_t stop = 0;
        py::ssize_t step = 0;
        py::ssize_t length = 0;
        if (!py::reinterpret_borrow<py::slice>(key).compute(array.Length(), &start, &stop, &step, &length))
            throw py::error_already_set();
        if (step != 1)
            scr_Exceptions::Throw("ValueError", "a slice of an Array takes no step");
        const auto first = static_cast<int>(start);
        const std::unique_ptr<omu_PrimArray> part(array.Slice(first, first + static_cast<int>(length)));
        return scr_MakeArray(*part);
    }
    const py::tuple indices =
        py::isinstance<py::tuple>(key) ? py::reinterpret_borrow<py::tuple>(key) : py::make_tuple(key);
    if (static_cast<int>(indices.size()) > array.Rank() || indices.empty())
        scr_Exceptions::Throw("IndexError", "an Array of " + std::to_string(array.Rank()) +
                                                " dimensions takes 1 to " + std::to_string(array.Rank()) +
                                                " indices");
    omu_PrimArray part = array;
    for (std::size_t i = 0; i < indices.size(); ++i)
    {
        const int position = PositionOf(part, 0, indices[i]);
        if (part.Rank() == 1)
            return ElementOf(part, position);
        const std::unique_ptr<omu_Primitive> inner(part.Index(position));
        part = dynamic_cast<const omu_PrimArray&>(*inner);
    }
    return scr_MakeArray(part);
}
}

py::object scr_MakeArray(const omu_PrimArray& array)
{
    return py::cast(array);
}

const omu_PrimArray* scr_FindArray(PyObject* object)
{
    return Py_TYPE(object) == type ? scr_Instance<omu_PrimArray>(object) : nullptr;
}

void scr_RegisterArray(py::module_& module)
{
    py::class_<omu_PrimArray> array(module, "Array", py::is_final(), scr_PlainMetaclass(),
                                    py::buffer_protocol(),
                                    "An array of numbers that nobody changes, of 1 to 16 dimensions.");
    array.def_buffer([](omu_PrimArray& self) { return BufferOf(self); })
        .def_property_readonly("shape", &ShapeOf)
        .def_property_readonly("format", &FormatOf)
        .def("tolist", &ToList)
        .def("__len__", &omu_PrimArray::Length)
        .def("__getitem__", &ItemOf)
        .def("__iter__", [](const py::object& self) { return scr_Own(PySeqIter_New(self.ptr())); })
        .def(
            "__eq__", [](const omu_PrimArray& a, const omu_PrimArray& b) { return a == b; },
            py::is_operator())
        .def("__repr__",
             [](const omu_PrimArray& self) {
                 return py::str("Array({!r}, {!r})").format(ToList(self), FormatOf(self));
             })
        .def("__reduce__", [array](const omu_PrimArray& self) {
            return py::make_tuple(array, py::make_tuple(ToList(self), FormatOf(self)));
        });
    scr_DefineNew(
        array,
        [](const py::object&, const py::object& values, const py::object& format) {
            return New(values, format);
        },
        py::arg("values"), py::arg("format") = py::none());
    array.attr("__hash__") = py::none();
    type = reinterpret_cast<PyTypeObject*>(array.ptr());
}
