#pragma once
// From the global label of a node or element of a flattened model to its occurrence and its local
// label there. The global labels are loaded once from their distribution into a table from label
// to ordinal; each question then asks the labeler for the ordinal's occurrence.
#include "ORXBasOmiDefaultAllocator.h"
#include "ORXSimPosition.h"
#include "ORXSrvGetInstanceInfo.h"
#include "ORXString.h"
#include "omi_IntTable.h"

class ORXSrvGlobalLabelMap
{
public:
    ORXSrvGlobalLabelMap(ORXSimPosition focus, ORXSrvLabelerType labelerType);
    ~ORXSrvGlobalLabelMap();
    ORXSrvGlobalLabelMap(ORXSrvGlobalLabelMap const&) = delete;
    ORXSrvGlobalLabelMap& operator=(ORXSrvGlobalLabelMap const&) = delete;

    // Makes a table and loads it from the label distribution at the position.
    void Initialize(ORXSimPosition labels);
    // Takes over a table made with new; the map deletes it.
    void Initialize(omi_IntTable<int, ORXBasOmiDefaultAllocator> const& table);
    // Adds label to ordinal for every member of the first drawer of the distribution at position.
    void LoadGlobalLabels(ORXSimPosition position, omi_IntTable<int, ORXBasOmiDefaultAllocator>& table);
    // The occurrence and local label of a global label; false, both left alone, for an unknown one.
    bool GetInstanceLabel(int globalLabel, ORXString& instance, int& localLabel) const;
    ORXSimPosition Focus() const;

private:
    ORXSimPosition m_focus;
    ORXSrvLabelerType m_labelerType;
    omi_IntTable<int, ORXBasOmiDefaultAllocator>* m_labels;
};
