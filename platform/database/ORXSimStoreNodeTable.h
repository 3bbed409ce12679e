#pragma once
// The nodes of one open document by the key of their object. Records and collection members, the
// objects that have nodes by the thousand, find theirs by index in dense lists, in the order they
// were made, so that records made together are looked up together; any other object through an
// open-addressing table, with one hash and usually one probe. Nodes are made on first use and live
// as long as the table; their addresses never change.
#include "ORXSimDynamicID.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

struct ORXSimStoreNode;

// What names an object inside one context.
struct ORXSimStoreKey
{
    int category;
    int minor1;
    int minor2;
    ORXSimStoreKey(int category, int minor1, int minor2) : category(category), minor1(minor1), minor2(minor2)
    {
    }
    explicit ORXSimStoreKey(ORXSimDynamicID const& id)
        : ORXSimStoreKey(id.Category(), id.Minor1().Value(), id.Minor2().Value())
    {
    }
    bool operator==(ORXSimStoreKey const& o) const
    {
        return category == o.category && minor1 == o.minor1 && minor2 == o.minor2;
    }
};

class ORXSimStoreNodeTable
{
public:
    ORXSimStoreNodeTable();
    ~ORXSimStoreNodeTable();
    ORXSimStoreNodeTable(ORXSimStoreNodeTable const&) = delete;
    ORXSimStoreNodeTable& operator=(ORXSimStoreNodeTable const&) = delete;

    // The node of that key; null if none was made.
    ORXSimStoreNode* Find(ORXSimStoreKey const& key) const;
    // The node of that key, made empty if there was none.
    ORXSimStoreNode& Get(ORXSimStoreKey const& key);

private:
    struct Slot
    {
        ORXSimStoreKey key;
        ORXSimStoreNode* node; // null for a free slot
    };
    // Records and collection members have their nodes in dense lists.
    static bool IsDense(ORXSimStoreKey const& key);
    // The dense list of such a key; null for a collection none of whose members has a node yet.
    std::vector<ORXSimStoreNode*> const* DenseList(ORXSimStoreKey const& key) const;
    std::size_t Home(ORXSimStoreKey const& key) const;
    // Doubles the slots and places every node anew.
    void Grow();

    std::vector<ORXSimStoreNode*> m_records;              // by record minor; null where none was made
    std::vector<std::vector<ORXSimStoreNode*>> m_members; // by collection, then member index
    std::vector<Slot> m_slots; // a power of two in number, never more than half in use
    int m_shift;               // 64 - log2 of the number of slots
    std::size_t m_hashed = 0;  // nodes placed in the slots
    std::vector<std::unique_ptr<ORXSimStoreNode>> m_nodes;
};
