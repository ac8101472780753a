#include <thr_ThreadRegistry.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>
#include <vector>

namespace
{
struct Slot
{
    const std::type_info* type;
    void* instance = nullptr;
    void* owned = nullptr;
    thr_ThreadRegistry::Killer kill = nullptr;
    int ownedLevel = 0;
    unsigned long ownedSince = 0;
    int installedLevel = 0; // of the object installed last
};

struct Registry
{
    // A handful of types: a walk is quicker than a map.
    Slot* Find(const std::type_info& type)
    {
        for (Slot& slot : slots)
            if (*slot.type == type)
                return &slot;
        return nullptr;
    }
    Slot& Of(const std::type_info& type)
    {
        Slot* slot = Find(type);
        return slot ? *slot : slots.emplace_back(Slot{&type});
    }

    std::vector<Slot> slots;
    unsigned long made = 0;
};

void Kill(Slot& slot)
{
    // The destructor may call for other singletons, which moves the slots: nothing of this one after it.
    void* const dead = std::exchange(slot.owned, nullptr);
    if (slot.instance == dead)
        slot.instance = nullptr;
    slot.kill(dead);
}

// Needs no destruction, so that it may be asked at any time of the thread's end.
constinit thread_local Registry* registry = nullptr;

// Two destructors that call for each other's singleton must not keep a thread alive for ever.
constexpr int MOST_DESTROYED = 1000;

// Destroys the registry with the thread.
struct Reaper
{
    ~Reaper()
    {
        Registry* const mine = registry;
        const auto dueBefore = [](const Slot& a, const Slot& b) {
            if ((a.owned != nullptr) != (b.owned != nullptr))
                return a.owned != nullptr;
            return a.ownedLevel != b.ownedLevel ? a.ownedLevel < b.ownedLevel : a.ownedSince > b.ownedSince;
        };
        for (int destroyed = 0; destroyed < MOST_DESTROYED; ++destroyed)
        {
            const auto next = std::min_element(mine->slots.begin(), mine->slots.end(), dueBefore);
            if (next == mine->slots.end() || !next->owned)
                break;
            Kill(*next);
        }
        registry = nullptr;
        delete mine;
    }
};

Registry& Mine()
{
    if (!registry)
    {
        registry = new Registry;
        static thread_local const Reaper reaper;
        static_cast<void>(reaper);
    }
    return *registry;
}

[[noreturn]] void Abort(const char* what)
{
    std::fprintf(stderr, "thr_ThreadSingleton: %s\n", what);
    std::abort();
}
}

void* thr_ThreadRegistry::Instance(const std::type_info& type, Maker make, Killer kill)
{
    Registry& mine = Mine();
    if (const Slot* slot = mine.Find(type); slot && slot->instance)
        return slot->instance;

    void* const made = make();
    if (!made)
        Abort("an abstract class has no default instance");
    Slot& slot = mine.Of(type); // looked up anew: the constructor may have moved the slots
    if (slot.instance != made)
        Abort("the default instance did not become the instance");
    const Slot former = slot;
    slot.owned = made;
    slot.kill = kill;
    slot.ownedLevel = slot.installedLevel;
    slot.ownedSince = ++mine.made;
    if (former.owned)
        former.kill(former.owned);
    return made;
}

void* thr_ThreadRegistry::Current(const std::type_info& type) noexcept
{
    const Slot* slot = registry ? registry->Find(type) : nullptr;
    return slot ? slot->instance : nullptr;
}

void thr_ThreadRegistry::Install(const std::type_info& type, int destructLevel, void* object)
{
    Slot& slot = Mine().Of(type);
    slot.instance = object;
    slot.installedLevel = destructLevel;
}

void thr_ThreadRegistry::Withdraw(const std::type_info& type, void* object) noexcept
{
    Slot* slot = registry ? registry->Find(type) : nullptr;
    if (!slot)
        return;
    if (slot->instance == object)
        slot->instance = nullptr;
    if (slot->owned == object)
        slot->owned = nullptr;
}

void thr_ThreadRegistry::Destroy(const std::type_info& type)
{
    Slot* slot = registry ? registry->Find(type) : nullptr;
    if (!slot)
        return;
    slot->instance = nullptr;
    if (slot->owned)
        Kill(*slot);
}
