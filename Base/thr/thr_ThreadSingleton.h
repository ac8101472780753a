#pragma once

#include <thr_ThreadSlot.h>

/// One instance of T a thread: `class T : public thr_ThreadSingleton<T, level>`; callers may leave the
/// level out and write thr_ThreadSingleton<T>::Instance().
///
/// Made on the thread's first use; replaced by constructing a T or an object of a class derived from it on
/// that thread, where it must die too; Destroy() and replaced defaults as with omi_Singleton. Destroyed
/// with the thread, lower levels first.
template <class T, int DestructLevel = 0>
class thr_ThreadSingleton : public thr_ThreadSlot<T>
{
protected:
    thr_ThreadSingleton() : thr_ThreadSlot<T>(DestructLevel) {}
    ~thr_ThreadSingleton() = default;
};
