// Shell layers: what the bulk writer stores, the shell section and section-point readers give back.
// The writer's switch is read once per process, so the runs with it on and off go in child processes.
#include "ORXSrvShellDocument.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace
{
typedef ORXSrvShellSection::VariationEnm Variation;
Variation const None = ORXSrvShellSection::VariationNone;
Variation const Constant = ORXSrvShellSection::VariationConstant;
Variation const Distributed = ORXSrvShellSection::VariationDistributed;

// Mismatches found in a child process, printed before it exits.
struct Findings
{
    template <class A, class B> void Equal(A const& actual, B const& expected, char const* what)
    {
        if (!(actual == expected))
            text += std::string(what) + "\n";
    }
    [[noreturn]] void Exit() const
    {
        std::fputs(text.c_str(), stderr);
        std::exit(text.empty() ? 0 : 1);
    }
    std::string text;
};

template <class T> std::vector<T> Values(ORXBasVector<T> const& vector)
{
    return std::vector<T>(vector.begin(), vector.end());
}

// Whether each entry is the record at that index of the collection (-1 for a null entry).
bool Records(ORXBasVector<ORXSimPosition> const& records, ORXObjDocument const& doc,
             ORXSimPosition const& collection, std::vector<int> const& indices)
{
    if (records.size() != indices.size())
        return false;
    for (std::size_t i = 0; i < indices.size(); ++i)
        if (indices[i] < 0
                ? !records[i].IsNull()
                : !ORXSimDynamicID::Equal(records[i], doc.GetRecord(collection.GetCollection(), indices[i])))
            return false;
    return true;
}

// The process's accumulator, made anew so that it reads the switch as the environment has it now.
ORXSrvBulkShellLayers& FreshLayers()
{
    omi_SingletonBase<ORXSrvBulkShellLayers>::Finalize();
    return omi_Singleton<ORXSrvBulkShellLayers>::Instance();
}

// A table-driven field over the element collection: default value, then values of some elements.
ORXSimPosition TableField(ORXSrvShellDocument const& d, double fallback, std::vector<int> const& elements,
                          std::vector<double> values)
{
    ORXSimPosition const field = d.doc.CreateDataRecord(ShellSchema(13, 40)).Pos();
    ORXBasVector<ORXString> labels(1);
    field.SetPosition(ShellSchema(13, 44),
                      ORXSimPosition(d.doc.Focus().CreateFTable(ShellSchema(13, 45), 1, labels,
                                                                ORXBasVector<ORXString>(), &fallback, 1)));
    ORXSimCollectionID const columns = d.doc.Focus().CreateTypedCollection(1, ShellSchema(13, 46));
    ORXSimArray<ORXSimCollectionID, ORXSimArrayCopyClassPolicy<ORXSimCollectionID>> grid(2, 0);
    grid.Get(0) = d.elements;
    grid.Get(1) = columns;
    ORXSimDistributionID const distribution =
        d.doc.Focus().CreateTypedDistribution(ORXSimGrid(grid), ShellSchema(13, 47), ORXSimRangeType(4));
    ORXSimTransfer write{ORXSimDistribution(distribution)};
    write.SetWrite().SetMakeNewDrawer().SetBufferPadding(false);
    write
        .SetDim(0,
                ORXSimCollection(d.elements).CreateCSet(elements.data(), static_cast<int>(elements.size())))
        .SetDim(1, ORXSimCollection(columns).CreateCSetStrided(0, 1))
        .CheckView();
    write.SetBuffer(0, values.data(), values.size() * sizeof(double)).ExecWrite();
    write.RelinquishBuffers();
    field.SetPosition(ShellSchema(13, 43), ORXSimPosition(distribution));
    return field;
}

// Writes a full set of layer data for two shell sections, reads it back and exits with the result.
[[noreturn]] void WriteAndReadBack()
{
    Findings f;
    ORXSrvBulkShellLayers& layers = FreshLayers();

    // A model without shell sections gets nothing, and the data stays for the next write.
    {
        ORXSrvShellDocument solid(2);
        ORXSimPosition const solidSection = solid.doc.CreateDataRecord(ShellSchema(50, 70)).Pos();
        solid.Assign(solidSection, solid.ElementSet({0, 1}));
        layers.AppendMaterial(0, 0, 1);
        layers.WriteBulkDistributions(solid.doc.Focus());
        f.Equal(solid.model.GetPosition(ShellSchema(25, 28)).IsNull(), true,
                "no record without shell sections");
    }

    ORXSrvShellDocument d(8);
    ORXSimPosition const first = d.Assign(d.Section(0, 3), d.ElementSet({0, 1, 2, 3}));
    ORXSimPosition const second = d.Assign(d.Section(1, 2), d.ElementSet({4, 5, 6}));
    ORXSimPosition const bare = d.Assign(d.Section(3, 2), d.ElementSet({7}));
    layers.AppendMaterial(1, 0, 2);
    layers.AppendMaterial(2, 0, 3);
    layers.AppendMaterial(0, 0, 4); // (0, 0) has its material already
    layers.AppendMaterial(0, 1, 4);
    layers.AppendOrientation(1, 0, 2);
    layers.AppendPly(0, 1, 0);
    for (int layer : {0, 1, 2})
        layers.AppendNumSectionPoints(layer, 0, 3 + 2 * layer);
    layers.AppendNumSectionPoints(0, 1, 9);
    layers.AppendConstThickness(0, 0, 0.5);
    layers.AppendConstThickness(1, 0, 0.25);
    layers.AppendConstThickness(0, 0, 9.0);
    layers.AppendConstThickness(0, 1, 2.0);
    layers.AppendConstAngle(2, 0, 45.0);
    // Layer 1 of the second section varies over all its elements; the first element's value comes
    // from the first field, the others from the second or its default.
    layers.AppendDistThickness(1, d.ElementSet({4}), TableField(d, 1.0, {4}, {4.5}));
    layers.AppendDistThickness(1, d.ElementSet({4, 5, 6}), TableField(d, 7.0, {5}, {5.5}));
    // Layer 2 covers only part of the first section.
    layers.AppendDistThickness(2, d.ElementSet({0, 1}), TableField(d, 3.0, {}, {}));
    layers.WriteBulkDistributions(d.doc.Focus());

    ORXSimPosition const bulk = d.model.GetPosition(ShellSchema(25, 28));
    f.Equal(bulk.IsNull(), false, "bulk record made");
    ORXSimPosition const plies = bulk.GetPosition(ShellSchema(50, 39));

    ORXSrvShellSection const a(first);
    f.Equal(Records(a.GetMaterials(), d.doc, d.materials, {1, 2, 3}), true, "materials of the first");
    f.Equal(Records(a.GetOrientations(), d.doc, d.orientations, {-1, 2, -1}), true,
            "orientations of the first");
    f.Equal(Records(a.GetPlies(), d.doc, plies, {-1, -1, -1}), true, "plies of the first");
    f.Equal(Values(a.GetSectionPoints()), std::vector<int>{3, 5, 7}, "points of the first");
    f.Equal(Values(a.GetConstThicknesses()), std::vector<double>{0.5, 0.25, -DBL_MAX},
            "thicknesses of the first");
    f.Equal(Values(a.GetThicknessVariation()), std::vector<Variation>{Constant, Constant, None},
            "first thickness");
    f.Equal(Values(a.GetConstRotationAngles()), std::vector<double>{-DBL_MAX, -DBL_MAX, 45.0},
            "angles of first");
    f.Equal(Values(a.GetRotationAngleVariation()), std::vector<Variation>{None, None, Constant},
            "first angle");

    ORXSrvShellSection const b(second);
    f.Equal(Records(b.GetMaterials(), d.doc, d.materials, {4, -1}), true, "materials of the second");
    f.Equal(Records(b.GetPlies(), d.doc, plies, {0, -1}), true, "plies of the second");
    f.Equal(Values(b.GetSectionPoints()), std::vector<int>{9, -1}, "points of the second");
    f.Equal(Values(b.GetConstThicknesses()), std::vector<double>{2.0, -DBL_MAX}, "thicknesses of the second");
    f.Equal(Values(b.GetThicknessVariation()), std::vector<Variation>{Constant, Distributed},
            "second thickness");

    ORXSrvShellSection const c(bare);
    f.Equal(Values(c.GetSectionPoints()), std::vector<int>{0, 0}, "points of a section beyond the data");
    f.Equal(Values(c.GetThicknessVariation()), std::vector<Variation>{None, None}, "bare thickness");

    // The distributed values as stored: layer 1 over the second section's elements.
    ORXSimDistributionID const dist =
        ORXObjMeshedField(bulk.GetPosition(ShellSchema(50, 91))).GetDistribution();
    ORXSimTransfer read{ORXSimDistribution(dist)};
    int const layer = 1;
    read.SetRead().SetBufferPadding(false);
    read.SetDim(
            0,
            ORXSimCollection(bulk.GetPosition(ShellSchema(50, 38)).GetCollection()).CreateTempCSet(&layer, 1))
        .SetDim(1, ORXSimCollection(d.elements).CreateTempCSetStrided(4, 3))
        .CheckView();
    std::vector<double> stored(3, 0.0);
    read.SetBuffer(0, stored.data(), 3 * sizeof(double)).ExecRead();
    read.RelinquishBuffers();
    f.Equal(stored, std::vector<double>{4.5, 5.5, 7.0}, "distributed thicknesses");

    // Points by the bulk section collection's members.
    ORXSrvShellSectionPoints const points(d.doc);
    ORXSimCollectionID const bulkSections = bulk.GetPosition(ShellSchema(50, 40)).GetCollection();
    f.Equal(points.GetNumSectionPoints(d.doc.GetRecord(bulkSections, 0), 2), 7, "bulk points");
    f.Equal(points.GetNumSectionPoints(d.doc.GetRecord(bulkSections, 1), 0), 9, "bulk points of the second");
    f.Equal(points.GetNumSectionPoints(d.doc.GetRecord(bulkSections, 1), 1), 0, "unknown layer");
    f.Equal(points.GetNumSectionPoints(d.doc.GetRecord(d.sections, 0), 0), 0, "the sections' own records");

    // The maps are empty once written: a second write adds no drawer.
    ORXSimDistributionID const materials = bulk.GetPosition(ShellSchema(50, 92)).GetDistribution();
    ORXSimArray<ORXSimDrawerID, ORXSimArrayCopyClassPolicy<ORXSimDrawerID>> before, after;
    ORXSimDistribution(materials).DrawerIDArray(before);
    layers.WriteBulkDistributions(d.doc.Focus());
    ORXSimDistribution(bulk.GetPosition(ShellSchema(50, 92)).GetDistribution()).DrawerIDArray(after);
    f.Equal(after.Size(), before.Size(), "second write");
    f.Exit();
}

[[noreturn]] void WriteWhileOff()
{
    Findings f;
    ORXSrvBulkShellLayers& layers = FreshLayers();
    ORXSrvShellDocument d(2);
    d.Assign(d.Section(0, 1), d.ElementSet({0, 1}));
    layers.AppendMaterial(0, 0, 1);
    layers.AppendConstThickness(0, 0, 1.0);
    layers.WriteBulkDistributions(d.doc.Focus());
    f.Equal(d.model.GetPosition(ShellSchema(25, 28)).IsNull(), true, "nothing written while off");
    f.Exit();
}
} // namespace

TEST(ORXSrvShellLayersTest, SwitchedOnWhatIsWrittenIsReadBack)
{
    EXPECT_EXIT(
        {
            setenv("VEL_BULK_SHELL_SECTIONS", "1", 1);
            WriteAndReadBack();
        },
        testing::ExitedWithCode(0), "");
}

TEST(ORXSrvShellLayersTest, SwitchedOffNothingIsWritten)
{
    EXPECT_EXIT(
        {
            unsetenv("VEL_BULK_SHELL_SECTIONS");
            WriteWhileOff();
        },
        testing::ExitedWithCode(0), "");
}

TEST(ORXSrvShellLayersTest, SectionWithoutBulkData)
{
    ORXSrvShellDocument d(4);
    ORXSrvShellSection const none(d.Assign(d.Section(0, 2), d.ElementSet({0, 1})));
    EXPECT_EQ(none.GetMaterials().size(), 2u);
    EXPECT_TRUE(none.GetMaterials()[0].IsNull() && none.GetPlies()[1].IsNull());
    EXPECT_EQ(Values(none.GetSectionPoints()), (std::vector<int>{0, 0}));
    EXPECT_EQ(Values(none.GetConstThicknesses()), (std::vector<double>{-DBL_MAX, -DBL_MAX}));
    EXPECT_EQ(Values(none.GetRotationAngleVariation()), (std::vector<Variation>{None, None}));

    ORXSrvShellSection const empty(d.Assign(d.Section(1, 0), d.ElementSet({2})));
    EXPECT_TRUE(empty.GetMaterials().empty() && empty.GetSectionPoints().empty());
    EXPECT_TRUE(empty.GetConstThicknesses().empty() && empty.GetThicknessVariation().empty());
}

TEST(ORXSrvShellLayersTest, DistributedDrawerOverSeveralLayersIsRefused)
{
    ORXSrvShellDocument d(4);
    ORXSimPosition const assignment = d.Assign(d.Section(0, 2), d.ElementSet({0, 1}));
    ORXSimPosition const bulk = d.doc.CreateDataRecord(ShellSchema(50, 87)).Pos();
    d.model.SetPosition(ShellSchema(25, 28), bulk);
    ORXSimCollectionID const layers = bulk.CreateTypedCollection(2, ShellSchema(50, 18));
    bulk.SetPosition(ShellSchema(50, 38), ORXSimPosition(layers));
    bulk.SetPosition(ShellSchema(50, 40), ORXSimPosition(bulk.CreateTypedCollection(4, ShellSchema(50, 51))));
    ORXSimArray<ORXSimCollectionID, ORXSimArrayCopyClassPolicy<ORXSimCollectionID>> grid(2, 0);
    grid.Get(0) = layers;
    grid.Get(1) = d.elements;
    ORXSimDistributionID const dist =
        bulk.CreateTypedDistribution(ORXSimGrid(grid), ShellSchema(50, 19), ORXSimRangeType(4));
    ORXSimTransfer write{ORXSimDistribution(dist)};
    std::vector<double> values(4, 1.0);
    write.SetWrite().SetMakeNewDrawer().SetBufferPadding(false);
    write.SetDim(0, ORXSimCollection(layers).CreateCSetStrided(0, 2))
        .SetDim(1, ORXSimCollection(d.elements).CreateCSetStrided(0, 2))
        .CheckView();
    write.SetBuffer(0, values.data(), values.size() * sizeof(double)).ExecWrite();
    write.RelinquishBuffers();
    bulk.SetPosition(ShellSchema(50, 91), ORXSimPosition(dist));
    try
    {
        ORXSrvShellSection const section(assignment);
        ADD_FAILURE() << "a drawer over two layers must be refused";
    }
    catch (ORXBasAssertException const& e)
    {
        EXPECT_STREQ(e.what(), "layer.Size() == 1");
    }
}

TEST(ORXSrvShellLayersTest, SectionPointsFromLayerRecords)
{
    ORXSrvShellDocument d(4);
    ORXSimPosition const shell = d.Section(0, 3);
    ORXSimVector layers = shell.GetVector(ShellSchema(50, 85));
    int const counts[] = {5, -1, 3};
    for (int count : counts)
    {
        // The middle layer is of another type: it keeps its place but states no points.
        ORXSimPosition const layer = d.doc.CreateDataRecord(ShellSchema(21, count < 0 ? 103 : 104)).Pos();
        layer.DataRecord().SetInt(0, count);
        layers.PushBack(layer);
    }
    d.Assign(shell, d.ElementSet({0}));
    ORXSimPosition const solid = d.doc.CreateDataRecord(ShellSchema(50, 70)).Pos();
    solid.GetVector(ShellSchema(50, 85)).PushBack(layers.At(0));
    d.Assign(solid, d.ElementSet({1}));

    ORXSrvShellSectionPoints const points(d.doc);
    EXPECT_EQ(points.GetNumSectionPoints(shell, 0), 5);
    EXPECT_EQ(points.GetNumSectionPoints(shell, 1), 0);
    EXPECT_EQ(points.GetNumSectionPoints(shell, 2), 3);
    EXPECT_EQ(points.GetNumSectionPoints(solid, 0), 0) << "not a shell section";

    // With a bulk record but no section-point link, the layer records are not asked.
    d.model.SetPosition(ShellSchema(25, 28), d.doc.CreateDataRecord(ShellSchema(50, 87)).Pos());
    EXPECT_EQ(ORXSrvShellSectionPoints(d.doc).GetNumSectionPoints(shell, 0), 0);
}
