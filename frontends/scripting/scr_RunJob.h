#pragma once

#include <bat_MeshError.h>
#include <optional>
#include <pybind11/pybind11.h>
#include <scr_MeshFailure.h>
#include <scr_ProgressReporter.h>
#include <scr_TravelWatcher.h>

/// Computes without the interpreter lock, and makes the fields of a result of what was found out.
///
/// The progress is told to the callable, None for nobody. compute returns an optional: nothing when the
/// watcher put an end to it. What the watcher was told to raise is raised, else orvex.MeshError for a
/// bat_MeshError.
template <class Compute, class Fields>
pybind11::tuple scr_RunJob(const char* job, const pybind11::object& callable, scr_TravelWatcher& watcher,
                           const Compute& compute, const Fields& fields)
{
    try
    {
        std::optional<scr_ProgressReporter> reporter;
        if (!callable.is_none())
            reporter.emplace(callable, watcher, job);
        const auto found = [&] {
            const pybind11::gil_scoped_release others;
            return compute();
        }();
        if (found && reporter)
            reporter->Finish();
        watcher.RaiseFailure();
        return fields(found.value());
    }
    catch (const bat_MeshError& error)
    {
        watcher.RaiseFailure();
        scr_RaiseMeshError(error);
    }
}
