#pragma once
// Exchanges two pointers to T.

template <class T> void ORXBasSwap(T*& first, T*& second)
{
    T* held = first;
    first = second;
    second = held;
}
