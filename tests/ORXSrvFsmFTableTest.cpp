#include <ORXSrvBasic.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

int Schema(int group, int member)
{
    return vds_CoreFragmentTypeIndex(group, member);
}

std::vector<std::string> Strings(ORXBasVector<ORXString> const& labels)
{
    std::vector<std::string> strings;
    for (ORXString const& label : labels)
        strings.push_back(label.CStr());
    return strings;
}

class ORXSrvFsmFTableTest : public ::testing::Test
{
protected:
    void TearDown() override { m_document.Close(); }

    ORXObjDocument m_document = ORXObjDocument::New();
    ORXSimPosition m_owner = m_document.CreateDataRecord(Schema(42, 1)).Pos();
    int const m_tableType = Schema(42, 2);
    int const m_member = Schema(42, 3);
};

TEST_F(ORXSrvFsmFTableTest, CreatesTheTableWithTemperatureAndFieldColumnsLast)
{
    // Two value columns, temperature, two field variables: 3 rows of 5.
    std::vector<double> data(15);
    for (int i = 0; i < 15; ++i)
        data[i] = 10.0 * i + 1.0;
    ORXBasVector<ORXString> dependent;
    dependent.push_back("Young");
    dependent.push_back("Poisson");
    ORXBasVector<ORXString> independent;

    ORXSrvFsmFTable table;
    table.CreateTable(m_owner, m_tableType, 3, 5, dependent, independent, m_member, data.data(), 2, true);

    EXPECT_EQ(Strings(independent), (std::vector<std::string>{"Temperature", "Field_0", "Field_1"}));
    ORXSimPosition const stored = m_owner.GetPosition(m_member);
    ASSERT_FALSE(stored.IsNull());
    EXPECT_FALSE(stored.GetFTable().IsNull());

    ORXSrvFsmFTable const reread(stored);
    EXPECT_EQ(reread.NumOfRows(), 3);
    EXPECT_EQ(reread.NumOfCols(), 5);
    EXPECT_EQ(reread.NumberFieldVariables(), 2);
    EXPECT_TRUE(reread.HasColumn("Young"));
    EXPECT_TRUE(reread.HasColumn("Temperature"));
    EXPECT_FALSE(reread.HasColumn("Field_2"));

    double value = -1.0;
    EXPECT_TRUE(reread.GetColumnData(0, "Young", value));
    EXPECT_EQ(value, data[0]);
    EXPECT_TRUE(reread.GetColumnData(2, "Temperature", value));
    EXPECT_EQ(value, data[2 * 5 + 2]);
    EXPECT_TRUE(table.GetColumnData(1, "Field_1", value));
    EXPECT_EQ(value, data[1 * 5 + 4]);

    value = -1.0;
    EXPECT_FALSE(reread.GetColumnData(3, "Young", value));
    EXPECT_FALSE(reread.GetColumnData(0, "Density", value));
    EXPECT_EQ(value, -1.0);
}

TEST_F(ORXSrvFsmFTableTest, EmptyTableOnlyPushesTheLabels)
{
    ORXBasVector<ORXString> dependent;
    ORXBasVector<ORXString> independent;
    independent.push_back("Strain");
    ORXSrvFsmFTable table;
    table.CreateTable(m_owner, m_tableType, 0, 4, dependent, independent, m_member, nullptr, 1, true);
    EXPECT_EQ(Strings(independent), (std::vector<std::string>{"Strain", "Temperature", "Field_0"}));
    table.CreateTable(m_owner, m_tableType, 4, 0, dependent, independent, m_member, nullptr, 0, false);
    EXPECT_EQ(independent.size(), 3u);
    EXPECT_TRUE(m_owner.GetPosition(m_member).IsNull());
}

TEST_F(ORXSrvFsmFTableTest, SecondFormHasNoLabelsOfTheCallersAndFieldsCountByPrefix)
{
    std::vector<double> data = {1, 20, 2, 2, 40, 3};
    ORXSrvFsmFTable table;
    table.CreateTable(m_owner, m_tableType, 2, 3, m_member, data.data(), 1, true);
    EXPECT_EQ(table.NumOfRows(), 2);
    EXPECT_EQ(table.NumOfCols(), 3);
    EXPECT_EQ(table.NumberFieldVariables(), 1);
    EXPECT_TRUE(table.HasColumn("Temperature"));
    double value = 0.0;
    EXPECT_TRUE(table.GetColumnData(1, "Field_0", value));
    EXPECT_EQ(value, 3.0);

    // Field variables are counted by their prefix.
    ORXBasVector<ORXString> dependent;
    for (char const* label : {"Field_0", "Field_12", "Field", "Field_x", "field_1", "Fiel"})
        dependent.push_back(label);
    ORXBasVector<ORXString> independent;
    std::vector<double> halves(6, 0.5);
    table.CreateTable(m_owner, m_tableType, 1, 6, dependent, independent, m_member, halves.data(), 0, false);
    EXPECT_EQ(table.NumberFieldVariables(), 3);
}

TEST_F(ORXSrvFsmFTableTest, FillPointerHandsOutRowsTheCallerOwns)
{
    ORXBasVector<ORXString> dependent;
    dependent.push_back("Value");
    ORXBasVector<ORXString> independent;
    ORXSrvFsmFTable const empty(
        ORXSimPosition(m_owner.CreateFTable(m_tableType, 0, dependent, independent, nullptr, 0)));
    std::vector<double> data = {1, 2, 3, 4, 5, 6, 7, 8};
    ORXSrvFsmFTable table;
    table.CreateTable(m_owner, m_tableType, 4, 2, m_member, data.data(), 1, false);

    struct Case
    {
        ORXSrvFsmFTable const* table;
        int rows, fieldVariables;
    };
    for (Case filled : {Case{&table, 4, 1}, Case{&empty, 0, 0}})
    {
        double** rows = nullptr;
        int numRows = -1, numCols = -1, numFieldVariables = -1;
        bool temperature = true;
        filled.table->FillPointer(rows, numRows, numCols, temperature, numFieldVariables);
        EXPECT_EQ(numRows, filled.rows);
        EXPECT_EQ(numCols, filled.table->NumOfCols());
        EXPECT_FALSE(temperature);
        EXPECT_EQ(numFieldVariables, filled.fieldVariables);
        ASSERT_NE(rows, nullptr);
        for (int row = 0; row < numRows; ++row)
        {
            EXPECT_EQ(rows[row][0], data[2 * row]);
            EXPECT_EQ(rows[row][1], data[2 * row + 1]);
            mem_Free(rows[row]);
        }
        mem_Free(rows);
    }
    double value = 0.0;
    EXPECT_FALSE(empty.GetColumnData(0, "Value", value));
}

} // namespace
