#include "ORXSimContext.h"

#include "ORXSimCMemberID.h"
#include "ORXSimStore.h"

ORXSimDynamicID ORXSimContext::GetRecord(ORXSimCollectionID const& collection, int index) const
{
    ORXSimStoreCollection& c = ORXSimStore::Get(m_context).Collection(collection);
    if (index < 0 || index >= c.space)
        ORXSimRaise(ORXString("index ") + ORXSimNumberText(index) + " lies outside " +
                    ORXSimDescribe(collection) + ", whose space is " + ORXSimNumberText(c.space));
    return ORXSimCMemberID(collection, index);
}

int ORXSimContext::GetCMemberIndex(ORXSimDynamicID const& record) const
{
    if (record.IsNull() || record.Category() != ORXSimDynamicID::CMemberCategory)
        return -1;
    return record.Minor2().Value();
}

namespace
{
void Membership(ORXSimDynamicID const* records, int count, ORXSimCollectionID& collection,
                ORXSimArray<int>& indices)
{
    indices.SetSize(count);
    collection = ORXSimCollectionID();
    for (int i = 0; i < count; ++i)
    {
        ORXSimDynamicID const& record = records[i];
        if (record.Category() != ORXSimDynamicID::CMemberCategory || record.IsNull())
            ORXSimRaise(ORXSimDescribe(record) + " (entry " + ORXSimNumberText(i) +
                        ") is no collection member");
        ORXSimCollectionID const own(record.ContextID(), record.Minor1(), record.TypeID(), 0);
        if (i == 0)
            collection = own;
        else if (own != collection)
            ORXSimRaise(ORXString("entry ") + ORXSimNumberText(i) + " lies in " + ORXSimDescribe(own) +
                        ", not in " + ORXSimDescribe(collection) + " like the first");
        indices.Get(i) = record.Minor2().Value();
    }
}
} // namespace

void ORXSimContext::GetCMembership(ORXSimArray<ORXSimDynamicID> const& records,
                                   ORXSimCollectionID& collection, ORXSimArray<int>& indices) const
{
    Membership(ORXSimArrayPointer(records), records.Size(), collection, indices);
}
