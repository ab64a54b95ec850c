#include "pagetree/page_deletion.h"

#include "pagetree/tree_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mrd::pagetree {
namespace {

using testing::Contains;
using testing::ElementsAre;

constexpr int kDeletePage = 22, kDeleteTree = 23;

TEST(Deletion, takes_the_last_child_with_all_below_it_and_renumbers_nothing)
{
  TreeDesk desk{"00", "01", "0101", "0102", "010201", "01020101", "02"};
  desk.program.ui.expect(kDeleteTree, "", ui::Button::Yes);

  EXPECT_TRUE(desk.deletes("0102"));

  EXPECT_THAT(desk.pages(), ElementsAre("00", "01", "0101", "02"));
}

TEST(Deletion, moves_later_siblings_up_with_all_below_them)
{
  TreeDesk desk{"00", "01", "02", "03", "0301", "030101", "04"};
  desk.program.ui.expect(kDeletePage, "", ui::Button::Yes);

  EXPECT_TRUE(desk.deletes("02"));

  EXPECT_THAT(desk.pages(), ElementsAre("00", "01", "02:03", "0201:0301", "020101:030101", "03:04"));
}

TEST(Deletion, asks_for_one_page_and_for_a_page_with_others_below_it_in_other_words)
{
  TreeDesk desk{"00", "01", "0101", "02"};
  desk.program.ui.expect(kDeletePage, "diese Seite wirklich", ui::Button::Yes);
  desk.program.ui.expect(kDeleteTree, "mit allen ihren Unterseiten", ui::Button::Yes);

  desk.deletes("02");
  desk.deletes("01");

  EXPECT_THAT(desk.pages(), ElementsAre("00"));
}

TEST(Deletion, leaves_the_table_as_it_was_when_the_answer_is_not_yes)
{
  for (const auto answer : {ui::Button::No, ui::Button::Cancel, ui::Button::None}) {
    TreeDesk desk{"00", "01", "0101", "02"};
    desk.program.ui.expect(kDeleteTree, "", answer);

    EXPECT_FALSE(desk.deletes("01"));

    EXPECT_THAT(desk.pages(), ElementsAre("00", "01", "0101", "02"));
  }
}

TEST(Deletion, leaves_pages_of_other_parents_on_the_same_level_alone)
{
  TreeDesk desk{"00", "01", "0101", "0102", "02", "0201", "0202", "0203", "03", "0301", "0302"};
  desk.program.ui.expect(kDeletePage, "", ui::Button::Yes);

  desk.deletes("0201");

  EXPECT_THAT(desk.pages(), ElementsAre("00", "01", "0101", "0102", "02", "0201:0202", "0202:0203", "03", "0301", "0302"));
}

TEST(Deletion, refuses_the_homepage_before_it_looks_for_it)
{
  for (const auto& ids : {std::initializer_list<std::string>{"00", "01"}, {"01"}}) {
    TreeDesk desk(ids);
    const auto before = desk.pages();
    desk.program.ui.expect(21, "Homepage");

    EXPECT_FALSE(desk.deletes("00"));

    EXPECT_EQ(desk.pages(), before);
  }
}

TEST(Deletion, says_nothing_of_a_page_that_is_not_there)
{
  TreeDesk desk{"00", "01"};

  EXPECT_FALSE(desk.deletes("0102"));

  EXPECT_THAT(desk.pages(), ElementsAre("00", "01"));
}

TEST(Deletion, asks_before_anything_is_gone)
{
  TreeDesk desk{"00", "01", "02"};
  struct LookingUi : support::ScriptedUi {
    TreeDesk* desk = nullptr;
    std::vector<std::string> seen;
    ui::Button messageBox(const ui::MessageBox&) override
    {
      seen = desk->pages();
      return ui::Button::Yes;
    }
  } ui;
  ui.desk = &desk;
  messages::Language language(desk.program.files, ui);
  language.Sprachstart();

  PageDeletion(desk.project.db(), language).DelPage("@01");

  EXPECT_THAT(ui.seen, ElementsAre("00", "01", "02"));
  EXPECT_THAT(desk.pages(), ElementsAre("00", "01:02"));
}

TEST(Renumbering, moves_the_only_page_of_the_level_even_under_another_parent)
{
  TreeDesk desk{"00", "01", "0101", "02", "0201", "020101", "02010101"};
  desk.program.ui.expect(kDeletePage, "", ui::Button::Yes);

  EXPECT_TRUE(desk.deletes("0101"));

  EXPECT_THAT(desk.pages(), ElementsAre("00", "01", "0101:0201", "010101:020101", "01010101:02010101", "02"));
}

TEST(Renumbering, moves_the_only_page_of_the_level_from_before_the_deleted_one_too)
{
  TreeDesk desk{"00", "01", "0101", "010101", "02", "0201"};
  desk.program.ui.expect(kDeletePage, "", ui::Button::Yes);

  desk.deletes("0201");

  EXPECT_THAT(desk.pages(), ElementsAre("00", "01", "02", "0201:0101", "020101:010101"));
}

TEST(Renumbering, gives_the_only_page_of_the_level_the_first_number_whatever_it_had)
{
  TreeDesk desk{"00", "01", "0105", "010501", "0107"};
  desk.program.ui.expect(kDeletePage, "", ui::Button::Yes);

  desk.deletes("0107");

  EXPECT_THAT(desk.pages(), ElementsAre("00", "01", "0101:0105", "010101:010501"));
}

TEST(Renumbering, does_not_count_the_homepage_as_a_page_of_the_first_level)
{
  TreeDesk desk{"00", "01", "02"};
  desk.program.ui.expect(kDeletePage, "", ui::Button::Yes);

  desk.deletes("01");

  EXPECT_THAT(desk.pages(), ElementsAre("00", "01:02"));
}

TEST(Renumbering, leaves_pages_of_another_parent_alone_when_the_first_row_behind_is_one)
{
  TreeDesk desk{"00", "01", "0101", "02", "0201", "0202"};
  desk.program.ui.expect(kDeletePage, "", ui::Button::Yes);

  desk.deletes("0101");

  EXPECT_THAT(desk.pages(), ElementsAre("00", "01", "02", "0201", "0202"));
}

TEST(Renumbering, gives_each_later_sibling_the_number_of_the_one_before_it_so_that_older_gaps_stay)
{
  TreeDesk desk{"00", "01", "03", "0301", "06"};
  desk.program.ui.expect(kDeletePage, "", ui::Button::Yes);

  desk.deletes("01");

  EXPECT_THAT(desk.pages(), ElementsAre("00", "01:03", "0101:0301", "03:06"));
}

TEST(Renumbering, works_on_a_full_level)
{
  TreeDesk desk{"00"};
  desk.addChildren("", kMaxChildren);
  desk.program.ui.expect(kDeletePage, "", ui::Button::Yes);

  desk.deletes("01");

  EXPECT_EQ(desk.pages().size(), 1u + kMaxChildren - 1);
  EXPECT_THAT(desk.pages(), Contains("01:02"));
  EXPECT_THAT(desk.pages(), Contains("98:99"));
}

TEST(Renumbering, works_where_the_table_has_a_unique_key)
{
  TreeDesk desk{"03", "0301", "02", "0201", "01", "00"};
  desk.project.db().execute("CREATE UNIQUE INDEX EineSeite ON Seite (id)");
  desk.program.ui.expect(kDeletePage, "", ui::Button::Yes);

  EXPECT_TRUE(desk.deletes("01"));

  EXPECT_THAT(desk.pages(), ElementsAre("00", "01:02", "0101:0201", "02:03", "0201:0301"));
}

TEST(Renumbering, leaves_what_was_broken_before_alone_where_it_does_not_need_it)
{
  TreeDesk desk{"00", "01", "01", "02", "03", "0499", "M02", "index"};
  desk.program.ui.expect(kDeletePage, "", ui::Button::Yes);

  EXPECT_TRUE(desk.deletes("02"));

  EXPECT_THAT(desk.pages(), ElementsAre("00", "01", "01", "02:03", "0499", "index", "M02"));
}

TEST(Renumbering, is_undone_with_the_deletion_when_it_would_bring_two_pages_to_one_number)
{
  TreeDesk desk{"00", "01", "0102", "0103", "010301", "010101"};
  const auto before = desk.pages();
  desk.program.ui.expect(kDeletePage, "", ui::Button::Yes).expect(1, "in Modul ReorgPagesAfterDel");

  EXPECT_FALSE(desk.deletes("0102"));

  EXPECT_EQ(desk.pages(), before);
}

TEST(Deletion, tells_of_a_failure_of_the_engine)
{
  TreeDesk desk{"00", "01"};
  desk.project.db().execute("DROP TABLE Seite");
  desk.program.ui.expect(1, "in Modul DelPage");

  EXPECT_FALSE(desk.deletes("01"));
}

TEST(Deletion, closes_its_transaction_whatever_comes_of_it)
{
  TreeDesk desk{"00", "01"};
  desk.program.ui.expect(21).expect(kDeletePage, "", ui::Button::No).expect(kDeletePage, "", ui::Button::Yes);

  for (const auto* const id : {"00", "07", "01", "01"})
    desk.deletes(id);

  EXPECT_NO_THROW(dao::Transaction(desk.project.db()).commit());
}

} // namespace
} // namespace mrd::pagetree
