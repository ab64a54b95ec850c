#include "platform/html/document.h"

#include <gtest/gtest.h>

#include <string>

namespace mrd::html {
namespace {

std::string innerTextOf(std::string_view html) { return Document::fromText(html).body().innerText(); }

TEST(InnerText, gives_runs_of_white_space_as_one_blank) { EXPECT_EQ(innerTextOf("  a \n\t b<b> c</b> <i> d</i>  "), "a b c d"); }

TEST(InnerText, keeps_words_together_that_a_tag_divides) { EXPECT_EQ(innerTextOf("K<b>ü</b>che"), "Küche"); }

TEST(InnerText, gives_line_breaks_and_block_borders_as_line_ends)
{
  EXPECT_EQ(innerTextOf("a<br>b<br><br>c"), "a\r\nb\r\n\r\nc");
  EXPECT_EQ(innerTextOf("<div> a </div><div><p>b</p></div>\n<ul><li>c<li>d</ul>e"), "a\r\nb\r\nc\r\nd\r\ne");
  EXPECT_EQ(innerTextOf("a<br></div><div>b"), "a\r\nb");
  EXPECT_EQ(innerTextOf("<div>a<br></div><div>b</div>"), "a\r\nb");
}

TEST(InnerText, has_no_line_end_at_its_borders)
{
  auto document = Document::fromText("<h3 id=ueberschrift>\n <div> Küche &amp; Bad </div>\n</h3>");

  EXPECT_EQ(document.elementById("ueberschrift")->innerText(), "Küche & Bad");
}

TEST(InnerText, gives_rows_as_lines_and_cells_as_words)
{
  EXPECT_EQ(innerTextOf("<table><tr><td>a<td>b<tr><td>c<td>d</table>"), "a b\r\nc d");
}

TEST(InnerText, leaves_out_what_is_not_shown)
{
  EXPECT_EQ(innerTextOf("a<script>b</script><style>c</style><!-- d --><iframe>e</iframe><template>f</template>g"), "ag");
}

TEST(InnerText, keeps_preformatted_lines) { EXPECT_EQ(innerTextOf("x<pre> a\n  b</pre>y"), "x\r\n a\r\n  b\r\ny"); }

TEST(InnerText, keeps_no_break_spaces) { EXPECT_EQ(innerTextOf("a&nbsp; b"), "a\u00A0 b"); }

TEST(InnerText, of_an_element_that_is_not_shown_is_all_its_text)
{
  auto document = Document::fromText("x<script>a\nb</script><title> c </title>");

  EXPECT_EQ(document.elementsByTag("script").front().innerText(), "a\r\nb");
  EXPECT_EQ(document.elementsByTag("title").front().innerText(), " c ");
}

TEST(TextContent, is_all_text_character_by_character)
{
  auto document = Document::fromText("<p> a\r\n<b>b</b><!--c--><script>d</script> ");

  EXPECT_EQ(document.elementsByTag("p").front().textContent(), " a\nbd ");
}

} // namespace
} // namespace mrd::html
