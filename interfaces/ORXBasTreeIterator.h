#pragma once
// Typed iterator over an ordered tree: Value is the element type, Reference and Pointer its access
// types (const or not). A mutable iterator converts to the const one.
#include "ORXBasTreeIteratorGeneric.h"

template <class Value, class Reference, class Pointer>
class ORXBasTreeIterator : public ORXBasTreeIteratorGeneric
{
public:
    ORXBasTreeIterator() = default;
    explicit ORXBasTreeIterator(ORXBasTreeIteratorGeneric const& position)
        : ORXBasTreeIteratorGeneric(position)
    {
    }
    ORXBasTreeIterator(ORXBasTreeIterator<Value, Value&, Value*> const& other)
        : ORXBasTreeIteratorGeneric(other)
    {
    }

    Reference operator*() const { return *static_cast<Pointer>(Dereference()); }
    Pointer operator->() const { return static_cast<Pointer>(Dereference()); }
    ORXBasTreeIterator& operator++()
    {
        Next();
        return *this;
    }
    ORXBasTreeIterator operator++(int)
    {
        ORXBasTreeIterator before(*this);
        Next();
        return before;
    }
    bool operator==(ORXBasTreeIterator const& other) const { return Equal(other); }
    bool operator!=(ORXBasTreeIterator const& other) const { return NotEqual(other); }
};
