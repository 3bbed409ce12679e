#include "ORXSrvElementConnectivity.h"

#include "ORXSimContext.h"
#include "ORXSimDSet.h"
#include "ORXSimDistribution.h"
#include "ORXSimTransfer.h"
#include "ORXSrvChecks.h"

#include <cstdint>

ORXSrvElementConnectivity::ORXSrvElementConnectivity() : m_chunkSize(0) {}

ORXSrvElementConnectivity::ORXSrvElementConnectivity(ORXSimPosition const& position,
                                                     ORXSimBtree<ORXSimDynamicID, int> const& chunkSizes)
    : m_chunkSize(0), m_chunkSizes(chunkSizes), m_connectivityID(position.GetDSet())
{
}

ORXSrvElementConnectivity::ORXSrvElementConnectivity(ORXSimPosition const& position, int chunkSize)
    : m_chunkSize(chunkSize), m_connectivityID(position.GetDSet())
{
}

int ORXSrvElementConnectivity::Read(ORXSimCSet const& elements, ORXSimCSet const& locals, int* buffer) const
{
    ORXSimDSet connectivity(m_connectivityID);
    ORXSimDistribution distribution(connectivity.GetRelationalDistributionID());
    ORXSimTransfer transfer(distribution);
    transfer.SetRead().SetBufferPadding(false).SetDim(0, elements).SetDim(1, locals);
    transfer.CheckView();
    std::uint64_t len = static_cast<std::int64_t>(static_cast<int>(transfer.RequiredBufferSize(0)));
    transfer.SetBuffer(0, buffer, len);
    transfer.ExecRead();
    transfer.RelinquishBuffers();
    return static_cast<int>(len);
}

int ORXSrvElementConnectivity::Append(ORXSimTransaction& transaction, ORXSimDynamicID const& kind,
                                      ORXSimCSetID const& elements, ORXSimCSetID const& locals,
                                      int const* data)
{
    ORXSimDSet connectivity(m_connectivityID);
    ORXSimDistributionID rdistribution = connectivity.GetRelationalDistributionID();
    ORXSrvFatalCheck(rdistribution.IsNull() == false);
    ORXSimDistribution distribution(rdistribution);

    ORXSimDrawerID drawer;
    if (m_drawerIndices.IsMember(kind))
        drawer = m_drawers.ConstGet(m_drawerIndices.Get(kind));
    else
    {
        // A chunk covers chunks[0] elements with all their nodes; a per-kind size wins over the
        // default, which is only needed, and checked, when the kind has none.
        ORXSimArray<int, ORXSimArrayBuiltinPolicy<int>> chunks(2, 0);
        if (m_chunkSizes.IsMember(kind))
            chunks[0] = m_chunkSizes.Get(kind);
        else
        {
            ORXSrvFatalCheck(m_chunkSize != 0);
            chunks[0] = m_chunkSize;
        }
        chunks[1] = ORXSimCSet(locals).Size();
        ORXSimTransfer make(distribution);
        make.SetMakeNewDrawerChunked(chunks).SetBufferPadding(false).SetExtendableDim(0);
        make.SetDim(0, ORXSimCSet(elements).AscendingID()).SetDim(1, locals);
        make.CheckView();
        make.ExecMake();
        drawer = make.DrawerID();

        int index = m_drawerIndices.Size();
        m_drawerIndices.Insert(kind, index, false);
        m_drawers.SetSize(index + 1);
        m_drawers.Get(index) = drawer;
    }

    ORXSimTransfer write(distribution);
    write.SetWrite().SetAutoExtend().SetBufferPadding(false).SetDrawer(drawer);
    write.SetDim(0, elements).SetDim(1, locals);
    write.CheckView();
    std::uint64_t len = static_cast<std::int64_t>(static_cast<int>(write.RequiredBufferSize(0)));
    write.SetBuffer(0, const_cast<int*>(data), len);
    write.ExecWrite();
    write.RelinquishBuffers();

    // The DSet's membership follows the elements just written.
    ORXSimContext(transaction.ContextID()).UpdateDSet(m_connectivityID, rdistribution);
    return static_cast<int>(len);
}
