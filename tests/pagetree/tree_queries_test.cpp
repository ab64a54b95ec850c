#include "pagetree/tree_queries.h"

#include "pagetree/page_id.h"
#include "support/scripted_ui.h"
#include "support/temporary.h"

#include <gtest/gtest.h>

namespace mrd::pagetree {
namespace {

struct TreeQueriesTest : testing::Test {
  support::TemporaryProject project{{"00", "Start"}, {"01", "Haus"}, {"02", "Garten"}};
  support::ScriptedUi ui;
  TreeQueries queries{project.db(), ui};

  void addChildren(const std::string& parent, int count)
  {
    for (int number = 1; number <= count; ++number)
      project.addPage({parent + formatNumber(number), "Seite"});
  }
};

TEST_F(TreeQueriesTest, check_children_names_the_type_of_the_first_page_below_and_a_marker_for_a_leaf)
{
  project.addPage({.id = "0102", .heading = "normal"});
  project.addPage({.id = "0101", .heading = "blind", .type = 3});

  EXPECT_EQ(queries.CheckChildren("01"), "3");
  EXPECT_EQ(queries.CheckChildren("0101"), "^None");
  EXPECT_EQ(queries.CheckChildren("02"), "^None");
}

TEST_F(TreeQueriesTest, children_count_counts_children_alone_or_the_whole_subtree_with_its_top)
{
  for (const auto* const id : {"0101", "010101", "01010101", "0102", "0201"})
    project.addPage({id, "Seite"});

  EXPECT_EQ(queries.ChildrenCount("01", true), 2);
  EXPECT_EQ(queries.ChildrenCount("01", false), 5);
  EXPECT_EQ(queries.ChildrenCount("0102", true), 0);
  EXPECT_EQ(queries.ChildrenCount("0102", false), 1);
  EXPECT_EQ(queries.ChildrenCount("03", false), 0);
}

TEST_F(TreeQueriesTest, children_len_is_the_longest_id_of_the_subtree_and_a_leafs_own_length)
{
  for (const auto* const id : {"0101", "010101", "01010101", "0102"})
    project.addPage({id, "Seite"});

  EXPECT_EQ(queries.ChildrenLen("01"), 8);
  EXPECT_EQ(queries.ChildrenLen("0102"), 4);
  EXPECT_EQ(queries.ChildrenLen("02"), 2);
  EXPECT_EQ(queries.ChildrenLen("09"), 0);
}

TEST_F(TreeQueriesTest, a_node_of_99_children_takes_no_page_more)
{
  addChildren("01", 99);

  EXPECT_GT(queries.PrüfeMaxAnzahlEinträge({"02", "01", MoveOption::Under}), 99);
}

TEST_F(TreeQueriesTest, a_subtree_of_5_does_not_go_into_a_level_of_95)
{
  addChildren("01", 95);
  addChildren("02", 4);

  EXPECT_EQ(queries.PrüfeMaxAnzahlEinträge({"02", "0107", MoveOption::Behind}), 100);
}

TEST_F(TreeQueriesTest, a_leaf_of_the_first_level_counts_itself_alone)
{
  addChildren("02", 2);

  EXPECT_EQ(queries.PrüfeMaxAnzahlEinträge({"02", "01", MoveOption::Under}), 3 + 1);
}

TEST_F(TreeQueriesTest, a_node_counts_all_of_its_subtree_to_err_towards_refusing)
{
  for (const auto* const id : {"0101", "010101", "010102"})
    project.addPage({id, "Seite"});

  EXPECT_EQ(queries.PrüfeMaxAnzahlEinträge({"02", "01", MoveOption::Under}), 1 + 4);
}

TEST_F(TreeQueriesTest, a_subtree_of_three_levels_does_not_go_under_a_page_of_the_second)
{
  for (const auto* const id : {"0101", "010101", "01010101", "0201"})
    project.addPage({id, "Seite"});

  EXPECT_EQ(queries.PrüfeÜberschreitungDerEbenen({"0101", "0201", MoveOption::Under}), 5);
  EXPECT_EQ(queries.PrüfeÜberschreitungDerEbenen({"0101", "0201", MoveOption::Before}), 4);
  EXPECT_EQ(queries.PrüfeÜberschreitungDerEbenen({"0101", "0201", MoveOption::Behind}), 4);
}

TEST_F(TreeQueriesTest, a_leaf_has_no_height)
{
  EXPECT_EQ(queries.PrüfeÜberschreitungDerEbenen({"01", "02", MoveOption::Behind}), 1);
  EXPECT_EQ(queries.PrüfeÜberschreitungDerEbenen({"01", "02", MoveOption::Under}), 2);
}

TEST_F(TreeQueriesTest, an_unknown_placement_has_the_depth_0)
{
  EXPECT_EQ(queries.PrüfeÜberschreitungDerEbenen({"01", "02", static_cast<MoveOption>(7)}), 0);
}

TEST_F(TreeQueriesTest, a_failing_check_is_told_in_the_plain_form_and_a_failing_count_reaches_the_caller)
{
  project.db().execute("DROP TABLE Seite");
  ui.expect(0, " in Modul PrüfeMaxAnzahlEinträge.").expect(0, " in Modul PrüfeÜberschreitungDerEbenen.");

  queries.PrüfeMaxAnzahlEinträge({"01", "02", MoveOption::Under});
  queries.PrüfeÜberschreitungDerEbenen({"01", "02", MoveOption::Under});

  EXPECT_EQ(ui.messages.front().text.substr(0, 7), "Fehler ");
  EXPECT_ANY_THROW(queries.ChildrenCount("01", false));
  EXPECT_ANY_THROW(queries.ChildrenLen("01"));
  EXPECT_ANY_THROW(queries.CheckChildren("01"));
}

} // namespace
} // namespace mrd::pagetree
