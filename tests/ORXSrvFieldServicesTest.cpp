#include <ORXSrvBasic.h>

#include <gtest/gtest.h>

#include <string>
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
    EXPECT_EQ(ORXSrvFieldServices::GetComponent("E12", false), 5);
    EXPECT_EQ(ORXSrvFieldServices::GetComponent("E12", true), 9);
    EXPECT_EQ(ORXSrvFieldServices::GetComponent("E11", false), 1);
    EXPECT_EQ(ORXSrvFieldServices::GetComponent("E11", true), 1);
    EXPECT_EQ(ORXSrvFieldServices::GetComponent("CKE13", true), 9);
    EXPECT_EQ(ORXSrvFieldServices::GetComponent("ER13", true), 11);
    EXPECT_EQ(ORXSrvFieldServices::GetComponent("PEVAVG12", true), 5);
    EXPECT_EQ(ORXSrvFieldServices::GetComponent("DG31", true), 21);
    EXPECT_EQ(ORXSrvFieldServices::GetComponent("MISES", false), 38);
    // The last real row: the terminator behind it differs from every label.
    EXPECT_EQ(ORXSrvFieldServices::GetComponent("SNDFLG", true), 38);
    EXPECT_EQ(ORXSrvFieldServices::GetComponent("NOSUCHLABEL", true), 38);
    EXPECT_EQ(ORXSrvFieldServices::GetComponent("", false), 38);
    EXPECT_EQ(ORXSrvFieldServices::GetComponent("e12", false), 38);
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

TEST(ORXSrvFieldServicesLabels, VariableAndComponentLabelsOfAFieldType)
{
    EXPECT_STREQ(ORXSrvFieldServices::GetVariableLabel("", -1).CStr(), "UNDEFINED");
    EXPECT_STREQ(ORXSrvFieldServices::GetVariableLabel("NULL", -1).CStr(), "UNDEFINED");
    EXPECT_STREQ(ORXSrvFieldServices::GetVariableLabel("NULLX", -1).CStr(), "");
    EXPECT_STREQ(ORXSrvFieldServices::GetVariableLabel("NOSUCHTYPE", -1).CStr(), "");
    EXPECT_STREQ(ORXSrvFieldServices::GetVariableLabel("A_D", -1).CStr(), "A");
    EXPECT_STREQ(ORXSrvFieldServices::GetVariableLabel("A_D", Grid(13, 9)).CStr(), "");
    EXPECT_STREQ(ORXSrvFieldServices::GetVariableLabel("AC_YIELD", Grid(13, 8)).CStr(), "AC YIELD");
    EXPECT_STREQ(ORXSrvFieldServices::GetVariableLabel("P", -1).CStr(), "AVGPRESS");
    EXPECT_STREQ(ORXSrvFieldServices::GetVariableLabel("P", Grid(23, 19)).CStr(), "P");
    // A family without whole-variable label.
    EXPECT_STREQ(ORXSrvFieldServices::GetVariableLabel("CRACK2", -1).CStr(), "");

    EXPECT_STREQ(ORXSrvFieldServices::GetComponentLabel("NULL", 1, -1).CStr(), "");
    EXPECT_STREQ(ORXSrvFieldServices::GetComponentLabel("", 38, -1).CStr(), "");
    EXPECT_STREQ(ORXSrvFieldServices::GetComponentLabel("A_D", 12, -1).CStr(), "A2");
    EXPECT_STREQ(ORXSrvFieldServices::GetComponentLabel("A_D", vds_ComponentNone, -1).CStr(), "A");
    EXPECT_STREQ(ORXSrvFieldServices::GetComponentLabel("E0", 9, Grid(13, 11)).CStr(), "E12");
    EXPECT_STREQ(ORXSrvFieldServices::GetComponentLabel("E0", 9, Grid(23, 94)).CStr(), "");
    EXPECT_STREQ(ORXSrvFieldServices::GetComponentLabel("CDSTRESS", 20, -1).CStr(), "CDPRESS");
}

TEST(ORXSrvFieldServicesLabels, FieldTypeOfTheFirstRow)
{
    EXPECT_STREQ(ORXSrvFieldServices::GetFieldType("CNF1").CStr(), "CNF_D");
    EXPECT_STREQ(ORXSrvFieldServices::GetFieldType("AC YIELD").CStr(), "AC_YIELD");
    EXPECT_STREQ(ORXSrvFieldServices::GetFieldType("AVGPRESS").CStr(), "P");
    EXPECT_STREQ(ORXSrvFieldServices::GetFieldType("SNDFLG").CStr(), "PROCESSOR");
    EXPECT_STREQ(ORXSrvFieldServices::GetFieldType("").CStr(), "UNDEFINED");
    EXPECT_STREQ(ORXSrvFieldServices::GetFieldType("NULL").CStr(), "UNDEFINED");
    EXPECT_STREQ(ORXSrvFieldServices::GetFieldType("NOSUCHLABEL").CStr(), "UNDEFINED");
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

} // namespace
