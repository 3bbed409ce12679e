// Scoped names: the forms of a written name tried against the model's maps, and their order.
#include "DocumentFixture.h"

#include <string>

namespace
{
int const nodeSets = Schema(47, 7);
int const nodeSetsAlt = Schema(47, 8);
int const elementSets = Schema(47, 5);
int const regions = Schema(47, 9);
int const orientations = Schema(25, 22);

// Fatal reports become exceptions, so that a failed check can be expected.
void ThrowOnAssertion(char const* text, char const*, int)
{
    throw std::runtime_error(text);
}
} // namespace

class ORXSrvScopedNameTest : public DocumentFixture
{
protected:
    void SetUp() override { SetModelName("M"); }

    void SetModelName(char const* name)
    {
        m_model = NewRecord(25, 1);
        m_model.DataRecord().SetString(0, name);
        m_document.Focus().SetPosition(Schema(25, 1), m_model);
    }
    // A fresh record filed under key in map member of the model.
    ORXSimPosition File(int member, char const* key)
    {
        ORXSimPosition record = NewRecord(47, 1);
        m_model.GetMap(member).Insert(key, record);
        return record;
    }
    ORXSimPosition FileSet(int member, char const* key)
    {
        int const members[] = {0, 2};
        ORXSimCSet set = Collection(4).CreateVolatileOrderedCSet(members, 2);
        ORXSimPosition position(set.RegisterWithCollection());
        m_model.GetMap(member).Insert(key, position);
        return position;
    }

    ORXSimPosition m_model;
};

TEST_F(ORXSrvScopedNameTest, FormsAreTriedInOrder)
{
    struct Case
    {
        char const* stored; // key in the map, "" for none
        char const* name;
        char const* separator;
        char const* scope;
        int map;
        bool found;
    };
    Case const cases[] = {
        {"Set", "Set", ".", nullptr, nodeSets, true},
        {"M_Inst_Set", "Set", ".", "Inst", nodeSets, true},       // scope, behind the model
        {"M_Inst_Set", "Set", ".", "\"Inst\"", nodeSets, true},   // quoted scope
        {"Inst_Set", "Set", ".", "Inst", nodeSets, false},        // the scope form only
        {"Set", "Set", ".", "Inst", nodeSets, false},             // a scope turns the rest off
        {"M_Inst_Set", "Inst.Set", ".", nullptr, nodeSets, true}, // separator, then model prefix
        {"M_Inst_Set", "Inst.Set", nullptr, nullptr, nodeSets, false},
        {"Inst_Set", "Inst::Set", "::", "", nodeSets, true}, // separator of two bytes
        {"Set", "M_Set", ".", nullptr, nodeSets, true},      // model prefix taken off
        {"\"A.B\"", "\"\"A.B\"\"", ".", nullptr, nodeSets, false},
        {"A.B", "\"A.B\"", nullptr, nullptr, nodeSets, true},           // leading quotes, separator kept
        {"M_Inst_Set", "M_\"Inst\"_Set", ".", nullptr, nodeSets, true}, // found unquoted
        {"M_Inst_Set", "\"M\"_\"Inst\"_Set", ".", nullptr, nodeSets, true},
        {"INP2SIM_ELSET_Top", "M_Top", ".", nullptr, regions, true},
        {"INP2SIM_NSET_Top", "M_Top", ".", nullptr, regions, true},
        {"INP2SIM_ELSET_Top", "Top", ".", nullptr, regions, false}, // only behind the model prefix
        {"INP2SIM_ELSET_Top", "M_Top", ".", nullptr, elementSets, false},
        {"INP2SIM_NSET_Top", "M_Top", ".", nullptr, orientations, false},
        {"M_Top", "Top", ".", nullptr, orientations, true},
        {"Set", "", ".", nullptr, nodeSets, false}, // an empty name
        {"", "Set", ".", nullptr, nodeSets, false},
    };
    for (Case const& c : cases)
    {
        SCOPED_TRACE(std::string(c.name) + " for key " + c.stored);
        ORXObjDocument document = ORXObjDocument::New();
        m_document.Close();
        m_document = document;
        SetModelName("M");
        ORXSimPosition stored;
        if (*c.stored)
            stored = File(c.map, c.stored);
        ORXSimPosition found =
            ORXSrvGetIDFromScopedName(m_document.Focus(), c.name, c.map, c.separator, c.scope, true);
        EXPECT_EQ(!found.IsNull(), c.found);
        if (c.found)
        {
            EXPECT_TRUE(Same(found, stored));
        }
    }
}

TEST_F(ORXSrvScopedNameTest, FirstFormWinsAndRetryIsOnce)
{
    ORXSimPosition asWritten = File(nodeSets, "Inst.Set");
    ORXSimPosition underscored = File(nodeSets, "Inst_Set");
    ORXSimPosition prefixed = File(nodeSets, "M_Inst_Set");
    ORXSimPosition const focus = m_document.Focus();
    EXPECT_TRUE(Same(ORXSrvGetIDFromScopedName(focus, "Inst.Set", nodeSets, ".", nullptr, true), asWritten));
    EXPECT_TRUE(
        Same(ORXSrvGetIDFromScopedName(focus, "Inst-Set", nodeSets, "-", nullptr, true), underscored));
    EXPECT_TRUE(Same(ORXSrvGetIDFromScopedName(focus, "Set", nodeSets, ".", "Inst", true), prefixed));
    // Without the retry the quoted form is not found.
    File(nodeSets, "M_Q_Set");
    EXPECT_TRUE(ORXSrvGetIDFromScopedName(focus, "M_\"Q\"_Set", nodeSets, ".", nullptr, false).IsNull());
}

TEST_F(ORXSrvScopedNameTest, ModelWithoutNameTriesOnlyThePlainForms)
{
    SetModelName("");
    ORXSimPosition plain = File(nodeSets, "A_B");
    File(nodeSets, "Set");
    ORXSimPosition const focus = m_document.Focus();
    EXPECT_TRUE(Same(ORXSrvGetIDFromScopedName(focus, "A.B", nodeSets, ".", nullptr, true), plain));
    EXPECT_TRUE(ORXSrvGetIDFromScopedName(focus, "_Set", nodeSets, ".", nullptr, true).IsNull());
    File(nodeSets, "X_A");
    EXPECT_TRUE(ORXSrvGetIDFromScopedName(focus, "X_\"A\"", nodeSets, ".", nullptr, true).IsNull())
        << "no retry without a model name";
    File(nodeSets, "S");
    EXPECT_FALSE(ORXSrvGetIDFromScopedName(focus, "S", nodeSets, ".", "", true).IsNull());
}

TEST_F(ORXSrvScopedNameTest, QuoteStripping)
{
    struct Case
    {
        char const* in;
        char const* leading;
        char const* segments;
    };
    Case const cases[] = {
        {"\"Part-1\".Set-1", "Part-1.Set-1", "Part-1.Set-1"},
        {"A_\"B\"_\"C\"", "A_\"B\"_\"C\"", "A_B_C"},
        {"\"A_B\"_C", "A_B_C", "\"A_B\"_C"}, // a quoted piece holding '_' is cut there
        {"\"\"", "", ""},
        {"plain", "plain", "plain"},
        {"\"open", "\"open", "\"open"}, // an unclosed quote leaves the name as it was
        {"", "", ""},
        {"_\"x\"_", "_\"x\"_", "_x_"},
    };
    for (Case const& c : cases)
    {
        SCOPED_TRACE(c.in);
        ORXString name(c.in);
        ORXSrvStripLeadingQuotes(name);
        EXPECT_STREQ(name.CStr(), c.leading);
        EXPECT_STREQ(ORXSrvStripSegmentQuotes(c.in).CStr(), c.segments);
    }
}

TEST_F(ORXSrvScopedNameTest, FamilyWrappers)
{
    ORXSimPosition const focus = m_document.Focus();
    ORXSimPosition nodes = FileSet(nodeSets, "N1");
    ORXSimPosition altNodes = FileSet(nodeSetsAlt, "N2");
    ORXSimPosition elements = FileSet(Schema(47, 6), "E1");
    ORXSimPosition surface = File(regions, "INP2SIM_NSET_S1");
    ORXSimPosition orientation = File(orientations, "O1");
    ORXSimPosition eulerian = File(Schema(47, 11), "EU");

    EXPECT_TRUE(Same(ORXSrvGetNodeSetIDFromScopedName(focus, "N1", ".", nullptr), nodes));
    EXPECT_TRUE(Same(ORXSrvGetNodeSetIDFromScopedName(focus, "M.N2", ".", nullptr), altNodes));
    EXPECT_TRUE(Same(ORXSrvGetElementSetIDFromScopedName(focus, "\"E1\"", nullptr, nullptr), elements));
    EXPECT_TRUE(ORXSrvGetNodeSetIDFromScopedName(focus, "E1", ".", nullptr).IsNull());
    EXPECT_TRUE(Same(ORXSrvGetSurfaceIDFromScopedName(focus, "M.S1", ".", nullptr), surface));
    EXPECT_TRUE(Same(ORXSrvGetOrientationIDFromScopedName(focus, "M_O1", nullptr, nullptr), orientation));
    EXPECT_TRUE(Same(ORXSrvGetEulerianRigionIDFromScopedName(focus, "\"EU\""), eulerian));
    EXPECT_TRUE(ORXSrvGetEulerianRigionIDFromScopedName(focus, "M_EU").IsNull()) << "one exact lookup";
    EXPECT_TRUE(ORXSrvGetEulerianRigionIDFromScopedName(focus, "").IsNull());

    // A set map entry that is no set fails the check of the set lookups.
    File(nodeSets, "NotASet");
    ORXSimAssertionFailureHandler previous = ORXSimUttAssert::SetAssertionFailureHandler(ThrowOnAssertion);
    EXPECT_THROW(
        {
            try
            {
                ORXSrvGetNodeSetIDFromScopedName(focus, "NotASet", ".", nullptr);
            }
            catch (std::runtime_error const& e)
            {
                EXPECT_STREQ(e.what(), "ORXSimCSetID::CanBeConverted(setPos.ID())");
                throw;
            }
        },
        std::runtime_error);
    ORXSimUttAssert::SetAssertionFailureHandler(previous);
}
