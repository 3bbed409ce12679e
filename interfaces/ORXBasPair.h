#pragma once
// Two values side by side; the element of ORXBasMap and the result of its insert.

template <class A, class B> struct ORXBasPair
{
    ORXBasPair() : first(), second() {}
    ORXBasPair(A const& a, B const& b) : first(a), second(b) {}
    // From a pair of convertible types, as from ORXBasPair<K, V> to ORXBasPair<K const, V>.
    template <class A2, class B2>
    ORXBasPair(ORXBasPair<A2, B2> const& other) : first(other.first), second(other.second)
    {
    }

    A first;
    B second;
};

template <class A, class B> bool operator==(ORXBasPair<A, B> const& left, ORXBasPair<A, B> const& right)
{
    return left.first == right.first && left.second == right.second;
}
