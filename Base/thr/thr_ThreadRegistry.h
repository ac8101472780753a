#pragma once

#include <bas_Export.h>

#include <typeinfo>

/// The singletons of the calling thread, in libOrvexBase.so and found by type, so that every shared
/// library meets the same ones. The working part of thr_ThreadSlot.
///
/// What the registry made is destroyed with the thread: lower destruct levels first, of one level the
/// youngest first. Destructors may still call for singletons; those are then destroyed in a further round.
/// What a thread asks for after that, from the destructor of a thread-local object, is never destroyed.
class BAS_EXPORT thr_ThreadRegistry
{
public:
    using Maker = void* (*)();
    using Killer = void (*)(void*);

    /// The calling thread's instance; made, and owned by the registry, when there is none.
    static void* Instance(const std::type_info& type, Maker make, Killer kill);
    /// Null when there is none.
    static void* Current(const std::type_info& type) noexcept;
    /// Takes a new object as the calling thread's instance.
    static void Install(const std::type_info& type, int destructLevel, void* object);
    /// The object is dying: it is the calling thread's instance and owned no more.
    static void Withdraw(const std::type_info& type, void* object) noexcept;
    /// Leaves the calling thread without instance and deletes what the registry made.
    static void Destroy(const std::type_info& type);
};
