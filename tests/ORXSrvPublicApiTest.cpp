// The host-side operations of the platform, each used once exactly as hosts write it, through the
// installed umbrella header only.
#include "DocumentFixture.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <stdexcept>
#include <string>

namespace
{
std::string g_lastReport;
int g_lastLine = 0;

void RecordAssertion(char const* text, char const*, int line)
{
    g_lastReport = text;
    g_lastLine = line;
}
void RecordFatal(char const* message, char const*, int line)
{
    g_lastReport = message;
    g_lastLine = line;
}
void ThrowOnAssertion(char const* text, char const*, int)
{
    throw std::runtime_error(text);
}

class ORXSrvPublicApiTest : public DocumentFixture
{
};
} // namespace

TEST_F(ORXSrvPublicApiTest, DocumentsOpenWithTheirFocusAndCloseOnEveryCopy)
{
    ORXSimPosition focus = m_document.Focus();
    ASSERT_FALSE(focus.IsNull());
    EXPECT_TRUE(Same(focus.Focus(), focus));
    EXPECT_TRUE(m_document.GetModel().IsNull());

    ORXObjDocument other = ORXObjDocument::New();
    EXPECT_FALSE(other.ContextID() == m_document.ContextID());
    ORXObjDocument copy = other;
    other.Close();
    EXPECT_TRUE(copy.IsClosed());
    EXPECT_FALSE(m_document.IsClosed());
}

TEST_F(ORXSrvPublicApiTest, FailureReportsGoToTheInstalledHandlers)
{
    ORXSimAssertionFailureHandler previousAssertion =
        ORXSimUttAssert::SetAssertionFailureHandler(RecordAssertion);
    ORXSimFatalErrorHandler previousFatal = ORXSimUttAssert::SetFatalErrorHandler(RecordFatal);

    ORXSimUttAssert::ReportAssertionFailure("a == b", "file", 7);
    EXPECT_EQ(g_lastReport, "a == b");
    EXPECT_EQ(g_lastLine, 7);
    ReportFatalError("AssertionFailed:x", nullptr, nullptr, nullptr, "file", 9);
    EXPECT_EQ(g_lastReport, "AssertionFailed:x");
    EXPECT_EQ(g_lastLine, 9);

    EXPECT_EQ(ORXSimUttAssert::SetAssertionFailureHandler(ThrowOnAssertion), RecordAssertion);
    EXPECT_THROW(ORXSimUttAssert::ReportAssertionFailure("c", "file", 1), std::runtime_error);

    // Null puts the defaults back: the assertion report returns, the fatal error aborts.
    ORXSimUttAssert::SetAssertionFailureHandler(nullptr);
    EXPECT_EQ(ORXSimUttAssert::SetFatalErrorHandler(nullptr), RecordFatal);
    ORXSimUttAssert::ReportAssertionFailure("reported only", "file", 2);
    EXPECT_DEATH(ReportFatalError("fatal", nullptr, nullptr, nullptr, "file", 3), "fatal");

    ORXSimUttAssert::SetAssertionFailureHandler(previousAssertion);
    ORXSimUttAssert::SetFatalErrorHandler(previousFatal);
}

TEST_F(ORXSrvPublicApiTest, AssertExceptionsCarryTheConditionAndWhereItFailed)
{
    ORXBasAssertException exception(ORXString("m_count > 0"));
    try
    {
        exception.Throw("ORXSrvSimServices/ORXSrvFsm.m/src/Here", 42);
        FAIL() << "Throw returned";
    }
    catch (std::exception const& caught)
    {
        EXPECT_STREQ(caught.what(), "m_count > 0");
        ORXBasAssertException const* raised = dynamic_cast<ORXBasAssertException const*>(&caught);
        ASSERT_NE(raised, nullptr);
        EXPECT_STREQ(raised->File(), "ORXSrvSimServices/ORXSrvFsm.m/src/Here");
        EXPECT_EQ(raised->Line(), 42);
    }
}

TEST_F(ORXSrvPublicApiTest, SchemaNumbersAndRecordTypes)
{
    EXPECT_EQ(Schema(25, 1), vds_CoreFragmentTypeIndex(25, 1));
    EXPECT_NE(Schema(25, 1), Schema(1, 25));
    EXPECT_NE(Schema(23, 79), Schema(23, 65));
    EXPECT_FALSE(m_document.Focus().Context().Schema().TypeName(Schema(13, 68)).IsNull());

    ORXSimPosition record = NewRecord(13, 68);
    EXPECT_TRUE(record.IsA(Schema(13, 68)));
    EXPECT_EQ(record.TypePosition(), Schema(13, 68));
    EXPECT_FALSE(record.IsA(Schema(13, 69)));

    ORXSimPosition collection = NewCollection(24, 2, 3);
    EXPECT_TRUE(collection.IsA(Schema(24, 2)));
    EXPECT_EQ(m_document.GetRecord(collection.GetCollection(), 2).TypePosition(), Schema(24, 2));
}

TEST_F(ORXSrvPublicApiTest, MapsNamesAndSymbolsOfRecords)
{
    ORXSimPosition holder = NewRecord(25, 2);
    ORXSimPosition first = NewRecord(57, 1);
    ORXSimPosition second = NewRecord(57, 1);
    ORXSimMap steps = holder.GetMap(Schema(57, 25));
    steps.Insert("Step-1", first);
    steps.Insert("Step-1", second);
    EXPECT_EQ(steps.Size(), 1);
    EXPECT_TRUE(Same(steps.Find("Step-1"), second));

    first.SetName("Initial");
    EXPECT_EQ(first.Name(-1), "Initial");

    ORXSimPosition dofs = NewCollection(24, 2, 4);
    ORXSimCollectionID dofCollection = dofs.GetCollection();
    ORXSimPosition ur3 = m_document.GetRecord(dofCollection, 3);
    ur3.SetSymbol(6, "UR3");
    EXPECT_EQ(ur3.GetSymbolPosition(), 6);
    EXPECT_EQ(ur3.GetSymbolName(), "UR3");
    ORXSimSymbols symbols(m_document.ContextID());
    EXPECT_EQ(symbols.Get(ur3.ID()), 6);
    ORXSimTypeID dofType = m_document.Focus().Context().Schema().TypeID(Schema(24, 2));
    EXPECT_TRUE(Same(ORXSimPosition(symbols.Get(dofType, 6, dofCollection)), ur3));
    EXPECT_TRUE(Same(ORXSimPosition(symbols.Get(Schema(24, 2), 6, dofCollection)), ur3));
    EXPECT_TRUE(Same(ORXSimPosition(m_document.GetSymbol(Schema(24, 2), "UR3", dofCollection)), ur3));
    EXPECT_TRUE(ORXSimPosition(m_document.GetSymbol(Schema(24, 2), "UR2", dofCollection)).IsNull());
}

TEST_F(ORXSrvPublicApiTest, HoldersCountEveryHolding)
{
    int const member = Schema(47, 10);
    ORXSimPosition held = NewRecord(47, 1);
    ORXSimPosition linker = NewRecord(47, 2);
    ORXSimPosition mapper = NewRecord(47, 2);
    ORXSimPosition lister = NewRecord(47, 2);
    EXPECT_TRUE(held.Parent(member).IsNull());

    linker.SetPosition(member, held);
    mapper.GetMap(member).Insert("Set-A", held);
    mapper.GetMap(member).Insert("Set-B", held);
    lister.GetVector(member).PushBack(held);
    lister.GetSet(member).Insert(held);
    mapper.Associate(member, 1, held);

    ORXSimSet referrers = held.ReferrersSet(member);
    EXPECT_EQ(referrers.Size(), 6);
    ORXSimSetiterator entry = referrers.Begin();
    EXPECT_TRUE(Same(*entry, linker));
    ++entry;
    EXPECT_TRUE(Same(*entry, mapper));
    EXPECT_TRUE(Same(held.Parent(member), linker));
    EXPECT_EQ(held.Name(member), "Set-A");
    EXPECT_EQ(held.GetReferenceKey(member), "Set-A");
}

TEST_F(ORXSrvPublicApiTest, DocumentLayerReadsItsFixedMembers)
{
    ORXSimPosition model = NewRecord(25, 2);
    m_document.SetModel(model);
    EXPECT_TRUE(Same(m_document.Focus().GetPosition(Schema(25, 1)), model));
    ORXObjMesh mesh(NewRecord(20, 1));
    ORXObjModel(model).SetMesh(mesh);
    EXPECT_TRUE(Same(model.GetPosition(Schema(20, 0)), mesh));
    EXPECT_TRUE(Same(m_document.GetMesh(), mesh));

    ORXSimPosition results = NewRecord(15, 12);
    m_document.SetResults(results);
    EXPECT_TRUE(Same(m_document.Focus().Follow(Schema(15, 1), 1), results));

    ORXSimPosition step = NewRecord(57, 1);
    model.GetMap(Schema(57, 25)).Insert("Step-1", step);
    EXPECT_TRUE(Same(ORXObjModel(model).GetStep("Step-1"), step));

    ORXSimPosition points = NewCollection(23, 121, 2);
    m_document.SetPointCollection(points);
    ORXSimPosition library = m_document.Focus().GetPosition(Schema(15, 9));
    EXPECT_TRUE(Same(library.GetPosition(Schema(23, 120)), points));
    EXPECT_TRUE(Same(m_document.GetPointCollection(), points));
    m_document.SetElementSpecCollection(NewCollection(23, 48, 1));
    m_document.SetComponentCollection(NewCollection(13, 121, 1));
    m_document.SetDofTypeCollection(NewCollection(24, 121, 1));
    m_document.SetMaterialCollection(NewCollection(42, 121, 1));
    EXPECT_TRUE(Same(m_document.GetElementSpecCollection(), library.GetPosition(Schema(23, 47))));
    EXPECT_TRUE(Same(m_document.GetComponentCollection(), library.GetPosition(Schema(13, 120))));
    EXPECT_TRUE(Same(m_document.GetDofTypeCollection(), library.GetPosition(Schema(24, 120))));
    EXPECT_TRUE(Same(m_document.GetMaterialCollection(), library.GetPosition(Schema(42, 120))));

    // Every mesh getter and setter pair is covered member by member in the mesh tests.
    ORXSimPosition nodes = NewCollection(23, 80, 3);
    mesh.SetNodeCollection(nodes);
    EXPECT_TRUE(mesh.GetNodeCollection().GetCollection() == nodes.GetCollection());

    ORXObjMeshedField field(NewRecord(13, 68));
    EXPECT_EQ(field.GetGridType(), -1);
    field.SetGridType(Schema(13, 75));
    EXPECT_EQ(field.GetGridType(), Schema(13, 75));
}

TEST_F(ORXSrvPublicApiTest, ElementClassesAndTheirMembership)
{
    ORXObjMesh mesh(NewRecord(20, 1));
    mesh.SetElementClassCollection(NewCollection(23, 7, 1));
    ORXSimPosition specs = NewCollection(23, 2, 1);
    ORXSimPosition spec = m_document.GetRecord(specs.GetCollection(), 0);
    ORXObjElementClass shape;
    shape.Register(mesh, spec);
    EXPECT_TRUE(Same(shape.GetPosition(Schema(23, 9)), spec));
    EXPECT_TRUE(ORXSimPosition(shape.GetElementCSet()).IsNull());

    ORXSimCollection classes(mesh.GetElementClassCollection().GetCollection());
    ORXSimCollection elements(NewCollection(23, 3, 4).GetCollection());
    int const classMember = m_document.GetCMemberIndex(shape);
    int const members[] = {1, 3};
    ORXSimCSetID elementSet = elements.CreateCSet(members, 2, false);
    ORXSimArray<ORXSimCSetID, ORXSimArrayCopyClassPolicy<ORXSimCSetID>> pair(2, 0);
    pair.Get(0) = classes.CreateCSet(&classMember, 1, false);
    pair.Get(1) = elementSet;
    ORXSimArray<ORXSimCompartment, ORXSimArrayClassPolicy<ORXSimCompartment>> compartments(1, 0);
    compartments.Get(0) = ORXSimCompartment(pair);
    ORXSimCtation body(compartments);
    EXPECT_EQ(body.NumCompartments(), 1);
    EXPECT_EQ(body[0].Size(), 2);
    ORXSimPosition membership(m_document.Focus().CreateTypedDSet(body, Schema(23, 8)));

    ORXObjElementClassification classification(NewRecord(23, 11));
    classification.AppendElementClass(shape);
    classification.SetMembership(membership);
    EXPECT_TRUE(classification.GetSet(Schema(23, 12)).Contains(shape));
    EXPECT_TRUE(Same(classification.GetPosition(Schema(23, 127)), membership));
    EXPECT_TRUE(shape.GetElementCSet() == elementSet);
    EXPECT_TRUE(Same(shape.GetPosition(Schema(23, 128)), ORXSimPosition(elementSet)));

    shape.SetElementCSet(ORXSimDynamicID());
    EXPECT_TRUE(ORXSimPosition(shape.GetElementCSet()).IsNull());
}

TEST_F(ORXSrvPublicApiTest, LabelsOfFlattenedMeshes)
{
    int const ordinals[] = {4, 0, 2};
    int const labels[] = {30, 10, 20};
    ORXObjLabeler::DefineInstance(m_document, 0, "Part-2", ordinals, labels, 3);
    int const otherOrdinal = 7, otherLabel = 1;
    ORXObjLabeler::DefineInstance(m_document, 0, "Part-1", &otherOrdinal, &otherLabel, 1);

    ORXObjLabeler labeler(m_document, 0);
    labeler.Read();
    ORXSimArray<ORXString, ORXSimArrayClassPolicy<ORXString>> occurrences = labeler.Occurrences();
    ASSERT_EQ(occurrences.Size(), 2);
    EXPECT_EQ(occurrences.Get(0), "Part-2");
    EXPECT_EQ(occurrences.Get(1), "Part-1");

    ORXBasVector<int> instanceLabels, instanceOrdinals;
    labeler.GetInstanceLabelsAndOrdinals("Part-2", instanceLabels, instanceOrdinals);
    ASSERT_EQ(instanceLabels.size(), 3u);
    EXPECT_EQ(instanceLabels[0], 10);
    EXPECT_EQ(instanceOrdinals[0], 0);
    EXPECT_EQ(instanceLabels[2], 30);
    EXPECT_EQ(instanceOrdinals[2], 4);

    ORXString instance;
    EXPECT_TRUE(labeler.GetOccurrenceForFlatMeshOrdinal(7, instance));
    EXPECT_EQ(instance, "Part-1");
    EXPECT_FALSE(labeler.GetOccurrenceForFlatMeshOrdinal(5, instance));
    EXPECT_EQ(labeler.GetInstanceLabel("Part-2", 2), 20);
    EXPECT_TRUE(labeler.IsInstanceValid("Part-1"));
    EXPECT_FALSE(labeler.IsInstanceValid("Part-3"));
}

TEST_F(ORXSrvPublicApiTest, AccessorsHostsReadResultsThrough)
{
    EXPECT_STREQ(ORXString().CStr(), "");
    EXPECT_STREQ(ORXString("Node").CStr(), "Node");

    ORXSrvInverseConnectivity inverse(NewRecord(20, 1));
    int const* offsets = inverse.GetOffsets();
    int const* entries = inverse.GetEntries();
    EXPECT_EQ(offsets, nullptr);
    EXPECT_EQ(entries, nullptr);
    EXPECT_EQ(inverse.GetCount(), 0);

    ORXSimBtree<ORXString, int> tree;
    EXPECT_EQ(tree.Root(), nullptr);
    for (char const* key : {"a", "b", "c", "d"})
        tree.Insert(key, 1, false);
    ASSERT_NE(tree.Root(), nullptr);
    EXPECT_EQ(tree.Root()->GetKey(), "b");
    EXPECT_EQ(tree.Root()->MaxDepth(), 2);
    EXPECT_EQ(tree.Root()->Left()->GetKey(), "a");
    EXPECT_EQ(tree.Root()->Right()->Right()->ConstGetValue(), 1);

    omi_Btree<omi_BlkBitVect, ORXSimDynamicID> bitTree;
    EXPECT_EQ(bitTree.Root(), nullptr);
    omi_BlkBitVect key;
    bitTree.Insert(key, ORXSimDynamicID());
    ASSERT_NE(bitTree.Root(), nullptr);
    EXPECT_EQ(bitTree.Root()->Left(), nullptr);
    EXPECT_EQ(bitTree.Root()->Right(), nullptr);

    FILE* deck = std::tmpfile();
    ASSERT_NE(deck, nullptr);
    std::fputs("*NODE\n1, \"open\n", deck);
    std::rewind(deck);
    ORXSrvKeywordParser parser(deck, nullptr);
    parser.SkipToNextKeyword();
    ORXString keyword;
    ORXSimArray<ORXString, ORXSimArrayClassPolicy<ORXString>> parameters;
    parser.ParseKeyword(keyword, parameters);
    ORXSrvKeywordDataReader reader(parser);
    reader.First();
    ASSERT_FALSE(reader.IsDone());
    reader.ReadInt(0);
    reader.ReadString();
    omi_IntTable<int, ORXBasOmiDefaultAllocator> const& suspect = reader.GetSuspectFields();
    int suspectLines = 0;
    for (int line = 0; line < 4; ++line)
        suspectLines += suspect.IsMember(line) ? 1 : 0;
    EXPECT_EQ(suspectLines, 1) << "the unclosed quote";
    std::fclose(deck);
}

TEST_F(ORXSrvPublicApiTest, SetsIterateInFilingOrder)
{
    ORXSimPosition owner = NewRecord(23, 11);
    ORXSimPosition later = NewRecord(23, 7);
    ORXSimPosition earlier = NewRecord(23, 7);
    ORXSimSet set = owner.GetSet(Schema(23, 12));
    set.Insert(later);
    set.Insert(earlier);
    ORXSimSetiterator entry = set.Begin();
    EXPECT_TRUE(Same(*entry, later));
    ++entry;
    EXPECT_TRUE(Same(*entry, earlier));
    ++entry;
    EXPECT_TRUE(entry.Done());
}
