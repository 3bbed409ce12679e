#pragma once
// How many section points each layer of each shell section of a document has. The answers are
// gathered once, on the first question, either from the layer records of the sections (a model
// without bulk shell record) or from the bulk section-point distribution, never from both.
#include "ORXBasMap.h"
#include "ORXObjDocument.h"
#include "ORXSimPosition.h"

class ORXSrvShellSectionPoints
{
public:
    explicit ORXSrvShellSectionPoints(ORXObjDocument document);
    // The number of points of that layer of the section; 0 when it is not known.
    int GetNumSectionPoints(ORXSimPosition section, int layer) const;

private:
    // Records a count; a (section, layer) pair keeps its first count.
    void AddPoints(ORXSimPosition section, int layer, int points) const;
    void UpdateMap() const;

    ORXObjDocument m_document;
    mutable ORXBasMap<ORXSimPosition, ORXBasMap<int, int>> m_points;
    mutable bool m_mapBuilt;
};
