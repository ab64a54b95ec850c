#include "main_window.h"

#include <gmock/gmock.h>

namespace mrd::mainform {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using ui::ScrollStep;

struct DragTest : testing::Test, OpenMainWindow {
  DragTest()
  {
    start();
    dialogs.move = [this](pagetree::frmMove1& form) {
      RecordedScreen controls;
      form.Form_Load(controls);
      EXPECT_EQ(form.optMove(), 1);
      form.btnMove_Click();
      EXPECT_EQ(tree.drawingOff, 0);
    };
  }
  std::vector<std::string> headings()
  {
    std::vector<std::string> out;
    for (auto rows = project.db().openRecordset("SELECT * FROM Seite ORDER BY ID"); !rows.eof(); rows.moveNext())
      out.push_back(rows.value("id").text() + " " + rows.value("Überschrift").text());
    return out;
  }
};

TEST_F(DragTest, moves_a_page_behind_another_and_shows_it_there)
{
  tree.setExpanded("@01", true);
  click("@01");

  dropOn("@03");

  EXPECT_THAT(headings(), ElementsAre("00 Start", "01 Garten", "02 Hof", "03 Haus", "0301 Küche"));
  EXPECT_EQ(active(), "@03");
  EXPECT_EQ(tree.selected(), "@03");
  EXPECT_TRUE(tree.expanded("@03"));
  EXPECT_FALSE(tree.expanded("@01"));
  EXPECT_EQ(window.pages().fields.caption, "Mirandel: Haus");
  EXPECT_EQ(tree.dropHighlight, std::nullopt);
}

TEST_F(DragTest, shows_both_headings_in_the_dialog)
{
  dialogs.move = [](pagetree::frmMove1& form) {
    form.Form_Load();
    EXPECT_EQ(form.lblMove[0].caption, "Haus");
    EXPECT_EQ(form.lblMove[0].tag, "01");
    EXPECT_EQ(form.lblMove[1].caption, "Hof");
    EXPECT_EQ(form.lblMove[1].tag, "03");
    form.optMove_Click(pagetree::MoveOption::Before);
    EXPECT_EQ(form.lblMove[1].tag, "02");
    form.optMove_Click(pagetree::MoveOption::Before);
    EXPECT_EQ(form.lblMove[1].tag, "01");
    form.btnCancel_Click();
  };
  click("@01");

  dropOn("@03");

  EXPECT_EQ(dialogs.shown, 1);
}

TEST_F(DragTest, that_is_cancelled_moves_nothing)
{
  bool closed = false;
  dialogs.move = [&](pagetree::frmMove1& form) {
    form.window.unload = [&] { closed = true; };
    form.Form_Load();
    EXPECT_EQ(tree.dropHighlight, "@03");
    form.btnCancel_Click();
    EXPECT_EQ(tree.dropHighlight, std::nullopt);
  };
  click("@01");

  dropOn("@03");

  EXPECT_TRUE(closed);
  EXPECT_EQ(project.ids().size(), 5u);
  EXPECT_EQ(text("01", "Überschrift"), "Haus");
}

TEST_F(DragTest, closes_the_dialog_behind_a_refusal)
{
  bool closed = false;
  dialogs.move = [&](pagetree::frmMove1& form) {
    form.window.unload = [&] { closed = true; };
    form.Form_Load();
    ui.expect(40);
    form.btnMove_Click();
    EXPECT_EQ(form.lblMove[1].tag, "00");
  };
  tree.setExpanded("@01", true);
  click("@01");

  dropOn("@0101");

  EXPECT_TRUE(closed);
  EXPECT_EQ(active(), "@01");
}

TEST_F(DragTest, finds_a_heading_with_an_apostrophe_again)
{
  click("@01");
  surface.type("<h3 id=\"ueberschrift\">Oma's Haus</h3>");

  dropOn("@03");

  EXPECT_EQ(active(), "@03");
  EXPECT_EQ(tree.label("@03"), "Oma's Haus");
}

TEST_F(DragTest, takes_what_is_typed_along)
{
  click("@01");
  surface.type("<h3 id=\"ueberschrift\">Haus</h3><p>neu</p>");

  dropOn("@03");

  EXPECT_THAT(text("03", "html"), testing::HasSubstr("neu"));
  EXPECT_FALSE(window.pages().PageDirty());
}

TEST_F(DragTest, outside_of_any_node_does_nothing)
{
  click("@01");

  dropOn(std::nullopt);

  window.treeMouse().TreeView1_DragOver("@03", 1500, 1500);
  window.treeMouse().TreeView1_DragOver(std::nullopt, 1500, 1500);
  window.treeMouse().TreeView1_DragDrop("@03");

  EXPECT_EQ(dialogs.shown, 0);
  EXPECT_TRUE(ui.messages.empty());
}

TEST_F(DragTest, of_the_homepage_is_refused)
{
  click("@00");
  ui.expect(8);

  dropOn("@02");

  EXPECT_EQ(dialogs.shown, 0);
}

TEST_F(DragTest, onto_itself_does_nothing)
{
  click("@02");

  dropOn("@02");

  EXPECT_EQ(dialogs.shown, 0);
}

TEST_F(DragTest, below_a_page_leaves_the_tree_as_it_was)
{
  dialogs.move = [](pagetree::frmMove1& form) {
    form.Form_Load();
    form.optMove_Click(pagetree::MoveOption::Under);
    form.btnMove_Click();
  };
  click("@02");

  dropOn("@03");

  EXPECT_EQ(text("02", "Überschrift"), "Garten");
  EXPECT_EQ(active(), "@02");
}

TEST_F(DragTest, starts_when_the_cursor_has_left_the_pressed_node)
{
  click("@02");
  auto& mouse = window.treeMouse();

  mouse.TreeView1_MouseMove(0, "@03");
  mouse.TreeView1_MouseMove(1, "@02");
  mouse.TreeView1_MouseMove(1, std::nullopt);
  mouse.TreeView1_MouseMove(2, "@03");
  EXPECT_EQ(tree.drags, 0);

  mouse.TreeView1_MouseMove(1, "@03");
  EXPECT_EQ(tree.drags, 1);
}

TEST_F(DragTest, does_not_start_while_a_page_loads)
{
  surface.busyFor = 2;
  surface.whenLoaded = [this] { window.treeMouse().TreeView1_MouseMove(1, "@03"); };

  click("@02");

  EXPECT_EQ(tree.drags, 0);
}

TEST_F(DragTest, scrolls_a_line_at_each_step_near_an_edge)
{
  auto& mouse = window.treeMouse();
  // The tree is 200 by 300 pixels, and a pixel is 15 twips.
  mouse.TreeView1_DragOver("@02", 1500, 44);
  mouse.TreeView1_DragOver("@02", 1500, 44);
  EXPECT_THAT(tree.scrolled, ElementsAre(ScrollStep::LineUp, ScrollStep::LineUp));
  EXPECT_EQ(tree.dropHighlight, "@02");

  tree.scrolled.clear();
  mouse.TreeView1_DragOver("@02", 1500, 45);
  mouse.TreeView1_DragOver("@02", 1500, 0);
  mouse.TreeView1_DragOver("@02", 1500, 4455);
  EXPECT_THAT(tree.scrolled, IsEmpty());

  mouse.TreeView1_DragOver("@02", 1500, 4456);
  mouse.TreeView1_DragOver("@02", 44, 1500);
  EXPECT_THAT(tree.scrolled, ElementsAre(ScrollStep::LineDown, ScrollStep::LineLeft));
  EXPECT_EQ(tree.refreshes, 0);

  mouse.TreeView1_DragOver("@02", 2990, 1500);
  EXPECT_EQ(tree.scrolled.back(), ScrollStep::LineRight);
  EXPECT_EQ(tree.refreshes, 1);
}

} // namespace
} // namespace mrd::mainform
