#pragma once
// A stored document: the database handle seen through its well-known records. The focus (Focus(),
// from the database) is the root record; it links the model and the library record, which holds the
// document's shared collections (element spec records, components, degree-of-freedom types,
// materials, points). Copies share the document; closing it is seen by every copy.
#include "ORXSimCollectionID.h"
#include "ORXSimDataRecord.h"
#include "ORXSimDatabase.h"
#include "ORXSimDistributionID.h"
#include "ORXSimPosition.h"
#include "ORXSimTypeID.h"
#include "ORXString.h"

class ORXSimGrid;
class ORXSimRangeType;

class ORXObjDocument : public ORXSimDatabase
{
public:
    // The null document.
    ORXObjDocument() = default;
    // The document that holds the position.
    ORXObjDocument(ORXSimPosition const& position);
    ORXObjDocument(ORXSimDatabase const& database);

    // A new, open, empty in-memory document: its focus record exists and nothing else.
    static ORXObjDocument New();
    // Closes the document and drops its labels; IsClosed() is true from then on, on every copy.
    void Close();
    // True once the document is closed, and for the null document: writers test it first and then
    // leave the document alone.
    bool IsClosed() const;

    // The model, Document_model (25, 1) of the focus.
    ORXSimPosition GetModel() const;
    void SetModel(ORXSimPosition const& model) const;
    // The model's mesh.
    ORXSimPosition GetMesh() const;
    // The results root, associated with the focus under Focus_results (15, 1), key 1.
    ORXSimPosition GetResults() const;
    void SetResults(ORXSimPosition const& results) const;

    // The collections of the library record, Focus_library (15, 9) of the focus. The setters make
    // the library record when it is missing.
    ORXSimPosition GetElementSpecCollection() const;
    ORXSimPosition GetComponentCollection() const;
    ORXSimPosition GetDofTypeCollection() const;
    ORXSimPosition GetMaterialCollection() const;
    ORXSimPosition GetPointCollection() const;
    void SetElementSpecCollection(ORXSimPosition const& collection) const;
    void SetComponentCollection(ORXSimPosition const& collection) const;
    void SetDofTypeCollection(ORXSimPosition const& collection) const;
    void SetMaterialCollection(ORXSimPosition const& collection) const;
    void SetPointCollection(ORXSimPosition const& collection) const;

    // The record at that index of the collection, and the reverse.
    ORXSimPosition GetRecord(ORXSimCollectionID const& collection, int index) const;
    int GetCMemberIndex(ORXSimPosition const& record) const;
    // The member of that type whose symbol text is `name` in the collection; a null identity if
    // there is none (an empty name included).
    ORXSimDynamicID GetSymbol(int type, ORXString const& name, ORXSimCollectionID const& collection) const;

    ORXSimDataRecord CreateDataRecord(int type) const;
    // A new distribution of the document, as the context makes it.
    ORXSimDistributionID CreateDistribution(ORXSimGrid const& grid, ORXSimRangeType const& rangeType,
                                            ORXSimTypeID const& type) const;

private:
    ORXSimPosition GetLibraryMember(int member) const;
    void SetLibraryMember(int member, ORXSimPosition const& collection) const;
};
