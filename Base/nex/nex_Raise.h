#pragma once

// The raise helpers of the lowest layer. This header includes nothing, so that every container and
// string can use it without drawing in the exception classes; callers that catch include those.
// `source` names the raising source as text, for example "KTLOxuWip.m/src/wip_WIP", never a path of
// the build machine. All four never return.

/// Throws nex_RangeException: "index %d out of range, length %d".
[[noreturn]] __attribute__((visibility("default"))) void nex_RaiseRange(long long index, long long length);

/// Throws nex_RangeException as above, with the source and line of the caller.
[[noreturn]] __attribute__((visibility("default"))) void nex_RaiseRange(long long index, long long length,
                                                                        const char* source, int line);

/// Throws nex_PrimException with the translation of a template that takes no arguments.
[[noreturn]] __attribute__((visibility("default"))) void nex_RaisePrim(const char* messageTemplate,
                                                                       const char* source, int line);

/// Throws nex_InternalException: a broken promise inside the system, not a fault of the user. The
/// message is final and is not translated.
[[noreturn]] __attribute__((visibility("default"))) void nex_RaiseInternal(const char* message,
                                                                           const char* source, int line);
