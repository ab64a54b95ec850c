#include "pagetree/page_move.h"

#include "pagetree/tree_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mrd::pagetree {
namespace {

using enum MoveOption;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::Not;
using testing::StartsWith;

constexpr int kTooMuch = 39, kBelowItself = 40, kBeforeHomepage = 41;

TEST(Move, down_behind_a_later_sibling)
{
  TreeDesk desk{"00", "01", "02", "03", "04", "05"};

  EXPECT_TRUE(desk.moves("02", Behind, "04"));

  EXPECT_THAT(desk.pages(), ElementsAre("00", "01", "02:03", "03:04", "04:02", "05"));
}

TEST(Move, up_behind_an_earlier_sibling)
{
  TreeDesk desk{"00", "01", "02", "03", "04", "05"};

  EXPECT_TRUE(desk.moves("04", Behind, "01"));

  EXPECT_THAT(desk.pages(), ElementsAre("00", "01", "02:04", "03:02", "04:03", "05"));
}

TEST(Move, takes_the_pages_below_along_in_their_shape)
{
  TreeDesk desk{"00", "01", "0101", "010101", "0102", "02", "0201", "03", "0301"};

  desk.moves("01", Behind, "02");

  EXPECT_THAT(desk.pages(),
              ElementsAre("00", "01:02", "0101:0201", "02:01", "0201:0101", "020101:010101", "0202:0102", "03", "0301"));
}

TEST(Move, to_a_shallower_level_shortens_all_ids_by_two)
{
  TreeDesk desk{"00", "01", "0101", "010101", "01010101", "0102", "010201", "02", "0201"};

  EXPECT_TRUE(desk.moves("0101", Behind, "01"));

  EXPECT_THAT(desk.pages(), ElementsAre("00", "01", "0101:0102", "010101:010201", "02:0101", "0201:010101", "020101:01010101",
                                        "03:02", "0301:0201"));
}

TEST(Move, to_a_deeper_level_lengthens_all_ids_by_two)
{
  TreeDesk desk{"00", "01", "0101", "02", "0201", "0202", "03"};

  EXPECT_TRUE(desk.moves("01", Behind, "0201"));

  EXPECT_THAT(desk.pages(), ElementsAre("00", "01:02", "0101:0201", "0102:01", "010201:0101", "0103:0202", "02:03"));
}

TEST(Move, under_the_last_of_another_parent)
{
  TreeDesk desk{"00", "01", "0101", "0102", "02", "0201", "0202"};

  desk.moves("0101", Behind, "0202");

  EXPECT_THAT(desk.pages(), ElementsAre("00", "01", "0101:0102", "02", "0201", "0202", "0203:0101"));
}

TEST(Move, before_the_first_page_makes_it_the_first)
{
  TreeDesk desk{"00", "01", "0101", "02", "03"};

  EXPECT_TRUE(desk.moves("03", Before, "01"));

  EXPECT_EQ(desk.request.MoveTargetID, "00");
  EXPECT_THAT(desk.pages(), ElementsAre("00", "01:03", "02:01", "0201:0101", "03:02"));
}

TEST(Move, before_the_first_child_makes_it_the_first_child)
{
  TreeDesk desk{"00", "01", "0101", "0102", "02"};

  EXPECT_TRUE(desk.moves("02", Before, "0101"));

  EXPECT_EQ(desk.request.MoveTargetID, "0100");
  EXPECT_THAT(desk.pages(), ElementsAre("00", "01", "0101:02", "0102:0101", "0103:0102"));
}

TEST(Move, behind_the_homepage_makes_it_the_first_page)
{
  TreeDesk desk{"00", "01", "02", "0201"};

  desk.moves("0201", Behind, "00");

  EXPECT_THAT(desk.pages(), ElementsAre("00", "01:0201", "02:01", "03:02"));
}

TEST(Move, before_a_page_is_behind_the_number_before_it_whether_a_page_has_it_or_not)
{
  TreeDesk desk{"00", "01", "02", "05", "07"};

  desk.moves("01", Before, "07");

  EXPECT_EQ(desk.request.MoveTargetID, "06");
  EXPECT_THAT(desk.pages(), ElementsAre("00", "01:02", "04:05", "06:01", "07"));
}

TEST(Move, lowers_the_target_with_each_click_on_before)
{
  TreeDesk desk{"00", "01", "02", "03", "04"};
  MoveRequest request{"01", "04", Behind};
  frmMove1 dialog(desk.project.db(), desk.program.language, request);
  dialog.Form_Load();

  dialog.optMove_Click(Before);
  dialog.optMove_Click(Before);
  dialog.btnMove_Click();

  EXPECT_EQ(request.MoveTargetID, "02");
  EXPECT_THAT(desk.pages(), ElementsAre("00", "01:02", "02:01", "03", "04"));
}

TEST(Move, starts_with_behind_and_keeps_a_lowered_target_for_it)
{
  TreeDesk desk{"00"};
  MoveRequest request{"01", "0305", Under};
  frmMove1 dialog(desk.project.db(), desk.program.language, request);

  dialog.Form_Load();
  EXPECT_EQ(request.MoveOption, Behind);
  EXPECT_EQ(request.MoveTargetID, "0305");

  dialog.optMove_Click(Before);
  dialog.optMove_Click(Behind);
  EXPECT_EQ(request.MoveTargetID, "0304");
}

TEST(Move, that_is_cancelled_did_not_run)
{
  TreeDesk desk{"00", "01", "02"};
  MoveRequest request{"01", "02", Behind};
  frmMove1 dialog(desk.project.db(), desk.program.language, request);
  dialog.Form_Load();

  dialog.btnCancel_Click();

  EXPECT_FALSE(dialog.MoveAusgefuehrt);
  EXPECT_THAT(desk.pages(), ElementsAre("00", "01", "02"));
}

TEST(Move, under_a_page_is_accepted_and_leaves_the_tree_as_it_was)
{
  TreeDesk desk{"00", "01", "02", "0201", "03"};

  EXPECT_TRUE(desk.moves("01", Under, "03"));
  EXPECT_TRUE(desk.moves("03", Under, "02"));
  EXPECT_TRUE(desk.moves("0201", Under, "00"));

  EXPECT_THAT(desk.pages(), ElementsAre("00", "01", "02", "0201", "03"));
}

TEST(Move, before_the_next_sibling_changes_nothing_and_says_nothing)
{
  TreeDesk desk{"00", "01", "0101", "02", "03"};

  EXPECT_TRUE(desk.moves("01", Before, "02"));

  EXPECT_THAT(desk.pages(), ElementsAre("00", "01", "0101", "02", "03"));
}

TEST(Move, behind_the_sibling_before_it_changes_nothing)
{
  TreeDesk desk{"00", "01", "02", "0201", "03"};

  EXPECT_TRUE(desk.moves("02", Behind, "01"));

  EXPECT_THAT(desk.pages(), ElementsAre("00", "01", "02", "0201", "03"));
}

TEST(Move, leaves_no_flag_behind)
{
  TreeDesk desk{"00", "01", "0101", "0102", "02", "0201", "03"};

  for (const auto& [source, target] : {std::pair("01", "02"), {"03", "01"}, {"0201", "0101"}, {"0101", "03"}, {"02", "0101"}})
    desk.moves(source, Behind, target);

  EXPECT_THAT(desk.pages(), Each(Not(StartsWith("M"))));
}

TEST(Move, works_where_the_table_has_a_unique_key)
{
  TreeDesk desk{"00", "01", "0101", "02", "0201", "03", "0301", "04"};
  desk.project.db().execute("CREATE UNIQUE INDEX EineSeite ON Seite (id)");

  EXPECT_TRUE(desk.moves("03", Before, "01"));
  EXPECT_TRUE(desk.moves("01", Behind, "03"));
  EXPECT_TRUE(desk.moves("01", Behind, "02"));

  EXPECT_THAT(desk.pages(), ElementsAre("00", "01:02", "0101:0201", "02:01", "0201:0101", "03", "0301", "04"));
}

// Refusals

TEST(MoveRefusal, of_a_page_below_itself)
{
  for (const auto where : {Before, Behind, Under}) {
    TreeDesk desk{"00", "01", "0101", "0102", "02"};
    desk.program.ui.expect(kBelowItself, "unter sich selbst");

    EXPECT_FALSE(desk.moves("01", where, "0102"));

    EXPECT_EQ(desk.request.MoveTargetID, "00");
    EXPECT_THAT(desk.pages(), ElementsAre("00", "01", "0101", "0102", "02"));
  }
}

TEST(MoveRefusal, of_a_place_before_the_homepage)
{
  TreeDesk desk{"00", "01", "0101"};
  desk.program.ui.expect(kBeforeHomepage, "Vor die Homepage");

  EXPECT_FALSE(desk.moves("0101", Before, "00"));

  EXPECT_EQ(desk.request.MoveTargetID, "00");
  EXPECT_THAT(desk.pages(), ElementsAre("00", "01", "0101"));
}

TEST(MoveRefusal, of_a_fifth_level)
{
  TreeDesk desk{"00", "01", "0101", "010101", "02", "0201", "020101", "02010101"};
  const auto before = desk.pages();
  desk.program.ui.expect(kTooMuch).expect(kTooMuch).expect(kTooMuch);

  EXPECT_FALSE(desk.moves("01", Behind, "020101"));
  EXPECT_FALSE(desk.moves("01", Under, "0201"));
  EXPECT_FALSE(desk.moves("0101", Before, "02010101"));
  EXPECT_TRUE(desk.moves("010101", Behind, "02010101"));

  EXPECT_EQ(desk.pages().size(), before.size());
  EXPECT_THAT(desk.pages(), Contains("02010102:010101"));
}

TEST(MoveRefusal, of_more_than_99_entries_errs_on_the_side_of_refusing)
{
  TreeDesk desk{"00", "01", "02", "0201"};
  desk.addChildren("01", 60);
  desk.addChildren("0201", 40);
  desk.program.ui.expect(kTooMuch, "höchstens 99");

  EXPECT_FALSE(desk.moves("02", Behind, "01"));
  EXPECT_EQ(desk.request.MoveTargetID, "01");
}

TEST(MoveRefusal, of_the_hundredth_page_of_a_level)
{
  TreeDesk desk{"00", "0101", "5001"};
  desk.addChildren("", kMaxChildren);
  const auto before = desk.pages();
  desk.program.ui.expect(kTooMuch).expect(kTooMuch).expect(kTooMuch);

  EXPECT_FALSE(desk.moves("0101", Behind, "99"));
  EXPECT_FALSE(desk.moves("5001", Behind, "07"));
  EXPECT_FALSE(desk.moves("0101", Before, "02"));

  EXPECT_EQ(desk.pages(), before);
}

TEST(MoveRefusal, of_a_way_down_in_a_full_level_which_would_need_a_hundredth_number)
{
  TreeDesk desk{"00"};
  desk.addChildren("", kMaxChildren);
  const auto before = desk.pages();
  desk.program.ui.expect(kTooMuch).expect(kTooMuch);

  EXPECT_FALSE(desk.moves("05", Behind, "50"));
  EXPECT_FALSE(desk.moves("05", Behind, "99"));

  EXPECT_EQ(desk.pages(), before);
}

TEST(MoveRefusal, does_not_meet_a_way_up_in_a_full_level)
{
  TreeDesk desk{"00"};
  desk.addChildren("", kMaxChildren);

  EXPECT_TRUE(desk.moves("99", Behind, "05"));

  EXPECT_THAT(desk.pages(), Contains("06:99"));
  EXPECT_THAT(desk.pages(), Contains("99:98"));
}

TEST(Move, of_page_99_to_another_level_leaves_its_siblings_alone)
{
  TreeDesk desk{"00", "0101"};
  desk.addChildren("", kMaxChildren);

  EXPECT_TRUE(desk.moves("99", Behind, "0101"));

  auto pages = desk.pages();
  EXPECT_EQ(std::erase(pages, "0102:99"), 1u);
  EXPECT_EQ(pages.size(), 1u + 1u + kMaxChildren - 1);
  EXPECT_EQ(pages.back(), "98");
}

TEST(MoveRefusal, for_its_entries_comes_before_all_others)
{
  TreeDesk desk{"00", "01", "0101", "010101"};
  desk.addChildren("010101", kMaxChildren);
  desk.program.ui.expect(kTooMuch).expect(kTooMuch).expect(kTooMuch);

  desk.moves("01", Behind, "0101");
  desk.moves("01", Before, "00");
  // Source and target become the same only behind this test.
  EXPECT_FALSE(desk.moves("01", Before, "02"));
}

TEST(MoveRefusal, for_being_below_itself_comes_before_the_one_for_depth)
{
  TreeDesk desk{"00", "01", "0101", "010101", "01010101"};
  desk.program.ui.expect(kBelowItself);

  EXPECT_FALSE(desk.moves("01", Behind, "01010101"));
}

TEST(MoveRefusal, for_depth_comes_before_under_is_found_to_do_nothing)
{
  TreeDesk desk{"00", "01", "0101", "010101", "01010101", "02"};
  desk.program.ui.expect(kTooMuch);

  EXPECT_FALSE(desk.moves("01", Under, "02"));
}

// Tables that are broken already

TEST(MoveInABrokenTable, leaves_flags_from_elsewhere_where_they_are)
{
  TreeDesk desk{"00", "01", "0101", "02", "03", "M03", "M0301"};

  EXPECT_TRUE(desk.moves("01", Behind, "02"));

  EXPECT_THAT(desk.pages(), ElementsAre("00", "01:02", "02:01", "0201:0101", "03", "M03", "M0301"));
}

TEST(MoveInABrokenTable, leaves_twins_alone_that_are_not_in_its_way)
{
  TreeDesk desk{"00", "01", "01", "0101", "02", "03", "04"};

  EXPECT_TRUE(desk.moves("03", Behind, "04"));

  EXPECT_THAT(desk.pages(), ElementsAre("00", "01", "01", "0101", "02", "03:04", "04:03"));
}

TEST(MoveInABrokenTable, changes_nothing_where_it_would_bring_two_pages_to_one_number)
{
  TreeDesk desk{"00", "01", "01", "02", "03", "030101"};
  const auto before = desk.pages();
  desk.program.ui.expect(kTooMuch);

  EXPECT_FALSE(desk.moves("01", Behind, "02"));

  EXPECT_EQ(desk.pages(), before);
}

TEST(MoveInABrokenTable, needs_no_homepage)
{
  TreeDesk desk{"01", "02"};

  EXPECT_TRUE(desk.moves("02", Before, "01"));

  EXPECT_THAT(desk.pages(), ElementsAre("01:02", "02:01"));
}

TEST(Move, of_a_page_that_is_not_there_changes_nothing)
{
  TreeDesk desk{"00", "01", "02", "03"};

  desk.moves("05", Behind, "01");

  EXPECT_THAT(desk.pages(), ElementsAre("00", "01", "02", "03"));
}

TEST(Move, tells_of_a_failure_of_the_engine)
{
  TreeDesk desk{"00", "01", "02"};
  desk.project.db().execute("DROP TABLE Seite");
  desk.program.ui.expect(0, "PrüfeMaxAnzahlEinträge").expect(0, "PrüfeÜberschreitungDerEbenen").expect(1, "in Modul MovePage");

  EXPECT_FALSE(desk.moves("01", Behind, "02"));
  EXPECT_NO_THROW(dao::Transaction(desk.project.db()).commit());
}

// The moved page by its heading

TEST(MovedPage, is_found_by_its_heading_with_an_apostrophe_as_with_any_character)
{
  support::TemporaryProject project{{"00", "Start"}, {"01", "Annas Zimmer"}, {"02", "Anna's Zimmer"}};

  EXPECT_EQ(findMovedPage(project.db(), "Anna's Zimmer"), "02");
}

TEST(MovedPage, is_the_first_of_two_in_table_order)
{
  support::TemporaryProject project{{"00", "Start"}, {"03", "Haus"}, {"01", "Haus"}};

  EXPECT_EQ(findMovedPage(project.db(), "Haus"), "03");
}

TEST(MovedPage, is_the_homepage_where_no_page_has_the_heading)
{
  support::TemporaryProject project{{"00", "Start"}, {"01", "Haus"}};

  EXPECT_EQ(findMovedPage(project.db(), "Garten"), "00");
}

} // namespace
} // namespace mrd::pagetree
