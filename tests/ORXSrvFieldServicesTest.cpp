#include <ORXSrvBasic.h>

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace
{

int Grid(int group, int member)
{
    return vds_CoreFragmentTypeIndex(group, member);
}

std::vector<std::string> Strings(ORXSimArray<ORXString, ORXSimArrayClassPolicy<ORXString>> const& array)
{
    std::vector<std::string> strings;
    for (int i = 0; i < array.Size(); ++i)
        strings.push_back(array[i].CStr());
    return strings;
}

// The grid types that one enumeration of label yields before -1.
std::vector<int> GridTypesOf(char const* label)
{
    std::vector<int> gridTypes;
    for (int grid = ORXSrvFieldServices::GetGridTypeFromVariableLabel(label, false); grid != -1;
         grid = ORXSrvFieldServices::GetGridTypeFromVariableLabel(label, true))
        gridTypes.push_back(grid);
    return gridTypes;
}

TEST(ORXSrvFieldServicesLabels, GetComponentReadsOnlyTheRowBehindTheFirstMatch)
{
    // "SNDFLG" is the last real row: the terminator behind it differs from every label.
    std::tuple<char const*, bool, int> const cases[] = {
        {"E12", false, 5},    {"E12", true, 9},     {"E11", false, 1},         {"E11", true, 1},
        {"CKE13", true, 9},   {"ER13", true, 11},   {"PEVAVG12", true, 5},     {"DG31", true, 21},
        {"MISES", false, 38}, {"SNDFLG", true, 38}, {"NOSUCHLABEL", true, 38}, {"", false, 38},
        {"e12", false, 38}};
    for (auto const& [label, second, component] : cases)
        EXPECT_EQ(ORXSrvFieldServices::GetComponent(label, second), component) << label << second;
}

TEST(ORXSrvFieldServicesLabels, GridTypesAreEnumeratedRowByRow)
{
    EXPECT_EQ(GridTypesOf("A"), std::vector<int>{Grid(23, 94)});
    EXPECT_EQ(GridTypesOf("CNF1"), (std::vector<int>{Grid(23, 20), Grid(23, 94), Grid(23, 94)}));
    EXPECT_EQ(GridTypesOf("DG31"),
              (std::vector<int>{Grid(13, 9), Grid(13, 11), Grid(23, 20), Grid(13, 14), Grid(23, 20)}));
    // A two-symbol label yields each grid type once per row.
    EXPECT_EQ(GridTypesOf("E12"), (std::vector<int>{Grid(13, 9), Grid(13, 9), Grid(13, 11), Grid(13, 11),
                                                    Grid(23, 20), Grid(13, 14), Grid(23, 20), Grid(13, 14),
                                                    Grid(23, 24), Grid(13, 13), Grid(23, 24), Grid(13, 13)}));
    EXPECT_EQ(GridTypesOf("SNDFLG"), std::vector<int>{Grid(23, 20)});
    EXPECT_TRUE(GridTypesOf("NOSUCHLABEL").empty());
    EXPECT_TRUE(GridTypesOf("").empty());
}

TEST(ORXSrvFieldServicesLabels, TheCursorIsSharedBetweenLabels)
{
    // Starting afresh always begins at row 0 ...
    EXPECT_EQ(ORXSrvFieldServices::GetGridTypeFromVariableLabel("CNF1", false), Grid(23, 20));
    EXPECT_EQ(ORXSrvFieldServices::GetGridTypeFromVariableLabel("CNF1", true), Grid(23, 94));
    // ... and going on continues from wherever the last call left the cursor, whatever its label:
    // "A" stands in row 0 only, which lies behind the cursor now.
    EXPECT_EQ(ORXSrvFieldServices::GetGridTypeFromVariableLabel("A", true), -1);
    EXPECT_EQ(ORXSrvFieldServices::GetGridTypeFromVariableLabel("A", false), Grid(23, 94));
    // The cursor now stands on row 1; the later rows of "CNF1" are still ahead of it.
    EXPECT_EQ(ORXSrvFieldServices::GetGridTypeFromVariableLabel("CNF1", true), Grid(23, 20));
}

TEST(ORXSrvFieldServicesLabels, LabelsAndFieldTypes)
{
    // "CRACK2" is a family without whole-variable label.
    std::tuple<char const*, int, char const*> const variables[] = {
        {"", -1, "UNDEFINED"},    {"NULL", -1, "UNDEFINED"},
        {"NULLX", -1, ""},        {"NOSUCHTYPE", -1, ""},
        {"A_D", -1, "A"},         {"A_D", Grid(13, 9), ""},
        {"P", -1, "AVGPRESS"},    {"AC_YIELD", Grid(13, 8), "AC YIELD"},
        {"P", Grid(23, 19), "P"}, {"CRACK2", -1, ""}};
    for (auto const& [fieldType, gridType, label] : variables)
        EXPECT_STREQ(ORXSrvFieldServices::GetVariableLabel(fieldType, gridType).CStr(), label) << fieldType;

    std::tuple<char const*, int, int, char const*> const components[] = {
        {"NULL", 1, -1, ""},
        {"", 38, -1, ""},
        {"A_D", 12, -1, "A2"},
        {"A_D", int(vds_ComponentNone), -1, "A"},
        {"E0", 9, Grid(13, 11), "E12"},
        {"E0", 9, Grid(23, 94), ""},
        {"CDSTRESS", 20, -1, "CDPRESS"}};
    for (auto const& [fieldType, component, gridType, label] : components)
        EXPECT_STREQ(ORXSrvFieldServices::GetComponentLabel(fieldType, component, gridType).CStr(), label)
            << fieldType << " " << component;

    // The field type of a label's first row.
    std::pair<char const*, char const*> const fieldTypes[] = {
        {"CNF1", "CNF_D"}, {"AC YIELD", "AC_YIELD"}, {"AVGPRESS", "P"},           {"SNDFLG", "PROCESSOR"},
        {"", "UNDEFINED"}, {"NULL", "UNDEFINED"},    {"NOSUCHLABEL", "UNDEFINED"}};
    for (auto const& [label, fieldType] : fieldTypes)
        EXPECT_STREQ(ORXSrvFieldServices::GetFieldType(label).CStr(), fieldType) << label;
}

TEST(ORXSrvFieldServicesLabels, ComponentsOnTheFirstGridTypeInRowOrder)
{
    std::vector<std::string> const strain = {"E11", "E12", "E12", "E13", "E13", "E22",
                                             "E23", "E23", "E33", "EP1", "EP2", "EP3"};
    EXPECT_EQ(Strings(ORXSrvFieldServices::GetComponents("E")), strain);
    EXPECT_EQ(Strings(ORXSrvFieldServices::GetComponents("E11")), strain);
    EXPECT_EQ(Strings(ORXSrvFieldServices::GetComponents("CRACK2X")),
              (std::vector<std::string>{"CRACK2X", "CRACK2Y", "CRACK2Z"}));
    EXPECT_EQ(Strings(ORXSrvFieldServices::GetComponents("A")), (std::vector<std::string>{"A1", "A2", "A3"}));
    EXPECT_TRUE(Strings(ORXSrvFieldServices::GetComponents("MISES")).empty());
    EXPECT_TRUE(Strings(ORXSrvFieldServices::GetComponents("NOSUCHLABEL")).empty());
    EXPECT_TRUE(Strings(ORXSrvFieldServices::GetComponents("")).empty());
}

int Schema(int group, int member)
{
    return vds_CoreFragmentTypeIndex(group, member);
}

class ORXSrvFieldServicesDatabase : public ::testing::Test
{
protected:
    void TearDown() override { m_document.Close(); }

    ORXSimPosition Record(int type) const { return m_document.CreateDataRecord(type).Pos(); }

    ORXObjDocument m_document = ORXObjDocument::New();
};

TEST_F(ORXSrvFieldServicesDatabase, UniformFieldValuesByRecordType)
{
    double values[3] = {-1.0, -1.0, -1.0};
    EXPECT_FALSE(ORXSrvFieldServices::GetUniformFieldValue(ORXSimPosition(), values, 3));

    ORXSimPosition const scalar = Record(Schema(13, 45));
    scalar.DataRecord().SetDouble(0, 2.5);
    EXPECT_TRUE(ORXSrvFieldServices::GetUniformFieldValue(scalar, values, 0));
    EXPECT_EQ(values[0], 2.5);
    EXPECT_EQ(values[1], -1.0);

    double const stored[3] = {1.0, 2.0, 3.0};
    for (int type : {Schema(13, 46), Schema(13, 47)})
    {
        ORXSimPosition const array = Record(type);
        array.DataRecord().SetDouble(0, stored, 3);
        double read[3] = {0.0, 0.0, 0.0};
        EXPECT_TRUE(ORXSrvFieldServices::GetUniformFieldValue(array, read, 3));
        EXPECT_EQ(std::vector<double>(read, read + 3), std::vector<double>(stored, stored + 3));
    }

    values[0] = -1.0;
    ORXSimPosition const other = Record(Schema(13, 42));
    EXPECT_FALSE(ORXSrvFieldServices::GetUniformFieldValue(other, values, 3));
    EXPECT_EQ(values[0], -1.0);
}

class ORXSrvFieldFTable : public ORXSrvFieldServicesDatabase
{
protected:
    void SetUp() override
    {
        m_document.SetModel(Record(Schema(25, 2)));
        ORXSimPosition const library = Record(Schema(16, 1));
        m_document.Focus().SetPosition(Schema(15, 9), library);
        m_columnCollection = library.CreateTypedCollection(8, Schema(16, 2));
        library.SetPosition(Schema(16, 6), ORXSimPosition(m_columnCollection));
        m_targetCollection = library.CreateTypedCollection(4, Schema(16, 3));
        m_targetSet = ORXSimCSet(ORXSimCollection(m_targetCollection).CreateCSetStrided(0, 4, 1, 1));
    }

    // All values of the field's distribution over the target set and the first columns.
    std::vector<double> ReadField(ORXSimPosition const& field, int columns) const
    {
        ORXSimCSetID const columnSet =
            ORXSimCollection(m_columnCollection).CreateTempCSetStrided(0, columns, 1, 1);
        ORXSimTransfer transfer{ORXSimDistribution(field.GetPosition(Schema(13, 43)).GetDistribution())};
        transfer.SetRead().SetBufferPadding(false).SetDim(0, m_targetSet).SetDim(1, columnSet).CheckView();
        std::vector<double> values(4 * columns);
        transfer.SetBuffer(0, values.data(), transfer.RequiredBufferSize(0));
        transfer.ExecRead();
        transfer.RelinquishBuffers();
        return values;
    }

    ORXSimCollectionID m_columnCollection;
    ORXSimCollectionID m_targetCollection;
    ORXSimCSet m_targetSet;
};

TEST_F(ORXSrvFieldFTable, MakesTheTableAndTheDistribution)
{
    ORXSimArray<ORXString, ORXSimArrayClassPolicy<ORXString>> labels;
    for (char const* label : {"Value", "Temperature", "Field_0"})
        labels.PushBack(label);
    std::vector<double> table = {1, 10, 0, 2, 20, 1, 3, 30, 2};
    std::vector<double> values(12);
    for (int i = 0; i < 12; ++i)
        values[i] = 0.5 * i;

    ORXSimPosition const field = ORXSrvFieldServices::CreateFieldFTable(m_document, labels, table.data(), 9,
                                                                        m_targetSet, values.data(), 999);
    ASSERT_FALSE(field.IsNull());
    EXPECT_TRUE(field.IsA(Schema(13, 42)));

    ORXSimFTable const ftable(field.GetPosition(Schema(13, 44)).GetFTable());
    EXPECT_EQ(ftable.RowCount(), 3);
    EXPECT_EQ(ftable.ColumnCount(), 3);
    EXPECT_STREQ(ftable.ColumnLabel(0).CStr(), "Value");
    EXPECT_STREQ(ftable.ColumnLabel(2).CStr(), "Field_0");
    std::vector<double> stored(9);
    ftable.GetData(stored.data(), 9);
    EXPECT_EQ(stored, table);

    EXPECT_EQ(ReadField(field, 3), values);

    // One label makes one column.
    labels.SetSize(1);
    std::vector<double> single = {7, 8, 9, 10};
    ORXSimPosition const narrow = ORXSrvFieldServices::CreateFieldFTable(m_document, labels, table.data(), 2,
                                                                         m_targetSet, single.data(), 0);
    ORXSimFTable const column(narrow.GetPosition(Schema(13, 44)).GetFTable());
    EXPECT_EQ(column.RowCount(), 2);
    EXPECT_EQ(column.ColumnCount(), 1);
    EXPECT_EQ(ReadField(narrow, 1), single);
}

TEST_F(ORXSrvFieldServicesDatabase, FieldPositionOfTheMatchingAssignment)
{
    int const assignmentType = Schema(50, 1);
    int const member = Schema(50, 20);
    ORXSimPosition const target = Record(Schema(50, 2));
    ORXSimPosition const otherTarget = Record(Schema(50, 2));
    ORXSimPosition const defaultField = Record(Schema(13, 45));
    target.SetPosition(member, defaultField);

    ORXSimPosition const holder = Record(Schema(50, 3));
    ORXSimSet assignments = holder.GetSet(Schema(50, 4));
    EXPECT_EQ(ORXSrvFieldServices::GetFieldPosition(assignments, target, member, "Temperature"),
              defaultField);

    std::vector<ORXSimPosition> fields;
    auto assign = [&](char const* name, ORXSimPosition const& to)
    {
        ORXSimPosition const assignment = Record(assignmentType);
        assignment.DataRecord().SetString(0, name);
        assignment.SetPosition(Schema(50, 12), to);
        fields.push_back(Record(Schema(13, 45)));
        assignment.SetPosition(Schema(50, 11), fields.back());
        assignments.Insert(assignment);
    };
    assign("Temperature", otherTarget);
    assign("Pressure", target);
    assign("Temperature", target);
    assign("Temperature", target);

    EXPECT_EQ(ORXSrvFieldServices::GetFieldPosition(assignments, target, member, "Temperature"), fields[2]);
    EXPECT_EQ(ORXSrvFieldServices::GetFieldPosition(assignments, otherTarget, member, "Temperature"),
              fields[0]);
    EXPECT_EQ(ORXSrvFieldServices::GetFieldPosition(assignments, target, member, "Pressure"), fields[1]);
    EXPECT_EQ(ORXSrvFieldServices::GetFieldPosition(assignments, target, member, "Velocity"), defaultField);
    EXPECT_TRUE(ORXSrvFieldServices::GetFieldPosition(assignments, otherTarget, member, "Velocity").IsNull());
}

} // namespace
