#include "platform/html/document.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace mrd::html {
namespace {

using ::testing::Eq;
using ::testing::Optional;

struct Editing : ::testing::Test {
  Element first(std::string_view tag) { return document.elementsByTag(tag).front(); }
  std::string body() { return document.body().innerHtml(); }

  Document document = Document::fromText("");
};

TEST_F(Editing, replaces_an_attribute_in_its_place_and_adds_a_new_one_behind)
{
  document = Document::fromText("<img SRC=a alt=b>");
  first("img").setAttribute("Src", "pix/a.jpg");
  first("img").setAttribute("Border", "0");

  EXPECT_EQ(body(), R"(<img src="pix/a.jpg" alt="b" border="0">)");
}

TEST_F(Editing, reads_attributes_without_case)
{
  document = Document::fromText("<td NoWrap width=3>");
  document = Document::fromText("<table><td NoWrap Width=3>");

  EXPECT_THAT(first("td").attribute("WIDTH"), Optional(Eq("3")));
  EXPECT_THAT(first("td").attribute("nowrap"), Optional(Eq("")));
  EXPECT_TRUE(first("td").hasAttribute("noWrap"));
  EXPECT_EQ(first("td").attribute("height"), std::nullopt);
}

TEST_F(Editing, removes_an_attribute)
{
  document = Document::fromText("<p a=1 b=2 c=3>");
  first("p").removeAttribute("B");
  first("p").removeAttribute("x");
  EXPECT_EQ(body(), R"(<p a="1" c="3"></p>)");

  first("p").removeAttribute("a");
  first("p").setAttribute("d", "4");
  EXPECT_EQ(body(), R"(<p c="3" d="4"></p>)");
}

TEST_F(Editing, sets_the_inner_html_of_the_body)
{
  document = Document::fromText("<body bgcolor=red>old");
  document.body().setInnerHtml("<script>a</script><base href=b><h3>c<table>");

  EXPECT_EQ(document.outerHtml(), "<html><head></head><body bgcolor=\"red\"><script>a</script><base href=\"b\"><h3>c"
                                  "<table></table></h3></body></html>");
}

TEST_F(Editing, reads_inner_html_in_the_context_of_its_element)
{
  document = Document::fromText("<table><tr><td id=td></table><select></select><textarea></textarea><script></script>");

  first("td").setInnerHtml("<td>x<b>y");
  first("select").setInnerHtml("<option>a<b>b");
  first("textarea").setInnerHtml("<b>&amp;</textarea>c");
  first("script").setInnerHtml("a<b&&c");
  EXPECT_EQ(body(), "<table><tbody><tr><td id=\"td\">x<b>y</b></td></tr></tbody></table><select><option>ab</option></select>"
                    "<textarea>&lt;b&gt;&amp;&lt;/textarea&gt;c</textarea><script>a<b&&c</script>");

  first("tr").setInnerHtml("<td>1<th>2<p>");
  EXPECT_EQ(first("tr").innerHtml(), "<td>1</td><th>2<p></p></th>");
  first("table").setInnerHtml("<tr><td>3");
  EXPECT_EQ(first("table").innerHtml(), "<tbody><tr><td>3</td></tr></tbody>");
}

TEST_F(Editing, reads_a_fragment_by_the_rules_of_its_document)
{
  document = Document::fromText("");
  document.body().setInnerHtml("<p>a<table></table>");
  EXPECT_EQ(body(), "<p>a<table></table></p>");

  document = Document::fromText("<!DOCTYPE html>");
  document.body().setInnerHtml("<p>a<table></table>");
  EXPECT_EQ(body(), "<p>a</p><table></table>");
}

TEST_F(Editing, loses_nothing_of_a_fragment_that_ends_a_document)
{
  document.body().setInnerHtml("a</body>b</html><!--c-->d<frameset>e");

  EXPECT_EQ(body(), "ab<!--c-->de");
}

TEST_F(Editing, reads_on_by_the_rules_of_the_document_behind_a_tag_that_ends_it)
{
  document.body().setInnerHtml("<p>a</BODY ><table></table></html><!--</body>--><p>b</body></html><table></table>");

  EXPECT_EQ(body(), "<p>a<table></table><!--</body>--></p><p>b<table></table></p>");
}

TEST_F(Editing, reads_a_fragment_with_a_thousand_ends_of_a_document)
{
  std::string ends;
  for (int i = 0; i < 1000; ++i)
    ends += "x</body>";
  document.body().setInnerHtml(ends);

  EXPECT_EQ(body(), std::string(1000, 'x'));
}

TEST_F(Editing, reads_a_fragment_in_foreign_content)
{
  document = Document::fromText("<svg></svg><math></math>");
  first("svg").setInnerHtml("<linearGradient/><PATH d=1 />");
  first("math").setInnerHtml("<mi definitionurl=a>x");

  EXPECT_EQ(body(),
            "<svg><linearGradient></linearGradient><path d=\"1\"></path></svg><math><mi definitionURL=\"a\">x</mi></math>");
}

TEST_F(Editing, replaces_an_element_by_outer_html)
{
  document = Document::fromText("<p>a</p><form name=form1>x</form><p>b</p>");
  first("form").setOuterHtml("<form name=form2>y</form> z");

  EXPECT_EQ(body(), R"(<p>a</p><form name="form2">y</form> z<p>b</p>)");
}

TEST_F(Editing, reads_outer_html_in_the_context_of_the_parent)
{
  document = Document::fromText("<table><tr><td>1<td>2</table>");
  first("td").setOuterHtml("<td>3<td>4");

  EXPECT_EQ(first("tr").innerHtml(), "<td>3</td><td>4</td><td>2</td>");
}

TEST_F(Editing, removes_an_element_by_empty_outer_html)
{
  document = Document::fromText("<p>a</p><hr><p>b</p>");
  first("hr").setOuterHtml("");
  document.elementsByTag("p").back().setOuterHtml("");

  EXPECT_EQ(body(), "<p>a</p>");
}

TEST_F(Editing, leaves_the_root_and_detached_elements_alone)
{
  document = Document::fromText("<p>a");
  auto html = first("html");
  auto paragraph = first("p");
  html.setOuterHtml("x");
  document.body().setInnerHtml("b");
  paragraph.setOuterHtml("c");

  EXPECT_EQ(document.outerHtml(), "<html><head></head><body>b</body></html>");
}

TEST_F(Editing, keeps_handles_through_a_move_of_the_document)
{
  document = Document::fromText("<img src=a>");
  auto image = document.images().front();
  auto moved = std::move(document);
  image.setAttribute("src", "b");

  EXPECT_EQ(moved.body().innerHtml(), R"(<img src="b">)");
}

TEST_F(Editing, sets_the_content_of_the_root)
{
  first("html").setInnerHtml("<title>a</title></body>b");

  EXPECT_EQ(document.outerHtml(), "<html><head><title>a</title></head><body>b</body></html>");
}

} // namespace
} // namespace mrd::html
