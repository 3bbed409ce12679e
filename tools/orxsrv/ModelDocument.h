#pragma once
// The document orxsrv builds from a deck through the library's services, elaborates and checks;
// and what the report and the mesh file need of it.
#include "DeckModel.h"

#include <ORXSrvBasic.h>

#include <map>
#include <string>
#include <vector>

namespace orxsrv
{
struct ModelDocument
{
    ORXObjDocument doc;
    // Per distinct node (in ordinal order): label and coordinates.
    std::vector<int> nodeLabels;
    std::vector<double> coordinates;
    // Per distinct element (in ordinal order).
    std::vector<int> elementLabels;
    std::vector<int> elementType;     // index into typeNames
    std::vector<int> elementSection;  // index into the deck's sections, -1 if none
    std::vector<int> elementMaterial; // index into the deck's materials, -1 if none
    std::vector<int> connectivity;    // node ordinals, elementOffsets per element
    std::vector<int> elementOffsets;  // size elements + 1
    std::vector<std::string> typeNames;
    std::vector<int> typeCounts;
    std::vector<std::string> unknownTypes;
    std::map<std::string, std::vector<int>> elementSetMembers; // element ordinals per set
    std::vector<int> elementClass;                             // class ordinal per element, -1 if none
    std::vector<bool> classWithoutSection;                     // per class ordinal
    int inverseEntries = 0;
};

// Builds the document: mesh, sets, specifications, materials, sections and shell layers, steps; then
// the classification and the inverse connectivity. Throws InputError for what the deck gets wrong.
ModelDocument BuildDocument(DeckModel const& deck);
// The checker's findings on the document, in order.
std::vector<std::string> CheckDocument(ModelDocument const& model);
} // namespace orxsrv
