#include "platform/html/document.h"

#include <gtest/gtest.h>

#include <string>

namespace mrd::html {
namespace {

std::string bodyOf(std::string_view html) { return Document::fromText(html).body().innerHtml(); }

TEST(Writing, escapes_text_and_values_by_their_own_rules)
{
  EXPECT_EQ(bodyOf("<p title=\"\u00A0&amp;<>'&quot;\">\u00A0&amp;&lt;&gt;'\""),
            "<p title=\"&nbsp;&amp;<>'&quot;\">&nbsp;&amp;&lt;&gt;'\"</p>");
}

TEST(Writing, leaves_other_characters_that_begin_like_a_no_break_space) { EXPECT_EQ(bodyOf("©Â\u00A0"), "©Â&nbsp;"); }

TEST(Writing, ends_no_void_element)
{
  const std::string_view all = "<area><base><basefont><bgsound><br><embed><hr><img><input><keygen><link><meta><param><source>"
                               "<track><wbr>";

  EXPECT_EQ(bodyOf(std::string("x").append(all)), std::string("x").append(all));
  EXPECT_EQ(bodyOf("<table><colgroup><col></table>"), "<table><colgroup><col></colgroup></table>");
}

TEST(Writing, ends_lines_with_cr_lf_in_text_values_comments_and_scripts)
{
  EXPECT_EQ(bodyOf("<p title='a\nb'>c\nd<!--e\nf--><script>g\nh</script>\n"),
            "<p title=\"a\r\nb\">c\r\nd<!--e\r\nf--><script>g\r\nh</script>\r\n</p>");
}

TEST(Writing, keeps_cr_lf_of_a_value_that_was_set)
{
  auto document = Document::fromText("<p>");
  document.elementsByTag("p").front().setAttribute("title", "a\r\nb");

  EXPECT_EQ(document.body().innerHtml(), "<p title=\"a\r\nb\"></p>");
}

TEST(Writing, adds_no_line_end_behind_pre) { EXPECT_EQ(bodyOf("<pre>\n\nx</pre>"), "<pre>\r\nx</pre>"); }

TEST(Writing, appends_to_the_callers_text)
{
  std::string page = "<!-- a -->";
  auto document = Document::fromText("<p>x");
  document.body().appendInnerHtml(page);
  document.body().appendInnerHtml(page);

  EXPECT_EQ(page, "<!-- a --><p>x</p><p>x</p>");
}

TEST(Writing, writes_an_element_with_its_own_tags)
{
  auto document = Document::fromText("<form name=form1><input></form>");

  EXPECT_EQ(document.elementsByTag("form").front().outerHtml(), R"(<form name="form1"><input></form>)");
  EXPECT_EQ(document.elementsByTag("input").front().outerHtml(), "<input>");
  EXPECT_EQ(document.elementsByTag("input").front().innerHtml(), "");
}

TEST(Writing, is_stable_when_its_own_output_is_read_again)
{
  const std::string_view page = "<h3 id=ueberschrift>K\u00FCche</h3>\n<table border=1>x<tr><td><b>a<p>b</b>c&nbsp;&#9829;</table>"
                                "<a href='?a=1&b=2'><img src=x.jpg></a><script>if (a < b) {}</script><!-- c -->";
  const std::string once = bodyOf(page);

  EXPECT_EQ(bodyOf(once), once);
}

TEST(Escaping, serves_text_that_is_built_by_hand)
{
  EXPECT_EQ(escapeText("a<b> & \"c\"\u00A0"), "a&lt;b&gt; &amp; \"c\"&nbsp;");
  EXPECT_EQ(escapeAttribute("a<b> & \"c\"\u00A0"), "a<b> &amp; &quot;c&quot;&nbsp;");
}

} // namespace
} // namespace mrd::html
