#pragma once
// What orxsrv reads from a keyword deck, as plain data: nodes, elements by type, sets, materials,
// sections and steps, each with the file and line it came from for messages.
#include <map>
#include <string>
#include <vector>

namespace orxsrv
{
// Where a piece of the deck was read: file and 1-based line.
struct Origin
{
    int file = 0;
    int line = 0;
};

struct ElementBlock
{
    std::string type; // as written, upper-cased
    int nodesPerElement = 0;
    std::vector<int> labels;
    std::vector<int> nodeLabels; // nodesPerElement per element
    std::vector<Origin> origins;
};

struct LabelSet
{
    std::vector<int> labels;
    Origin origin;
};

// One table of a material: rows of values, each possibly with a temperature at the end.
struct MaterialTable
{
    int columns = 0; // values per row without the temperature
    bool withTemperature = false;
    std::vector<std::vector<double>> rows;
};

struct Material
{
    std::string name;
    MaterialTable elastic, density, expansion;
};

struct Layer
{
    double thickness = 0;
    int points = 0;
    std::string material;
};

struct Section
{
    bool shell = false;
    std::string elset;
    std::string material;
    std::vector<Layer> layers; // shells: one per layer
    Origin origin;
};

struct DeckModel
{
    std::vector<std::string> files;
    std::vector<int> nodeLabels;
    std::vector<double> coordinates; // 3 per node
    std::vector<Origin> nodeOrigins;
    std::vector<ElementBlock> blocks;
    std::map<std::string, LabelSet> nodeSets, elementSets;
    std::vector<Material> materials;
    std::vector<Section> sections;
    std::vector<std::string> steps;
    std::vector<std::string> unknownKeywords; // first seen order, once each
    long long bytes = 0;                      // bytes of the deck and its includes
};

// An input error: a one-line message naming file and line.
struct InputError
{
    std::string message;
};
} // namespace orxsrv
