#include "VtuWriter.h"

#include "ElementTypes.h"

#include <cstdint>
#include <fstream>
#include <sstream>

namespace orxsrv
{
namespace
{
// One array of the appended block: its XML attributes and its bytes.
struct DataArray
{
    std::string type, name;
    int components;
    std::string bytes;
};

template <class T>
DataArray Array(char const* type, char const* name, int components, std::vector<T> const& values)
{
    return {type, name, components,
            std::string(reinterpret_cast<char const*>(values.data()), values.size() * sizeof(T))};
}

// Per element: 1 where a finding names the element's class (a class without a section) or an
// element set that holds it.
std::vector<std::int32_t> FindingFlags(ModelDocument const& model, std::vector<std::string> const& findings)
{
    std::vector<std::int32_t> flags(model.elementLabels.size(), 0);
    bool classFinding = false;
    for (std::string const& finding : findings)
    {
        classFinding = classFinding || finding.find("Element Class :#") != std::string::npos;
        for (auto const& [name, members] : model.elementSetMembers)
            if (finding.find("\"" + name + "\"") != std::string::npos)
                for (int e : members)
                    flags[e] = 1;
    }
    if (classFinding)
        for (std::size_t e = 0; e < flags.size(); ++e)
        {
            int const c = model.elementClass.empty() ? -1 : model.elementClass[e];
            if (c >= 0 && model.classWithoutSection[c])
                flags[e] = 1;
        }
    return flags;
}
} // namespace

VtuCounts WriteVtu(std::string const& path, ModelDocument const& model,
                   std::vector<std::string> const& findings)
{
    VtuCounts counts;
    std::vector<std::int64_t> connectivity, offsets;
    std::vector<std::uint8_t> types;
    std::vector<std::int32_t> labels, typeIndex, section, material, finding;
    std::vector<std::int32_t> const flags = FindingFlags(model, findings);
    for (std::size_t e = 0; e < model.elementLabels.size(); ++e)
    {
        ElementType const* type = FindElementType(model.typeNames[model.elementType[e]]);
        int const nodes = model.elementOffsets[e + 1] - model.elementOffsets[e];
        if (!type || type->nodes != nodes)
        {
            ++counts.leftOut;
            continue;
        }
        for (int n = 0; n < nodes; ++n)
            connectivity.push_back(model.connectivity[model.elementOffsets[e] + n]);
        offsets.push_back(static_cast<std::int64_t>(connectivity.size()));
        types.push_back(static_cast<std::uint8_t>(type->vtkCell));
        labels.push_back(model.elementLabels[e]);
        typeIndex.push_back(model.elementType[e]);
        section.push_back(model.elementSection[e]);
        material.push_back(model.elementMaterial[e]);
        finding.push_back(flags[e]);
        ++counts.written;
    }
    std::vector<std::int32_t> const nodeLabels(model.nodeLabels.begin(), model.nodeLabels.end());

    std::vector<DataArray> const pointData = {Array("Int32", "node_label", 1, nodeLabels)};
    std::vector<DataArray> const points = {Array("Float64", "Points", 3, model.coordinates)};
    std::vector<DataArray> const cells = {Array("Int64", "connectivity", 1, connectivity),
                                          Array("Int64", "offsets", 1, offsets),
                                          Array("UInt8", "types", 1, types)};
    std::vector<DataArray> const cellData = {
        Array("Int32", "element_label", 1, labels), Array("Int32", "element_type", 1, typeIndex),
        Array("Int32", "section", 1, section), Array("Int32", "material", 1, material),
        Array("Int32", "finding", 1, finding)};

    // The appended blocks go in the reverse of the order the arrays are described in, so that the
    // offsets fall as the document goes on: readers that look arrays up by the text of their offset
    // while renumbering them then never meet a renumbered array first.
    std::vector<DataArray const*> described;
    for (auto const* group : {&pointData, &cellData, &points, &cells})
        for (DataArray const& a : *group)
            described.push_back(&a);
    std::vector<std::uint64_t> blockOffsets(described.size());
    std::uint64_t offset = 0;
    for (std::size_t i = described.size(); i-- > 0;)
    {
        blockOffsets[i] = offset;
        offset += sizeof(std::uint64_t) + described[i]->bytes.size();
    }
    std::ostringstream xml;
    std::size_t next = 0;
    auto describe = [&](std::vector<DataArray> const& arrays)
    {
        for (DataArray const& a : arrays)
        {
            xml << "        <DataArray type=\"" << a.type << "\" Name=\"" << a.name << "\"";
            if (a.components > 1)
                xml << " NumberOfComponents=\"" << a.components << "\"";
            xml << " format=\"appended\" offset=\"" << blockOffsets[next++] << "\"/>\n";
        }
    };
    xml << "<?xml version=\"1.0\"?>\n"
        << "<VTKFile type=\"UnstructuredGrid\" version=\"1.0\" byte_order=\"LittleEndian\" "
           "header_type=\"UInt64\">\n"
        << "  <UnstructuredGrid>\n"
        << "    <Piece NumberOfPoints=\"" << model.nodeLabels.size() << "\" NumberOfCells=\""
        << counts.written << "\">\n      <PointData>\n";
    describe(pointData);
    xml << "      </PointData>\n      <CellData>\n";
    describe(cellData);
    xml << "      </CellData>\n      <Points>\n";
    describe(points);
    xml << "      </Points>\n      <Cells>\n";
    describe(cells);
    xml << "      </Cells>\n    </Piece>\n  </UnstructuredGrid>\n  <AppendedData encoding=\"raw\">\n   _";

    std::ofstream file(path, std::ios::binary);
    if (!file)
        throw InputError{path + ": cannot write the mesh file"};
    file << xml.str();
    for (std::size_t i = described.size(); i-- > 0;)
    {
        std::uint64_t const size = described[i]->bytes.size();
        file.write(reinterpret_cast<char const*>(&size), sizeof size);
        file.write(described[i]->bytes.data(), static_cast<std::streamsize>(size));
    }
    file << "\n  </AppendedData>\n</VTKFile>\n";
    if (!file)
        throw InputError{path + ": cannot write the mesh file"};
    return counts;
}
} // namespace orxsrv
