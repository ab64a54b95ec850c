#include "base/text.h"
#include "editor/document_surface.h"
#include "editor/table_properties.h"
#include "support/test_program.h"

#include <gmock/gmock.h>

#include <optional>
#include <vector>

namespace mrd::editor {
namespace {

using testing::HasSubstr;
using testing::Not;

struct Surface : DocumentSurface {
  ui::PageElement byId(const std::string& id) { return numbered(*document().elementById(id)); }
  void beginStep() override { ++begun; }
  void endStep() override { ++ended; }

  int begun = 0, ended = 0;
};

struct TableProperties : testing::Test {
  FrmTabelleneigenschaften& at(const std::string& html, const std::string& id = "x")
  {
    surface.setDocumentHtml(html);
    form.EigenschaftenErmitteln(surface.byId(id));
    return form;
  }

  support::TestProgram program;
  Surface surface;
  int changes = 0;
  FrmTabelleneigenschaften form{program.language, surface, [this] { ++changes; }};
};

constexpr auto kTable = "<table width=\"80%\" bgcolor=\"#eeeeee\" border=\"1\" cellpadding=\"2\" cellspacing=\"3\"><tbody>"
                        "<tr valign=\"top\" bgcolor=\"#dddddd\"><td id=\"x\" align=\"center\" width=\"40\" bgcolor=\"#cccccc\" "
                        "colspan=\"2\"><b id=\"b\">Text</b></td></tr></tbody></table><p id=\"p\">draußen</p>";

TEST_F(TableProperties, show_the_attributes_of_cell_row_and_table_around_the_cursor)
{
  at(kTable, "b");

  EXPECT_EQ(form.tb_td_align + " " + form.tb_td_width + " " + form.tb_td_bgcolor + " " + form.tb_td_colspan,
            "center 40 #cccccc 2");
  EXPECT_EQ(form.tb_tr_valign + " " + form.tb_tr_bgcolor, "top #dddddd");
  EXPECT_EQ(form.tb_table_width + " " + form.tb_table_bgcolor + " " + form.tb_table_border, "80% #eeeeee 1");
  EXPECT_EQ(form.tb_table_cellpadding + " " + form.tb_table_cellspacing, "2 3");
}

TEST_F(TableProperties, of_a_nested_table_are_those_of_the_nearest_cell_row_and_table)
{
  at("<table border=9><tbody><tr valign=bottom><td width=900>"
     "<table border=1><tbody><tr valign=top><td width=100 id=x>i</td></tr></tbody></table></td></tr></tbody></table>");

  EXPECT_EQ(form.tb_table_border, "1");
  EXPECT_EQ(form.tb_tr_valign, "top");
  EXPECT_EQ(form.tb_td_width, "100");
}

TEST_F(TableProperties, are_read_anew_for_another_element)
{
  at("<table border=1><tbody><tr><td width=10 id=x>a</td></tr></tbody></table>"
     "<table border=2><tbody><tr><td width=20 id=y>b</td></tr></tbody></table>");

  form.EigenschaftenErmitteln(surface.byId("y"));

  EXPECT_EQ(form.tb_table_border + " " + form.tb_td_width, "2 20");
}

TEST_F(TableProperties, outside_of_a_table_are_empty_and_write_nothing)
{
  at(kTable, "p");
  EXPECT_FALSE(form.hasCell() || form.hasRow() || form.hasTable());
  EXPECT_EQ(form.tb_table_border, "");
  const std::string before = surface.bodyInnerHtml();
  form.tb_td_width = "10";

  form.cb_td_ok_Click();
  form.cb_tr_Farbwechsel_Click();

  EXPECT_EQ(surface.bodyInnerHtml(), before);
  EXPECT_EQ(changes, 0);
}

TEST_F(TableProperties, that_are_emptied_are_taken_from_the_element)
{
  at(kTable);
  form.tb_table_border.clear();

  form.tb_table_ok_Click();

  EXPECT_THAT(surface.bodyInnerHtml(), Not(HasSubstr("border=")));
  EXPECT_THAT(surface.bodyInnerHtml(), HasSubstr("cellpadding=\"2\""));
  EXPECT_EQ(changes, 1);
}

TEST_F(TableProperties, are_written_of_one_tag_by_its_own_button)
{
  at(kTable);
  form.tb_td_align = "left";
  form.tb_tr_valign = "middle";
  form.tb_table_width = "100%";

  form.cb_tr_ok_Click();

  EXPECT_THAT(surface.bodyInnerHtml(), HasSubstr("valign=\"middle\""));
  EXPECT_THAT(surface.bodyInnerHtml(), HasSubstr("align=\"center\""));
  EXPECT_THAT(surface.bodyInnerHtml(), HasSubstr("width=\"80%\""));
  form.cb_td_ok_Click();
  EXPECT_THAT(surface.bodyInnerHtml(), HasSubstr("align=\"left\""));
}

TEST_F(TableProperties, are_all_written_in_one_step_by_ok)
{
  bool closed = false;
  form.window.unload = [&] { closed = true; };
  at(kTable);
  form.tb_td_align = "right";
  form.tb_tr_bgcolor = "#111111";
  form.tb_table_border = "0";

  form.cbok_Click();

  const std::string html = surface.bodyInnerHtml();
  EXPECT_THAT(html, HasSubstr("align=\"right\""));
  EXPECT_THAT(html, HasSubstr("bgcolor=\"#111111\""));
  EXPECT_THAT(html, HasSubstr("border=\"0\""));
  EXPECT_TRUE(closed);
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(surface.begun, 1);
  EXPECT_EQ(surface.ended, 1);
}

TEST_F(TableProperties, that_were_edited_stay_out_of_the_page_when_the_dialog_is_closed)
{
  at(kTable);
  const std::string before = surface.bodyInnerHtml();
  form.tb_td_align = "left";
  form.tb_table_border = "7";

  form.cbschließen_Click();

  EXPECT_EQ(surface.bodyInnerHtml(), before);
  EXPECT_EQ(changes, 0);
}

TEST_F(TableProperties, take_the_colour_that_was_chosen_for_their_box)
{
  at(kTable);
  program.ui.answerColourDialog(0x0000FF).answerColourDialog(0x123456).answerColourDialog(std::nullopt);

  form.cbfarbe_Click(0);
  form.cbfarbe_Click(3);
  form.cbfarbe_Click(2);
  form.cbfarbe_Click(4);

  EXPECT_EQ(form.tb_td_bgcolor, "FF0000");
  EXPECT_EQ(form.tb_tr_bgcolor2, "563412");
  EXPECT_EQ(form.tb_table_bgcolor, "#eeeeee");
}

constexpr auto kRows = "<table><tbody><tr id=\"x\"><td>1</td></tr><tr><td>2</td></tr><tr><td>3</td></tr></tbody></table>";

TEST_F(TableProperties, give_rows_two_colours_in_turn)
{
  at(kRows);
  form.tb_tr_bgcolor = "#aaaaaa";
  form.tb_tr_bgcolor2 = "#bbbbbb";

  form.cb_tr_Farbwechsel_Click();

  EXPECT_EQ(surface.bodyInnerHtml(),
            "<table><tbody><tr id=\"x\" bgcolor=\"#aaaaaa\"><td>1</td></tr>"
            "<tr bgcolor=\"#bbbbbb\"><td>2</td></tr><tr bgcolor=\"#aaaaaa\"><td>3</td></tr></tbody></table>");
  EXPECT_EQ(changes, 1);
}

TEST_F(TableProperties, give_rows_of_an_empty_colour_box_an_empty_attribute)
{
  at(kRows);
  form.tb_tr_bgcolor = "#aaaaaa";

  form.cb_tr_Farbwechsel_Click();

  EXPECT_THAT(surface.bodyInnerHtml(), HasSubstr("<tr bgcolor=\"\"><td>2</td></tr>"));
}

/// Elements of a document that keeps the case of its names.
struct SpelledElements : ui::ElementAccess {
  std::string tagName(int) const override { return "TABLE"; }
  std::optional<std::string> getAttribute(int, std::string_view name) const override
  {
    return base::lower(name) == "bgcolor" ? std::optional<std::string>("#ffffff") : std::nullopt;
  }
  void setAttribute(int, std::string_view name, std::string_view value) override
  {
    written.emplace_back(std::string(name) + "=" + std::string(value));
  }
  void removeAttribute(int, std::string_view name) override { removed.emplace_back(name); }
  void setStyle(int, std::string_view, std::string_view) override {}
  std::string outerHTML(int) const override { return "<TABLE Title=\"Über\" BGCOLOR=#ffffff></TABLE>"; }
  std::optional<int> parentOf(int) const override { return std::nullopt; }
  std::vector<int> childrenOf(int) const override { return {}; }

  std::vector<std::string> written, removed;
};

TEST(TableAttribute, is_written_as_its_element_spells_it)
{
  SpelledElements elements;
  std::string colour, border;
  clsTag tag("table", {{"bgcolor", &colour}, {"border", &border}});

  tag.AttributeErmitteln(ui::PageElement(elements, 1));
  EXPECT_EQ(tag.ColAttribute.Item("bgcolor")->AttName, "BGCOLOR");
  EXPECT_EQ(colour, "#ffffff");
  EXPECT_EQ(border, "");
  colour = "#000000";
  tag.AttributeSetzen();

  EXPECT_THAT(elements.removed, testing::ElementsAre("BGCOLOR", "border"));
  EXPECT_THAT(elements.written, testing::ElementsAre("BGCOLOR=#000000"));
}

TEST(TableAttribute, is_found_counted_and_taken_out_by_its_name)
{
  ColAttribute attributes;
  attributes.Add("width", nullptr);
  attributes.AddAtt(clsTagAttribut("border", nullptr));

  EXPECT_EQ(attributes.Count(), 2U);
  EXPECT_EQ(attributes.Item("Border")->AttName, "border");
  attributes.Remove("width");

  EXPECT_EQ(attributes.Item("width"), nullptr);
  EXPECT_EQ(attributes.Count(), 1U);
}

} // namespace
} // namespace mrd::editor
