#include "desktop/editing/shown_surface.h"

#include <gmock/gmock.h>

namespace mrd::desktop {

using ui::SelectionType;

TEST(Selection, is_none_text_or_an_element_as_a_whole)
{
  ShownSurface surface;
  surface.load("<p>Text</p><img src=\"x.jpg\">");

  surface.placeCursor("p", 1);
  EXPECT_EQ(surface.selectionType(), SelectionType::None);
  surface.selectText("p", 1, 3);
  EXPECT_EQ(surface.selectionType(), SelectionType::Text);
  EXPECT_EQ(surface.selectedText(), "ex");
  surface.selectElement("img");

  EXPECT_EQ(surface.selectionType(), SelectionType::Control);
  EXPECT_EQ(surface.selectedText(), "");
}

TEST(Selection, over_paragraphs_is_read_with_line_ends)
{
  ShownSurface surface;
  surface.load("<p>eins</p><p>zwei</p>");

  surface.execCommand(5035);

  EXPECT_THAT(surface.selectedText(), testing::MatchesRegex("eins(\r\n)+zwei"));
}

TEST(Selection, that_is_emptied_leaves_the_cursor)
{
  ShownSurface surface;
  surface.load("<p>eins</p><p id=\"ueberschrift\">zwei</p>");
  surface.select("#ueberschrift");

  surface.clearSelection();

  EXPECT_EQ(surface.selectionType(), SelectionType::None);
  EXPECT_EQ(surface.textAroundCursor("ueberschrift"), "zwei");
}

TEST(TextAroundTheCursor, is_that_of_the_element_or_its_parent_and_of_no_farther_one)
{
  ShownSurface surface;
  surface.load("<h3 id=\"ueberschrift\">Das <b>alte <i>Haus</i></b></h3><p>Text</p>");

  surface.placeCursor("h3", 1);
  EXPECT_EQ(surface.textAroundCursor("ueberschrift"), "Das alte Haus");
  surface.placeCursor("b", 1);
  EXPECT_EQ(surface.textAroundCursor("ueberschrift"), "Das alte Haus");
  surface.placeCursor("i", 1);
  EXPECT_EQ(surface.textAroundCursor("ueberschrift"), std::nullopt);
  surface.placeCursor("p", 1);

  EXPECT_EQ(surface.textAroundCursor("ueberschrift"), std::nullopt);
}

TEST(TextOfAnElement, is_that_of_the_first_with_the_id_exactly)
{
  ShownSurface surface;
  surface.load("<div><p id=\"ueberschrift\">Haus <b>am Meer</b><br>neu</p></div><p id=\"ueberschrift\">zwei</p>");

  EXPECT_EQ(surface.textOfElement("ueberschrift"), "Haus am Meer\r\nneu");
  EXPECT_EQ(surface.textOfElement("Ueberschrift"), std::nullopt);
  EXPECT_EQ(surface.textOfElement("\"] p"), std::nullopt);
}

TEST(HtmlInPlaceOfTheSelection, stays_as_it_was_given)
{
  ShownSurface surface;
  surface.load("<p>Das alte Haus</p>");
  surface.selectText("p", 4, 8);

  EXPECT_TRUE(surface.pasteHtml("<marquee>alte</marquee><!-- x --><b onclick=\"f()\">neue</b>"));

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Das <marquee>alte</marquee><!-- x --><b onclick=\"f()\">neue</b> Haus</p>");
  EXPECT_TRUE(comesTrue([&] { return surface.changes == 1; }));
}

TEST(HtmlInPlaceOfTheSelection, with_blocks_parts_the_paragraph_so_that_it_is_read_back_the_same)
{
  ShownSurface surface;
  surface.load("<p align=\"center\">Das Haus</p>");
  surface.placeCursor("p", 4);

  EXPECT_TRUE(surface.pasteHtml("<div>x</div>"));

  EXPECT_EQ(surface.bodyInnerHtml(), "<p align=\"center\">Das </p><div>x</div><p align=\"center\">Haus</p>");
  EXPECT_EQ(surface.reloaded(), "<p align=\"center\">Das </p><div>x</div><p align=\"center\">Haus</p>");
}

TEST(HtmlInPlaceOfTheSelection, with_blocks_leaves_the_name_of_a_parted_heading_on_one_half)
{
  ShownSurface surface;
  for (const auto& [offset, expected] : {std::pair{0, "<hr><h3 id=\"ueberschrift\">Haus</h3>"},
                                         {2, "<h3 id=\"ueberschrift\">Ha</h3><hr><h3>us</h3>"},
                                         {4, "<h3 id=\"ueberschrift\">Haus</h3><hr>"}}) {
    surface.load("<h3 id=\"ueberschrift\">Haus</h3>");
    surface.placeCursor("h3", offset);

    EXPECT_TRUE(surface.pasteHtml("<hr>"));

    EXPECT_EQ(surface.bodyInnerHtml(), expected);
  }
}

TEST(HtmlInPlaceOfTheSelection, is_refused_for_an_element_as_a_whole)
{
  ShownSurface surface;
  surface.load("<p><img src=\"x.jpg\"></p>");
  surface.selectElement("img");

  EXPECT_FALSE(surface.pasteHtml("<b>x</b>"));

  EXPECT_EQ(surface.bodyInnerHtml(), "<p><img src=\"x.jpg\"></p>");
}

} // namespace mrd::desktop
