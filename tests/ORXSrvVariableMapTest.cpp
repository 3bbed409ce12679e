#include <ORXSrvBasic.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace
{

int const rowCount = 4759;

int Grid(int group, int member)
{
    return vds_CoreFragmentTypeIndex(group, member);
}

struct Row
{
    int component;
    std::string fieldType;
    int gridType;
    bool operator==(Row const&) const = default;
};

void PrintTo(Row const& row, std::ostream* out)
{
    *out << "(" << row.component << ", " << row.fieldType << ", " << row.gridType << ")";
}

// Every row of label, in table order.
std::vector<Row> RowsOf(char const* label)
{
    std::vector<Row> rows;
    for (int i = 0; ORXSrvVariableMap::GetEntry(i).label; ++i)
    {
        ORXSrvVariableStruct const& row = ORXSrvVariableMap::GetEntry(i);
        if (std::strcmp(row.label, label) == 0)
            rows.push_back({row.component, row.fieldType, row.gridType});
    }
    return rows;
}

int IndexOf(char const* label)
{
    for (int i = 0; ORXSrvVariableMap::GetEntry(i).label; ++i)
        if (std::strcmp(ORXSrvVariableMap::GetEntry(i).label, label) == 0)
            return i;
    return -1;
}

// Rows of one or two symbols over a list of (group, member) grids, the symbols together on each grid.
std::vector<Row> Over(std::vector<int> const& components, char const* fieldType,
                      std::vector<std::pair<int, int>> const& grids)
{
    std::vector<Row> rows;
    for (auto [group, member] : grids)
        for (int component : components)
            rows.push_back({component, fieldType, Grid(group, member)});
    return rows;
}

std::vector<std::pair<int, int>> const listG1 = {{13, 9}, {13, 11}, {23, 20}, {13, 14}, {23, 24}, {13, 13}};

TEST(ORXSrvVariableMap, CensusOfRowsLabelsGridTypesAndComponents)
{
    struct Expected
    {
        int group, member, rows, labels;
    };
    std::vector<Expected> const expected = {
        {13, 8, 120, 114},  {13, 9, 619, 523},  {13, 11, 621, 525}, {23, 20, 963, 869}, {13, 14, 586, 494},
        {23, 24, 602, 510}, {13, 13, 603, 511}, {13, 73, 5, 5},     {13, 75, 210, 204}, {23, 15, 4, 4},
        {23, 92, 4, 4},     {23, 17, 16, 16},   {23, 19, 34, 34},   {23, 94, 343, 331}, {47, 19, 16, 16},
        {47, 20, 8, 8},     {48, 15, 1, 1},     {48, 16, 2, 2},     {48, 19, 2, 2}};
    std::set<int> const usedComponents = {0,  1,  5,  9,  10, 11, 12, 13, 14, 18, 19, 20, 21,
                                          22, 23, 24, 25, 26, 31, 32, 33, 35, 36, 37, 38};
    std::set<std::string> labels, fieldTypes, withBlank, withHyphen;
    std::map<int, int> rowsOf;
    std::map<int, std::set<std::string>> labelsOf;
    int count = 0;
    for (; ORXSrvVariableMap::GetEntry(count).label; ++count)
    {
        ORXSrvVariableStruct const& row = ORXSrvVariableMap::GetEntry(count);
        std::string const label = row.label;
        labels.insert(label);
        fieldTypes.insert(row.fieldType);
        ++rowsOf[row.gridType];
        labelsOf[row.gridType].insert(label);
        EXPECT_TRUE(usedComponents.count(row.component)) << label << " " << row.component;
        if (label.find(' ') != std::string::npos)
            withBlank.insert(label);
        if (label.find('-') != std::string::npos)
            withHyphen.insert(label);
        for (char c : label)
            EXPECT_FALSE(c >= 'a' && c <= 'z') << label;
    }
    EXPECT_EQ(count, rowCount);
    EXPECT_EQ(labels.size(), 1573u);
    EXPECT_EQ(fieldTypes.size(), 681u);
    EXPECT_EQ(rowsOf.size(), 19u);
    for (Expected const& grid : expected)
    {
        int const type = Grid(grid.group, grid.member);
        EXPECT_EQ(rowsOf[type], grid.rows) << grid.group << "/" << grid.member;
        EXPECT_EQ(labelsOf[type].size(), std::size_t(grid.labels)) << grid.group << "/" << grid.member;
    }
    EXPECT_EQ(withBlank.size(), 7u);
    for (std::string const& label : withBlank)
        EXPECT_EQ(label.substr(0, 3), "AC ");
    EXPECT_EQ(withHyphen, (std::set<std::string>{"J-ELA", "J-PLA"}));

    // The terminator, at the table's base plus the index.
    ORXSrvVariableStruct const& terminator = ORXSrvVariableMap::GetEntry(rowCount);
    EXPECT_EQ(&terminator, &ORXSrvVariableMap::GetEntry(0) + rowCount);
    EXPECT_EQ(terminator.component, 38);
    EXPECT_STREQ(terminator.fieldType, "UNDEFINED");
    EXPECT_EQ(terminator.gridType, 0);
}

TEST(ORXSrvVariableMap, TellingAndIrregularRowsStandAsWritten)
{
    ORXSrvVariableStruct const& first = ORXSrvVariableMap::GetEntry(0);
    EXPECT_STREQ(first.label, "A");
    EXPECT_EQ(first.component, 38);
    EXPECT_STREQ(first.fieldType, "A_D");
    EXPECT_EQ(first.gridType, Grid(23, 94));

    ORXSrvVariableStruct const& last = ORXSrvVariableMap::GetEntry(rowCount - 1);
    EXPECT_STREQ(last.label, "SNDFLG");
    EXPECT_STREQ(last.fieldType, "PROCESSOR");
    EXPECT_EQ(last.gridType, Grid(23, 20));

    EXPECT_EQ(RowsOf("AC BUCKL"), Over({38}, "AC_BUCKL", {{13, 8}}));
    // "AC YIELD" stands on 13/8 first; "ACYIELD", a label of the same field type, lacks 13/8.
    EXPECT_EQ(RowsOf("AC YIELD"),
              Over({38}, "AC_YIELD", {{13, 8}, {13, 9}, {13, 11}, {23, 24}, {13, 13}, {23, 20}, {13, 14}}));
    EXPECT_EQ(RowsOf("ACYIELD"),
              Over({38}, "AC_YIELD", {{13, 9}, {13, 11}, {23, 24}, {13, 13}, {23, 20}, {13, 14}}));
    EXPECT_EQ(RowsOf("CDPRESS"), Over({20}, "CDSTRESS", {{23, 94}}));
    EXPECT_EQ(RowsOf("CDSHEAR2"), Over({12}, "CDSTRESS", {{23, 94}}));
    EXPECT_EQ(IndexOf("CDSTRESS"), IndexOf("CDSHEAR2") + 1);
    EXPECT_EQ(RowsOf("COPEN"), Over({20}, "CDISP", {{23, 94}}));
    EXPECT_EQ(RowsOf("CRACK1X"), Over({0}, "CRACK1", listG1));
    EXPECT_EQ(IndexOf("CRACK1"), -1);
    EXPECT_EQ(RowsOf("NFORC4"), Over({0}, "NFORC_R", {{23, 24}, {13, 13}}));
    EXPECT_EQ(RowsOf("CKE12"), Over({23}, "CKE", listG1));
    EXPECT_EQ(RowsOf("CKE22"), Over({14}, "CKE", listG1));

    std::vector<Row> cnf1 = Over({0}, "CNF_D", {{23, 20}, {23, 94}});
    cnf1.push_back({0, "CNORMF", Grid(23, 94)});
    EXPECT_EQ(RowsOf("CNF1"), cnf1);

    // Volume-averaged labels carry one symbol only, and the rows put them on 23/20 alone.
    EXPECT_EQ(RowsOf("PEVAVG12"), Over({5}, "PE", {{23, 20}}));
    EXPECT_EQ(RowsOf("SVAVG13").size(), 1u);
    EXPECT_EQ(RowsOf("PE12").size(), 12u);

    // Five rows, 23/20 twice, 23/24 and 13/13 absent.
    std::vector<std::pair<int, int>> const five = {{13, 9}, {13, 11}, {23, 20}, {13, 14}, {23, 20}};
    EXPECT_EQ(RowsOf("DG31"), Over({21}, "DG", five));
    EXPECT_EQ(RowsOf("EFLX1"), Over({0}, "EFLX_V", five));

    // The only two-symbol label whose second pair stands in reverse.
    std::vector<Row> const er13 = RowsOf("ER13");
    ASSERT_EQ(er13.size(), 12u);
    EXPECT_EQ((std::vector<Row>(er13.begin(), er13.begin() + 4)),
              (std::vector<Row>{{10, "ER", Grid(13, 9)},
                                {11, "ER", Grid(13, 9)},
                                {11, "ER", Grid(13, 11)},
                                {10, "ER", Grid(13, 11)}}));
}

TEST(ORXSrvVariableMap, TwoSymbolLabelsExpandInTheirListOrder)
{
    std::vector<Row> const e12 = {{5, "E0", Grid(13, 9)},  {9, "E0", Grid(13, 9)},  {5, "E0", Grid(13, 11)},
                                  {9, "E0", Grid(13, 11)}, {5, "E0", Grid(23, 20)}, {5, "E0", Grid(13, 14)},
                                  {9, "E0", Grid(23, 20)}, {9, "E0", Grid(13, 14)}, {5, "E0", Grid(23, 24)},
                                  {5, "E0", Grid(13, 13)}, {9, "E0", Grid(23, 24)}, {9, "E0", Grid(13, 13)}};
    EXPECT_EQ(RowsOf("E12"), e12);

    // On the seven-grid list the rows of the six-grid list are followed by the pair on 23/94.
    std::vector<Row> dbs12 = e12;
    for (Row& row : dbs12)
        row.fieldType = "DBS";
    for (Row const& row : Over({5, 9}, "DBS", {{23, 94}}))
        dbs12.push_back(row);
    EXPECT_EQ(RowsOf("DBS12"), dbs12);

    EXPECT_EQ(RowsOf("CRSTS13"), Over({10, 11}, "CRSTS", {{13, 9}, {13, 11}, {23, 94}}));
    EXPECT_EQ(RowsOf("IRRI23"), Over({18, 19}, "IRRI", {{13, 75}}));
    EXPECT_EQ(RowsOf("SSE12"), Over({5, 9}, "SHELL_SECTION_STRAINS", {{13, 8}}));
}

TEST(ORXSrvVariableMap, SecondSymbolFollowsTheFirstAtEveryLabelsFirstRow)
{
    std::map<int, int> const secondOf = {{5, 9}, {10, 11}, {18, 19}};
    std::set<std::string> seen;
    int pairs = 0;
    for (int i = 0; i < rowCount; ++i)
    {
        ORXSrvVariableStruct const& row = ORXSrvVariableMap::GetEntry(i);
        auto pair = secondOf.find(row.component);
        if (!seen.insert(row.label).second || pair == secondOf.end())
            continue;
        std::vector<Row> const rows = RowsOf(row.label);
        bool const twoSymbols = std::any_of(
            rows.begin(), rows.end(), [&](Row const& other) { return other.component == pair->second; });
        if (!twoSymbols)
            continue;
        ++pairs;
        ORXSrvVariableStruct const& next = ORXSrvVariableMap::GetEntry(i + 1);
        EXPECT_STREQ(next.label, row.label);
        EXPECT_EQ(next.component, pair->second) << row.label;
    }
    EXPECT_GT(pairs, 100);
}

} // namespace
