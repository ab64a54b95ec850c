// Texts that make a parser slow, large or fail. Each ends within moments, loses no text that is shown, and leaves a document
// that works.

#include "platform/html/document.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <string>

namespace mrd::html {
namespace {

using ::testing::HasSubstr;
using ::testing::Le;

std::string repeated(std::string_view piece, std::size_t times)
{
  std::string text;
  text.reserve(piece.size() * times);
  while (times-- > 0)
    text += piece;
  return text;
}

std::string numbered(std::string_view before, std::string_view behind, std::size_t times)
{
  std::string text;
  for (std::size_t i = 0; i < times; ++i)
    text.append(before).append(std::to_string(i)).append(behind);
  return text;
}

/// Far above what any of the texts needs, also under a sanitizer.
constexpr std::chrono::seconds kMoments{20};

struct HostileInput : ::testing::Test {
  void TearDown() override { EXPECT_THAT(std::chrono::steady_clock::now() - start, Le(kMoments)); }

  /// Reads, writes and reads again in place.
  std::string shownText(std::string_view html)
  {
    auto document = Document::fromText(html);
    const std::string text = document.body().innerText();
    document.body().setInnerHtml(document.outerHtml());
    return text;
  }

  std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
};

TEST_F(HostileInput, of_a_million_nested_elements_is_flattened)
{
  EXPECT_EQ(shownText(repeated("<div>", 1'000'000) + "x"), "x");
  EXPECT_EQ(shownText(repeated("<xyz>", 1'000'000) + "x"), "x");
}

TEST_F(HostileInput, of_nested_elements_with_text_between_them_is_flattened)
{
  EXPECT_EQ(std::ranges::count(shownText(repeated("<div>x", 170'000)), 'x'), 170'000);
}

TEST_F(HostileInput, of_nested_formatting_is_flattened)
{
  EXPECT_EQ(shownText(repeated("<b>", 100'000) + "x"), "x");
  EXPECT_EQ(shownText(repeated("<b><p></b>", 50'000) + "x"), "x");
  EXPECT_THAT(shownText(numbered("<i x=", ">", 20'000) + repeated("<p>x", 20'000) + "y"), ::testing::EndsWith("x\r\nxy"));
}

TEST_F(HostileInput, of_nested_tables_ends)
{
  EXPECT_EQ(shownText(repeated("<a><table>", 50'000) + "x"), "x");
  EXPECT_EQ(shownText(repeated("<table><tr><td>", 50'000) + "x"), "x");
}

TEST_F(HostileInput, of_many_attributes_loses_the_attributes_only)
{
  EXPECT_EQ(shownText("<b " + numbered("a", " ", 200'000) + ">x</b>y"), "xy");
  EXPECT_EQ(shownText(numbered("<body a", "=1>", 50'000) + "x"), "x");
  EXPECT_EQ(shownText(numbered("<html a", "=1><wbr>", 50'000) + "x"), "x");
}

TEST_F(HostileInput, of_unfinished_markup_is_text)
{
  EXPECT_EQ(Document::fromText(repeated("<", 1'000'000)).body().innerText(), repeated("<", 1'000'000));
  EXPECT_EQ(Document::fromText(repeated("&", 1'000'000)).body().innerText(), repeated("&", 1'000'000));
  EXPECT_EQ(shownText(std::string(1'000'000, '\0')), "");
}

TEST_F(HostileInput, keeps_the_lists_of_a_page_that_is_long_but_flat)
{
  auto document = Document::fromText(repeated("<ul><li>a<li>b</ul>", 10'000));

  EXPECT_EQ(document.elementsByTag("li").size(), 20'000U);
}

TEST_F(HostileInput, keeps_what_is_not_nested_too_deep)
{
  auto document =
      Document::fromText("<h3 id=ueberschrift>K</h3><a href=a><img src=b alt='>'></a><!-- c --><script>'<div>'</script>" +
                         repeated("<div>", 1000) + "<img src=c>" + repeated("</div>", 1000) +
                         "<table><tr><td>d<td>e</table><p>f<ul><li>g<li>h</ul><svg><path/><path/></svg>i");

  EXPECT_EQ(document.elementById("ueberschrift")->innerText(), "K");
  EXPECT_EQ(document.images().size(), 2U);
  EXPECT_EQ(document.links().front().innerHtml(), R"(<img src="b" alt=">">)");
  EXPECT_THAT(document.body().innerHtml(), HasSubstr("<!-- c --><script>'<div>'</script><div>"));
  EXPECT_THAT(document.body().innerHtml(),
              ::testing::EndsWith("</div><table><tbody><tr><td>d</td><td>e</td></tr></tbody></table><p>f</p>"
                                  "<ul><li>g</li><li>h</li></ul><svg><path></path><path></path></svg>i"));
}

TEST_F(HostileInput, that_makes_the_parser_fail_keeps_its_other_elements)
{
  auto document = Document::fromText("<p><b>x</b><table><math><select><mo><select></table>y");

  EXPECT_EQ(document.body().innerText(), "x\r\ny");
  EXPECT_EQ(document.elementsByTag("b").size(), 1U);
}

TEST_F(HostileInput, in_a_foreign_element_called_html_is_read)
{
  auto document = Document::fromText("<math><html></math>");
  auto foreign = document.elementsByTag("math").front().children().front();
  foreign.setInnerHtml("<p>x</marquee></body>t<marquee></body>");

  EXPECT_THAT(document.body().innerText(), HasSubstr("x"));
}

TEST_F(HostileInput, that_is_set_again_and_again_deepens_a_document_without_harm)
{
  auto document = Document::fromText("");
  auto element = document.body();
  for (int i = 0; i < 20'000; ++i) {
    element.setInnerHtml("<div>");
    element = element.children().front();
  }
  element.setInnerHtml("x");

  EXPECT_EQ(document.body().innerText(), "x");
  EXPECT_EQ(document.outerHtml().size(), std::string("<html><head></head><body>x</body></html>").size() + 20'000 * 11);
}

TEST_F(HostileInput, that_breaks_off_in_a_tag_is_read_to_its_end)
{
  for (const std::string_view html :
       {"x<", "x</", "x<!", "x<!-", "x<!--", "x<!doctyp", "x<![CDATA[", "x<a", "x<a b", "x<a b=", "x<a b='", "x<a b=c&lt", "x&",
        "x&#", "x&#x", "x&no", "x<script", "x<script><!--<script>", "x<?"})
    EXPECT_THAT(Document::fromText(html).body().innerText(), ::testing::StartsWith("x")) << html;
}

} // namespace
} // namespace mrd::html
