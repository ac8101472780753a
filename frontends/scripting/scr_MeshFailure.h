#pragma once

class bat_MeshError;

/// Raises what Python is told of a mesh that cannot be used: orvex.MeshError, or OSError when the system
/// refused the file. With the interpreter lock.
[[noreturn]] void scr_RaiseMeshError(const bat_MeshError& error);
