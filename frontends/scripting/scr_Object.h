#pragma once

#include <memory>
#include <omu_InterfaceObj.h>
#include <pybind11/pybind11.h>

/// What stands in an orvex.Object: a handle on an object of the application, which Python treats as the
/// library's rules say. Members and methods are attributes; sequences and dictionaries are indexed.
class scr_Object
{
public:
    explicit scr_Object(std::shared_ptr<omu_InterfaceObj> object, bool isRoot = false)
        : object_(std::move(object)), isRoot_(isRoot)
    {}

    /// A Python object that shares the handle.
    static pybind11::object Make(std::shared_ptr<omu_InterfaceObj> object);
    /// The same for a root of paths, which offers the commands of the command table too.
    static pybind11::object MakeRoot(std::shared_ptr<omu_InterfaceObj> root);
    /// Null for a Python object of another class.
    static const scr_Object* Find(PyObject* object);

    omu_InterfaceObj& Get() const { return *object_; }
    const std::shared_ptr<omu_InterfaceObj>& Share() const { return object_; }
    bool IsRoot() const { return isRoot_; }

private:
    std::shared_ptr<omu_InterfaceObj> object_;
    bool isRoot_;
};

void scr_RegisterObject(pybind11::module_& module);
