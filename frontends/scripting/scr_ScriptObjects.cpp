#include <algorithm>
#include <climits>
#include <mutex>
#include <omu_PyObjectOps.h>
#include <scr_Own.h>
#include <scr_ScriptObjects.h>
#include <scr_Text.h>
#include <scr_Values.h>
#include <vector>

namespace py = pybind11;

namespace
{
// References that were let go of without the interpreter lock. Waiting for the lock there could end in a
// deadlock with whoever holds it, and after the exit has begun in the end of the thread in the midst of a
// destructor; so they wait here for a thread that has it.
class Orphans
{
public:
    void Add(PyObject* object)
    {
        bool isFirst = false;
        {
            const std::lock_guard lock(mutex_);
            isFirst = objects_.empty();
            objects_.push_back(object);
        }
        // When Python's own queue is full the next wrapped object releases them.
        if (isFirst)
            Py_AddPendingCall(&Orphans::ReleasePending, nullptr);
    }
    void Release()
    {
        std::vector<PyObject*> objects;
        {
            const std::lock_guard lock(mutex_);
            objects.swap(objects_);
        }
        for (PyObject* object : objects)
            Py_DECREF(object);
    }
    static Orphans& Instance()
    {
        static auto* const orphans = new Orphans;
        return *orphans;
    }

private:
    static int ReleasePending(void*)
    {
        Instance().Release();
        return 0;
    }

    std::mutex mutex_;
    std::vector<PyObject*> objects_;
};

void LetGo(PyObject* object)
{
    if (!Py_IsInitialized())
        return; // its memory went with the interpreter
    if (PyGILState_Check())
        Py_DECREF(object);
    else
        Orphans::Instance().Add(object);
}

PyObject* AsPython(const void* object)
{
    return static_cast<PyObject*>(const_cast<void*>(object));
}

// Of an error that means "there is none" nothing stays; any other goes on as a C++ exception.
void ForgetOr(std::initializer_list<PyObject*> expected)
{
    for (PyObject* type : expected)
        if (PyErr_ExceptionMatches(type))
        {
            PyErr_Clear();
            return;
        }
    throw py::error_already_set();
}

class Operations : public omu_PyObjectOps
{
public:
    cow_String TypeName(const void* object) const override
    {
        const py::gil_scoped_acquire locked;
        return cow_String(Py_TYPE(AsPython(object))->tp_name);
    }
    cow_String Repr(const void* object) const override
    {
        const py::gil_scoped_acquire locked;
        return scr_Text::FromPython(scr_Own(PyObject_Repr(AsPython(object))).ptr());
    }
    bool Equal(const void* a, const void* b) const override
    {
        const py::gil_scoped_acquire locked;
        const int equal = PyObject_RichCompareBool(AsPython(a), AsPython(b), Py_EQ);
        if (equal < 0)
            throw py::error_already_set();
        return equal == 1;
    }
    int Length(const void* object) const override
    {
        const py::gil_scoped_acquire locked;
        const Py_ssize_t length = PyObject_Size(AsPython(object));
        if (length < 0)
            ForgetOr({PyExc_TypeError});
        return length < 0 ? 0 : static_cast<int>(std::min<Py_ssize_t>(length, INT_MAX));
    }
    omu_Primitive* Item(const void* object, const omu_Primitive& key) const override
    {
        const py::gil_scoped_acquire locked;
        const py::object place = scr_Values::ToPython(&key);
        const auto item = py::reinterpret_steal<py::object>(PyObject_GetItem(AsPython(object), place.ptr()));
        if (item)
            return scr_Values::FromPython(item.ptr()).release();
        ForgetOr({PyExc_LookupError, PyExc_TypeError});
        return nullptr;
    }
};

const Operations operations;
}

omu_PyObjectHandle scr_ScriptObjects::Wrap(PyObject* object)
{
    Orphans::Instance().Release();
    Py_INCREF(object);
    return omu_PyObjectHandle(
        std::shared_ptr<void>(object, [](void* held) { LetGo(static_cast<PyObject*>(held)); }));
}

py::object scr_ScriptObjects::Unwrap(const omu_PyObjectHandle& handle)
{
    return handle.IsNull() ? py::object(py::none())
                           : py::reinterpret_borrow<py::object>(static_cast<PyObject*>(handle.Get().get()));
}

void scr_ScriptObjects::Install()
{
    omu_PyObjectOps::Install(&operations);
}

void scr_ScriptObjects::Uninstall()
{
    omu_PyObjectOps::Install(nullptr);
}
