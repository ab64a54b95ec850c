#include "editor/context_menu.h"
#include "editor/document_surface.h"
#include "platform/ui/editing_commands.h"
#include "support/test_program.h"

#include <gmock/gmock.h>

#include <map>

namespace mrd::editor {
namespace {

namespace command = ui::command;
using testing::ElementsAre;

struct Surface : DocumentSurface {
  int queryStatus(int number) const override
  {
    const auto found = statuses.find(number);
    return found == statuses.end() ? command::kDisabled : found->second;
  }

  std::map<int, int> statuses;
};

struct ContextMenuTest : testing::Test {
  std::vector<std::string> captions()
  {
    std::vector<std::string> all;
    for (const auto& entry : ContextMenu(surface).entries(Captions(program.language)))
      all.push_back(entry.isSeparator ? "-" : entry.caption);
    return all;
  }
  ContextAction action(int index) const { return ContextMenu(surface).action(index); }

  support::TestProgram program;
  Surface surface;
};

TEST_F(ContextMenuTest, has_its_base_entries_everywhere)
{
  EXPECT_THAT(captions(), ElementsAre("Ausschneiden", "Kopieren", "Einfügen", "-", "Alles Markieren", "-", "Schriftart..."));
  EXPECT_EQ(action(0), ContextAction::Cut);
  EXPECT_EQ(action(1), ContextAction::Copy);
  EXPECT_EQ(action(2), ContextAction::Paste);
  EXPECT_EQ(action(3), ContextAction::None);
  EXPECT_EQ(action(4), ContextAction::SelectAll);
  EXPECT_EQ(action(6), ContextAction::Font);
  EXPECT_EQ(action(7), ContextAction::None);
  EXPECT_EQ(action(-1), ContextAction::None);
}

TEST_F(ContextMenuTest, shows_the_states_of_its_base_entries)
{
  surface.statuses = {
      {command::kCut, 1}, {command::kCopy, 3}, {command::kPaste, 7}, {command::kSelectAll, 3}, {command::kFont, 1}};

  const auto entries = ContextMenu(surface).entries(Captions(program.language));

  EXPECT_EQ(entries[0].state, 1);
  EXPECT_EQ(entries[1].state, 3);
  EXPECT_EQ(entries[2].state, 7);
  EXPECT_EQ(entries[4].state, 3);
  EXPECT_EQ(entries[6].state, 1);
}

TEST_F(ContextMenuTest, offers_the_other_positioning)
{
  surface.statuses = {{command::kAbsolutePosition, 3}};
  EXPECT_EQ(captions().at(8), "absolute Positionierung");
  surface.statuses = {{command::kAbsolutePosition, 7}};
  EXPECT_EQ(captions().at(8), "relative Positionierung");

  EXPECT_EQ(captions().size(), 9U);
  EXPECT_EQ(action(8), ContextAction::Position);
}

TEST_F(ContextMenuTest, has_the_table_behind_the_base_entries_without_positioning)
{
  surface.statuses = {{command::kInsertRow, 3}};

  EXPECT_EQ(captions().at(8), "Zeile einfügen");
  EXPECT_EQ(action(8), ContextAction::InsertRow);
  EXPECT_EQ(action(9), ContextAction::InsertColumn);
  EXPECT_EQ(action(11), ContextAction::DeleteRow);
  EXPECT_EQ(action(12), ContextAction::DeleteColumn);
  EXPECT_EQ(action(14), ContextAction::TableProperties);
}

TEST_F(ContextMenuTest, has_both_blocks_for_a_picture_in_a_table)
{
  surface.statuses = {{command::kAbsolutePosition, 3}, {command::kPicture, 3}, {command::kInsertRow, 3}};

  EXPECT_THAT(captions(), ElementsAre("Ausschneiden", "Kopieren", "Einfügen", "-", "Alles Markieren", "-", "Schriftart...", "-",
                                      "absolute Positionierung", "-", "Bildeigenschaften", "Schatten hinzufügen",
                                      "Schatten entfernen", "-", "Zeile einfügen", "Spalte einfügen", "-", "Zeile löschen",
                                      "Spalte löschen", "-", "Tabelleneigenschaften"));
  EXPECT_EQ(action(10), ContextAction::Picture);
  EXPECT_EQ(action(11), ContextAction::AddShadow);
  EXPECT_EQ(action(12), ContextAction::RemoveShadow);
  EXPECT_EQ(action(6 + 6 + 8), ContextAction::TableProperties);
}

TEST_F(ContextMenuTest, has_no_picture_block_for_another_status_than_three)
{
  surface.statuses = {{command::kAbsolutePosition, 3}, {command::kPicture, 7}};

  EXPECT_EQ(captions().size(), 9U);
}

TEST_F(ContextMenuTest, has_no_picture_block_where_the_picture_cannot_be_positioned)
{
  surface.statuses = {{command::kAbsolutePosition, 1}, {command::kPicture, 3}};

  EXPECT_EQ(captions().size(), 7U);
}

TEST_F(ContextMenuTest, speaks_english_too)
{
  struct Window : Surface {};
  surface.statuses = {{command::kInsertRow, 3}};
  program.language.setSprache("ENG");

  EXPECT_EQ(captions().front(), "Cut");
  EXPECT_EQ(captions().back(), "Table properties");
}

} // namespace
} // namespace mrd::editor
