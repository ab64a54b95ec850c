#include "generator/placeholders.h"

#include <gtest/gtest.h>

namespace mrd::generator {
namespace {

struct PlaceholderTest : testing::Test {
  PlaceholderTest()
  {
    fields.tbhintergrund = "111111";
    fields.tbhintergrundaussen = "222222";
    fields.tbText = "333333";
    fields.tbmenütext = "444444";
    fields.Tbtabelle = "555555";
    fields.tbmenü = "666666";
    fields.tbschriftart = "Verdana, Arial";
  }

  settings::Fields fields;
};

TEST_F(PlaceholderTest, each_of_the_six_colours_and_the_font_stands_in_its_place)
{
  EXPECT_EQ(farbzuweisung("[mrd:Hintergrundfarbe] [mrd:Hintergrundfarbeaussen] [mrd:Textfarbe] [mrd:Menütextfarbe] "
                          "[mrd:Tabellenfarbe] [mrd:Menüaktivfarbe] [mrd:Schriftart]",
                          fields),
            "#111111 #222222 #333333 #444444 #555555 #666666 Verdana, Arial");
}

TEST_F(PlaceholderTest, every_occurrence_is_replaced)
{
  EXPECT_EQ(farbzuweisung("[mrd:Textfarbe][mrd:Textfarbe] x [mrd:Textfarbe]", fields), "#333333#333333 x #333333");
}

TEST_F(PlaceholderTest, other_letters_case_is_another_text)
{
  EXPECT_EQ(farbzuweisung("[mrd:textfarbe] [MRD:Textfarbe] [mrd:Textfarbe", fields),
            "[mrd:textfarbe] [MRD:Textfarbe] [mrd:Textfarbe");
}

TEST_F(PlaceholderTest, what_belongs_to_template_layouts_stays)
{
  constexpr std::string_view text =
      "[mrd:Hyperlinkfarbe] [mrd:Tabellenfarbeinaktiv] [mrd:Inhaltbreite] [mrd:Menübreite] [mrd:Titel] "
      "[mrd:GenDat] [mrd:aktivID] [mrd:einleitenderText] [mrd:Text] [mrd:Bild] [mrd:unbekannt]";
  EXPECT_EQ(farbzuweisung(text, fields), text);
}

TEST_F(PlaceholderTest, a_colour_goes_out_with_one_sign_however_it_was_stored)
{
  fields.Tbtabelle = "#0080FF";

  EXPECT_EQ(farbzuweisung("[mrd:Tabellenfarbe]", fields), "#0080FF");
  EXPECT_EQ(colourDigits("#0080FF"), "0080FF");
  EXPECT_EQ(colourDigits("0080FF"), "0080FF");
  EXPECT_EQ(colourDigits(""), "");
}

TEST_F(PlaceholderTest, an_empty_value_replaces_by_nothing_but_the_sign)
{
  fields.tbText = "";
  fields.tbschriftart = "";

  EXPECT_EQ(farbzuweisung("a[mrd:Textfarbe]b[mrd:Schriftart]c", fields), "a#bc");
}

TEST_F(PlaceholderTest, a_value_that_is_its_own_placeholder_stays_and_ends)
{
  fields.tbschriftart = "[mrd:Schriftart] [mrd:Schriftart]";
  fields.tbText = "[mrd:Textfarbe]";

  EXPECT_EQ(farbzuweisung("<[mrd:Schriftart]><[mrd:Textfarbe]>", fields),
            "<[mrd:Schriftart] [mrd:Schriftart]><#[mrd:Textfarbe]>");
}

TEST_F(PlaceholderTest, a_value_may_bring_in_a_placeholder_whose_turn_is_still_to_come)
{
  fields.tbhintergrund = "[mrd:Schriftart]";
  fields.tbschriftart = "[mrd:Textfarbe]";

  EXPECT_EQ(farbzuweisung("[mrd:Hintergrundfarbe]", fields), "#[mrd:Textfarbe]");
}

TEST_F(PlaceholderTest, a_change_of_a_field_counts_at_the_next_call)
{
  const auto before = farbzuweisung("[mrd:Textfarbe]", fields);
  fields.tbText = "abcdef";

  EXPECT_EQ(before, "#333333");
  EXPECT_EQ(farbzuweisung("[mrd:Textfarbe]", fields), "#abcdef");
}

TEST_F(PlaceholderTest, a_menu_row_takes_heading_then_target_then_colours)
{
  EXPECT_EQ(menüzeile("<A href='[mrd:ID]'><FONT color=[mrd:Menütextfarbe]>[mrd:Überschrift]</FONT></A>[mrd:ID]", "Küche",
                      "0102.htm", fields),
            "<A href='0102.htm'><FONT color=#444444>Küche</FONT></A>0102.htm");
  EXPECT_EQ(menüzeile("[mrd:Überschrift]", "[mrd:ID] [mrd:Textfarbe]", "x.htm", fields), "x.htm #333333");
}

TEST_F(PlaceholderTest, a_heading_that_holds_markup_stays_markup)
{
  EXPECT_EQ(menüzeile("<b>[mrd:Überschrift]</b>", "<i>Dünen</i> & 'Meer'", "x.htm", fields), "<b><i>Dünen</i> & 'Meer'</b>");
}

TEST_F(PlaceholderTest, a_heading_or_a_target_that_is_its_own_placeholder_ends)
{
  EXPECT_EQ(menüzeile("[mrd:Überschrift]|[mrd:ID]", "[mrd:Überschrift]", "[mrd:ID]", fields), "[mrd:Überschrift]|[mrd:ID]");
}

TEST_F(PlaceholderTest, the_comment_mark_of_menu_rows_is_never_replaced)
{
  EXPECT_EQ(menüzeile("<!-- [mrd:aktivID] -->", "x", "y", fields), "<!-- [mrd:aktivID] -->");
}

TEST(BaseAddress, stands_before_references_to_pix_in_both_kinds_of_quotes)
{
  EXPECT_EQ(mitbasis("<img src='pix/a.jpg'><img src=\"pix/b.jpg\">", "http://x.example/"),
            "<img src='http://x.example/pix/a.jpg'><img src=\"http://x.example/pix/b.jpg\">");
}

TEST(BaseAddress, leaves_other_references_alone)
{
  constexpr std::string_view text = "<img SRC='pix/a.jpg'><img src=pix/a.jpg><a href='pix/a.jpg'><img src='../pix/a.jpg'>";
  EXPECT_EQ(mitbasis(text, "http://x.example/"), text);
}

TEST(BaseAddress, changes_nothing_when_it_is_empty) { EXPECT_EQ(mitbasis("<img src='pix/a.jpg'>", ""), "<img src='pix/a.jpg'>"); }

TEST(BaseAddress, that_holds_the_searched_text_itself_ends)
{
  EXPECT_EQ(mitbasis("src='pix/a.jpg'", "src='pix"), "src='src='pixpix/a.jpg'");
}

} // namespace
} // namespace mrd::generator
