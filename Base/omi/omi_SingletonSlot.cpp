#include <omi_SingletonSlot.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <mutex>
#include <typeindex>
#include <utility>

namespace
{
// One lock for all slots: a constructor may ask for other singletons, and two threads that do so in
// opposite order must not wait for each other. Never destroyed: destructors of static objects come here.
std::recursive_mutex& Lock()
{
    static std::recursive_mutex& lock = *new std::recursive_mutex;
    return lock;
}

[[noreturn]] void Abort(const char* what)
{
    std::fprintf(stderr, "omi_Singleton: %s\n", what);
    std::abort();
}
}

omi_SingletonSlot& omi_SingletonSlot::Of(const std::type_info& type)
{
    struct Slot : omi_SingletonSlot
    {};
    const std::lock_guard guard(Lock());
    static auto& slots = *new std::map<std::type_index, Slot>;
    return slots[type];
}

void* omi_SingletonSlot::Make(Maker make, Killer kill)
{
    const std::lock_guard guard(Lock());
    if (void* instance = Current())
        return instance;
    if (making_)
    {
        // The constructor under way asks for itself.
        if (!pending_)
            Abort("the constructor of a default instance asks for itself too early");
        return pending_;
    }

    // Until it is complete, the new object is nobody else's business.
    making_ = true;
    pending_ = nullptr;
    void* made = nullptr;
    try
    {
        made = make();
    }
    catch (...)
    {
        making_ = false;
        pending_ = nullptr;
        throw;
    }
    making_ = false;
    if (!made)
        Abort("an abstract class has no default instance");
    if (std::exchange(pending_, nullptr) != made)
        Abort("the default instance did not become the instance");
    void* const former = std::exchange(owned_, made);
    const Killer formerKill = std::exchange(kill_, kill);
    instance_.store(made, std::memory_order_release);
    if (former)
        formerKill(former);
    return made;
}

void omi_SingletonSlot::Install(void* object) noexcept
{
    const std::lock_guard guard(Lock());
    if (making_)
        pending_ = object;
    else
        instance_.store(object, std::memory_order_release);
}

void omi_SingletonSlot::Withdraw(void* object) noexcept
{
    const std::lock_guard guard(Lock());
    if (pending_ == object)
        pending_ = nullptr;
    if (owned_ == object)
        owned_ = nullptr;
    if (Current() == object)
        instance_.store(nullptr, std::memory_order_release);
}

void omi_SingletonSlot::DestroyDefault()
{
    const std::lock_guard guard(Lock());
    // Its destructor withdraws it, where it is the instance.
    if (void* const dead = std::exchange(owned_, nullptr))
        kill_(dead);
}

void omi_SingletonSlot::Destroy()
{
    const std::lock_guard guard(Lock());
    void* const dead = std::exchange(owned_, nullptr);
    instance_.store(nullptr, std::memory_order_release);
    if (dead)
        kill_(dead);
}
