#include "page_desk.h"

#include <gtest/gtest.h>

namespace mrd::pagetree {
namespace {

/// A project whose root has this many children.
struct WideDesk : PageDesk {
  explicit WideDesk(int children) : PageDesk({{"00", "Start"}})
  {
    dao::Transaction transaction(project.db());
    for (int number = 1; number <= children; ++number)
      project.addPage({formatNumber(number), "Seite"});
    transaction.commit();
    fillTree(tree, project.db());
    active.LastActivePage = "@00";
  }
};

TEST(AddNewPage, makes_the_next_child_of_the_current_page_in_tree_and_editor)
{
  PageDesk desk{{"00", "Start"}, {"01", "Haus"}, {"0101", "Küche"}};
  desk.active.LastActivePage = "@01";

  EXPECT_TRUE(desk.store.AddNewPage());

  EXPECT_EQ(desk.tree.label("@0102"), "neue Seite:@0102");
  EXPECT_EQ(desk.tree.childCount("@01"), 2u);
  EXPECT_TRUE(desk.tree.expanded("@01"));
  EXPECT_EQ(desk.tree.selected(), "@0102");
  EXPECT_EQ(desk.active.LastActivePage, "@0102");
  EXPECT_EQ(desk.surface.textOfElement("ueberschrift"), "neue Seite:@0102");
  EXPECT_EQ(desk.surface.focused, 1);
  EXPECT_TRUE(desk.active.PageDirty);
}

TEST(AddNewPage, reaches_the_table_only_with_the_next_save)
{
  PageDesk desk{{"00", "Start"}};
  desk.active.LastActivePage = "@00";

  desk.store.AddNewPage();
  EXPECT_EQ(desk.project.ids(), std::vector<std::string>{"00"});
  desk.store.SavePage("@01");

  EXPECT_EQ(desk.project.ids(), (std::vector<std::string>{"00", "01"}));
  EXPECT_EQ(desk.text("01", "Überschrift"), "neue Seite:@01");
}

TEST(AddNewPage, has_the_default_file_name_and_the_type_that_was_set_last)
{
  PageDesk desk{{"00", "Start"}, {.id = "01", .heading = "blind", .dateiname = "x.htm", .type = 3}};
  desk.store.LoadPage("@01");

  desk.store.AddNewPage();
  desk.store.SavePage("@0101");

  EXPECT_EQ(desk.text("0101", "dateiname"), "*.htm");
  EXPECT_EQ(desk.project.column("0101", "seitentyp-id").integer(), 3);
}

TEST(AddNewPage, under_the_root_does_not_begin_with_the_roots_number)
{
  PageDesk desk{{"00", "Start"}};
  desk.active.LastActivePage = "@00";

  desk.store.AddNewPage();

  EXPECT_EQ(desk.active.LastActivePage, "@01");
}

TEST(AddNewPage, writes_its_number_with_two_digits)
{
  WideDesk nine(8);
  nine.store.AddNewPage();
  EXPECT_EQ(nine.active.LastActivePage, "@09");

  WideDesk ten(9);
  ten.store.AddNewPage();
  EXPECT_EQ(ten.active.LastActivePage, "@10");
}

TEST(AddNewPage, makes_the_99th_child_and_refuses_the_100th)
{
  WideDesk desk(98);
  EXPECT_TRUE(desk.store.AddNewPage());
  EXPECT_EQ(desk.active.LastActivePage, "@99");
  desk.active.LastActivePage = "@00";
  desk.program.ui.expect(20);

  EXPECT_FALSE(desk.store.AddNewPage());

  EXPECT_EQ(desk.tree.childCount("@00"), 99u);
  EXPECT_EQ(desk.active.LastActivePage, "@00");
}

TEST(AddNewPage, refuses_a_child_of_the_fourth_level)
{
  PageDesk desk{{"00", "Start"}, {"01", "1"}, {"0101", "2"}, {"010101", "3"}, {"01010101", "4"}};
  desk.active.LastActivePage = "@01010101";
  desk.program.ui.expect(19);

  EXPECT_FALSE(desk.store.AddNewPage());

  EXPECT_EQ(desk.tree.childCount("@01010101"), 0u);
  EXPECT_FALSE(desk.active.PageDirty);
}

TEST(AddNewPage, makes_a_child_of_the_third_level)
{
  PageDesk desk{{"00", "Start"}, {"01", "1"}, {"0101", "2"}, {"010101", "3"}};
  desk.active.LastActivePage = "@010101";

  desk.store.AddNewPage();

  EXPECT_EQ(desk.active.LastActivePage, "@01010101");
}

TEST(AddNewPage, does_nothing_before_a_page_was_chosen)
{
  PageDesk desk{{"00", "Start"}};

  EXPECT_FALSE(desk.store.AddNewPage());

  EXPECT_EQ(desk.tree.childCount("@00"), 0u);
}

TEST(AddNewPage, takes_the_next_free_number_in_a_tree_with_gaps)
{
  PageDesk desk{{"00", "Start"}, {"01", "eins"}, {"03", "drei"}, {"04", "vier"}};
  desk.active.LastActivePage = "@00";

  desk.store.AddNewPage();

  EXPECT_EQ(desk.active.LastActivePage, "@05");
}

TEST(AddNewPage, is_refused_where_only_numbers_below_the_count_are_free)
{
  WideDesk desk(99);
  desk.project.db().execute("DELETE * FROM Seite WHERE id = '02'");
  fillTree(desk.tree, desk.project.db());
  desk.program.ui.expect(20);

  EXPECT_FALSE(desk.store.AddNewPage());
}

} // namespace
} // namespace mrd::pagetree
