#pragma once
// Moves values between a caller's buffer and the drawers of one distribution. A transfer serves
// one operation: set the direction and options, then SetDim for every dimension of the grid (or
// SetDimExtension), CheckView(), RequiredBufferSize(), SetBuffer(), one Exec call, and
// RelinquishBuffers(). Buffers are packed with dimension 0 outermost; the rows of each dimension
// follow the order of the set given for it. CheckView() and the Exec calls raise
// ORXSimDatabaseException for a view the distribution cannot serve, and a transfer that fails a
// check writes nothing. The buffer stays the caller's.
#include "ORXSimArray.h"
#include "ORXSimCSet.h"
#include "ORXSimCSetID.h"
#include "ORXSimDistribution.h"
#include "ORXSimDrawerID.h"
#include "ORXSimTransientDrawer.h"
#include "ORXSimTypeKey.h"

class ORXSimTransferState;

class ORXSimTransfer
{
public:
    explicit ORXSimTransfer(ORXSimDistribution const& distribution);
    ~ORXSimTransfer();
    ORXSimTransfer(ORXSimTransfer const&) = delete;
    ORXSimTransfer& operator=(ORXSimTransfer const&) = delete;

    ORXSimTransfer& SetRead();
    ORXSimTransfer& SetWrite();
    ORXSimTransfer& SetDim(int dim, ORXSimCSetID const& set);
    ORXSimTransfer& SetDim(int dim, ORXSimCSet const& set);
    // With SetDrawer: new members for the drawer's extendable dimension (dimension 0 of a drawer
    // made without one); the other dimensions are the drawer's own. Replaces the SetDim calls.
    ORXSimTransfer& SetDimExtension(ORXSimCSetID const& members);
    ORXSimTransfer& SetDrawer(ORXSimDrawerID const& drawer);
    // On a write: members new to the drawer's extendable dimension are added to it.
    ORXSimTransfer& SetAutoExtend();
    ORXSimTransfer& SetMakeNewDrawer();
    ORXSimTransfer& SetMakeNewDrawerChunked(ORXSimArray<int> const& chunks);
    ORXSimTransfer& SetExtendableDim(int dim);
    // Buffers are always packed; padding is accepted and ignored.
    ORXSimTransfer& SetBufferPadding(bool padding);
    // Values in the buffer as this type (2 int, 4 double) instead of the range type's.
    ORXSimTransfer& SetBufferType(ORXSimTypeKey key);

    // Validates the view against the distribution and the drawer; raises if they do not fit.
    ORXSimTransfer& CheckView();
    // Bytes of that buffer for this view (buffer 0 when none is named).
    unsigned long long RequiredBufferSize(int buffer = 0) const;
    ORXSimTransfer& SetBuffer(int buffer, void* data, unsigned long long size);
    ORXSimTransfer& SetBuffer(void* data, unsigned long long size);

    ORXSimTransientDrawer const& ExecRead();
    void ExecWrite();
    void ExecMake();
    // After ExecMake, or a write that made its drawer: the new drawer.
    ORXSimDrawerID DrawerID() const;
    void RelinquishBuffers();

private:
    ORXSimTransferState* m_state;
};
