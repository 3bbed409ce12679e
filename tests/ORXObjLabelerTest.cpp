#include "DocumentFixture.h"

#include <vector>

namespace
{
std::vector<int> ToVector(ORXBasVector<int> const& values)
{
    std::vector<int> out;
    for (int i = 0; i < static_cast<int>(values.size()); ++i)
        out.push_back(values[i]);
    return out;
}

class ORXObjLabelerTest : public DocumentFixture
{
protected:
    void SetUp() override
    {
        int const beamOrdinals[] = {7, 3, 5};
        int const beamLabels[] = {30, 10, 20};
        int const plateOrdinals[] = {0, 1, 2};
        int const plateLabels[] = {102, 100, 101};
        ORXObjLabeler::DefineInstance(m_document, ORXObjLabelerNodes, "Plate-1", plateOrdinals, plateLabels,
                                      3);
        ORXObjLabeler::DefineInstance(m_document, ORXObjLabelerNodes, "Beam-1", beamOrdinals, beamLabels, 3);
    }
};
} // namespace

TEST_F(ORXObjLabelerTest, OccurrencesKeepTheOrderOfFirstDefinition)
{
    int const more[] = {9};
    ORXObjLabeler::DefineInstance(m_document, ORXObjLabelerNodes, "Plate-1", more, more, 1);
    ORXObjLabeler labeler(m_document, ORXObjLabelerNodes);
    labeler.Read();
    auto names = labeler.Occurrences();
    ASSERT_EQ(names.Size(), 2);
    EXPECT_EQ(names[0], "Plate-1");
    EXPECT_EQ(names[1], "Beam-1");
    EXPECT_TRUE(labeler.IsInstanceValid("Beam-1"));
    EXPECT_FALSE(labeler.IsInstanceValid("beam-1"));
    EXPECT_FALSE(labeler.IsInstanceValid(""));
}

TEST_F(ORXObjLabelerTest, LabelsAndOrdinalsLeadToEachOther)
{
    ORXObjLabeler labeler(m_document.Focus(), 0);
    labeler.Read();
    ORXBasVector<int> labels, ordinals;
    labeler.GetInstanceLabelsAndOrdinals("Beam-1", labels, ordinals);
    EXPECT_EQ(ToVector(labels), (std::vector<int>{10, 20, 30}));
    EXPECT_EQ(ToVector(ordinals), (std::vector<int>{3, 5, 7}));

    labeler.GetInstanceLabelsAndOrdinals("Nowhere", labels, ordinals);
    EXPECT_EQ(labels.size(), 0u);
    EXPECT_EQ(ordinals.size(), 0u);

    ORXString instance = "untouched";
    ASSERT_TRUE(labeler.GetOccurrenceForFlatMeshOrdinal(5, instance));
    EXPECT_EQ(instance, "Beam-1");
    EXPECT_EQ(labeler.GetInstanceLabel(instance, 5), 20);
    ASSERT_TRUE(labeler.GetOccurrenceForFlatMeshOrdinal(0, instance));
    EXPECT_EQ(instance, "Plate-1");
    EXPECT_EQ(labeler.GetInstanceLabel(instance, 0), 102);

    instance = "untouched";
    EXPECT_FALSE(labeler.GetOccurrenceForFlatMeshOrdinal(4, instance));
    EXPECT_FALSE(labeler.GetOccurrenceForFlatMeshOrdinal(-1, instance));
    EXPECT_EQ(instance, "untouched");
    EXPECT_EQ(labeler.GetInstanceLabel("Plate-1", 5), -1);
    EXPECT_EQ(labeler.GetInstanceLabel("Nowhere", 5), -1);
}

TEST_F(ORXObjLabelerTest, NodesElementsAndDocumentsAreKeptApart)
{
    int const ordinals[] = {5};
    int const labels[] = {500};
    ORXObjLabeler::DefineInstance(m_document, ORXObjLabelerElements, "Shell-1", ordinals, labels, 1);
    ORXObjDocument other = ORXObjDocument::New();

    ORXObjLabeler elements(m_document, ORXObjLabelerElements);
    elements.Read();
    ASSERT_EQ(elements.Occurrences().Size(), 1);
    ORXString instance;
    ASSERT_TRUE(elements.GetOccurrenceForFlatMeshOrdinal(5, instance));
    EXPECT_EQ(instance, "Shell-1");
    EXPECT_FALSE(elements.IsInstanceValid("Beam-1"));

    ORXObjLabeler empty(other, ORXObjLabelerNodes);
    empty.Read();
    EXPECT_EQ(empty.Occurrences().Size(), 0);
    EXPECT_FALSE(empty.GetOccurrenceForFlatMeshOrdinal(5, instance));
    other.Close();
}

TEST_F(ORXObjLabelerTest, LaterDefinitionsAddAndOverrideWithoutChangingAReadLabeler)
{
    ORXObjLabeler before(m_document, ORXObjLabelerNodes);
    before.Read();
    int const ordinals[] = {5, 11};
    int const labels[] = {25, 5};
    ORXObjLabeler::DefineInstance(m_document, ORXObjLabelerNodes, "Beam-1", ordinals, labels, 2);

    ORXObjLabeler after(m_document, ORXObjLabelerNodes);
    after.Read();
    ORXBasVector<int> newLabels, newOrdinals;
    after.GetInstanceLabelsAndOrdinals("Beam-1", newLabels, newOrdinals);
    EXPECT_EQ(ToVector(newLabels), (std::vector<int>{5, 10, 25, 30}));
    EXPECT_EQ(ToVector(newOrdinals), (std::vector<int>{11, 3, 5, 7}));

    EXPECT_EQ(before.GetInstanceLabel("Beam-1", 5), 20);
    ORXString instance;
    EXPECT_FALSE(before.GetOccurrenceForFlatMeshOrdinal(11, instance));
}
