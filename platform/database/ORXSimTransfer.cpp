#include "ORXSimTransfer.h"

#include "ORXSimDrawerCopy.h"
#include "ORXSimIndexSet.h"
#include "ORXSimStore.h"
#include "ORXSimStoreDistribution.h"

#include <array>
#include <cstddef>
#include <memory>
#include <memory_resource>

// Everything one transfer was told, and what CheckView found.
class ORXSimTransferState
{
public:
    enum Direction
    {
        NoDirection,
        Read,
        Write
    };

    // The lists of a transfer come from a buffer inside it; grids of many dimensions reach the heap.
    std::array<std::byte, 768> arena;
    std::pmr::monotonic_buffer_resource memory{arena.data(), arena.size()};

    ORXSimDistributionID distribution;
    Direction direction = NoDirection;
    std::pmr::vector<ORXSimCSet> dims = std::pmr::vector<ORXSimCSet>(&memory);
    std::pmr::vector<bool> dimSet = std::pmr::vector<bool>(&memory);
    bool hasExtension = false;
    ORXSimCSet extension;
    bool hasDrawer = false;
    ORXSimDrawerID drawer;
    bool autoExtend = false;
    bool make = false;
    std::pmr::vector<int> chunks = std::pmr::vector<int>(&memory);
    int extendableDim = -1;
    ORXSimTypeKey bufferKey = -1;

    bool checked = false;
    // The checked view, one set per grid dimension.
    std::pmr::vector<ORXSimCSet> view = std::pmr::vector<ORXSimCSet>(&memory);
    int bufferValueSize = 0;
    unsigned long long required = 0;
    bool extends = false; // the write adds members to the drawer's extendable dimension
    int growDim = -1;     // that dimension (see GrowDim)

    void* buffer = nullptr;
    unsigned long long bufferSize = 0;
    bool bufferSet = false;

    ORXSimDrawerID made;
    ORXSimTransientDrawer transient;

    ORXSimStoreDistribution& Distribution()
    {
        return ORXSimStore::Get(distribution).Distribution(distribution);
    }
    // The dimension of target that a write may grow: its extendable one; with SetDimExtension, a
    // drawer made without one grows in its outermost dimension, 0.
    int GrowDim(ORXSimStoreDrawer const& target) const
    {
        return hasExtension && target.ExtendableDim() < 0 ? 0 : target.ExtendableDim();
    }
    void Check();
    void CheckBuffer() const;
    ORXSimStoreDrawer& MakeDrawer();
    void DoWrite();
    void DoRead();

private:
    void RequireHeld(ORXSimStoreDrawer const& drawer, int dim, int missing, char const* what) const;
};

namespace
{
ORXString Text(long long n)
{
    return ORXSimNumberText(n);
}

int ValueSizeOfKey(ORXSimTypeKey key)
{
    if (key == 4)
        return 8;
    if (key == 2 || key == 7)
        return 4;
    ORXSimRaise(ORXString("buffer type key ") + Text(key) + " is not supported (2, 4 and 7 are)");
}

// The ascending form of a set, shared when it ascends already (and so keeps its identity).
ORXSimCSet AscendingForm(ORXSimCSet const& set)
{
    if (set.IsAscending())
        return set;
    ORXSimIndexSet const* sorted = set.SortedData().Get();
    ORXSimIndexSetPtr unique = sorted->IsAscending()
                                   ? set.SortedData()
                                   : ORXSimIndexSet::MakeAscending(sorted->Data(), sorted->Count());
    return ORXSimCSet(ORXSimIdentityFactory::CSet(set.CollectionID(), -1), unique);
}
} // namespace

void ORXSimTransferState::RequireHeld(ORXSimStoreDrawer const& drawer, int dim, int missing,
                                      char const* what) const
{
    if (missing == 0)
        return;
    ORXSimRaise(ORXString(what) + ": dimension " + Text(dim) + " of the view has " + Text(missing) +
                " of its " + Text(view[dim].Size()) + " members of " +
                ORXSimDescribe(view[dim].CollectionID()) + " outside " + ORXSimDescribe(drawer.ID()) +
                ", which holds " + Text(drawer.Domain()[dim].Size()) + " members in that dimension");
}

void ORXSimTransferState::Check()
{
    ORXSimStoreDistribution& d = Distribution();
    int const n = d.NumDimensions();
    // The distribution is named only in the text of a failure.
    auto const name = [this] { return ORXSimDescribe(distribution); };
    if (make && hasDrawer)
        ORXSimRaise("a transfer on " + name() + " cannot both make a new drawer and name an existing one");
    if (!make && direction == NoDirection)
        ORXSimRaise("the transfer on " + name() +
                    " has no operation: call SetRead, SetWrite or a make option");
    if (direction == Write && !make && !hasDrawer)
        ORXSimRaise("a write to " + name() + " needs SetDrawer or a make option");
    ORXSimStoreDrawer* target = hasDrawer ? &d.Drawer(drawer) : nullptr;

    view.assign(n, ORXSimCSet());
    if (hasExtension)
    {
        if (!target || direction != Write)
            ORXSimRaise("SetDimExtension on " + name() + " needs SetWrite and SetDrawer");
        int const ext = GrowDim(*target);
        for (int i = 0; i < n; ++i)
            view[i] = target->Domain()[i];
        view[ext] = extension;
    }
    else
    {
        if (static_cast<int>(dims.size()) > n)
            ORXSimRaise(ORXString("the view sets ") + Text(static_cast<long long>(dims.size())) +
                        " dimensions, but " + name() + " has " + Text(n));
        for (int i = 0; i < n; ++i)
        {
            if (i >= static_cast<int>(dims.size()) || !dimSet[i])
                ORXSimRaise(ORXString("dimension ") + Text(i) + " of the view is not set; " + name() +
                            " has " + Text(n) + " dimensions and each needs SetDim");
            view[i] = dims[i];
        }
    }
    for (int i = 0; i < n; ++i)
        if (view[i].CollectionID() != d.grid[i])
            ORXSimRaise(
                ORXString("dimension ") + Text(i) + " of the view is a set of " +
                (view[i].CollectionID().ContextID().IsNull() ? ORXString("no collection")
                                                             : ORXSimDescribe(view[i].CollectionID())) +
                ", but dimension " + Text(i) + " of " + name() + " lies in " + ORXSimDescribe(d.grid[i]));

    if (make)
    {
        if (!chunks.empty() && static_cast<int>(chunks.size()) != n)
            ORXSimRaise(Text(static_cast<long long>(chunks.size())) +
                        ORXString(" chunk sizes were given for ") + name() + ", which has " + Text(n) +
                        " dimensions");
        if (extendableDim < -1 || extendableDim >= n)
            ORXSimRaise(ORXString("extendable dimension ") + Text(extendableDim) + " lies outside the " +
                        Text(n) + " dimensions of " + name());
    }
    bufferValueSize = ValueSizeOfKey(bufferKey >= 0 ? bufferKey : d.rangeKey);

    extends = false;
    if (target)
    {
        ORXSimDrawerCopy const plan(d.Layout(*target), d.ValueSize(), view, bufferValueSize);
        int const ext = growDim = GrowDim(*target);
        for (int i = 0; i < n; ++i)
        {
            int const missing = plan.Missing(i);
            // A read of a named drawer leaves the places it does not hold as the caller left them,
            // as a read over all drawers does.
            if (direction == Read)
                continue;
            if (!(autoExtend || hasExtension))
                RequireHeld(*target, i, missing, "write past the drawer without SetAutoExtend");
            else if (i == ext)
                extends = extends || missing > 0;
            else
                RequireHeld(*target, i, missing,
                            ext < 0 ? "write past a drawer that has no extendable dimension"
                                    : "write past the drawer outside its extendable dimension");
        }
    }
    required = static_cast<unsigned long long>(bufferValueSize);
    for (ORXSimCSet const& set : view)
        required *= static_cast<unsigned long long>(set.Size());
    checked = true;
}

void ORXSimTransferState::CheckBuffer() const
{
    if (required == 0 && (!bufferSet || bufferSize == 0))
        return;
    if (!bufferSet || !buffer)
        ORXSimRaise(ORXString("the view needs a buffer of ") + Text(static_cast<long long>(required)) +
                    " bytes, but none was given");
    if (bufferSize != required)
    {
        ORXString shape;
        for (std::size_t i = 0; i < view.size(); ++i)
            shape += (i ? ORXString(" x ") : ORXString()) + Text(view[i].Size());
        ORXSimRaise(ORXString("the buffer has ") + Text(static_cast<long long>(bufferSize)) +
                    " bytes, but the view (" + shape + " values of " + Text(bufferValueSize) +
                    " bytes) needs " + Text(static_cast<long long>(required)));
    }
}

ORXSimStoreDrawer& ORXSimTransferState::MakeDrawer()
{
    ORXSimStoreDistribution& d = Distribution();
    std::vector<ORXSimCSet> domain;
    domain.reserve(view.size());
    for (ORXSimCSet const& set : view)
        domain.push_back(AscendingForm(set));
    ORXSimDrawerID const id = ORXSimIdentityFactory::Drawer(distribution, static_cast<int>(d.drawers.size()));
    d.drawers.push_back(std::make_unique<ORXSimStoreDrawer>(
        id, std::move(domain), std::vector<int>(chunks.begin(), chunks.end()), extendableDim, d.ValueSize()));
    made = id;
    return *d.drawers.back();
}

void ORXSimTransferState::DoWrite()
{
    ORXSimStoreDistribution& d = Distribution();
    ORXSimStoreDrawer& target = make ? MakeDrawer() : d.Drawer(drawer);
    d.Forget(target);
    int const ext = growDim;
    if (extends)
    {
        ORXSimIndexSetPtr const added =
            ORXSimIndexSet::Difference(view[ext].SortedData().Get(), target.Domain()[ext].SortedData().Get());
        // The new rows need zeros only where this write leaves places of them out: it fills them
        // whole when it takes every other dimension whole.
        bool fillsNewRows = true;
        for (int i = 0; i < static_cast<int>(view.size()); ++i)
            if (i != ext)
                fillsNewRows = fillsNewRows && ORXSimDrawerCopy::WholeDimension(view[i], target.Domain()[i]);
        if (added)
            target.Extend(ext, added, !fillsNewRows);
    }
    ORXSimDrawerCopy const plan(d.Layout(target), d.ValueSize(), view, bufferValueSize);
    char* values = target.Values(!plan.CoversDrawer());
    plan.Run(static_cast<char*>(buffer), values, ORXSimDrawerCopy::FromBuffer);
}

void ORXSimTransferState::DoRead()
{
    ORXSimStoreDistribution& d = Distribution();
    unsigned long long filled = 0;
    for (auto& stored : d.drawers)
    {
        if (hasDrawer && stored->ID() != drawer)
            continue;
        char const* values = stored->Values();
        if (!values)
            continue;
        ORXSimDrawerCopy const plan(d.Layout(*stored), d.ValueSize(), view, bufferValueSize);
        filled += plan.Run(static_cast<char*>(buffer), const_cast<char*>(values), ORXSimDrawerCopy::ToBuffer);
    }
    transient.SetFilledItems(filled);
}

ORXSimTransfer::ORXSimTransfer(ORXSimDistribution const& distribution) : m_state(new ORXSimTransferState)
{
    m_state->distribution = distribution.ID();
    // Room for the dimensions of a grid at once, so that SetDim and CheckView do not regrow the lists.
    int const n = distribution.NumDimensions();
    m_state->dims.reserve(n);
    m_state->dimSet.reserve(n);
    m_state->view.reserve(n);
}

ORXSimTransfer::~ORXSimTransfer()
{
    delete m_state;
}

ORXSimTransfer& ORXSimTransfer::SetRead()
{
    m_state->direction = ORXSimTransferState::Read;
    return *this;
}

ORXSimTransfer& ORXSimTransfer::SetWrite()
{
    m_state->direction = ORXSimTransferState::Write;
    return *this;
}

ORXSimTransfer& ORXSimTransfer::SetDim(int dim, ORXSimCSetID const& set)
{
    return SetDim(dim, ORXSimCSet(set));
}

ORXSimTransfer& ORXSimTransfer::SetDim(int dim, ORXSimCSet const& set)
{
    if (dim < 0)
        ORXSimRaise(ORXString("SetDim was given dimension ") + ORXSimNumberText(dim));
    if (static_cast<int>(m_state->dims.size()) <= dim)
    {
        m_state->dims.resize(dim + 1);
        m_state->dimSet.resize(dim + 1, false);
    }
    m_state->dims[dim] = set;
    m_state->dimSet[dim] = true;
    m_state->checked = false;
    return *this;
}

ORXSimTransfer& ORXSimTransfer::SetDimExtension(ORXSimCSetID const& members)
{
    m_state->hasExtension = true;
    m_state->extension = ORXSimCSet(members);
    m_state->checked = false;
    return *this;
}

ORXSimTransfer& ORXSimTransfer::SetDrawer(ORXSimDrawerID const& drawer)
{
    m_state->hasDrawer = true;
    m_state->drawer = drawer;
    return *this;
}

ORXSimTransfer& ORXSimTransfer::SetAutoExtend()
{
    m_state->autoExtend = true;
    return *this;
}

ORXSimTransfer& ORXSimTransfer::SetMakeNewDrawer()
{
    m_state->make = true;
    m_state->chunks.clear();
    return *this;
}

ORXSimTransfer& ORXSimTransfer::SetMakeNewDrawerChunked(ORXSimArray<int> const& chunks)
{
    m_state->make = true;
    m_state->chunks.assign(ORXSimArrayPointer(chunks), ORXSimArrayPointer(chunks) + chunks.Size());
    return *this;
}

ORXSimTransfer& ORXSimTransfer::SetExtendableDim(int dim)
{
    m_state->extendableDim = dim;
    return *this;
}

ORXSimTransfer& ORXSimTransfer::SetBufferPadding(bool)
{
    return *this;
}

ORXSimTransfer& ORXSimTransfer::SetBufferType(ORXSimTypeKey key)
{
    ValueSizeOfKey(key);
    m_state->bufferKey = key;
    m_state->checked = false;
    return *this;
}

ORXSimTransfer& ORXSimTransfer::CheckView()
{
    m_state->Check();
    return *this;
}

unsigned long long ORXSimTransfer::RequiredBufferSize(int buffer) const
{
    if (!m_state->checked)
        m_state->Check();
    return buffer == 0 ? m_state->required : 0;
}

ORXSimTransfer& ORXSimTransfer::SetBuffer(int buffer, void* data, unsigned long long size)
{
    if (buffer != 0)
        ORXSimRaise(ORXString("buffer ") + ORXSimNumberText(buffer) +
                    " does not exist; transfers have buffer 0 only");
    m_state->buffer = data;
    m_state->bufferSize = size;
    m_state->bufferSet = true;
    return *this;
}

ORXSimTransfer& ORXSimTransfer::SetBuffer(void* data, unsigned long long size)
{
    return SetBuffer(0, data, size);
}

ORXSimTransientDrawer const& ORXSimTransfer::ExecRead()
{
    if (m_state->direction != ORXSimTransferState::Read || m_state->make)
        ORXSimRaise("ExecRead needs a transfer set up with SetRead and no make option");
    if (!m_state->checked)
        m_state->Check();
    m_state->CheckBuffer();
    m_state->DoRead();
    return m_state->transient;
}

void ORXSimTransfer::ExecWrite()
{
    if (m_state->direction != ORXSimTransferState::Write)
        ORXSimRaise("ExecWrite needs a transfer set up with SetWrite");
    if (!m_state->checked)
        m_state->Check();
    m_state->CheckBuffer();
    m_state->DoWrite();
}

void ORXSimTransfer::ExecMake()
{
    if (!m_state->make)
        ORXSimRaise("ExecMake needs SetMakeNewDrawer or SetMakeNewDrawerChunked");
    if (!m_state->checked)
        m_state->Check();
    m_state->MakeDrawer();
}

ORXSimDrawerID ORXSimTransfer::DrawerID() const
{
    return m_state->made;
}

void ORXSimTransfer::RelinquishBuffers()
{
    m_state->buffer = nullptr;
    m_state->bufferSize = 0;
    m_state->bufferSet = false;
}
