#include "pagetree/page_id.h"
#include "pagetree/plain_tree.h"
#include "pagetree/tree_view.h"
#include "support/test_program.h"

#include <gmock/gmock.h>

#include <ctime>

namespace mrd::pagetree {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct TreeViewTest : testing::Test {
  TreeViewTest()
  {
    tree.setEvents({[this](std::string_view key) { view.Expand(key); }});
  }
  void addPages(std::initializer_list<support::Page> pages)
  {
    for (const auto& page : pages)
      project.addPage(page);
  }
  void openNode(const std::string& id) { project.db().execute("UPDATE Seite SET expanded = TRUE WHERE ID = ?", {id}); }

  support::TestProgram program;
  support::TemporaryProject project{};
  PlainTree tree;
  ActivePage active{project.db(), tree, program.ui};
  PageTreeView view{project.db(), program.language, tree, active};
};

TEST_F(TreeViewTest, shows_the_first_level_and_a_placeholder_below_each_closed_node)
{
  addPages({{"02", "Garten"}, {"00", "Start"}, {"01", " Haus "}, {"0101", "Küche"}, {"010101", "Schrank"}});

  view.ZeigeStruktur();

  EXPECT_THAT(tree.keys(), ElementsAre("@00", "@01", "@0101", "@02"));
  EXPECT_EQ(tree.label("@01"), "Haus");
  EXPECT_EQ(tree.label("@0101"), "01");
  EXPECT_TRUE(tree.expanded("@00"));
  EXPECT_FALSE(tree.expanded("@01"));
  EXPECT_EQ(tree.selected(), "@00");
}

TEST_F(TreeViewTest, turns_the_placeholder_into_the_only_child)
{
  addPages({{"00", "Start"}, {"01", "Haus"}, {"0101", "Küche"}});
  view.ZeigeStruktur();

  tree.setExpanded("@01", true);

  EXPECT_THAT(tree.children("@01"), ElementsAre("@0101"));
  EXPECT_EQ(tree.label("@0101"), "Küche");
}

TEST_F(TreeViewTest, does_not_double_children_that_are_opened_again)
{
  addPages({{"00", "Start"}, {"01", "Haus"}, {"0101", "Küche"}, {"0102", "Bad"}, {"010101", "Schrank"}});
  view.ZeigeStruktur();
  for (int time = 0; time < 3; ++time) {
    tree.setExpanded("@01", true);
    tree.setExpanded("@01", false);
  }

  EXPECT_THAT(tree.children("@01"), ElementsAre("@0101", "@0102"));
  EXPECT_THAT(tree.children("@0101"), ElementsAre("@010101"));
  EXPECT_EQ(tree.label("@010101"), "0101");
}

TEST_F(TreeViewTest, shows_the_children_of_a_tree_with_gaps_alone)
{
  addPages({{"00", "Start"}, {"01", "Haus"}, {"0103", "Bad"}});
  view.ZeigeStruktur();

  tree.setExpanded("@01", true);

  EXPECT_THAT(tree.children("@01"), ElementsAre("@0103"));
}

TEST_F(TreeViewTest, has_one_node_for_pages_that_share_an_id)
{
  addPages({{"00", "Start"}, {"01", "Haus"}, {"01", "Zwilling"}});

  view.ZeigeStruktur();

  EXPECT_THAT(tree.children("@00"), ElementsAre("@01"));
}

TEST_F(TreeViewTest, opens_what_was_left_open_on_all_levels)
{
  addPages({{"00", "Start"}, {"01", "Haus"}, {"0101", "Küche"}, {"010101", "Schrank"}, {"02", "Garten"}, {"0201", "Beet"}});
  openNode("01");
  openNode("0101");

  view.ZeigeStruktur();

  EXPECT_THAT(tree.keys(), ElementsAre("@00", "@01", "@0101", "@010101", "@02", "@0201"));
  EXPECT_EQ(tree.label("@010101"), "Schrank");
  EXPECT_EQ(tree.label("@0201"), "02");
}

TEST_F(TreeViewTest, stores_which_nodes_are_open)
{
  addPages({{"00", "Start"}, {"01", "Haus"}, {"0101", "Küche"}, {"02", "Garten"}, {"0201", "Beet"}});
  openNode("02");
  view.ZeigeStruktur();
  tree.setExpanded("@01", true);
  tree.setExpanded("@02", false);

  view.WriteExpandedNodes();

  EXPECT_TRUE(project.column("01", "expanded").yes());
  EXPECT_FALSE(project.column("02", "expanded").yes());
  view.ZeigeStruktur();
  EXPECT_TRUE(tree.expanded("@01"));
  EXPECT_FALSE(tree.expanded("@02"));
}

TEST_F(TreeViewTest, of_a_project_without_a_homepage_is_empty_behind_message_9)
{
  addPages({{"01", "Haus"}});
  program.ui.expect(9);

  view.ZeigeStruktur();

  EXPECT_THAT(tree.keys(), IsEmpty());
}

TEST_F(TreeViewTest, keeps_the_first_level_when_the_root_is_opened_again)
{
  addPages({{"00", "Start"}, {"01", "Haus"}});
  view.ZeigeStruktur();
  tree.setExpanded("@00", false);

  tree.setExpanded("@00", true);

  EXPECT_THAT(tree.children("@00"), ElementsAre("@01"));
}

TEST_F(TreeViewTest, selects_the_remembered_page_below_closed_nodes)
{
  addPages({{"00", "Start"}, {"01", "Haus"}, {"0101", "Küche"}, {"0102", "Bad"}});
  project.setSetting("LastActivePage", "0102");

  view.ZeigeStruktur();

  EXPECT_EQ(tree.selected(), "@0102");
  EXPECT_FALSE(tree.expanded("@01"));
}

TEST_F(TreeViewTest, shows_a_page_without_a_type_like_a_normal_one)
{
  addPages({{"00", "Start"}, {.id = "01", .heading = "Haus", .type = std::nullopt}});

  view.ZeigeStruktur();

  EXPECT_TRUE(tree.hasNode("@01"));
}

TEST_F(TreeViewTest, tells_a_failure_by_its_name)
{
  addPages({{"00", "Start"}});
  view.ZeigeStruktur();
  project.db().execute("DROP TABLE Seite");
  program.ui.expect(1, "in Modul ZeigeStruktur").expect(1, "in Modul Expand").expect(1, "in Modul WriteExpandedNodes");

  view.ZeigeStruktur();
  view.Expand("@01");
  view.WriteExpandedNodes();
}

/// 99 pages on the first level, 100 below each: 9,999 with the homepage.
struct LargeTreeTest : TreeViewTest {
  LargeTreeTest()
  {
    const std::string html(4000, 'x');
    dao::Transaction transaction(project.db());
    project.addPage({"00", "Start", html});
    for (int first = 1; first <= 99; ++first) {
      const std::string id = formatNumber(first);
      project.addPage({id, "Seite " + id, html});
      for (int second = 1; second <= 99; ++second)
        project.addPage({id + formatNumber(second), "Seite", html});
    }
    for (int more = 1; more <= 98; ++more)
      project.addPage({"0101" + formatNumber(more), "Seite", html});
    transaction.commit();
  }

  /// Time of the processor alone: other work on the machine does not count.
  template <class Work>
  static double milliseconds(Work work)
  {
    const auto start = std::clock();
    work();
    return 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
  }
};

TEST_F(LargeTreeTest, is_rebuilt_with_its_state_in_no_time)
{
  view.ZeigeStruktur();
  tree.setExpanded("@01", true);

  const double taken = milliseconds([&] {
    view.WriteExpandedNodes();
    view.ZeigeStruktur();
  });

  RecordProperty("milliseconds", std::to_string(taken));
  EXPECT_EQ(tree.keys().size(), 1 + 99 + 98 + 99u + 1);
  // A sanitizer takes its time; a query for each page would take minutes.
  EXPECT_LT(taken, 3000);
}

TEST_F(LargeTreeTest, with_all_nodes_open_grows_with_its_pages)
{
  project.db().execute("UPDATE Seite SET expanded = TRUE");

  const double taken = milliseconds([&] { view.ZeigeStruktur(); });

  RecordProperty("milliseconds", std::to_string(taken));
  EXPECT_EQ(tree.keys().size(), 9999u);
  EXPECT_LT(taken, 5000);
}

} // namespace
} // namespace mrd::pagetree
