#pragma once

#include <thr_ThreadRegistry.h>

#include <type_traits>

/// The part of thr_ThreadSingleton that does not depend on the destruct level, so that
/// thr_ThreadSingleton<T>::Instance() and thr_ThreadSingleton<T, 15>::Instance() are the same function.
/// Where T's constructor or destructor is private, T befriends thr_ThreadSlot<T>.
template <class T>
class thr_ThreadSlot
{
public:
    thr_ThreadSlot(const thr_ThreadSlot&) = delete;
    thr_ThreadSlot& operator=(const thr_ThreadSlot&) = delete;

    /// The calling thread's instance; made when there is none.
    static T& Instance()
    {
        void* instance = thr_ThreadRegistry::Instance(typeid(T), &Make, &Kill);
        return static_cast<T&>(*static_cast<thr_ThreadSlot*>(instance));
    }
    /// Whether the calling thread has one now.
    static bool Exists() { return thr_ThreadRegistry::Current(typeid(T)) != nullptr; }
    /// Frees the thread's default, if one was made, and empties its slot; Instance() starts afresh.
    static void Destroy() { thr_ThreadRegistry::Destroy(typeid(T)); }

protected:
    explicit thr_ThreadSlot(int destructLevel)
    {
        thr_ThreadRegistry::Install(typeid(T), destructLevel, this);
    }
    ~thr_ThreadSlot() { thr_ThreadRegistry::Withdraw(typeid(T), this); }

private:
    static void* Make()
    {
        if constexpr (std::is_abstract_v<T>)
            return nullptr;
        else
            return static_cast<thr_ThreadSlot*>(new T);
    }
    static void Kill(void* object) { delete static_cast<T*>(static_cast<thr_ThreadSlot*>(object)); }
};
