#pragma once
// The in-memory store behind the ORXSim handles. Every open document is one ORXSimStoreContext,
// found from its ORXSimContextID through the process-wide registry ORXSimStore. Records and every
// other object that can be positioned keep their relations in an ORXSimStoreNode, keyed by the
// category and minors of their identity.
#include "ORXSimCSet.h"
#include "ORXSimCollectionID.h"
#include "ORXSimDSetID.h"
#include "ORXSimDistributionID.h"
#include "ORXSimDrawerID.h"
#include "ORXSimDynamicID.h"
#include "ORXSimFTableID.h"
#include "ORXSimIndexSet.h"
#include "ORXSimStoreMemberMap.h"
#include "ORXSimStoreNodeTable.h"
#include "ORXString.h"

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

class ORXSimDatabaseReprBase;
class ORXSimStoreDistribution;
class ORXSimStoreDSet;
class ORXSimStoreFTable;

// Maker of identities for the database's own use.
class ORXSimIdentityFactory
{
public:
    static ORXSimDynamicID Make(int category, ORXSimContextID context, int minor1, int minor2,
                                ORXSimTypeID type)
    {
        return ORXSimDynamicID(category, context, ORXSimDynamicDataID(minor1, minor2), type, 0);
    }
    static ORXSimCSetID CSet(ORXSimCollectionID const& collection, int minor)
    {
        return ORXSimCSetID(collection, minor);
    }
    static ORXSimDrawerID Drawer(ORXSimDistributionID const& distribution, int minor)
    {
        return ORXSimDrawerID(distribution, minor);
    }
};

struct ORXSimStoreKeyHash
{
    std::size_t operator()(ORXSimStoreKey const& k) const
    {
        return (static_cast<std::size_t>(static_cast<unsigned>(k.minor2)) * 0x9e3779b97f4a7c15ull) ^
               (static_cast<std::size_t>(static_cast<unsigned>(k.minor1)) << 20) ^
               static_cast<std::size_t>(k.category);
    }
};

// One holding of a record by a holder through a member, with the map key if it is a map entry.
struct ORXSimStoreHolding
{
    ORXSimDynamicID holder;
    int member;
    bool keyed;
    ORXString key;
};

// A record-valued set: unique members in insertion order.
struct ORXSimStoreSet
{
    std::vector<ORXSimDynamicID> items;
    std::unordered_set<ORXSimStoreKey, ORXSimStoreKeyHash> index;
    bool Add(ORXSimDynamicID const& id)
    {
        if (!index.insert(ORXSimStoreKey(id)).second)
            return false;
        items.push_back(id);
        return true;
    }
};
struct ORXSimStoreList
{
    std::vector<ORXSimDynamicID> items;
};
struct ORXSimStoreMap
{
    std::map<ORXString, ORXSimDynamicID> items;
};

// A plain field of a data record.
struct ORXSimStoreField
{
    enum Kind
    {
        Int,
        Symb,
        Double,
        DoubleArray,
        String,
        Type
    };
    Kind kind = Int;
    int integer = 0;
    double real = 0.0;
    std::vector<double> reals;
    ORXString text;
};

// Relations and plain data of one object.
struct ORXSimStoreNode
{
    ORXString name;
    bool hasSymbol = false;
    int symbol = -1;
    ORXString symbolName;
    ORXSimStoreMemberMap<ORXSimStoreField> fields;
    ORXSimStoreMemberMap<ORXSimDynamicID> links;
    ORXSimStoreMemberMap<std::shared_ptr<ORXSimStoreSet>> sets;
    ORXSimStoreMemberMap<std::shared_ptr<ORXSimStoreList>> lists;
    ORXSimStoreMemberMap<std::shared_ptr<ORXSimStoreMap>> maps;
    std::map<std::pair<int, int>, ORXSimDynamicID> associations;
    std::vector<ORXSimStoreHolding> holdings;
};

// A CSet registered with a collection.
struct ORXSimStoreRegisteredCSet
{
    ORXSimIndexSetPtr members;
    bool temporary;
};

struct ORXSimStoreCollection
{
    ORXSimTypeID type;
    int space = 0;
    std::vector<ORXSimStoreRegisteredCSet> csets; // by set minor; minor 0 is the empty set
    std::unordered_multimap<std::size_t, int> bySequence;
    std::unordered_map<int, int> memberBySymbol;
    std::unordered_map<std::string, int> memberBySymbolName;
};

class ORXSimStoreContext
{
public:
    ORXSimStoreContext(ORXSimContextID id, ORXSimDatabaseReprBase* repr);
    ~ORXSimStoreContext();
    ORXSimStoreContext(ORXSimStoreContext const&) = delete;
    ORXSimStoreContext& operator=(ORXSimStoreContext const&) = delete;

    ORXSimContextID ID() const { return m_id; }
    ORXSimDatabaseReprBase* Repr() const { return m_repr; }
    ORXSimDynamicID Focus() const { return m_focus; }

    // Objects: made here, checked to exist (raising otherwise).
    ORXSimDynamicID NewRecord(int type);
    ORXSimCollectionID NewCollection(int space, ORXSimTypeID type);
    bool Exists(ORXSimDynamicID const& id) const;
    void RequireExists(ORXSimDynamicID const& id) const;

    // Relations of an object; Node() makes an empty node on first use.
    ORXSimStoreNode* FindNode(ORXSimDynamicID const& id);
    ORXSimStoreNode& Node(ORXSimDynamicID const& id);
    void AddHolding(ORXSimDynamicID const& target, ORXSimDynamicID const& holder, int member,
                    ORXString const* key);
    void RemoveHolding(ORXSimDynamicID const& target, ORXSimDynamicID const& holder, int member,
                       ORXString const* key);

    ORXSimStoreCollection& Collection(ORXSimCollectionID const& id);
    // Raises if a member lies outside the collection's space.
    void CheckInSpace(ORXSimCollectionID const& collection, ORXSimIndexSet const* members);
    // Registers member data with the collection; a temporary set reuses a registered twin.
    ORXSimCSetID Register(ORXSimCollectionID const& collection, ORXSimIndexSetPtr const& members,
                          bool temporary);
    // The registered set with those members in that order; a null identity if none.
    ORXSimCSetID Seek(ORXSimCollectionID const& collection, ORXSimIndexSet const* members);
    ORXSimIndexSetPtr Members(ORXSimCSetID const& id);

    ORXSimStoreDistribution& Distribution(ORXSimDistributionID const& id);
    ORXSimDistributionID AddDistribution(std::unique_ptr<ORXSimStoreDistribution> distribution,
                                         ORXSimTypeID type);
    ORXSimStoreDSet& DSet(ORXSimDSetID const& id);
    ORXSimDSetID AddDSet(std::unique_ptr<ORXSimStoreDSet> dset, ORXSimTypeID type);
    ORXSimStoreFTable& FTable(ORXSimFTableID const& id);
    ORXSimFTableID AddFTable(std::unique_ptr<ORXSimStoreFTable> table, ORXSimTypeID type);

private:
    ORXSimContextID m_id;
    ORXSimDatabaseReprBase* m_repr;
    ORXSimDynamicID m_focus;
    std::vector<int> m_recordTypes;
    ORXSimStoreNodeTable m_nodes;
    std::vector<ORXSimStoreCollection> m_collections;
    std::vector<std::unique_ptr<ORXSimStoreDistribution>> m_distributions;
    std::vector<std::unique_ptr<ORXSimStoreDSet>> m_dsets;
    std::vector<std::unique_ptr<ORXSimStoreFTable>> m_ftables;
};

// The process-wide registry of open documents.
class ORXSimStore
{
public:
    // Opens a new document; its state is owned by the registry until Close.
    static ORXSimStoreContext& Open(ORXSimDatabaseReprBase* repr);
    static void Close(ORXSimContextID id);
    // The open document; raises for a null, unknown or closed context.
    static ORXSimStoreContext& Get(ORXSimContextID id);
    static ORXSimStoreContext* Find(ORXSimContextID id);
    static ORXSimStoreContext& Get(ORXSimDynamicID const& id) { return Get(id.ContextID()); }
};

// Raises ORXSimDatabaseException with that text.
[[noreturn]] void ORXSimRaise(ORXString const& text);
// Text of an identity for messages, such as "collection 3".
ORXString ORXSimDescribe(ORXSimDynamicID const& id);
ORXString ORXSimNumberText(long long value);

// Reference counting of the shared states behind the handles (each has a public refCount).
template <class T> T* ORXSimShare(T* state)
{
    if (state)
        ++state->refCount;
    return state;
}
template <class T> void ORXSimDrop(T* state)
{
    if (state && --state->refCount == 0)
        delete state;
}
// The referring record must exist in the same open document as the holder.
void ORXSimRequireTarget(ORXSimStoreContext& store, ORXSimDynamicID const& target);
