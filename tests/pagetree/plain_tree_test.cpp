#include "pagetree/plain_tree.h"

#include "base/errors.h"
#include "support/temporary.h"

#include <gtest/gtest.h>

namespace mrd::pagetree {
namespace {

TEST(PlainTree, hangs_pages_under_the_page_that_their_id_begins_with)
{
  support::TemporaryProject project{{"00", "Start"}, {"01", "Haus"}, {"0101", "Küche"}, {"0102", "Bad"}, {"02", "Garten"}};
  PlainTree tree;

  fillTree(tree, project.db());

  EXPECT_EQ(tree.childCount("@00"), 2u);
  EXPECT_EQ(tree.childCount("@01"), 2u);
  EXPECT_EQ(tree.childCount("@0101"), 0u);
  EXPECT_EQ(tree.label("@00"), "Start");
  EXPECT_EQ(tree.label("@0101"), "Küche");
}

TEST(PlainTree, has_a_page_without_its_parent_as_nobodys_child)
{
  support::TemporaryProject project{{"00", "Start"}, {"0305", "Waise"}, {"M02", "Rest"}};
  PlainTree tree;

  fillTree(tree, project.db());

  EXPECT_EQ(tree.childCount("@00"), 0u);
  EXPECT_TRUE(tree.hasNode("@0305"));
  EXPECT_TRUE(tree.hasNode("@M02"));
}

TEST(PlainTree, has_a_root_where_the_project_has_none)
{
  support::TemporaryProject project{{"01", "Haus"}};
  PlainTree tree;

  fillTree(tree, project.db());

  EXPECT_TRUE(tree.hasNode("@00"));
  EXPECT_EQ(tree.childCount("@00"), 1u);
}

TEST(PlainTree, is_filled_anew_without_what_it_held)
{
  support::TemporaryProject project{{"00", "Start"}};
  PlainTree tree;
  tree.addNode("", "@00", "alt", 1);
  tree.addNode("@00", "@07", "neue Seite:@07", 1);
  tree.select("@07");

  fillTree(tree, project.db());

  EXPECT_FALSE(tree.hasNode("@07"));
  EXPECT_EQ(tree.selected(), std::nullopt);
  EXPECT_EQ(tree.label("@00"), "Start");
}

TEST(PlainTree, loses_a_removed_node_with_all_below_it)
{
  support::TemporaryProject project{{"00", "Start"}, {"01", "Haus"}, {"0101", "Küche"}, {"02", "Garten"}};
  PlainTree tree;
  fillTree(tree, project.db());

  tree.removeNode("@01");

  EXPECT_FALSE(tree.hasNode("@01"));
  EXPECT_FALSE(tree.hasNode("@0101"));
  EXPECT_EQ(tree.childCount("@00"), 1u);
}

TEST(PlainTree, fails_for_a_node_that_it_lacks_and_keeps_its_selection)
{
  PlainTree tree;
  tree.addNode("", "@00", "Start", 1);
  tree.select("@00");

  EXPECT_THROW(tree.select("@01"), base::Error);
  EXPECT_THROW(tree.label("@01"), base::Error);
  EXPECT_THROW(tree.addNode("@01", "@0101", "", 1), base::Error);
  EXPECT_EQ(tree.selected(), "@00");
}

} // namespace
} // namespace mrd::pagetree
