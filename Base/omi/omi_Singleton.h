#pragma once

#include <omi_SingletonSlot.h>

#include <type_traits>

/// Process-wide single instance of T: `class T : public omi_Singleton<T>`.
///
/// Instance() makes a default T on first use (on any thread, once). Constructing a T, or an object of a
/// class derived from it, makes that object the instance instead; it stays its owner's, and its destructor
/// leaves the slot empty when it is still the instance. A default that was replaced stays alive for those
/// who hold a reference, and is freed by Destroy() or when the next default is made. What nobody destroys
/// lives to the end of the process. One instance across all shared libraries.
///
/// Where T's constructor or destructor is private, T befriends omi_Singleton<T>. An abstract T has no
/// default: asking for one aborts.
template <class T>
class omi_Singleton
{
public:
    omi_Singleton(const omi_Singleton&) = delete;
    omi_Singleton& operator=(const omi_Singleton&) = delete;

    /// The instance; made when there is none.
    static T& Instance()
    {
        return static_cast<T&>(*static_cast<omi_Singleton*>(Slot().Instance(&Make, &Kill)));
    }
    /// Whether there is one now.
    static bool Exists() { return Slot().Current() != nullptr; }
    /// Frees the default, if one was made, and empties the slot; Instance() starts afresh. An instance that
    /// somebody else owns is left to its owner.
    static void Destroy() { Slot().Destroy(); }
    /// Frees the default, if one was made; an instance that somebody else owns stays the instance.
    static void DestroyDefault() { Slot().DestroyDefault(); }

protected:
    omi_Singleton() { Slot().Install(this); }
    ~omi_Singleton() { Slot().Withdraw(this); }

private:
    static omi_SingletonSlot& Slot()
    {
        static omi_SingletonSlot& slot = omi_SingletonSlot::Of(typeid(T));
        return slot;
    }
    static void* Make()
    {
        if constexpr (std::is_abstract_v<T>)
            return nullptr;
        else
            return static_cast<omi_Singleton*>(new T);
    }
    static void Kill(void* object) { delete static_cast<T*>(static_cast<omi_Singleton*>(object)); }
};
