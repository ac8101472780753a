#include <pybind11/pybind11.h>
#include <scr_Running.h>
#include <scr_Text.h>
#include <scr_TravelWatcher.h>

namespace py = pybind11;

namespace
{
// Well below the tenth of a second in which Ctrl-C is to be answered: when other threads are busy the
// interpreter lock itself takes some milliseconds to get.
constexpr std::chrono::milliseconds LOOK_EVERY{15};

bool IsMainThread()
{
    const py::object main = py::module_::import("threading").attr("main_thread")();
    return main.attr("ident").cast<unsigned long>() == PyThread_get_thread_ident();
}
}

scr_TravelWatcher::scr_TravelWatcher(const scr_Running& running)
    : running_(running), onMainThread_(IsMainThread())
{}

void scr_TravelWatcher::Fail()
{
    if (failure_)
        PyErr_Clear();
    else
        failure_ = std::make_exception_ptr(py::error_already_set());
}

void scr_TravelWatcher::RaiseFailure() const
{
    if (failure_)
        std::rethrow_exception(failure_);
    if (!running_.Cancelled())
        return;
    // As a daemon thread goes at the interpreter's end: without a word.
    PyErr_SetNone(PyExc_SystemExit);
    throw py::error_already_set();
}

py::tuple scr_TravelWatcher::NotesTuple() const
{
    py::tuple sentences(notes_.size());
    for (std::size_t i = 0; i < notes_.size(); ++i)
        sentences[i] = scr_Text::FromFileSystem(notes_[i]);
    return sentences;
}

void scr_TravelWatcher::Begin(const std::string& what, float share)
{
    if (tells_)
        progress_.Begin(what, share);
}

void scr_TravelWatcher::End()
{
    if (tells_)
        progress_.End();
}

bool scr_TravelWatcher::Proceed(double done)
{
    if (failure_ || running_.Cancelled() || !SignalsAllow())
        return false;
    return !tells_ || progress_.Proceed(done);
}

bool scr_TravelWatcher::SignalsAllow()
{
    if (!onMainThread_)
        return true; // signals are the main thread's business
    const Clock::time_point now = Clock::now();
    if (now - lastLook_ < LOOK_EVERY)
        return true;
    lastLook_ = now;
    const py::gil_scoped_acquire lock;
    if (PyErr_CheckSignals() == 0)
        return true;
    Fail();
    return false;
}
