#include "ORXSimTransaction.h"

#include "ORXSimStore.h"

// Shared state of the handles of one transaction.
class ORXSimTransactionRepr
{
public:
    explicit ORXSimTransactionRepr(ORXSimContextID context) : context(context) {}
    ORXSimContextID context;
    bool committed = false;
    int refCount = 0;
};

ORXSimTransaction::ORXSimTransaction(ORXSimContextID const& context)
    : m_repr(ORXSimShare(new ORXSimTransactionRepr(context)))
{
    ORXSimStore::Get(context); // raises for a closed or unknown document
}
ORXSimTransaction::ORXSimTransaction(ORXSimTransaction const& other) : m_repr(ORXSimShare(other.m_repr)) {}
ORXSimTransaction& ORXSimTransaction::operator=(ORXSimTransaction const& other)
{
    ORXSimTransactionRepr* repr = ORXSimShare(other.m_repr);
    ORXSimDrop(m_repr);
    m_repr = repr;
    return *this;
}
ORXSimTransaction::~ORXSimTransaction()
{
    ORXSimDrop(m_repr);
}

void ORXSimTransaction::Commit()
{
    ORXSimStore::Get(m_repr->context);
    m_repr->committed = true;
}

bool ORXSimTransaction::IsCommitted() const
{
    return m_repr->committed;
}
ORXSimContextID ORXSimTransaction::ContextID() const
{
    return m_repr->context;
}
