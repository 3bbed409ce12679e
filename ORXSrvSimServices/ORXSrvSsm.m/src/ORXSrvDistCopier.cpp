#include "ORXSrvDistCopier.h"

#include "ORXSimCMemberMap.h"
#include "ORXSimDistribution.h"
#include "ORXSimTransfer.h"
#include "ORXSrvChecks.h"
#include "mem_Entries.h"

#include <memory>

namespace
{
using CSetIDArray = ORXSimArray<ORXSimCSetID, ORXSimArrayCopyClassPolicy<ORXSimCSetID>>;
using DrawerDescArray =
    ORXSimArray<ORXSimPersistentDrawerDesc, ORXSimArrayClassPolicy<ORXSimPersistentDrawerDesc>>;

// The write-side CSets of one read drawer: each of its CSets carried over to the write side's
// collection by the member correspondence of that dimension, and registered there.
CSetIDArray MapDrawerCSets(CSetIDArray const& drawerCSets, CSetIDArray const& writeCSets,
                           CSetIDArray const& readCSets)
{
    CSetIDArray mapped(drawerCSets.Size(), 0);
    for (int i = 0; i < drawerCSets.Size(); ++i)
    {
        ORXSimCSet const readSet(readCSets[i]);
        ORXSimCSet const writeSet(writeCSets[i]);
        ORXBasSharedPtr<ORXSimCMemberMap> const map = ORXSimCMemberMap::Create(writeSet, readSet);
        mapped[i] = map->MapCSet(ORXSimCSet(drawerCSets[i])).RegisterWithCollection();
    }
    return mapped;
}

// Points the write transfer at its target drawer: a new one shaped like the read drawer, or, for an
// extendable read drawer, the write side's one drawer, grown by the new members.
void ChooseTargetDrawer(ORXSimTransfer& writeTrans, ORXSimPersistentDrawerDesc const& readDrawer,
                        DrawerDescArray const& writeDrwDescArray)
{
    ORXSimArray<int> chunks;
    readDrawer.ChunkSizes(chunks);
    if (readDrawer.ExtendableDim() > -1)
    {
        ORXSrvAssert(writeDrwDescArray.Size() == 0 || writeDrwDescArray.Size() == 1);
        if (writeDrwDescArray.Size() == 0)
        {
            if (readDrawer.IsChunked())
                writeTrans.SetMakeNewDrawerChunked(chunks).SetExtendableDim(readDrawer.ExtendableDim());
            else
                ORXSrvAssert("only chunked drawers are extendable" == 0);
        }
        else if (writeDrwDescArray.Size() == 1)
            writeTrans.SetAutoExtend().SetDrawer(writeDrwDescArray[0].DrawerID());
        else
            // clang-format off
            ORXSrvAssert("Extendable dimension in distribution being read, however >1 drawers exist in distributino being updated" ==0);
        // clang-format on
    }
    else if (readDrawer.IsChunked())
        writeTrans.SetMakeNewDrawerChunked(chunks).SetExtendableDim(0);
    else
        writeTrans.SetMakeNewDrawer();
}
} // namespace

void ORXSrvCopyDistribution(ORXSimDistributionID const& writeDistribution,
                            ORXSimDistributionID const& readDistribution, CSetIDArray const& writeCSets,
                            CSetIDArray const& readCSets, ORXSrvDistributionTransform const& transform)
{
    ORXSimDistribution const writeDist(writeDistribution);
    ORXSimDistribution const readDist(readDistribution);
    int const readDistDims = readDist.NumDimensions();
    if (writeDist.NumDimensions() != readDistDims)
        ORXSrvAssert("The dimensions of the two distributions must match" == 0);
    if (readCSets.Size() != readDistDims)
        ORXSrvAssert("CSets missing for all domains of distribution being read" == 0);
    if (writeCSets.Size() != readDistDims)
        ORXSrvAssert("CSets missing for all domains of distribution being written" == 0);

    DrawerDescArray readDrwDescArray(1, 0);
    readDist.QueryDrawers(readDrwDescArray);
    // The write side's drawers as they were before anything is written.
    DrawerDescArray writeDrwDescArray(1, 0);
    writeDist.QueryDrawers(writeDrwDescArray);

    for (int d = 0; d < readDrwDescArray.Size(); ++d)
    {
        ORXSimPersistentDrawerDesc const& readDrawer = readDrwDescArray[d];
        CSetIDArray drawerCSets;
        readDrawer.Domain().CSetIDs(drawerCSets);
        int const dim = drawerCSets.Size();
        ORXSrvAssert(dim == readDistDims);
        CSetIDArray array = MapDrawerCSets(drawerCSets, writeCSets, readCSets);

        ORXSimTransfer readTrans(readDist);
        readTrans.SetRead().SetBufferPadding(false);
        for (int j = 0; j < dim; ++j)
            readTrans.SetDim(j, drawerCSets[j]);
        readTrans.CheckView();
        int const bufferSize = static_cast<int>(readTrans.RequiredBufferSize(0));
        // Freed also when a check below raises.
        std::unique_ptr<void, void (*)(void*)> const owner(mem_Malloc(bufferSize), mem_Free);
        void* buffer = owner.get();
        readTrans.SetBuffer(0, buffer, bufferSize);
        readTrans.ExecRead();

        transform.Update(buffer, array);

        ORXSimTransfer writeTrans(writeDist);
        writeTrans.SetWrite().SetBufferPadding(false);
        ChooseTargetDrawer(writeTrans, readDrawer, writeDrwDescArray);
        for (int j = 0; j < dim; ++j)
            writeTrans.SetDim(j, array[j]);
        writeTrans.CheckView();
        // The read size went through int on purpose; the comparison widens it back.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wsign-compare"
        ORXSrvAssert(bufferSize == writeTrans.RequiredBufferSize());
#pragma GCC diagnostic pop
        writeTrans.SetBuffer(0, buffer, bufferSize);
        writeTrans.ExecWrite();

        writeTrans.RelinquishBuffers();
        readTrans.RelinquishBuffers();
    }
}
