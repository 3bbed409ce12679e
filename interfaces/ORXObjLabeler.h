#pragma once
// User labels of a flattened mesh. A flattened mesh numbers its nodes and elements by flat-mesh
// ordinals; each ordinal belongs to one occurrence (instance) of a part and carries the user's label
// there. A host records that data per document with DefineInstance; a labeler reads a document's
// tables once (Read) and then answers queries from them: make, Read(), query, destroy.
#include "ORXBasVector.h"
#include "ORXObjDocument.h"
#include "ORXSimArray.h"
#include "ORXSimPosition.h"
#include "ORXString.h"

#include <memory>

// Which numbering a labeler covers: 0 for nodes, 1 for elements. An int, so that callers may pass
// the number itself as well as the named values.
typedef int ORXObjLabelerType;
enum ORXObjLabelerTypeEnm
{
    ORXObjLabelerNodes = 0,
    ORXObjLabelerElements = 1
};

class ORXObjLabelerTables;

class ORXObjLabeler
{
public:
    ORXObjLabeler(ORXObjDocument const& document, ORXObjLabelerType type);
    ORXObjLabeler(ORXSimPosition const& position, ORXObjLabelerType type);
    ~ORXObjLabeler();

    // Records that occurrence `instance` holds those flat-mesh ordinals (of nodes for type 0, of
    // elements for type 1) under those user labels. A second call for the same instance adds to it;
    // an ordinal given again takes the later label.
    static void DefineInstance(ORXObjDocument const& document, ORXObjLabelerType type,
                               ORXString const& instance, int const* ordinals, int const* labels, int count);

    // Loads the document's tables; comes before any query.
    void Read();

    // The instance names, in the order they were first defined.
    ORXSimArray<ORXString, ORXSimArrayClassPolicy<ORXString>> Occurrences() const;
    bool IsInstanceValid(ORXString const& instance) const;
    // The user's label of that flat-mesh ordinal in that instance; -1 if the instance lacks it.
    int GetInstanceLabel(ORXString const& instance, int ordinal) const;
    // The instance's labels in ascending order, each with its flat-mesh ordinal at the same place;
    // both vectors are empty for an unknown instance.
    void GetInstanceLabelsAndOrdinals(ORXString const& instance, ORXBasVector<int>& labels,
                                      ORXBasVector<int>& ordinals) const;
    // The instance that holds a flat-mesh ordinal (the first defined, should two claim it); false
    // and `instance` untouched if none does.
    bool GetOccurrenceForFlatMeshOrdinal(int ordinal, ORXString& instance) const;

private:
    ORXObjDocument m_document;
    ORXObjLabelerType m_type;
    std::shared_ptr<ORXObjLabelerTables const> m_tables;
};
