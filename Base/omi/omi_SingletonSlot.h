#pragma once

#include <bas_Export.h>

#include <atomic>
#include <typeinfo>

/// The place of one process-wide singleton, in libOrvexBase.so and found by type, so that every shared
/// library of the process meets the same instance whatever its symbols' visibility. The working part of
/// omi_Singleton.
class BAS_EXPORT omi_SingletonSlot
{
public:
    using Maker = void* (*)();
    using Killer = void (*)(void*);

    /// The slot of this type, made on first use and kept to the end of the process.
    static omi_SingletonSlot& Of(const std::type_info& type);

    /// The instance; made, and owned by the slot, when there is none.
    void* Instance(Maker make, Killer kill)
    {
        void* instance = Current();
        return instance ? instance : Make(make, kill);
    }
    /// Takes a new object as the instance. An object that the slot owns stays alive until Destroy or until
    /// the slot makes another, since someone may still refer to it.
    void Install(void* object) noexcept;
    /// The object is dying: it is the instance and owned no more.
    void Withdraw(void* object) noexcept;
    /// Leaves the slot empty and deletes what it owns.
    void Destroy();
    /// Deletes what the slot owns; an instance that it does not own stays.
    void DestroyDefault();

    void* Current() const noexcept { return instance_.load(std::memory_order_acquire); }

protected:
    omi_SingletonSlot() noexcept = default;
    ~omi_SingletonSlot() = default;

private:
    void* Make(Maker make, Killer kill);

    std::atomic<void*> instance_{nullptr};
    void* pending_ = nullptr; // what a running Make has constructed so far
    void* owned_ = nullptr;   // what Make made last
    Killer kill_ = nullptr;
    bool making_ = false;
};
