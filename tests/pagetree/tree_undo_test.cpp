// The last deletion or move is taken back once: to the byte when nothing has happened since, and around what has.

#include "pagetree/tree_undo.h"

#include "pagetree/tree_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace mrd::pagetree {
namespace {

using testing::ElementsAre;
using Change = TreeUndo::Change;

struct UndoDesk : TreeDesk {
  UndoDesk(std::initializer_list<std::string> ids) : TreeDesk(ids)
  {
    project.setSetting("LastActivePage", "00");
    program.ui.acceptAll();
  }

  void deletesRemembered(const std::string& id)
  {
    program.ui.expect(ids(id).size() == 1 ? 22 : 23, "", ui::Button::Yes);
    undo.deletion(id, [&] { return deletes(id); });
  }
  void movesRemembered(const std::string& source, MoveOption where, const std::string& target)
  {
    undo.move([&] { return moves(source, where, target); });
  }

  std::vector<std::string> ids(const std::string& prefix = "")
  {
    auto all = project.ids();
    std::erase_if(all, [&](const auto& id) { return !id.starts_with(prefix); });
    return all;
  }

  /// Every row of every table with its number and its types, in the tables' order.
  std::vector<std::string> everything()
  {
    std::vector<std::string> out;
    for (const auto* const table : {"Seite", "Einstellungen", "Dateien", "Artikel"})
      for (auto rows = project.db().openRecordset(table); !rows.eof(); rows.moveNext()) {
        std::string row = std::string(table) + " " + std::to_string(rows.rowNumber());
        for (const auto& column : rows.columns())
          row += "|" + std::to_string(rows.value(column).content().index()) + rows.value(column).text();
        out.push_back(row);
      }
    return out;
  }

  TreeUndo undo{project.db(), program.language};
};

TEST(TreeUndo, brings_deleted_pages_back_with_all_that_they_held)
{
  UndoDesk desk{"00", "01", "02", "0201", "020101", "03", "0301"};
  desk.project.db().execute(
      "UPDATE Seite SET html = NULL, script = 'a''b', changingdate = '2003-04-17 09:05:06', expanded = TRUE "
      "WHERE ID = '0201'");
  const auto before = desk.everything();
  desk.deletesRemembered("02");
  ASSERT_THAT(desk.pages(), ElementsAre("00", "01", "02:03", "0201:0301"));
  EXPECT_EQ(desk.undo.change(), Change::Deletion);

  EXPECT_TRUE(desk.undo.undo());

  EXPECT_EQ(desk.everything(), before);
}

TEST(TreeUndo, brings_moved_pages_back)
{
  UndoDesk desk{"00", "01", "0101", "02", "0201", "03"};
  const auto before = desk.everything();
  desk.movesRemembered("01", MoveOption::Behind, "03");
  ASSERT_NE(desk.everything(), before);
  EXPECT_EQ(desk.undo.change(), Change::Move);

  EXPECT_TRUE(desk.undo.undo());

  EXPECT_EQ(desk.everything(), before);
}

TEST(TreeUndo, is_possible_once)
{
  UndoDesk desk{"00", "01", "02"};
  desk.deletesRemembered("01");
  desk.undo.undo();
  const auto after = desk.everything();

  EXPECT_EQ(desk.undo.change(), Change::None);
  EXPECT_FALSE(desk.undo.undo());
  EXPECT_EQ(desk.everything(), after);
}

TEST(TreeUndo, has_nothing_to_take_back_at_first) { EXPECT_EQ(UndoDesk({"00"}).undo.change(), Change::None); }

TEST(TreeUndo, takes_back_the_last_change_only)
{
  UndoDesk desk{"00", "01", "02", "03"};
  desk.deletesRemembered("01");
  desk.movesRemembered("01", MoveOption::Behind, "02");

  EXPECT_TRUE(desk.undo.undo());

  EXPECT_THAT(desk.pages(), ElementsAre("00", "01:02", "02:03"));
}

TEST(TreeUndo, keeps_what_it_has_when_a_deletion_or_a_move_is_refused)
{
  UndoDesk desk{"00", "01", "02", "03"};
  desk.deletesRemembered("01");

  desk.program.ui.expect(22, "", ui::Button::No);
  desk.undo.deletion("02", [&] { return desk.deletes("02"); });
  desk.undo.move([] { return false; });
  // To put a page below another leaves the tree as it is.
  desk.movesRemembered("01", MoveOption::Under, "02");

  EXPECT_EQ(desk.undo.change(), Change::Deletion);
  EXPECT_TRUE(desk.undo.undo());
  EXPECT_THAT(desk.pages(), ElementsAre("00", "01", "02", "03"));
}

TEST(TreeUndo, leads_back_to_the_page_that_was_open)
{
  UndoDesk desk{"00", "01", "02"};
  desk.project.setSetting("LastActivePage", "02");
  desk.deletesRemembered("02");
  desk.project.setSetting("LastActivePage", "00");

  EXPECT_EQ(desk.undo.undo(), "02");

  EXPECT_EQ(desk.project.setting("LastActivePage"), "02");
}

TEST(TreeUndo, keeps_what_was_saved_on_renumbered_pages_since_then)
{
  UndoDesk desk{"00", "01", "02", "0201", "03"};
  desk.deletesRemembered("01");
  desk.project.db().execute("UPDATE Seite SET html = 'neu', dateiname = 'neu.htm' WHERE ID = '0101'");

  EXPECT_TRUE(desk.undo.undo());

  EXPECT_EQ(desk.project.column("0201", "html").text(), "neu");
  EXPECT_EQ(desk.project.column("0201", "dateiname").text(), "neu.htm");
  EXPECT_EQ(desk.project.column("01", "html").text(), "<p>01</p>");
}

TEST(TreeUndo, puts_pages_made_since_then_behind_the_others_of_their_parent)
{
  UndoDesk desk{"00", "01", "02", "0201", "03"};
  desk.deletesRemembered("01");
  desk.add("03");
  desk.add("0301");
  desk.add("0102");

  EXPECT_TRUE(desk.undo.undo());

  EXPECT_THAT(desk.pages(), ElementsAre("00", "01", "02", "0201", "0202:0102", "03", "04:03", "0401:0301"));
}

TEST(TreeUndo, leaves_no_gap_before_a_page_that_came_behind_a_moved_one)
{
  UndoDesk desk{"00", "01", "0101", "02"};
  desk.movesRemembered("02", MoveOption::Behind, "0101");
  ASSERT_THAT(desk.pages(), ElementsAre("00", "01", "0101", "0102:02"));
  desk.add("0103");
  desk.add("010201");

  EXPECT_TRUE(desk.undo.undo());

  EXPECT_THAT(desk.pages(), ElementsAre("00", "01", "0101", "0102:0103", "02", "0201:010201"));
}

TEST(TreeUndo, gives_a_deleted_page_another_row_where_a_new_page_has_its_own)
{
  UndoDesk desk{"00", "01"};
  desk.deletesRemembered("01");
  desk.add("01");

  EXPECT_TRUE(desk.undo.undo());

  EXPECT_THAT(desk.pages(), ElementsAre("00", "01", "02:01"));
}

TEST(TreeUndo, is_refused_where_a_new_page_would_come_too_deep)
{
  UndoDesk desk{"00", "01", "0101", "010101", "01010101", "02"};
  desk.movesRemembered("01010101", MoveOption::Behind, "02");
  desk.add("0301");
  const auto before = desk.everything();
  desk.program.ui.expect(168);

  EXPECT_FALSE(desk.undo.undo());

  EXPECT_EQ(desk.everything(), before);
  EXPECT_EQ(desk.undo.change(), Change::None);
}

TEST(TreeUndo, is_refused_where_a_level_would_hold_a_hundred_pages)
{
  UndoDesk desk{"00"};
  desk.addChildren("", 99);
  desk.deletesRemembered("50");
  desk.add("99");
  desk.program.ui.expect(168);

  EXPECT_FALSE(desk.undo.undo());

  EXPECT_EQ(desk.project.column("50", "Überschrift").text(), "51");
}

TEST(TreeUndo, is_refused_where_another_program_has_changed_the_tree)
{
  UndoDesk desk{"00", "01", "02", "03"};
  desk.deletesRemembered("01");
  desk.program.ui.expect(22, "", ui::Button::Yes);
  desk.deletes("01");
  const auto before = desk.everything();
  desk.program.ui.expect(168);

  EXPECT_FALSE(desk.undo.undo());

  EXPECT_EQ(desk.everything(), before);
}

TEST(TreeUndo, brings_pages_of_a_broken_tree_back_as_they_were)
{
  UndoDesk desk{"00", "01", "01", "M02", "03", "0301", "05"};
  const auto before = desk.everything();
  desk.deletesRemembered("03");

  EXPECT_TRUE(desk.undo.undo());

  EXPECT_EQ(desk.everything(), before);
}

TEST(TreeUndo, keeps_values_that_are_no_text_and_bytes_that_are_none)
{
  UndoDesk desk{"00", "01"};
  desk.project.db().execute("UPDATE Seite SET [seitentyp-id] = 2.5, script = 17 WHERE ID = '01'");
  const auto before = desk.everything();
  desk.deletesRemembered("01");

  EXPECT_TRUE(desk.undo.undo());

  EXPECT_EQ(desk.everything(), before);
}

/// Any tree, any change of it.
class AnyTree : public testing::TestWithParam<unsigned> {
protected:
  std::size_t number(std::size_t least, std::size_t most) { return std::uniform_int_distribution(least, most)(dice_); }
  const std::string& anyOf(const std::vector<std::string>& texts) { return texts[number(0, texts.size() - 1)]; }

  void growBelow(const std::string& parent, std::size_t children)
  {
    for (std::size_t child = 1; child <= children; ++child) {
      const std::string id = parent + formatNumber(static_cast<int>(child));
      rows_.push_back(id);
      if (id.size() < kMaxIdLength)
        growBelow(id, number(0, 2));
    }
  }

  /// Pages in an order of the table that has nothing to do with the tree.
  void grow()
  {
    growBelow("", number(2, 6));
    rows_.emplace_back("00");
    std::ranges::shuffle(rows_, dice_);
    dao::Transaction transaction(desk_.project.db());
    for (const auto& id : rows_)
      desk_.add(id);
    transaction.commit();
  }

  std::vector<std::string> pagesBelowTheRoot()
  {
    auto all = desk_.ids();
    std::erase(all, kRootId);
    return all;
  }

  void change()
  {
    const std::string source = anyOf(pagesBelowTheRoot());
    if (number(0, 1) == 0)
      desk_.deletesRemembered(source);
    else
      desk_.movesRemembered(source, number(0, 1) == 0 ? MoveOption::Before : MoveOption::Behind, anyOf(pagesBelowTheRoot()));
  }

  UndoDesk desk_{};
  std::vector<std::string> rows_;

private:
  std::mt19937 dice_{GetParam()};
};

TEST_P(AnyTree, is_to_the_byte_what_it_was_after_each_change_that_is_taken_back)
{
  grow();
  for (int step = 0; step < 15 && pagesBelowTheRoot().size() > 1; ++step) {
    const auto before = desk_.everything();
    change();
    if (desk_.everything() == before)
      continue; // refused, and what could be taken back before still can

    EXPECT_TRUE(desk_.undo.undo());

    ASSERT_EQ(desk_.everything(), before) << "step " << step;
    change();
  }
}

TEST_P(AnyTree, has_its_pages_back_in_their_places_and_with_what_was_saved_meanwhile)
{
  grow();
  const auto before = desk_.pages();
  change();
  if (desk_.undo.change() == Change::None)
    return;
  // The headings name the places from before: what is saved under the new ids has to be found under those.
  for (const auto& id : desk_.ids())
    if (number(0, 2) == 0)
      desk_.project.db().execute("UPDATE Seite SET script = Überschrift WHERE ID = ?", {id});
  std::size_t made = 0;
  for (const auto& parent : desk_.ids())
    if (parent.size() < 6 && parent != kRootId && number(0, 4) == 0) {
      int child = 1;
      while (!desk_.ids(parent + formatNumber(child)).empty())
        ++child;
      desk_.project.addPage({.id = parent + formatNumber(child), .heading = "neu"});
      ++made;
    }

  if (!desk_.undo.undo())
    return; // refused where a new page would come too deep

  std::size_t newcomers = 0;
  for (auto rows = desk_.project.db().openSnapshot("SELECT * FROM Seite"); !rows.eof(); rows.moveNext()) {
    const auto id = rows.value("id").text(), heading = rows.value("Überschrift").text();
    newcomers += heading == "neu";
    EXPECT_TRUE(heading == "neu" || heading == id) << heading << " at " << id;
    EXPECT_TRUE(rows.value("script").isNull() || rows.value("script").text() == id) << id;
    EXPECT_TRUE(id.size() == 2 || !desk_.ids(parentOf(id)).empty()) << id;
    EXPECT_EQ(std::ranges::count(desk_.ids(), id), 1);
  }
  EXPECT_EQ(newcomers, made);
  EXPECT_EQ(desk_.ids().size(), before.size() + made);
}

INSTANTIATE_TEST_SUITE_P(Random, AnyTree, testing::Range(1U, 31U));

} // namespace
} // namespace mrd::pagetree
