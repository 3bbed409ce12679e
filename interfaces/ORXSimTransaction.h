#pragma once
// A transaction on one database. Changes are applied as they are made; Commit() marks them final.
// Copies share one state.
#include "ORXSimContextID.h"

class ORXSimTransactionRepr;

class ORXSimTransaction
{
public:
    explicit ORXSimTransaction(ORXSimContextID const& context);
    ORXSimTransaction(ORXSimTransaction const& other);
    ORXSimTransaction& operator=(ORXSimTransaction const& other);
    ~ORXSimTransaction();

    void Commit();
    bool IsCommitted() const;
    ORXSimContextID ContextID() const;

private:
    ORXSimTransactionRepr* m_repr;
};
