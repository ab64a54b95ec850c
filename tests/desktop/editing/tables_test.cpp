#include "desktop/editing/shown_surface.h"
#include "platform/ui/editing_commands.h"

#include <gmock/gmock.h>

namespace mrd::desktop {

using namespace ui::command;

namespace {

/// The table after a command with the cursor in the cell with the id "x", as rows of cells: "a b / c d", spans as
/// "a<columns,rows>".
struct Table {
  explicit Table(const std::string& rows) { surface.load("<table><tbody>" + rows + "</tbody></table>"); }

  std::string after(int command)
  {
    surface.placeCursor("#x", 0);
    return done(command);
  }

  std::string done(int command)
  {
    EXPECT_TRUE(surface.execCommand(command));
    return shape();
  }

  std::string shape() const
  {
    return surface.textInDocument(
        "[...document.querySelectorAll('tr')].map(r => [...r.cells].map(c => c.innerText.trim().replace('\\n', '+') + "
        "(c.colSpan > 1 || c.rowSpan > 1 ? `<${c.colSpan},${c.rowSpan}>` : '')).join(' ')).join(' / ')");
  }

  ShownSurface surface;
};

} // namespace

TEST(NewTable, has_the_rows_columns_attributes_and_caption_that_were_given)
{
  ShownSurface surface;
  surface.load("<p>Text</p>");
  surface.placeCursor("p", 4);

  EXPECT_TRUE(surface.insertTable({2, 2, "border=1", "align=center", "Preise & mehr"}));

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Text</p><table border=\"1\"><caption>Preise &amp; mehr</caption><tbody>"
                                     "<tr><td align=\"center\">&nbsp;</td><td align=\"center\">&nbsp;</td></tr>"
                                     "<tr><td align=\"center\">&nbsp;</td><td align=\"center\">&nbsp;</td></tr></tbody></table>");
  EXPECT_GE(surface.status(kInsertRow), kEnabled);
}

TEST(NewTable, without_rows_is_refused)
{
  ShownSurface surface;
  surface.load("<p>Text</p>");

  EXPECT_FALSE(surface.insertTable({0, 2}));

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Text</p>");
}

TEST(TableRow, is_inserted_behind_the_present_one)
{
  EXPECT_EQ(Table("<tr><td id=x>a<td>b<tr><td>c<td>d").after(kInsertRow), "a b /   / c d");
}

TEST(TableRow, grows_a_cell_that_reaches_over_its_place)
{
  EXPECT_EQ(Table("<tr><td id=x>a<td rowspan=2>b<tr><td>c").after(kInsertRow), "a b<1,3> /  / c");
}

TEST(TableColumn, is_inserted_behind_the_present_one)
{
  EXPECT_EQ(Table("<tr><td id=x>a<td>b<tr><td>c<td>d").after(kInsertColumn), "a  b / c  d");
}

TEST(TableColumn, grows_a_cell_that_reaches_over_its_place)
{
  EXPECT_EQ(Table("<tr><td colspan=2>a<tr><td id=x>c<td>d").after(kInsertColumn), "a<3,1> / c  d");
}

TEST(TableCell, is_inserted_behind_the_present_one) { EXPECT_EQ(Table("<tr><td id=x>a<td>b").after(kInsertCell), "a  b"); }

TEST(TableRow, is_deleted_with_its_cells) { EXPECT_EQ(Table("<tr><td id=x>a<td>b<tr><td>c<td>d").after(kDeleteRows), "c d"); }

TEST(TableRow, that_is_deleted_leaves_a_cell_that_reaches_below_it)
{
  EXPECT_EQ(Table("<tr><td id=x>a<td rowspan=2>b<tr><td>c").after(kDeleteRows), "c b");
}

TEST(TableColumn, is_deleted_in_every_row)
{
  EXPECT_EQ(Table("<tr><td id=x>a<td>b<tr><td>c<td>d<tr><td colspan=2>e").after(kDeleteColumns), "b / d / e");
}

TEST(TableCell, is_deleted_alone) { EXPECT_EQ(Table("<tr><td id=x>a<td>b<tr><td>c<td>d").after(kDeleteCells), "b / c d"); }

TEST(LastRow, takes_the_table_with_it)
{
  Table table("<tr><td id=x>a");

  table.after(kDeleteRows);

  EXPECT_EQ(table.surface.bodyInnerHtml(), "");
}

TEST(Cells, of_a_rectangle_become_one)
{
  Table table("<tr><td id=x>a<td>b<tr><td>c<td id=y>d");
  table.surface.inDocument(
      "getSelection().setBaseAndExtent(document.getElementById('x').firstChild, 0, document.getElementById('y').firstChild, 1)");
  EXPECT_EQ(table.surface.status(kMergeCells), kEnabled);

  EXPECT_THAT(table.done(kMergeCells), testing::MatchesRegex("a.+b.+c.+d<2,2> / "));
}

TEST(Cells, are_not_merged_when_only_one_is_selected)
{
  Table table("<tr><td id=x>a<td>b");
  table.surface.placeCursor("#x", 0);

  EXPECT_EQ(table.surface.status(kMergeCells), kDisabled);
  EXPECT_FALSE(table.surface.execCommand(kMergeCells));
}

TEST(Cell, is_split_in_two)
{
  EXPECT_EQ(Table("<tr><td id=x>a<td>b<tr><td>c<td>d").after(kSplitCell), "a  b / c<2,1> d");
  EXPECT_EQ(Table("<tr><td id=x colspan=2>a<tr><td>c<td>d").after(kSplitCell), "a  / c d");
}

TEST(NestedTable, is_the_one_that_commands_work_on)
{
  Table table("<tr><td>a<table><tr><td id=x>i</table><td>b");

  table.after(kInsertColumn);

  EXPECT_EQ(table.surface.inDocument("document.getElementById('x').parentElement.cells.length").toInt(), 2);
  EXPECT_EQ(table.surface.inDocument("document.querySelector('table').rows[0].cells.length").toInt(), 2);
}

TEST(TableCommands, can_be_undone)
{
  for (const int command : {kInsertRow, kInsertColumn, kInsertCell, kDeleteRows, kDeleteColumns, kDeleteCells, kSplitCell}) {
    Table table("<tr><td id=x>a<td rowspan=2>b<tr><td>c");
    const std::string before = table.surface.bodyInnerHtml();
    table.after(command);

    table.surface.execCommand(kUndo);

    EXPECT_EQ(table.surface.bodyInnerHtml(), before) << command;
  }
}

} // namespace mrd::desktop
