#include "ORXSimPosition.h"

#include "ORXSimAssociation.h"
#include "ORXSimCSet.h"
#include "ORXSimContext.h"
#include "ORXSimDataRecord.h"
#include "ORXSimDatabase.h"
#include "ORXSimMap.h"
#include "ORXSimSelectionList.h"
#include "ORXSimSelectionMap.h"
#include "ORXSimSelectionSet.h"
#include "ORXSimSet.h"
#include "ORXSimStore.h"
#include "ORXSimVector.h"

namespace
{
ORXSimDynamicID NullUnless(bool keep, ORXSimDynamicID const& id)
{
    return keep ? id : ORXSimDynamicID();
}

// The first holding of the record through member; null if there is none.
ORXSimStoreHolding const* FirstHolding(ORXSimPosition const& record, int member, bool keyedOnly)
{
    if (record.IsNull())
        return nullptr;
    ORXSimStoreNode* node = ORXSimStore::Get(record).FindNode(record);
    if (!node)
        return nullptr;
    for (ORXSimStoreHolding const& holding : node->holdings)
        if (holding.member == member && (holding.keyed || !keyedOnly))
            return &holding;
    return nullptr;
}
} // namespace

ORXSimPosition::ORXSimPosition(ORXSimCollectionID const& id) : ORXSimDynamicID(NullUnless(!id.IsNull(), id))
{
}
ORXSimPosition::ORXSimPosition(ORXSimCSetID const& id) : ORXSimDynamicID(NullUnless(!id.IsNull(), id)) {}
ORXSimPosition::ORXSimPosition(ORXSimDSetID const& id) : ORXSimDynamicID(NullUnless(!id.IsNull(), id)) {}
ORXSimPosition::ORXSimPosition(ORXSimDistributionID const& id) : ORXSimDynamicID(NullUnless(!id.IsNull(), id))
{
}
ORXSimPosition::ORXSimPosition(ORXSimFTableID const& id) : ORXSimDynamicID(NullUnless(!id.IsNull(), id)) {}

ORXSimPosition ORXSimPosition::Focus() const
{
    if (IsNull())
        return ORXSimPosition();
    return ORXSimStore::Get(*this).Focus();
}

ORXSimDatabase ORXSimPosition::Doc() const
{
    return ORXSimDatabase(*this);
}

ORXSimContext ORXSimPosition::Context() const
{
    return ORXSimContext(ContextID());
}

ORXSimPosition ORXSimPosition::GetPosition(int member) const
{
    if (IsNull())
        return ORXSimPosition();
    ORXSimStoreNode* node = ORXSimStore::Get(*this).FindNode(*this);
    if (!node)
        return ORXSimPosition();
    ORXSimDynamicID const* target = node->links.Find(member);
    return target ? ORXSimPosition(*target) : ORXSimPosition();
}

void ORXSimPosition::SetPosition(int member, ORXSimPosition const& target) const
{
    ORXSimStoreContext& store = ORXSimStore::Get(*this);
    if (!target.IsNull())
        ORXSimRequireTarget(store, target);
    ORXSimStoreNode& node = store.Node(*this);
    if (ORXSimDynamicID const* found = node.links.Find(member))
    {
        ORXSimDynamicID const old = *found;
        node.links.Erase(member);
        store.RemoveHolding(old, *this, member, nullptr);
    }
    if (target.IsNull())
        return;
    store.Node(*this).links[member] = target;
    store.AddHolding(target, *this, member, nullptr);
}

ORXSimSet ORXSimPosition::GetSet(int member) const
{
    if (IsNull())
        return ORXSimSet();
    auto& set = ORXSimStore::Get(*this).Node(*this).sets[member];
    if (!set)
        set = std::make_shared<ORXSimStoreSet>();
    return ORXSimSet(new ORXSimSelectionSet(*this, member, set));
}

ORXSimVector ORXSimPosition::GetVector(int member) const
{
    if (IsNull())
        return ORXSimVector();
    auto& list = ORXSimStore::Get(*this).Node(*this).lists[member];
    if (!list)
        list = std::make_shared<ORXSimStoreList>();
    return ORXSimVector(new ORXSimSelectionList(*this, member, list));
}

ORXSimMap ORXSimPosition::GetMap(int member) const
{
    if (IsNull())
        return ORXSimMap();
    auto& map = ORXSimStore::Get(*this).Node(*this).maps[member];
    if (!map)
        map = std::make_shared<ORXSimStoreMap>();
    return ORXSimMap(new ORXSimSelectionMap(*this, member, map));
}

ORXSimPosition ORXSimPosition::Follow(int member, int key) const
{
    if (IsNull())
        return ORXSimPosition();
    ORXSimStoreNode* node = ORXSimStore::Get(*this).FindNode(*this);
    if (!node)
        return ORXSimPosition();
    auto found = node->associations.find({member, key});
    return found == node->associations.end() ? ORXSimPosition() : ORXSimPosition(found->second);
}

ORXSimAssociation ORXSimPosition::Associate(int member, int key, ORXSimPosition const& target) const
{
    ORXSimStoreContext& store = ORXSimStore::Get(*this);
    ORXSimRequireTarget(store, target);
    ORXSimStoreNode& node = store.Node(*this);
    auto found = node.associations.find({member, key});
    if (found != node.associations.end())
    {
        ORXSimDynamicID const old = found->second;
        found->second = target;
        store.RemoveHolding(old, *this, member, nullptr);
    }
    else
        node.associations.emplace(std::make_pair(member, key), target);
    store.AddHolding(target, *this, member, nullptr);
    return ORXSimAssociation(*this, member, key, target);
}

ORXSimSet ORXSimPosition::ReferrersSet(int member) const
{
    std::vector<ORXSimDynamicID> holders;
    if (!IsNull())
        if (ORXSimStoreNode* node = ORXSimStore::Get(*this).FindNode(*this))
            for (ORXSimStoreHolding const& holding : node->holdings)
                if (holding.member == member)
                    holders.push_back(holding.holder);
    return ORXSimSet(new ORXSimSelectionSet(std::move(holders)));
}

ORXSimPosition ORXSimPosition::Parent(int member) const
{
    ORXSimStoreHolding const* holding = FirstHolding(*this, member, false);
    return holding ? ORXSimPosition(holding->holder) : ORXSimPosition();
}

ORXString ORXSimPosition::GetReferenceKey(int member) const
{
    ORXSimStoreHolding const* holding = FirstHolding(*this, member, true);
    return holding ? holding->key : ORXString();
}

ORXString ORXSimPosition::Name(int member) const
{
    if (member >= 0)
        return GetReferenceKey(member);
    if (IsNull())
        return ORXString();
    ORXSimStoreNode* node = ORXSimStore::Get(*this).FindNode(*this);
    return node ? node->name : ORXString();
}

void ORXSimPosition::SetName(ORXString const& name) const
{
    ORXSimStore::Get(*this).Node(*this).name = name;
}

bool ORXSimPosition::IsA(int type) const
{
    return !IsNull() && TypePosition() == type;
}

int ORXSimPosition::TypePosition() const
{
    return IsNull() ? -1 : TypeID().Value();
}

int ORXSimPosition::GetSymbolPosition() const
{
    if (IsNull())
        return -1;
    ORXSimStoreNode* node = ORXSimStore::Get(*this).FindNode(*this);
    return node && node->hasSymbol ? node->symbol : -1;
}

ORXString ORXSimPosition::GetSymbolName() const
{
    if (IsNull())
        return ORXString();
    ORXSimStoreNode* node = ORXSimStore::Get(*this).FindNode(*this);
    return node && node->hasSymbol ? node->symbolName : ORXString();
}

void ORXSimPosition::SetSymbol(int symbol, ORXString const& name) const
{
    ORXSimStoreContext& store = ORXSimStore::Get(*this);
    ORXSimStoreNode& node = store.Node(*this);
    if (Category() == CMemberCategory)
    {
        ORXSimStoreCollection& collection =
            store.Collection(ORXSimCollectionID(ContextID(), Minor1(), TypeID(), 0));
        int const index = Minor2().Value();
        if (node.hasSymbol)
        {
            auto bySymbol = collection.memberBySymbol.find(node.symbol);
            if (bySymbol != collection.memberBySymbol.end() && bySymbol->second == index)
                collection.memberBySymbol.erase(bySymbol);
            auto byName = collection.memberBySymbolName.find(node.symbolName.CStr());
            if (byName != collection.memberBySymbolName.end() && byName->second == index)
                collection.memberBySymbolName.erase(byName);
        }
        collection.memberBySymbol[symbol] = index;
        collection.memberBySymbolName[name.CStr()] = index;
    }
    node.hasSymbol = true;
    node.symbol = symbol;
    node.symbolName = name;
}

ORXSimCollectionID ORXSimPosition::GetCollection() const
{
    if (IsNull() || Category() != CollectionCategory)
        return ORXSimCollectionID();
    return ORXSimCollectionID(ContextID(), Minor2(), TypeID(), ExtraValue());
}

ORXSimCSetID ORXSimPosition::GetCSet() const
{
    return IsNull() ? ORXSimCSetID() : ORXSimCSetID(ID());
}
ORXSimDSetID ORXSimPosition::GetDSet() const
{
    return IsNull() ? ORXSimDSetID() : ORXSimDSetID(ID());
}
ORXSimDrawerID ORXSimPosition::GetDrawer() const
{
    return IsNull() ? ORXSimDrawerID() : ORXSimDrawerID(ID());
}
ORXSimFTableID ORXSimPosition::GetFTable() const
{
    return IsNull() ? ORXSimFTableID() : ORXSimFTableID(ID());
}

ORXSimDistributionID ORXSimPosition::GetDistribution() const
{
    if (IsNull() || Category() != DistributionCategory)
        return ORXSimDistributionID();
    return ORXSimDistributionID(ContextID(), Minor2(), TypeID(), ExtraValue());
}

ORXSimCSet ORXSimPosition::CSet() const
{
    return ORXSimCSet(GetCSet());
}

ORXSimDataRecord ORXSimPosition::DataRecord() const
{
    return ORXSimDataRecord(*this);
}
ORXSimDataRecord ORXSimPosition::GetDataRecord() const
{
    return ORXSimDataRecord(*this);
}

ORXSimDataRecord ORXSimPosition::CreateDataRecord(int type) const
{
    return ORXSimDataRecord(ORXSimPosition(ORXSimStore::Get(*this).NewRecord(type)));
}

ORXSimCollectionID ORXSimPosition::CreateTypedCollection(int space, int type) const
{
    return ORXSimStore::Get(*this).NewCollection(space, ORXSimTypeID(type));
}
