#include "ModelDocument.h"

#include "ElementTypes.h"

#include <algorithm>
#include <unordered_map>

namespace orxsrv
{
namespace
{
int Schema(int group, int member)
{
    return vds_CoreFragmentTypeIndex(group, member);
}

typedef ORXSimArray<ORXSimCollectionID, ORXSimArrayCopyClassPolicy<ORXSimCollectionID>> CollectionIDs;

ORXSimGrid Grid(ORXSimCollectionID const& first, ORXSimCollectionID const& second)
{
    CollectionIDs grid(2, 0);
    grid.Get(0) = first;
    grid.Get(1) = second;
    return ORXSimGrid(grid);
}

std::string Where(DeckModel const& deck, Origin const& origin)
{
    return deck.files[origin.file] + ":" + std::to_string(origin.line) + ": ";
}

// Labels to ordinals: the ordinal of each distinct label in order of first appearance.
class LabelIndex
{
public:
    // Gives the ordinal of label, adding it; false if it was there already.
    bool Add(int label, int& ordinal)
    {
        auto const [entry, added] = m_ordinals.emplace(label, static_cast<int>(m_ordinals.size()));
        ordinal = entry->second;
        return added;
    }
    int Find(int label) const
    {
        auto const found = m_ordinals.find(label);
        return found == m_ordinals.end() ? -1 : found->second;
    }
    int Size() const { return static_cast<int>(m_ordinals.size()); }

private:
    std::unordered_map<int, int> m_ordinals;
};

struct Builder
{
    DeckModel const& deck;
    ModelDocument out;
    ORXSimPosition focus, model;
    ORXObjMesh mesh;
    ORXSimCollectionID nodes, elements, components, locals;
    LabelIndex nodeIndex, elementIndex;
    std::map<std::string, ORXSimPosition> elementSets;
    std::vector<ORXSimPosition> materials;
    std::vector<ORXSimPosition> assignments;

    explicit Builder(DeckModel const& d) : deck(d) {}

    void Mesh()
    {
        out.doc = ORXObjDocument::New();
        focus = out.doc.Focus();
        model = out.doc.CreateDataRecord(Schema(25, 1)).Pos();
        out.doc.SetModel(model);
        mesh = ORXObjMesh(out.doc.CreateDataRecord(Schema(20, 0)).Pos());
        ORXObjModel(model).SetMesh(mesh);

        // Nodes: a later definition of a label replaces an earlier one.
        for (std::size_t i = 0; i < deck.nodeLabels.size(); ++i)
        {
            int ordinal = 0;
            if (nodeIndex.Add(deck.nodeLabels[i], ordinal))
            {
                out.nodeLabels.push_back(deck.nodeLabels[i]);
                out.coordinates.insert(out.coordinates.end(), &deck.coordinates[3 * i],
                                       &deck.coordinates[3 * i] + 3);
            }
            else
                std::copy(&deck.coordinates[3 * i], &deck.coordinates[3 * i] + 3,
                          &out.coordinates[3 * ordinal]);
        }
        int const nodeCount = nodeIndex.Size();
        nodes = focus.CreateTypedCollection(std::max(nodeCount, 1), Schema(23, 91));
        components = focus.CreateTypedCollection(3, Schema(13, 5));
        mesh.SetNodeCollection(ORXSimPosition(nodes));
        char const* const componentNames[] = {"C_1", "C_2", "C_3"};
        int const componentPlaces[] = {0, 12, 20};
        for (int c = 0; c < 3; ++c)
            out.doc.GetRecord(components, c).SetSymbol(componentPlaces[c], componentNames[c]);
        out.doc.SetComponentCollection(ORXSimPosition(components));
        ORXSimDistributionID const coordinates =
            focus.CreateTypedDistribution(Grid(nodes, components), Schema(23, 121), ORXSimRangeType(4));
        mesh.SetCoordinates(ORXSimPosition(coordinates));
        ORXSimTransaction transaction(out.doc.ContextID());
        if (nodeCount > 0)
            ORXSrvNodalCoordinates(mesh.GetCoordinates(), 100000)
                .Append(transaction, ORXSimCollection(nodes).CreateTempCSetStrided(0, nodeCount),
                        ORXSimCollection(components).CreateTempCSetStrided(0, 3), out.coordinates.data());
        mesh.SetUserNodes(ORXSimPosition(ORXSimCollection(nodes).CreateCSetStrided(0, nodeCount)));

        Elements(transaction);
        transaction.Commit();
    }

    void Elements(ORXSimTransaction& transaction)
    {
        int total = 0, widest = 1;
        for (ElementBlock const& block : deck.blocks)
        {
            total += static_cast<int>(block.labels.size());
            widest = std::max(widest, block.nodesPerElement);
        }
        elements = focus.CreateTypedCollection(std::max(total, 1), Schema(23, 14));
        locals = focus.CreateTypedCollection(widest, Schema(23, 66));
        mesh.SetElementCollection(ORXSimPosition(elements));
        ORXSimDistributionID const connectivity =
            focus.CreateTypedDistribution(Grid(elements, locals), Schema(23, 59), ORXSimRangeType(7, nodes));
        mesh.SetConnectivity(
            ORXSimPosition(focus.Context().CreateDSet(connectivity, ORXSimTypeID(Schema(23, 58)))));
        ORXSrvElementConnectivity writer(mesh.GetConnectivity(), 100000);

        // One specification per element type, each pointing to the shape of its type.
        std::map<std::string, int> typeIndex;
        for (ElementBlock const& block : deck.blocks)
            if (typeIndex.emplace(block.type, static_cast<int>(out.typeNames.size())).second)
                out.typeNames.push_back(block.type);
        int const types = static_cast<int>(out.typeNames.size());
        out.typeCounts.assign(types, 0);
        ORXSimCollectionID const shapes = focus.CreateTypedCollection(64, Schema(23, 30));
        ORXSimCollectionID const specs = focus.CreateTypedCollection(std::max(types, 1), Schema(23, 40));
        out.doc.SetElementSpecCollection(ORXSimPosition(specs));
        std::vector<ORXSimDynamicID> kinds;
        for (int t = 0; t < types; ++t)
        {
            ElementType const* known = FindElementType(out.typeNames[t]);
            if (!known)
                out.unknownTypes.push_back(out.typeNames[t]);
            ElementType const& type = known ? *known : UnknownElementType();
            ORXSimPosition const shape = out.doc.GetRecord(shapes, type.shapePlace);
            shape.SetSymbol(type.shapePlace, type.shape);
            ORXSimPosition const spec = out.doc.GetRecord(specs, t);
            spec.SetPosition(Schema(23, 31), shape);
            focus.GetMap(Schema(23, 33)).Insert(out.typeNames[t].c_str(), spec);
            kinds.push_back(out.doc.CreateDataRecord(Schema(23, 20)).ID());
        }

        ORXSimArray<ORXSimCompartment, ORXSimArrayClassPolicy<ORXSimCompartment>> compartments;
        out.elementOffsets.push_back(0);
        for (ElementBlock const& block : deck.blocks)
        {
            if (block.labels.empty())
                continue;
            int const first = elementIndex.Size();
            std::vector<int> ordinals(block.nodeLabels.size());
            for (std::size_t e = 0; e < block.labels.size(); ++e)
            {
                int ordinal = 0;
                if (!elementIndex.Add(block.labels[e], ordinal))
                    throw InputError{Where(deck, block.origins[e]) + "element " +
                                     std::to_string(block.labels[e]) + " is defined twice"};
                for (int n = 0; n < block.nodesPerElement; ++n)
                {
                    std::size_t const at = e * block.nodesPerElement + n;
                    ordinals[at] = nodeIndex.Find(block.nodeLabels[at]);
                    if (ordinals[at] < 0)
                        throw InputError{Where(deck, block.origins[e]) + "element " +
                                         std::to_string(block.labels[e]) + " names node " +
                                         std::to_string(block.nodeLabels[at]) + ", which is not defined"};
                }
            }
            int const count = static_cast<int>(block.labels.size());
            int const type = typeIndex[block.type];
            ORXSimCSetID const run = ORXSimCollection(elements).CreateCSetStrided(first, count);
            writer.Append(transaction, kinds[type], run,
                          ORXSimCollection(locals).CreateTempCSetStrided(0, block.nodesPerElement),
                          ordinals.data());
            ORXSimArray<ORXSimCSetID, ORXSimArrayCopyClassPolicy<ORXSimCSetID>> pair(2, 0);
            pair.Get(0) = ORXSimCollection(specs).CreateCSet(&type, 1);
            pair.Get(1) = run;
            compartments.PushBack(ORXSimCompartment(pair));
            out.elementLabels.insert(out.elementLabels.end(), block.labels.begin(), block.labels.end());
            out.elementType.insert(out.elementType.end(), count, type);
            out.typeCounts[type] += count;
            out.connectivity.insert(out.connectivity.end(), ordinals.begin(), ordinals.end());
            for (int e = 0; e < count; ++e)
                out.elementOffsets.push_back(out.elementOffsets.back() + block.nodesPerElement);
        }
        mesh.SetElementSpecAssignment(
            ORXSimPosition(focus.CreateTypedDSet(ORXSimCtation(compartments), Schema(23, 50))));
        out.elementSection.assign(out.elementLabels.size(), -1);
        out.elementMaterial.assign(out.elementLabels.size(), -1);
    }

    // The ordinals of a set's labels; a label that names nothing is an input error.
    std::vector<int> Ordinals(std::string const& name, LabelSet const& set, LabelIndex const& index,
                              char const* kind) const
    {
        std::vector<int> ordinals;
        for (int label : set.labels)
        {
            int const ordinal = index.Find(label);
            if (ordinal < 0)
                throw InputError{Where(deck, set.origin) + kind + " set " + name + " names " + kind + " " +
                                 std::to_string(label) + ", which is not defined"};
            ordinals.push_back(ordinal);
        }
        return ordinals;
    }

    void Sets()
    {
        for (auto const& [name, set] : deck.nodeSets)
        {
            std::vector<int> const ordinals = Ordinals(name, set, nodeIndex, "node");
            model.GetMap(Schema(47, 7))
                .Insert(name.c_str(), ORXSimPosition(ORXSimCollection(nodes).CreateCSet(
                                          ordinals.data(), static_cast<int>(ordinals.size()))));
        }
        for (auto const& [name, set] : deck.elementSets)
        {
            std::vector<int> members = Ordinals(name, set, elementIndex, "element");
            ORXSimPosition const position(
                ORXSimCollection(elements).CreateCSet(members.data(), static_cast<int>(members.size())));
            model.GetMap(Schema(47, 5)).Insert(name.c_str(), position);
            elementSets[name] = position;
            std::sort(members.begin(), members.end());
            members.erase(std::unique(members.begin(), members.end()), members.end());
            out.elementSetMembers[name] = members;
        }
    }

    // One material record per material, with its elastic, density and expansion tables.
    void Materials()
    {
        ORXSimCollectionID const collection = focus.CreateTypedCollection(
            std::max<int>(1, static_cast<int>(deck.materials.size())), Schema(42, 1));
        out.doc.SetMaterialCollection(ORXSimPosition(collection));
        ORXSimTransaction transaction(out.doc.ContextID());
        for (std::size_t m = 0; m < deck.materials.size(); ++m)
        {
            Material const& material = deck.materials[m];
            ORXSimPosition record = out.doc.GetRecord(collection, static_cast<int>(m));
            record.SetName(material.name.c_str());
            SaveTable(transaction, record, material.elastic, 20);
            SaveTable(transaction, record, material.density, 21);
            SaveTable(transaction, record, material.expansion, 22);
            materials.push_back(record);
        }
        transaction.Commit();
    }

    void SaveTable(ORXSimTransaction& transaction, ORXSimPosition& record, MaterialTable const& table,
                   int member)
    {
        if (table.rows.empty())
            return;
        int const types[] = {Schema(42, 12), -1};
        int const members[] = {member};
        int const lengths[] = {table.columns};
        ORXSrvFsmMaterialTable kind(types, members, lengths, true, Schema(42, 13), member, Schema(42, 14),
                                    member);
        std::vector<double const*> rows;
        for (std::vector<double> const& row : table.rows)
            rows.push_back(row.data());
        kind.Save(transaction, record, focus.CreateTypedCollection(1, Schema(42, 40)),
                  focus.CreateTypedCollection(1, Schema(42, 41)),
                  focus.CreateTypedCollection(1, Schema(42, 42)), rows.data(), static_cast<int>(rows.size()),
                  table.withTemperature, 0, false);
    }

    int MaterialIndex(std::string const& name, Origin const& origin) const
    {
        for (std::size_t m = 0; m < deck.materials.size(); ++m)
            if (deck.materials[m].name == name)
                return static_cast<int>(m);
        throw InputError{Where(deck, origin) + "section names material " + name + ", which is not defined"};
    }

    void Sections()
    {
        int shells = 0;
        for (Section const& section : deck.sections)
            shells += section.shell ? 1 : 0;
        ORXSimCollectionID const shellSections =
            focus.CreateTypedCollection(std::max(shells, 1), Schema(50, 79));
        ORXSrvBulkShellLayers& layers = omi_Singleton<ORXSrvBulkShellLayers>::Instance();
        int shell = 0;
        for (std::size_t s = 0; s < deck.sections.size(); ++s)
        {
            Section const& section = deck.sections[s];
            auto const set = elementSets.find(section.elset);
            if (set == elementSets.end())
                throw InputError{Where(deck, section.origin) + "section names element set " + section.elset +
                                 ", which is not defined"};
            int const material =
                section.shell
                    ? MaterialIndex(section.layers.empty() ? "" : section.layers[0].material, section.origin)
                    : MaterialIndex(section.material, section.origin);
            ORXSimPosition const record = section.shell ? out.doc.GetRecord(shellSections, shell)
                                                        : out.doc.CreateDataRecord(Schema(50, 70)).Pos();
            record.SetName(("SECTION-" + std::to_string(s + 1)).c_str());
            focus.GetSet(Schema(15, 6)).Insert(record);
            if (section.shell)
            {
                record.DataRecord().SetInt(0, static_cast<int>(section.layers.size()));
                for (std::size_t l = 0; l < section.layers.size(); ++l)
                {
                    Layer const& layer = section.layers[l];
                    ORXSimPosition const layerRecord = out.doc.CreateDataRecord(Schema(21, 104)).Pos();
                    layerRecord.SetPosition(Schema(21, 105), out.doc.CreateDataRecord(Schema(21, 106)).Pos());
                    layerRecord.DataRecord().SetDouble(0, layer.thickness);
                    record.GetVector(Schema(50, 85)).PushBack(layerRecord);
                    int const l32 = static_cast<int>(l);
                    layers.AppendConstThickness(l32, shell, layer.thickness);
                    layers.AppendMaterial(l32, shell, MaterialIndex(layer.material, section.origin));
                    layers.AppendNumSectionPoints(l32, shell, layer.points);
                }
                ++shell;
            }
            ORXSimPosition const assignment = out.doc.CreateDataRecord(Schema(50, 48)).Pos();
            ORXSimPosition const region = out.doc.CreateDataRecord(Schema(47, 28)).Pos();
            ORXSimPosition const discrete = out.doc.CreateDataRecord(Schema(47, 30)).Pos();
            discrete.SetPosition(Schema(47, 1), set->second);
            region.GetSet(Schema(47, 29)).Insert(discrete);
            assignment.SetPosition(Schema(50, 49), region);
            assignment.SetPosition(Schema(50, 50), record);
            model.GetVector(Schema(25, 26)).PushBack(assignment);
            assignments.push_back(assignment);
            for (int e : out.elementSetMembers[section.elset])
                if (out.elementSection[e] < 0)
                {
                    out.elementSection[e] = static_cast<int>(s);
                    out.elementMaterial[e] = material;
                }
        }
        layers.WriteBulkDistributions(focus);
    }

    void Steps()
    {
        for (std::string const& name : deck.steps)
        {
            ORXSimPosition const step = out.doc.CreateDataRecord(Schema(57, 1)).Pos();
            step.SetName(name.c_str());
            model.GetMap(Schema(57, 25)).Insert(name.c_str(), step);
            model.GetVector(Schema(57, 24)).PushBack(step);
            focus.GetSet(Schema(15, 8)).Insert(step);
        }
    }

    // The shape classification; each class refers to the sections assigned to its elements.
    void Elaborate()
    {
        ORXSimPosition const classification =
            ORXSrvEltClassificationBuilder(focus).BuildEltClassification(ORXSrvEltClassificationShape);
        if (classification.IsNull())
            return;
        mesh.SetShapeFormulationLogicalSectionClassification(classification);
        out.elementClass.assign(out.elementLabels.size(), -1);
        int ordinal = 0;
        for (ORXSimSetiterator entry = classification.GetSet(Schema(23, 12)).Begin(); entry.NotDone();
             ++entry, ++ordinal)
        {
            ORXObjElementClass const elementClass(*entry);
            ORXSimCSet const classElements(ORXSimCSetID(elementClass.GetElementCSet()));
            std::vector<int> members(classElements.Size());
            classElements.Members(members.data());
            bool sectioned = false;
            for (int e : members)
                out.elementClass[e] = ordinal;
            for (ORXSimPosition const& assignment : assignments)
            {
                ORXSimPosition const set =
                    (*assignment.GetPosition(Schema(50, 49)).GetSet(Schema(47, 29)).Begin())
                        .GetPosition(Schema(47, 1));
                if (set.CSet().Intersection(classElements).IsEmpty())
                    continue;
                (*entry).GetSet(Schema(23, 10)).Insert(assignment.GetPosition(Schema(50, 50)));
                sectioned = true;
            }
            out.classWithoutSection.push_back(!sectioned);
        }
        ORXSrvInverseConnectivity inverse(mesh);
        inverse.Invert();
        out.inverseEntries = inverse.GetCount();
    }
};
} // namespace

ModelDocument BuildDocument(DeckModel const& deck)
{
    Builder builder(deck);
    builder.Mesh();
    builder.Sets();
    builder.Materials();
    builder.Sections();
    builder.Steps();
    builder.Elaborate();
    return std::move(builder.out);
}

std::vector<std::string> CheckDocument(ModelDocument const& model)
{
    ORXSrvHPVizChecker checker(model.doc);
    checker.Check_HPViz();
    std::vector<std::string> findings;
    for (ORXString const& message : checker.GetMessages())
        findings.push_back(message.CStr());
    return findings;
}
} // namespace orxsrv
