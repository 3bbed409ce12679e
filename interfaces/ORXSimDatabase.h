#pragma once
// A shared handle on one document (open database). All copies share one state, so Close() on any
// copy makes IsClosed() true on every copy. ORXObjDocument derives from it.
//
// Seam for the document layer: CreateNew() opens a new, empty in-memory document whose focus
// record (type vds_CoreFragmentTypeIndex(15, 0)) exists; ORXObjDocument::New() builds on it, and
// ORXObjDocument(position) reaches the same shared state through ORXSimDatabase(position).
// Operations on positions of a closed document raise ORXSimDatabaseException.
#include "ORXSimContextID.h"

class ORXSimContext;
class ORXSimDatabaseReprBase;
class ORXSimPosition;

class ORXSimDatabase
{
public:
    // A null document.
    ORXSimDatabase();
    // The document of that position; a null document for a null position.
    explicit ORXSimDatabase(ORXSimPosition const& position);
    ORXSimDatabase(ORXSimDatabase const& other);
    ORXSimDatabase& operator=(ORXSimDatabase const& other);
    ~ORXSimDatabase();

    // Opens a new, empty document with its focus record.
    static ORXSimDatabase CreateNew();
    // Closes the document and releases its content; idempotent.
    void Close();
    bool IsClosed() const;
    bool IsNull() const { return m_repr == nullptr; }

    ORXSimContextID ContextID() const;
    // The root record; a null position for a null or closed document.
    ORXSimPosition Focus() const;
    ORXSimContext Context() const;

private:
    ORXSimDatabaseReprBase* m_repr;
};
