#pragma once
// The singleton scheme. A class T that derives from omi_Singleton<T> and keeps its constructor
// private (befriending omi_Singleton<T>) has at most one object, made on the first
// omi_Singleton<T>::Instance() and destroyed by omi_SingletonBase<T>::Finalize(). The base
// constructor registers the object before any member of T is built; an object that did not come up
// through that registration aborts the process. No locking: the first Instance() must not race.
#include "mem_Entries.h"

#include <cstdlib>
#include <new>

template <class T> class omi_SingletonBase
{
public:
    // Destroys the object, if there is one, and releases its memory. The pointer is null afterwards.
    static void Finalize()
    {
        if (T* object = Instance())
        {
            object->~T();
            mem_Free(object);
        }
        s_instance = nullptr;
    }

protected:
    omi_SingletonBase() { s_instance = this; }
    // An object whose construction failed must not stay registered.
    ~omi_SingletonBase()
    {
        if (s_instance == this)
            s_instance = nullptr;
    }
    omi_SingletonBase(omi_SingletonBase const&) = delete;
    omi_SingletonBase& operator=(omi_SingletonBase const&) = delete;

    // The registered object as it stands, null included.
    static T* Instance() { return static_cast<T*>(s_instance); }

private:
    // Kept as the base part, so that registering during construction casts nothing.
    static omi_SingletonBase* s_instance;
};

template <class T> omi_SingletonBase<T>* omi_SingletonBase<T>::s_instance = nullptr;

template <class T> class omi_Singleton : public omi_SingletonBase<T>
{
public:
    omi_Singleton() = default;

    // The one object, made on first use.
    static T& Instance()
    {
        if (T* existing = omi_SingletonBase<T>::Instance())
            return *existing;
        BlockGuard guard{mem_OperatorNewThrow(sizeof(T))};
        T* made = guard.block != nullptr ? ::new (guard.block) T() : nullptr;
        if (omi_SingletonBase<T>::Instance() != made)
            std::abort();
        guard.block = nullptr;
        return *made;
    }

private:
    // Gives the block back when the constructor of T throws.
    struct BlockGuard
    {
        void* block;
        ~BlockGuard() { mem_Free(block); }
    };
};
