// Label mapping between two documents whose occurrences hold shuffled labels, checked against a
// plain model of the same data; the global label map, the set mappers, and the degree-of-freedom and
// naming functions.
#include "DocumentFixture.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <random>
#include <string>

namespace
{
// A document whose mesh has `count` nodes and `count` elements, spread over occurrences.
struct LabelledDocument
{
    explicit LabelledDocument(int count)
    {
        ORXSimPosition const model = doc.CreateDataRecord(Schema(25, 1)).Pos();
        doc.SetModel(model);
        ORXSimPosition const mesh = doc.CreateDataRecord(Schema(20, 0)).Pos();
        ORXObjModel(model).SetMesh(mesh);
        nodes = doc.Focus().CreateTypedCollection(count, Schema(23, 91));
        elements = doc.Focus().CreateTypedCollection(count, Schema(23, 14));
        ORXObjMesh(mesh).SetNodeCollection(ORXSimPosition(nodes));
        ORXObjMesh(mesh).SetElementCollection(ORXSimPosition(elements));
    }
    ~LabelledDocument() { doc.Close(); }
    void Define(int type, char const* instance, std::vector<int> const& ordinals,
                std::vector<int> const& labels)
    {
        ORXObjLabeler::DefineInstance(doc, type, instance, ordinals.data(), labels.data(),
                                      static_cast<int>(ordinals.size()));
    }
    ORXObjDocument doc = ORXObjDocument::New();
    ORXSimCollectionID nodes, elements;
};

// (instance, label) of each ordinal, as the plain model sees a document.
typedef std::map<int, std::pair<std::string, int>> Items;

// While alive, assertion reports are kept instead of printed; Of gives the text of the exception a
// call raises, or "" if it raises none.
struct RecordedText
{
    RecordedText() : previous(ORXSimUttAssert::SetAssertionFailureHandler(&Record)) { Reports().clear(); }
    ~RecordedText() { ORXSimUttAssert::SetAssertionFailureHandler(previous); }
    template <class Body> std::string Of(Body body)
    {
        try
        {
            body();
        }
        catch (ORXBasAssertException const& e)
        {
            return e.what();
        }
        return "";
    }
    static std::vector<std::string>& Reports()
    {
        static std::vector<std::string> reports;
        return reports;
    }
    static void Record(char const* text, char const*, int) { Reports().push_back(text); }

    std::vector<std::string>& reports = Reports();
    ORXSimAssertionFailureHandler previous;
};

std::vector<int> Values(ORXSimArray<int, ORXSimArrayBuiltinPolicy<int>> const& array)
{
    return std::vector<int>(ORXSimArrayPointer(array), ORXSimArrayPointer(array) + array.Size());
}
} // namespace

TEST(ORXSrvLabelMapperTest, EveryQuestionAgainstAPlainModel)
{
    int const count = 300;
    LabelledDocument primary(count), secondary(count);
    std::mt19937 random(11);
    Items primaryItems, secondaryItems;
    // Three occurrences; labels 1..100 in each, shuffled over the ordinals of each document; the
    // secondary misses some labels, has some of its own and an occurrence the primary lacks.
    char const* const names[] = {"PART-1", "PART-2", "PART-3"};
    std::vector<int> primaryOrdinals(count), secondaryOrdinals(count);
    for (int i = 0; i < count; ++i)
        primaryOrdinals[i] = secondaryOrdinals[i] = i;
    std::shuffle(primaryOrdinals.begin(), primaryOrdinals.end(), random);
    std::shuffle(secondaryOrdinals.begin(), secondaryOrdinals.end(), random);
    for (int k = 0; k < 3; ++k)
    {
        std::vector<int> pOrd, pLab, sOrd, sLab;
        for (int label = 1; label <= 100; ++label)
        {
            int const at = k * 100 + label - 1;
            pOrd.push_back(primaryOrdinals[at]);
            pLab.push_back(label);
            primaryItems[primaryOrdinals[at]] = {names[k], label};
            if (label % 7 == 0)
                continue; // missing on the secondary side
            sOrd.push_back(secondaryOrdinals[at]);
            sLab.push_back(label % 11 == 0 ? label + 1000 : label);
            secondaryItems[secondaryOrdinals[at]] = {k == 2 ? "OTHER" : names[k], sLab.back()};
        }
        for (int type = 0; type < 2; ++type)
        {
            primary.Define(type, names[k], pOrd, pLab);
            secondary.Define(type, k == 2 ? "OTHER" : names[k], sOrd, sLab);
        }
    }

    // The plain model: primary ordinal -> secondary ordinal for the same (instance, label).
    std::map<std::pair<std::string, int>, int> secondaryByKey;
    for (auto const& [ordinal, key] : secondaryItems)
        secondaryByKey[key] = ordinal;
    std::map<int, int> expected;
    for (auto const& [ordinal, key] : primaryItems)
        if (secondaryByKey.count(key))
            expected[ordinal] = secondaryByKey[key];

    ORXSrvLabelMapper mapper(primary.doc.Focus(), secondary.doc.Focus());
    std::vector<int> commonPrimary, commonSecondary;
    for (auto const& [p, s] : expected)
    {
        commonPrimary.push_back(p);
        commonSecondary.push_back(s);
    }
    std::sort(commonSecondary.begin(), commonSecondary.end());
    EXPECT_EQ(Members(mapper.GetCommonPrimaryNodeSet()), commonPrimary);
    EXPECT_EQ(Members(mapper.GetCommonPrimaryElementSet()), commonPrimary);
    std::vector<int> secondaryMembers = Members(mapper.GetCommonSecondaryNodeSet());
    std::sort(secondaryMembers.begin(), secondaryMembers.end());
    EXPECT_EQ(secondaryMembers, commonSecondary);

    // An ordered primary set, with members that have no counterpart and a repeat.
    std::vector<int> asked = {commonPrimary[5], 0, commonPrimary[1], commonPrimary[5], count - 1};
    std::vector<int> carried, ordinals;
    for (int p : asked)
        if (expected.count(p))
        {
            carried.push_back(expected[p]);
            ordinals.push_back(static_cast<int>(std::distance(expected.begin(), expected.find(p))));
        }
    ORXSimCSetID const ordered = ORXSimCollection(primary.nodes).CreateTempOrderedCSet(asked.data(), 5);
    EXPECT_EQ(Members(mapper.GetSecondaryNodeSet(ordered)), carried);
    std::vector<int> const mapping = Values(mapper.GetMappingFromPrimaryNodeSet(ordered));
    EXPECT_EQ(mapping, ordinals);
    for (std::size_t i = 0; i < mapping.size(); ++i)
    {
        int const p = std::next(expected.begin(), mapping[i])->first;
        EXPECT_EQ(mapper.GetNodeMappingOrdinalUserLabel(mapping[i]), primaryItems[p].second);
        EXPECT_STREQ(mapper.GetNodeMappingOrdinalInstanceName(mapping[i]).CStr(),
                     primaryItems[p].first.c_str());
    }
    // An ascending set gives the same as its members one by one.
    ORXSimCSetID const all = ORXSimCollection(primary.nodes).CreateTempCSetStrided(0, count);
    EXPECT_EQ(Members(mapper.GetSecondaryElementSet(all)).size(), expected.size());
    EXPECT_EQ(Values(mapper.GetMappingFromPrimaryElementSet(all)).size(), expected.size());
}

TEST(ORXSrvLabelMapperTest, ChecksAndTheMerge)
{
    LabelledDocument primary(6), secondary(6);
    primary.Define(0, "A", {0, 1, 2}, {1, 2, 5});
    secondary.Define(0, "A", {3, 4, 5}, {2, 3, 5});
    ORXSrvLabelMapper mapper(primary.doc.Focus(), secondary.doc.Focus());
    RecordedText recorded;
    EXPECT_EQ(recorded.Of([&] { mapper.GetNodeMappingOrdinalInstanceName(0); }), "m_nodes != 0");
    EXPECT_EQ(Members(mapper.GetCommonPrimaryNodeSet()), (std::vector<int>{1, 2}));
    EXPECT_EQ(Members(mapper.GetCommonSecondaryNodeSet()), (std::vector<int>{3, 5}));
    EXPECT_EQ(recorded.Of([&] { mapper.GetNodeMappingOrdinalUserLabel(2); }), "mappingOrdinal < m_nnodes");
    ORXSimCSetID const wrongSide = ORXSimCollection(secondary.nodes).CreateTempCSetStrided(0, 2);
    EXPECT_EQ(recorded.Of([&] { mapper.GetSecondaryNodeSet(wrongSide); }),
              "primaryNodeSet.CollectionID() != nodeCol");
    EXPECT_EQ(recorded.Of([&] { mapper.GetSecondaryElementSet(wrongSide); }), "");
    // No elements defined: an empty table.
    EXPECT_TRUE(mapper.GetCommonPrimaryElementSet().IsEmpty());
    EXPECT_EQ(recorded.Of([&] { mapper.GetElementMappingOrdinalUserLabel(0); }),
              "mappingOrdinal < m_nelements");
    int const row[4] = {7, 0, 0, 0};
    EXPECT_EQ(ORXSrvLabelMapper::IntQuadCompare(row, row), 0);
    EXPECT_EQ(recorded.Of([&] { ORXSrvLabelMapper::IntQuadCompare(nullptr, row); }), "itemA != 0");
    EXPECT_EQ(recorded.reports.back(), "itemA != NULL");
    EXPECT_EQ(recorded.Of([&] { ORXSrvLabelMapper::IntQuadCompare(row, nullptr); }), "itemB != 0");
}

TEST(ORXSrvLabelMapperTest, AnOrdinalClaimedByTwoOccurrences)
{
    // Ordinal 0 of the primary stands in A and in B: two rows share the key, the rest stays sorted.
    LabelledDocument primary(4), secondary(4);
    primary.Define(0, "A", {0, 1}, {1, 2});
    primary.Define(0, "B", {0, 3}, {1, 2});
    secondary.Define(0, "A", {2, 3}, {1, 2});
    secondary.Define(0, "B", {0, 1}, {1, 2});
    ORXSrvLabelMapper mapper(primary.doc.Focus(), secondary.doc.Focus());
    EXPECT_EQ(Members(mapper.GetCommonPrimaryNodeSet()), (std::vector<int>{0, 1, 3}));
    EXPECT_EQ(Members(mapper.GetCommonSecondaryNodeSet()), (std::vector<int>{0, 1, 2, 3}));
    ORXSimCSetID const all = ORXSimCollection(primary.nodes).CreateTempCSetStrided(0, 4);
    EXPECT_EQ(Values(mapper.GetMappingFromPrimaryNodeSet(all)), (std::vector<int>{0, 2, 3}));
    EXPECT_STREQ(mapper.GetNodeMappingOrdinalInstanceName(2).CStr(), "A");
    EXPECT_STREQ(mapper.GetNodeMappingOrdinalInstanceName(3).CStr(), "B");
    EXPECT_EQ(mapper.GetNodeMappingOrdinalUserLabel(3), 2);
    int const ordered[] = {3, 1};
    ORXSimCSetID const backwards = ORXSimCollection(primary.nodes).CreateTempOrderedCSet(ordered, 2);
    EXPECT_EQ(Members(mapper.GetSecondaryNodeSet(backwards)), (std::vector<int>{1, 3}));
}

TEST(ORXSrvLabelMapperTest, OrderedSetsFindTheRowsThatBinarySearchFinds)
{
    // Tables matched whole, with few or many holes, without their end ordinals, and with ordinals
    // claimed by a second occurrence. Every ordinal, shuffled and some twice, asked in a given order
    // must give the row that bsearch of the table's keys gives, and where each ordinal is matched
    // once, its counterpart.
    int const count = 2000;
    struct Case
    {
        char const* name;
        int keptPercent; // of the labels, on the secondary side
        bool endsMissing;
        int claimedTwice;
    };
    Case const cases[] = {{"whole", 100, false, 0},     {"few holes", 99, false, 0},
                          {"half", 50, true, 0},        {"sparse", 2, false, 0},
                          {"no ends", 100, true, 0},    {"twice", 100, false, 40},
                          {"one twice", 100, false, 1}, {"holes and twice", 70, true, 25}};
    for (Case const& c : cases)
    {
        SCOPED_TRACE(c.name);
        LabelledDocument primary(count), secondary(count);
        std::mt19937 random(7);
        std::vector<int> pOrd(count), sOrd(count), labels(count), sKeptOrd, sKeptLab;
        for (int i = 0; i < count; ++i)
            pOrd[i] = sOrd[i] = i, labels[i] = i + 1;
        std::shuffle(pOrd.begin(), pOrd.end(), random);
        std::shuffle(sOrd.begin(), sOrd.end(), random);
        std::vector<int> keys;    // primary ordinals of the matches, with repeats
        std::map<int, int> carry; // primary ordinal -> secondary ordinal
        for (int i = 0; i < count; ++i)
        {
            bool const end = pOrd[i] == 0 || pOrd[i] == count - 1;
            if (static_cast<int>(random() % 100) >= c.keptPercent || (c.endsMissing && end))
                continue;
            sKeptOrd.push_back(sOrd[i]);
            sKeptLab.push_back(labels[i]);
            keys.push_back(pOrd[i]);
            carry[pOrd[i]] = sOrd[i];
        }
        primary.Define(0, "A", pOrd, labels);
        secondary.Define(0, "A", sKeptOrd, sKeptLab);
        std::vector<int> twice, twiceLabels, twiceSecondary;
        for (int i = 0; i < c.claimedTwice; ++i)
            twice.push_back(keys[i * 7 % keys.size()]);
        std::sort(twice.begin(), twice.end());
        twice.erase(std::unique(twice.begin(), twice.end()), twice.end());
        for (std::size_t i = 0; i < twice.size(); ++i)
        {
            twiceLabels.push_back(static_cast<int>(i) + 1);
            twiceSecondary.push_back(static_cast<int>(i));
            keys.push_back(twice[i]);
        }
        primary.Define(0, "B", twice, twiceLabels);
        secondary.Define(0, "B", twiceSecondary, twiceLabels);
        std::sort(keys.begin(), keys.end());
        std::vector<ORXSrvLabelMapperQuad> table;
        for (int key : keys)
            table.push_back({key, 0, 0, 0});

        std::vector<int> asked(count);
        for (int i = 0; i < count; ++i)
            asked[i] = i;
        std::shuffle(asked.begin(), asked.end(), random);
        asked.insert(asked.end(), {0, count - 1, asked[3], asked[3]});
        std::vector<int> mapping, carried;
        for (int member : asked)
        {
            void const* found =
                std::bsearch(&member, table.data(), table.size(), sizeof(ORXSrvLabelMapperQuad),
                             &ORXSrvLabelMapper::IntQuadCompare);
            if (found)
                mapping.push_back(
                    static_cast<int>(static_cast<ORXSrvLabelMapperQuad const*>(found) - table.data()));
            if (carry.count(member))
                carried.push_back(carry[member]);
        }
        ORXSrvLabelMapper mapper(primary.doc.Focus(), secondary.doc.Focus());
        ORXSimCSetID const ordered = ORXSimCollection(primary.nodes)
                                         .CreateTempOrderedCSet(asked.data(), static_cast<int>(asked.size()));
        EXPECT_EQ(Values(mapper.GetMappingFromPrimaryNodeSet(ordered)), mapping);
        std::vector<int> const secondaries = Members(mapper.GetSecondaryNodeSet(ordered));
        EXPECT_EQ(secondaries.size(), mapping.size());
        if (twice.empty())
        {
            EXPECT_EQ(secondaries, carried);
        }
    }
}

TEST(ORXSrvLabelMapperTest, GlobalLabelsAndSetMappers)
{
    LabelledDocument d(4);
    d.Define(0, "A", {0, 1}, {10, 11});
    d.Define(0, "B", {2}, {10});
    CollectionIDArray grid(1, 0);
    grid.Get(0) = d.nodes;
    ORXSimDistributionID const labels =
        d.doc.Focus().CreateTypedDistribution(ORXSimGrid(grid), Schema(99, 40), ORXSimRangeType(2));
    std::vector<int> global = {-5, 100, 7, 8};
    ORXSimTransfer write{ORXSimDistribution(labels)};
    write.SetWrite().SetMakeNewDrawer().SetBufferPadding(false).SetDim(
        0, ORXSimCollection(d.nodes).CreateCSetStrided(0, 4));
    write.CheckView().SetBuffer(0, global.data(), 16).ExecWrite();
    write.RelinquishBuffers();

    ORXSrvGlobalLabelMap map(d.doc.Focus(), 0);
    map.Initialize(ORXSimPosition(labels));
    ORXString instance = "unset";
    int local = -1;
    EXPECT_TRUE(map.GetInstanceLabel(-5, instance, local));
    EXPECT_STREQ(instance.CStr(), "A");
    EXPECT_EQ(local, 10);
    EXPECT_TRUE(map.GetInstanceLabel(7, instance, local));
    EXPECT_STREQ(instance.CStr(), "B");
    EXPECT_FALSE(map.GetInstanceLabel(8, instance, local)) << "ordinal 3 is in no occurrence";
    EXPECT_FALSE(map.GetInstanceLabel(9, instance, local));
    EXPECT_EQ(local, 10) << "left alone";

    // Mappers stored by kind and read back; a set of another kind is refused after the record is made.
    ORXSimPosition const first(ORXSimCollection(d.nodes).CreateCSetStrided(0, 2));
    int const swapped[] = {1, 0};
    ORXSimPosition const second(ORXSimCollection(d.nodes).CreateCSet(swapped, 2));
    ORXSrvSetMapperFactory::PersistMapper(first, second);
    EXPECT_EQ(ORXSrvSetMapperFactory::GetPermutationNodes(d.doc.Focus()), first.GetCSet());
    EXPECT_EQ(
        Members(ORXSrvSetMapperFactory::NodeMapper(d.doc.Focus())->MapCSet(ORXSimCSet(second.GetCSet()))),
        (std::vector<int>{0, 1}));
    EXPECT_TRUE(ORXSrvSetMapperFactory::GetPermutationElements(d.doc.Focus()).IsNull());
    ORXSimPosition const other(d.doc.Focus().CreateTypedCollection(2, Schema(50, 79)));
    RecordedText recorded;
    EXPECT_EQ(recorded.Of(
                  [&]
                  {
                      ORXSrvSetMapperFactory::PersistMapper(
                          first,
                          ORXSimPosition(ORXSimCollection(other.GetCollection()).CreateCSetStrided(0, 1)));
                  }),
              "0");
}

TEST(ORXSrvLabelMapperTest, DegreesOfFreedomAndNames)
{
    LabelledDocument d(4);
    ORXSimCollectionID const dofs = d.doc.Focus().CreateTypedCollection(12, Schema(24, 2));
    d.doc.SetDofTypeCollection(ORXSimPosition(dofs));
    char const* const dofNames[] = {"DISPLACEMENT_1",   "DISPLACEMENT_2",   "DISPLACEMENT_3",
                                    "ROTATION_ANGLE_1", "ROTATION_ANGLE_2", "ROTATION_ANGLE_3"};
    int const dofPlaces[] = {2, 3, 4, 9, 10, 11};
    for (int i = 0; i < 6; ++i)
        d.doc.GetRecord(dofs, dofPlaces[i]).SetSymbol(dofPlaces[i], dofNames[i]);
    d.doc.GetRecord(dofs, 5).SetSymbol(5, "TEMPERATURE");
    for (int n = 1; n <= 6; ++n)
        EXPECT_EQ(ORXSrvGetDofNumberFromDofRecord(ORXSrvGetDofRecordFromDofNumber(d.doc, n)), n);
    EXPECT_EQ(ORXSrvGetDofNumberFromDofRecord(d.doc.GetRecord(dofs, 5)), -1);
    EXPECT_TRUE(ORXSrvGetDofRecordFromDofNumber(d.doc, 0).IsNull());

    ORXSimCollectionID const components = d.doc.Focus().CreateTypedCollection(21, Schema(13, 5));
    d.doc.SetComponentCollection(ORXSimPosition(components));
    d.doc.GetRecord(components, 0).SetSymbol(0, "C_1");
    d.doc.GetRecord(components, 12).SetSymbol(12, "C_2");
    d.doc.GetRecord(components, 20).SetSymbol(20, "C_3");
    d.doc.GetRecord(components, 1).SetSymbol(1, "OTHER");
    for (int n = 1; n <= 3; ++n)
    {
        ORXSimPosition const record = ORXSrvGetComponentRecordFromDofNumber(d.doc, n);
        EXPECT_EQ(ORXSrvGetComponentNumberFromComponentRecord(record), n);
        EXPECT_EQ(Members(ORXSrvGetComponentCSetFromComponentRecord(d.doc, record).CSet()),
                  std::vector<int>{n});
    }
    EXPECT_TRUE(ORXSrvGetComponentRecordFromDofNumber(d.doc, 4).IsNull());
    EXPECT_EQ(ORXSrvGetComponentNumberFromComponentRecord(d.doc.GetRecord(components, 1)), 1);

    // Names of sets by their one holder in the first or the second map, and occurrences of ordinals.
    ORXSimPosition const model = d.doc.GetModel();
    ORXSimPosition const once(ORXSimCollection(d.nodes).CreateCSetStrided(0, 1));
    ORXSimPosition const twice(ORXSimCollection(d.nodes).CreateCSetStrided(1, 1));
    ORXSimPosition const second(ORXSimCollection(d.nodes).CreateCSetStrided(2, 1));
    ORXSimPosition const elements(ORXSimCollection(d.elements).CreateCSetStrided(0, 1));
    model.GetMap(Schema(47, 7)).Insert("N-ONCE", once);
    model.GetMap(Schema(47, 7)).Insert("N-A", twice);
    model.GetMap(Schema(47, 7)).Insert("N-B", twice);
    model.GetMap(Schema(47, 8)).Insert("N-ALT", twice);
    model.GetMap(Schema(47, 8)).Insert("N-SECOND", second);
    model.GetMap(Schema(47, 6)).Insert("E-ALT", elements);
    ORXSimPosition const surface = d.doc.CreateDataRecord(Schema(47, 28)).Pos();
    surface.SetName("SURF");
    d.Define(1, "PART", {2}, {40});
    struct Case
    {
        std::string found;
        std::string expected;
    };
    ORXString instance = "unset";
    int label = -1;
    bool const known = ORXSrvGetInstanceInfo(model, 7, 2, instance, label);
    bool const unknown = ORXSrvGetInstanceInfo(model, 7, 3, instance, label);
    Case const cases[] = {
        {ORXSrvGetNodeSetNameFromCSetID(model, once.GetCSet()).CStr(), "N-ONCE"},
        {ORXSrvGetNodeSetNameFromCSetID(model, twice.GetCSet()).CStr(), "N-ALT"},
        {ORXSrvGetNodeSetNameFromCSetID(model, second.GetCSet()).CStr(), "N-SECOND"},
        {ORXSrvGetNodeSetNameFromCSetID(model, ORXSimCSetID()).CStr(), ""},
        {ORXSrvGetElementSetNameFromCSetID(model, elements.GetCSet()).CStr(), "E-ALT"},
        {ORXSrvGetElementSetNameFromCSetID(model, once.GetCSet()).CStr(), ""},
        {ORXSrvGetSurfaceNameFromID(model, surface.ID()).CStr(), "SURF"},
        {known ? "known" : "unknown", "known"},
        {unknown ? "known" : "unknown", "unknown"},
        {std::string(instance.CStr()) + ":" + std::to_string(label), "PART:40"},
    };
    for (Case const& c : cases)
        EXPECT_EQ(c.found, c.expected);
}
