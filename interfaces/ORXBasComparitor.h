#pragma once
// Orderings for the tree core: a function of two element pointers and a context, true when the
// first element is less than the second.

typedef bool (*ORXBasComparitorFunc)(void const* first, void const* second, void const* context);

// The order of T's operator<; the context is unused.
template <class T> bool ORXBasStandardComparitor(void const* first, void const* second, void const*)
{
    return *static_cast<T const*>(first) < *static_cast<T const*>(second);
}

// The default ordering of T, as the maps use it.
template <class T> struct ORXBasComparitor
{
    static ORXBasComparitorFunc GetComparitor() { return &ORXBasStandardComparitor<T>; }
};
