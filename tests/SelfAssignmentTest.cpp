// Assignment of the base containers and strings from themselves, through a reference, and from one
// of their own elements: the target must end up holding what the source held.
#include <ORXSrvBasic.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace
{
// A node that owns the next one, for assignments from an object the target itself keeps alive;
// shared pointers give their objects back through the memory entries.
struct Link : mem_AllocationOperators
{
    int value = 0;
    ORXBasSharedPtr<Link> next;
};

// Containers that hold containers of their own type: assigning one from the container inside one of
// its own elements must copy (or take) the source before releasing those elements.
struct VectorNode
{
    int id = 0;
    ORXBasVector<VectorNode> kids;
};
struct MapNode
{
    int id = 0;
    ORXBasMap<int, MapNode> kids;
};
struct ArrayNode
{
    int id = 0;
    ORXSimArray<ArrayNode, ORXSimArrayClassPolicy<ArrayNode>> kids;
};

// The contents of a string vector as one text, for comparisons.
std::string Joined(ORXBasVector<ORXString> const& vector)
{
    std::string text;
    for (ORXString const& s : vector)
        text += std::string(s.CStr()) + ",";
    return text;
}
} // namespace

TEST(SelfAssignment, EveryContainerKeepsItsContents)
{
    struct Case
    {
        char const* name;
        std::function<void()> run;
    };
    Case const cases[] = {
        {"ORXString through a reference",
         []
         {
             ORXString s("abc");
             ORXString& alias = s;
             s = alias;
             EXPECT_STREQ(s.CStr(), "abc");
             EXPECT_EQ(s.UseCount(), 1);
             s = s.CStr(); // from its own text
             EXPECT_STREQ(s.CStr(), "abc");
             s += s;
             s.Append(s);
             EXPECT_STREQ(s.CStr(), "abcabcabcabc");
         }},
        {"shared ORXString",
         []
         {
             ORXString s("shared");
             ORXString const other = s;
             ORXString& alias = s;
             s = alias;
             EXPECT_EQ(s.UseCount(), 2);
             EXPECT_STREQ(other.CStr(), "shared");
         }},
        {"cow_String",
         []
         {
             cow_String c;
             c = omn_FixedString("text");
             cow_String& alias = c;
             c = alias;
             EXPECT_STREQ(c.CStr(), "text");
             c = omn_FixedString(c.CStr());
             EXPECT_STREQ(c.CStr(), "text");
         }},
        {"ORXBasVector",
         []
         {
             ORXBasVector<ORXString> v;
             v.push_back("a");
             v.push_back("b");
             ORXBasVector<ORXString>& alias = v;
             v = alias;
             EXPECT_EQ(Joined(v), "a,b,");
             while (v.size() < v.capacity())
                 v.push_back("c");
             v.push_back(v[0]); // grows while reading its own element
             v.resize(v.size() + 3, v[1]);
             v[0] = v[1];
             EXPECT_EQ(v[v.size() - 4], ORXString("a"));
             EXPECT_EQ(v.back(), ORXString("b"));
             EXPECT_EQ(v[0], ORXString("b"));
         }},
        {"ORXBasMap",
         []
         {
             ORXBasMap<int, ORXBasMap<int, int>> m;
             ORXBasMap<int, int> inner;
             inner.Insert(1, 10);
             m.Insert(0, inner);
             ORXBasMap<int, ORXBasMap<int, int>>& alias = m;
             m = alias;
             ASSERT_EQ(m.size(), 1u);
             for (int k = 1; k < 40; ++k)
                 m.Insert(k, m.find(0)->second); // rebalancing while copying its own element
             EXPECT_EQ(m.size(), 40u);
             EXPECT_EQ(m.find(39)->second.find(1)->second, 10);
             ORXBasMap<int, int>& innerAlias = m.find(5)->second;
             m.find(5)->second = innerAlias;
             EXPECT_EQ(m.find(5)->second.size(), 1u);
         }},
        {"ORXBasSharedPtr and ORXBasWeakPtr",
         []
         {
             ORXBasSharedPtr<Link> head(new Link());
             head->next = ORXBasSharedPtr<Link>(new Link());
             head->next->value = 2;
             ORXBasSharedPtr<Link>& alias = head;
             head = alias;
             EXPECT_EQ(head->next->value, 2);
             head = head->next; // the old head, its only owner, goes away during the assignment
             EXPECT_EQ(head->value, 2);
             ORXBasWeakPtr<Link> weak(head);
             ORXBasWeakPtr<Link>& weakAlias = weak;
             weak = weakAlias;
             EXPECT_EQ(weak.lock()->value, 2);
         }},
        {"ORXSimArray",
         []
         {
             ORXSimArray<ORXString> a(2, 0);
             a.Get(0) = "x";
             a.Get(1) = "y";
             ORXSimArray<ORXString>& alias = a;
             a = alias;
             for (int i = 0; i < 20; ++i)
                 a.PushBack(a[0]);
             EXPECT_EQ(a.Size(), 22);
             EXPECT_STREQ(a[21].CStr(), "x");
             EXPECT_STREQ(a[1].CStr(), "y");
         }},
        {"containers assigned from a container inside their own elements",
         []
         {
             ORXBasVector<VectorNode> v(1);
             v[0].kids.resize(2);
             v[0].kids[1].id = 8;
             v = v[0].kids;
             ASSERT_EQ(v.size(), 2u);
             EXPECT_EQ(v[1].id, 8);
             v[0].kids.resize(1);
             v = static_cast<ORXBasVector<VectorNode>&&>(v[0].kids); // the old elements go at once
             EXPECT_EQ(v.size(), 1u);

             ORXBasMap<int, MapNode> m;
             MapNode inner{1, {}};
             inner.kids.Insert(7, MapNode{7, {}});
             inner.kids.Insert(8, MapNode{8, {}});
             m.Insert(1, inner);
             m = m.find(1)->second.kids;
             ASSERT_EQ(m.size(), 2u);
             EXPECT_EQ(m.begin()->second.id, 7);
             m.Insert(9, MapNode{9, m});
             m = static_cast<ORXBasMap<int, MapNode>&&>(m.find(9)->second.kids);
             EXPECT_EQ(m.size(), 2u);

             ORXSimArray<ArrayNode, ORXSimArrayClassPolicy<ArrayNode>> a(1);
             a[0].kids.SetSize(3);
             a[0].kids[2].id = 5;
             a = a[0].kids;
             ASSERT_EQ(a.Size(), 3);
             EXPECT_EQ(a[2].id, 5);
         }},
        {"the trees",
         []
         {
             ORXSimBtree<int, int> tree;
             omi_Btree<ORXString, int> other;
             for (int k = 0; k < 50; ++k)
             {
                 tree.Insert(k, k * 2, false);
                 other.Insert(ORXString(std::to_string(k).c_str()), k * 3);
             }
             ORXSimBtree<int, int>& alias = tree;
             tree = alias;
             omi_Btree<ORXString, int>& otherAlias = other;
             other = otherAlias;
             EXPECT_EQ(tree.Size(), 50);
             EXPECT_EQ(tree.Get(49), 98);
             EXPECT_EQ(other.Size(), 50);
             EXPECT_EQ(other.ConstGet("49"), 147);
         }},
    };
    for (Case const& c : cases)
    {
        SCOPED_TRACE(c.name);
        c.run();
    }
}
