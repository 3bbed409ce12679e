#pragma once
// An ordered map of unique keys: a typed shell over ORXBasTreeGeneric holding ORXBasPair<K const, V>
// elements, ordered by ORXBasComparitor<K> (operator< of K). Elements never move; iterators stay
// valid until clear().
#include "ORXBasComparitor.h"
#include "ORXBasPair.h"
#include "ORXBasReplicator.h"
#include "ORXBasTreeGeneric.h"
#include "ORXBasTreeIterator.h"

#include <cstddef>
#include <cstdint>

template <class K, class V> class ORXBasMap
{
public:
    typedef K key_type;
    typedef V mapped_type;
    typedef ORXBasPair<K const, V> value_type;
    typedef ORXBasTreeIterator<value_type, value_type&, value_type*> iterator;
    typedef ORXBasTreeIterator<value_type, value_type const&, value_type const*> const_iterator;

    ORXBasMap()
        : m_tree(NodeOffsets(), ORXBasGetReplicator<value_type>(), ORXBasComparitor<K>::GetComparitor(),
                 nullptr)
    {
    }
    ORXBasMap(ORXBasMap const& other) = default;
    ORXBasMap(ORXBasMap&& other) noexcept : ORXBasMap() { m_tree.swap(other.m_tree); }
    ORXBasMap& operator=(ORXBasMap const& other) = default;
    // The old elements go at once, also when other lives inside one of them.
    ORXBasMap& operator=(ORXBasMap&& other) noexcept
    {
        ORXBasMap taken(static_cast<ORXBasMap&&>(other));
        swap(taken);
        return *this;
    }

    std::uint64_t size() const { return m_tree.Size(); }
    bool empty() const { return m_tree.Size() == 0; }
    void clear() { m_tree.Clear(); }
    void swap(ORXBasMap& other) { m_tree.swap(other.m_tree); }

    iterator begin() { return iterator(m_tree.Begin()); }
    iterator end() { return iterator(m_tree.End()); }
    const_iterator begin() const { return const_iterator(m_tree.Begin()); }
    const_iterator end() const { return const_iterator(m_tree.End()); }
    iterator find(K const& key) { return iterator(m_tree.Find(&key)); }
    const_iterator find(K const& key) const { return const_iterator(m_tree.Find(&key)); }

    // Inserts the element if its key is new (second true); an existing element stays unchanged.
    ORXBasPair<iterator, bool> insert(value_type const& element)
    {
        ORXBasPairIterBoolGeneric result = m_tree.InsertUnique(&element);
        return ORXBasPair<iterator, bool>(iterator(result.first), result.second);
    }
    // The element with the key: the existing one, or a new one holding value.
    iterator Insert(K const& key, V const& value) { return insert(value_type(key, value)).first; }

    // Node layout: the tree links, then the element at its alignment; the node rounded up to the
    // alignment of both.
    static constexpr ORXBasNodeOffsets NodeOffsets()
    {
        static_assert(alignof(value_type) <= alignof(std::max_align_t), "over-aligned map elements");
        constexpr std::size_t linkAlign = alignof(ORXBasTreeNodeGeneric);
        constexpr std::size_t valueAlign = alignof(value_type);
        constexpr std::size_t nodeAlign = valueAlign > linkAlign ? valueAlign : linkAlign;
        constexpr std::size_t valueOffset = RoundUp(sizeof(ORXBasTreeNodeGeneric), valueAlign);
        return ORXBasNodeOffsets(static_cast<int>(valueOffset),
                                 static_cast<int>(RoundUp(valueOffset + sizeof(value_type), nodeAlign)));
    }

private:
    static constexpr std::size_t RoundUp(std::size_t size, std::size_t alignment)
    {
        return (size + alignment - 1) / alignment * alignment;
    }

    ORXBasTreeGeneric<ORXBasNodeAllocator> m_tree;
};
