#include "imode/body.h"

#include "base/text.h"
#include "imode/imode_site.h"

#include <gmock/gmock.h>

namespace mrd::imode {
namespace {

std::string rewritten(std::string html) { return rewriteBody({std::move(html), "", {}}).bytes; }

TEST(ImodeTables, become_a_line_for_each_cell_and_a_blank_one_behind_each_row)
{
  EXPECT_EQ(rewritten("<table><tr><td>a</td><td>b</td></tr><tr><td>c</td></tr></table>"), "a<br>b<br><br>\r\nc<br><br>\r\n");
}

TEST(ImodeTables, are_trimmed_of_blanks_at_their_ends)
{
  EXPECT_EQ(rewritten("x<table><tr><td>  a </td></tr></table>y"), "xa <br><br>\r\ny");
}

TEST(ImodeTables, show_the_headings_of_a_row_before_its_other_cells)
{
  EXPECT_EQ(rewritten("<table><tr><td>a</td><th>H</th><td>b</td></tr></table>"), "H<br>a<br>b<br><br>\r\n");
}

TEST(ImodeTables, of_all_three_sections_keep_their_order_and_lose_their_caption)
{
  EXPECT_EQ(
      rewritten(
          "<table><caption>C</caption><tfoot><tr><td>f</td></tr></tfoot><thead><tr><td>h</td></tr></thead><tr><td>b</td></tr>"
          "</table>"),
      "f<br><br>\r\nh<br><br>\r\nb<br><br>\r\n");
}

TEST(ImodeTables, within_tables_are_whole_cells_of_them_first_and_then_dissolved_themselves)
{
  EXPECT_EQ(rewritten("<table><tr><td>a<table><tr><td>1</td><td>2</td></tr></table>z</td><td>b</td></tr></table>"),
            "a1<br>2<br><br>\r\nz<br>b<br><br>\r\n");
}

TEST(ImodeTables, within_others_are_trimmed_at_their_own_turn)
{
  EXPECT_EQ(rewritten("<table><tr><td><table></table> b</td></tr></table>"), " b<br><br>\r\n");
}

TEST(ImodeTables, nested_many_times_are_all_dissolved)
{
  std::string html = "x";
  for (int i = 0; i < 60; ++i)
    html = "<table><tr><td>" + html + "</td></tr></table>";

  const auto text = rewritten(html);

  EXPECT_EQ(text.find("<t"), std::string::npos);
  EXPECT_TRUE(text.starts_with("x<br>"));
}

TEST(ImodeTables, that_are_empty_leave_nothing)
{
  EXPECT_EQ(rewritten("a<table></table>b"), "ab");
  EXPECT_EQ(rewritten("a<table><tr></tr></table>b"), "a<br>\r\nb");
}

TEST(ImodeTables, leave_what_stands_between_their_cells_before_them)
{
  EXPECT_EQ(rewritten("<table>x<tr><td>a</td></tr></table>"), "xa<br><br>\r\n");
}

TEST(ImodeHeadings, are_centred_with_a_line_break_behind_them)
{
  EXPECT_EQ(rewritten("<H3 id=ueberschrift>Küche &amp; Bad</H3><h2>b</h2>"), "<div align=\"center\">K\xFC"
                                                                             "che &amp; Bad<br></div><h2>b</h2>");
}

TEST(ImodeHeadings, within_cells_are_centred_too)
{
  EXPECT_EQ(rewritten("<table><tr><td><h3>a</h3></td></tr></table>"), "<div align=\"center\">a<br></div><br><br>\r\n");
}

TEST(ImodeBody, is_a_document_of_its_own_whose_head_takes_what_comes_before_its_text)
{
  EXPECT_EQ(rewritten("<!-- c --><style>a</style><p>Text"), "<p>Text</p>");
}

TEST(ImodeBody, leaves_the_references_of_local_pictures_open_where_they_stand)
{
  const auto body = rewriteBody({"<p>a<img src='file:///x/A &amp; b.jpg' border=0>b<IMG SRC=pix/c.gif>", "", {}});

  EXPECT_EQ(body.bytes, "<p>a<img src=\"\" border=\"0\">b<img src=\"\"></p>");
  ASSERT_EQ(body.open.size(), 2u);
  EXPECT_EQ(body.open[0].at, std::string_view("<p>a<img src=\"").size());
  EXPECT_EQ(body.open[0].written, "file:///x/A &amp; b.jpg");
  EXPECT_EQ(body.open[0].picture.verzeichnis, "\\x\\");
  EXPECT_EQ(body.open[0].picture.fileName(), "a & b.jpg");
  EXPECT_EQ(body.open[1].picture.verzeichnis, "pix\\");
}

TEST(ImodeBody, leaves_pictures_of_the_web_as_they_are)
{
  for (const std::string src : {"http://x.example/a.jpg", "https://x.example/a.jpg", "data:image/gif;base64,AAAA", ""})
    EXPECT_EQ(rewritten(image(src)), image(src));
  EXPECT_TRUE(rewriteBody({"<img src='http://x.example/a.jpg'>", "", {}}).open.empty());
}

TEST(ImodeBody, knows_a_picture_that_was_lost_with_a_caption)
{
  const auto body = rewriteBody({"<table><caption><img src='file:///a.jpg'></caption><tr><td>x</td></tr></table>", "", {}});

  EXPECT_EQ(body.bytes, "x<br><br>\r\n");
  ASSERT_EQ(body.open.size(), 1u);
  EXPECT_EQ(body.open[0].at, std::string::npos);
}

} // namespace
} // namespace mrd::imode
