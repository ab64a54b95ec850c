#include "platform/html/document.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace mrd::html {
namespace {

using ::testing::ElementsAre;
using ::testing::Eq;
using ::testing::Optional;

std::string bodyOf(std::string_view html) { return Document::fromText(html).body().innerHtml(); }

struct Case {
  std::string_view html;
  std::string_view body;
};

/// Names a case by its text; without it a test would be called by the addresses of its texts, anew in each build.
void PrintTo(const Case& rule, std::ostream* out) { *out << rule.html; }

class HtmlRules : public ::testing::TestWithParam<Case> {};

TEST_P(HtmlRules, give_the_body_of_a_browser) { EXPECT_EQ(bodyOf(GetParam().html), GetParam().body) << GetParam().html; }

INSTANTIATE_TEST_SUITE_P(
    CharacterReferences, HtmlRules,
    ::testing::Values(Case{"&notit; &not; &amp &lt &copy2 &notin; &amp;lt;", "¬it; ¬ &amp; &lt; ©2 ∉ &amp;lt;"},
                      Case{R"(<a href="?a=1&copy=2&amp;b&lang=x">)", R"(<a href="?a=1&amp;copy=2&amp;b&amp;lang=x"></a>)"},
                      Case{"x&nbsp;y&shy;&hearts;&euro;&Auml;&auml", "x&nbsp;y\u00AD♥€Ää"},
                      Case{"&#128;&#150;&#x9f;&#65;&#x41", "€–ŸAA"}, Case{"&#0;&#xD800;&#x110000;", "\uFFFD\uFFFD\uFFFD"},
                      Case{"&#; &#x; &; & &zz;", "&amp;#; &amp;#x; &amp;; &amp; &amp;zz;"}, Case{"&#x1F600;", "\U0001F600"}));

INSTANTIATE_TEST_SUITE_P(
    Tags, HtmlRules,
    ::testing::Values(Case{"<image src=x>", R"(<img src="x">)"}, Case{"<H3 ALIGN=Center>x</h3>", R"(<h3 align="Center">x</h3>)"},
                      Case{"x<base href=a>y<link rel=b><meta name=c>", R"(x<base href="a">y<link rel="b"><meta name="c">)"},
                      Case{"a</br>b</p>c", "a<br>b<p></p>c"}, Case{"<hr/><br / ><div/>x", "<hr><br><div>x</div>"},
                      Case{"x<hr></hr><img></img><input></input>", "x<hr><img><input>"},
                      Case{"<a a=1 A=2 b>", R"(<a a="1" b=""></a>)"}, Case{"<img/src=a alt=b>", R"(<img src="a" alt="b">)"},
                      Case{"<center><o:p>x</o:p></center>", "<center><o:p>x</o:p></center>"}, Case{"<XyZ>x", "<xyz>x</xyz>"},
                      Case{"< p>a<3", "&lt; p&gt;a&lt;3"}, Case{"a<b", "a"},
                      Case{"x<keygen><command>y</command>", "x<keygen><command>y</command>"},
                      Case{"x<ruby>a<rt>b<rp>c<rtc>d</ruby>", "x<ruby>a<rt>b</rt><rp>c</rp><rtc>d</rtc></ruby>"},
                      Case{"<p>a<main>b", "<p>a</p><main>b</main>"}));

INSTANTIATE_TEST_SUITE_P(
    Nesting, HtmlRules,
    ::testing::Values(Case{"<a>1<a>2", "<a>1</a><a>2</a>"}, Case{"<b><p>a</b>b", "<b></b><p><b>a</b>b</p>"},
                      Case{"<a href=1>x<div>y</a>z</div>", R"(<a href="1">x</a><div><a href="1">y</a>z</div>)"},
                      Case{"<li>a<li>b", "<li>a</li><li>b</li>"}, Case{"<p>a<ul><li>b</ul>c", "<p>a</p><ul><li>b</li></ul>c"},
                      Case{"<i><b><u>x</i>y</b>z</u>", "<i><b><u>x</u></b></i><b><u>y</u></b><u>z</u>"},
                      Case{"x<select><option>a<div>b</select>", "x<select><option>ab</option></select>"},
                      Case{"<form><form>x</form>y</form>z", "<form>x</form>yz"}, Case{"<H1>a</H2>b", "<h1>a</h1>b"}));

INSTANTIATE_TEST_SUITE_P(
    Tables, HtmlRules,
    ::testing::Values(Case{"<table>x<tr><td>y</table>", "x<table><tbody><tr><td>y</td></tr></tbody></table>"},
                      Case{"<table><a>1<tr><td>2</a></table>", "<a>1</a><table><tbody><tr><td>2</td></tr></tbody></table>"},
                      Case{"<table><tr><td>1<tr><th>2</table>",
                           "<table><tbody><tr><td>1</td></tr><tr><th>2</th></tr></tbody></table>"},
                      Case{"x<col><tr><td>y", "xy"},
                      // A paragraph around a table stays in an old document and ends before it in a modern one.
                      Case{"<p>a<table></table>", "<p>a<table></table></p>"},
                      Case{"<!DOCTYPE html><p>a<table></table>", "<p>a</p><table></table>"}));

INSTANTIATE_TEST_SUITE_P(RawText, HtmlRules,
                         ::testing::Values(Case{"x<script>a<b&&c</script ><style>a>b&amp;</style>y",
                                                "x<script>a<b&&c</script><style>a>b&amp;</style>y"},
                                           Case{"x<xmp><b></xmp><iframe><b></iframe><noembed><b></noembed>",
                                                "x<xmp><b></xmp><iframe><b></iframe><noembed><b></noembed>"},
                                           Case{"a<noscript><img src=x>&amp;</noscript>",
                                                R"(a<noscript><img src="x">&amp;</noscript>)"},
                                           Case{"<plaintext>a<b></plaintext>", "<plaintext>a<b></plaintext></plaintext>"},
                                           Case{"<textarea>\n<b>&amp;</textarea>", "<textarea>&lt;b&gt;&amp;</textarea>"}));

INSTANTIATE_TEST_SUITE_P(Comments, HtmlRules,
                         ::testing::Values(Case{"x<!-- a --!>b", "x<!-- a -->b"}, Case{"x<!-->b<!--->c", "x<!---->b<!---->c"},
                                           Case{R"(x<?php echo "a" ?>y)", R"(x<!--?php echo "a" ?-->y)"},
                                           Case{"x<![CDATA[z]]>", "x<!--[CDATA[z]]-->"}, Case{"x<!y>z", "x<!--y-->z"}));

INSTANTIATE_TEST_SUITE_P(
    ForeignContent, HtmlRules,
    ::testing::Values(Case{"<svg viewbox=1 xlink:href=x xml:lang=d xmlns:xlink=y xmlns=z>",
                           R"(<svg viewBox="1" xlink:href="x" xml:lang="d" xmlns:xlink="y" xmlns="z"></svg>)"},
                      Case{"<svg><CLIPPATH/><foreignObject><DIV>",
                           "<svg><clipPath></clipPath><foreignObject><div></div></foreignObject></svg>"},
                      Case{"<svg><![CDATA[a<b]]></svg>", "<svg>a&lt;b</svg>"},
                      Case{"<math definitionurl=x>", R"(<math definitionURL="x"></math>)"},
                      Case{"x<svg><p>y", "x<svg></svg><p>y</p>"},
                      Case{"<svg><style>&amp;</style></svg>", "<svg><style>&amp;</style></svg>"},
                      Case{"a<template><td>x</template>", "a<template><td>x</td></template>"}));

TEST(Parsing, keeps_text_behind_the_body_in_the_body) { EXPECT_EQ(bodyOf("<p>x</body>y</html>z"), "<p>xyz</p>"); }

TEST(Parsing, takes_every_line_end_for_one)
{
  EXPECT_EQ(bodyOf("<pre>a\rb\nc\r\nd\n\r</pre>"), "<pre>a\r\nb\r\nc\r\nd\r\n\r\n</pre>");
}

TEST(Parsing, replaces_a_null_character_in_a_value_and_leaves_it_out_of_text)
{
  EXPECT_EQ(bodyOf({"a\0b<p c=\"d\0\">", 13}), "ab<p c=\"d\uFFFD\"></p>");
  EXPECT_EQ(bodyOf({"<x\0y>z", 6}), "<x\uFFFDy>z</x\uFFFDy>");
  EXPECT_EQ(bodyOf({"<br\v\0>z", 7}), "<br\v\uFFFD>z</br\v\uFFFD>");
}

TEST(Parsing, repairs_what_is_no_utf_8)
{
  EXPECT_EQ(bodyOf("a\xFF"
                   "b<p \xFE=\xC3>"),
            "a\uFFFDb<p \uFFFD=\"\uFFFD\"></p>");
  EXPECT_EQ(bodyOf("<d\xFFv>x"), "<d\uFFFDv>x</d\uFFFDv>");
}

TEST(Parsing, skips_a_byte_order_mark)
{
  EXPECT_EQ(Document::fromText("\uFEFF<title>a").outerHtml(), "<html><head><title>a</title></head><body></body></html>");
}

TEST(Parsing, makes_a_document_of_nothing)
{
  EXPECT_EQ(Document::fromText("").outerHtml(), "<html><head></head><body></body></html>");
  EXPECT_EQ(Document::fromText({}).body().innerHtml(), "");
}

TEST(Parsing, keeps_head_doctype_and_comments_of_a_document)
{
  const std::string_view html = "<!DOCTYPE html><!--a--><html lang=\"de\"><head><base href=\"file://\\x\\\"></head>"
                                "<body text=\"red\">x<!--b--></body></html><!--c-->";

  EXPECT_EQ(Document::fromText(html).outerHtml(), html);
}

TEST(Parsing, gives_the_frameset_for_the_body_of_a_document_of_frames)
{
  auto document = Document::fromText("<frameset cols=1><frame src=a></frameset>");

  EXPECT_EQ(document.body().tagName(), "frameset");
  EXPECT_EQ(document.body().innerHtml(), R"(<frame src="a">)");
}

TEST(Parsing, always_finds_a_head_and_a_body)
{
  auto document = Document::fromText("<title>a</title>x");
  document.elementsByTag("head").front().setOuterHtml("");
  document.elementsByTag("body").front().setOuterHtml("");
  document.elementsByTag("html").front().setInnerHtml("");

  EXPECT_EQ(document.body().tagName(), "body");
  EXPECT_EQ(document.head().tagName(), "head");
}

TEST(Parsing, keeps_the_last_text_of_a_form_in_the_form)
{
  EXPECT_EQ(bodyOf("<form>x &amp; y</form> &lt; z"), "<form>x &amp; y</form> &lt; z");
  EXPECT_EQ(bodyOf("<form><input>\r\n</form>\r\n<p>"), "<form><input>\r\n</form>\r\n<p></p>");
  EXPECT_EQ(bodyOf("<form><b>a</b></form>x</form>y"), "<form><b>a</b></form>xy");
  EXPECT_EQ(bodyOf("<form><div>x</form>y"), "<form><div>xy</div></form>");
  EXPECT_EQ(bodyOf("<table><tr><td><FORM>x</FORM></table>"), "<table><tbody><tr><td><form>x</form></td></tr></tbody></table>");
}

TEST(Finding, collects_pictures_in_document_order)
{
  auto document = Document::fromText("<img src=a><table><tr><td><img src=b></table><image src=c><svg><image href=d /></svg>");
  std::vector<std::string> sources;
  for (const auto& image : document.images())
    sources.push_back(image.attribute("src").value_or("-"));

  EXPECT_THAT(sources, ElementsAre("a", "b", "c"));
}

TEST(Finding, counts_anchors_and_areas_with_a_reference_as_links)
{
  auto document = Document::fromText("<a name=x>1</a><a href=b>2</a><map><area href=c><area></map><link href=d>");
  std::vector<std::string> references;
  for (const auto& link : document.links())
    references.push_back(link.attribute("href").value_or("-"));

  EXPECT_THAT(references, ElementsAre("b", "c"));
}

TEST(Finding, finds_the_first_element_with_an_id)
{
  auto document = Document::fromText("<h3 ID=ueberschrift>a</h3><h3 id=ueberschrift>b</h3><p id=Ueberschrift>c");

  ASSERT_TRUE(document.elementById("ueberschrift").has_value());
  EXPECT_EQ(document.elementById("ueberschrift")->innerText(), "a");
  EXPECT_EQ(document.elementById("Ueberschrift")->innerText(), "c");
  EXPECT_FALSE(document.elementById("x").has_value());
}

TEST(Finding, finds_elements_by_name_without_case)
{
  auto document = Document::fromText("<div><P>a<p>b</div><p>c");

  EXPECT_EQ(document.elementsByTag("p").size(), 3U);
  EXPECT_EQ(document.elementsByTag("P").size(), 3U);
  EXPECT_EQ(document.elementsByTag("div").front().elementsByTag("p").size(), 2U);
  EXPECT_EQ(document.body().elementsByTag("*").size(), 4U);
}

TEST(Finding, walks_to_parents_and_children)
{
  auto document = Document::fromText("<form>a<input><!--b--><p>c</p></form>");
  const auto form = document.elementsByTag("form").front();
  const auto html = *document.body().parent();

  EXPECT_THAT(form.parent(), Optional(Eq(document.body())));
  EXPECT_EQ(form.children().size(), 2U);
  EXPECT_EQ(form.children().back().tagName(), "p");
  EXPECT_EQ(html.tagName(), "html");
  EXPECT_FALSE(html.parent().has_value());
}

TEST(Parsing, works_on_several_threads_at_the_same_time)
{
  std::vector<std::thread> threads;
  std::vector<std::string> bodies(4);
  for (auto& body : bodies)
    threads.emplace_back([&body] {
      for (int i = 0; i < 200; ++i)
        body = bodyOf("<table>x<tr><td><img src=a>&auml;");
    });
  for (auto& thread : threads)
    thread.join();

  EXPECT_THAT(bodies, ::testing::Each(Eq(R"(x<table><tbody><tr><td><img src="a">ä</td></tr></tbody></table>)")));
}

} // namespace
} // namespace mrd::html
