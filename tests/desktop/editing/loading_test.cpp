#include "desktop/editing/shown_surface.h"
#include "support/temporary.h"

#include <QWebEngineScript>

#include <gmock/gmock.h>

namespace mrd::desktop {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

TEST(LoadedPage, is_read_back_with_cr_lf_line_ends)
{
  ShownSurface surface;

  surface.load("<h3 id=ueberschrift>Haus</h3>\n<p>Text");

  EXPECT_EQ(surface.bodyInnerHtml(), "<h3 id=\"ueberschrift\">Haus</h3>\r\n<p>Text</p>");
}

TEST(LoadedPage, is_busy_until_it_is_complete)
{
  ShownSurface surface;
  const int before = surface.completed;

  surface.setDocumentHtml("<p>Text</p>");

  EXPECT_TRUE(surface.busy());
  EXPECT_TRUE(comesTrue([&] { return surface.completed == before + 1; }));
  EXPECT_FALSE(surface.busy());
}

TEST(LoadedPage, can_be_read_at_once_because_reading_waits)
{
  ShownSurface surface;

  surface.setDocumentHtml("<p>Text</p>");

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Text</p>");
}

TEST(LoadedPage, may_be_set_and_read_before_the_engine_has_started)
{
  WebEditingSurface surface;

  surface.setDocumentHtml("<p>eins</p>");
  surface.setBodyInnerHtml("<p>zwei</p>");

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>zwei</p>");
}

TEST(LoadedPage, is_the_last_one_that_was_set)
{
  ShownSurface surface;

  surface.setDocumentHtml("<p>eins</p>");
  surface.setDocumentHtml("<p>zwei</p>");

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>zwei</p>");
}

TEST(LoadedPage, of_a_whole_document_is_its_body)
{
  ShownSurface surface;

  surface.load("<!-- x --><html><head><title>T</title></head><body bgcolor=red><p>Text</p></body></html>");

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Text</p>");
  EXPECT_EQ(surface.textInDocument("document.bgColor"), "red");
}

TEST(LoadedPage, keeps_the_scripts_styles_and_comments_at_its_start)
{
  ShownSurface surface;
  const std::string page = "<!-- Kopf --><base fontsize=\"2\"><style>p { color: red }</style><script>a < b</script><p>Text</p>";

  surface.load(page);

  EXPECT_EQ(surface.bodyInnerHtml(), page);
}

TEST(LoadedPage, keeps_empty_attributes_unknown_tags_and_event_handlers)
{
  ShownSurface surface;
  const std::string page = "<p nowrap=\"\" title=\"\">a</p><neu art=\"1\">b</neu><o:p></o:p><!--[if IE]>c<![endif]-->\r\n"
                           "<a href=\"javascript:picturetransfer('file://x.jpg','7')\" onclick=\"f(&quot;x&quot;)\">d</a>"
                           "<img src=\"file://\\home\\anna\\web\\pix/haus.jpg\" onerror=\"g()\"><form action=\"\"></form>&nbsp;";

  surface.load(page);

  EXPECT_EQ(surface.bodyInnerHtml(), page);
}

TEST(LoadedPage, comes_back_the_same_however_often_it_is_saved_and_loaded)
{
  ShownSurface surface;
  for (const char* const page :
       {"<pre>\n\nzwei</pre>", "<textarea>\n\n a</textarea>", "a<plaintext>b", "<div><plaintext>b</div>c",
        "<p><table><tr><td><p>x<table><tr><td>y</table></table>", "<b><p>x</b>y", "<form><div></form><form>b</form>",
        "<a href=1>a<table><tr><td><a href=2>b</a></table></a>", "<svg><p>x</p></svg>", "<select><option>a<option>b</select>",
        "<noscript><p>x</p></noscript>", "<xmp><p></xmp>", "<template><p>x</template>", "<iframe>a<b></iframe>"}) {
    surface.load(page);
    const std::string read = surface.bodyInnerHtml();

    EXPECT_EQ(surface.reloaded(), read) << page;
  }
}

TEST(LoadedPage, keeps_the_empty_line_at_the_start_of_preformatted_text)
{
  ShownSurface surface;

  surface.load("<pre>\n\nText</pre>");

  EXPECT_EQ(surface.bodyInnerHtml(), "<pre>\r\n\r\nText</pre>");
}

TEST(LoadedPage, may_have_three_megabytes)
{
  ShownSurface surface;
  std::string page;
  while (page.size() < 3'000'000)
    page += "<p>Das Haus am Meer hat \"große\" Fenster &amp; eine Tür.</p>\r\n";

  surface.load(page);

  EXPECT_EQ(surface.bodyInnerHtml(), page);
  surface.setBodyInnerHtml(page + "<p>Ende</p>");
  EXPECT_EQ(surface.bodyInnerHtml(), page + "<p>Ende</p>");
}

/// What a page consists of, over and over.
struct Repeated {
  const char* name;
  const char* text;
};

void PrintTo(const Repeated& one, std::ostream* out) { *out << one.text; }

class AMegabyte : public testing::TestWithParam<Repeated> {};

TEST_P(AMegabyte, neither_hangs_the_surface_nor_breaks_it_down)
{
  ShownSurface surface;
  std::string page = "Anfang";
  while (page.size() < 1'000'000)
    page += GetParam().text;

  surface.load(page);
  const std::string read = surface.bodyInnerHtml();
  surface.load(read);

  EXPECT_THAT(read, StartsWith("Anfang"));
  EXPECT_EQ(surface.bodyInnerHtml(), read);
  EXPECT_EQ(surface.restorations, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Of, AMegabyte,
    testing::Values(Repeated{"divisions", "<div>"}, Repeated{"divisions_with_text", "<div>x"}, Repeated{"bold", "<b>"},
                    Repeated{"fonts", "<font color=red>"}, Repeated{"fonts_with_text", "<font color=red>x"},
                    Repeated{"tables", "<table>"}, Repeated{"tables_in_cells", "<table><tr><td>"}, Repeated{"lists", "<ul><li>"},
                    Repeated{"quotations", "<blockquote>"}, Repeated{"spans", "<span>"}, Repeated{"anchors", "<a>"},
                    Repeated{"forms", "<form>"}, Repeated{"paragraphs", "<p>"}, Repeated{"drawings", "<svg>"},
                    Repeated{"definitions", "<dl><dd>"}, Repeated{"centres", "<center>"}, Repeated{"selections", "<select>"},
                    Repeated{"formats", "<i><b><u>"}, Repeated{"marquees", "<marquee>"}, Repeated{"fieldsets", "<fieldset>"},
                    Repeated{"bold_paragraphs", "<b><p>"}, Repeated{"line_breaks", "<br>"}, Repeated{"cells", "<td>"},
                    Repeated{"unknown_tags", "<neu>"}, Repeated{"comments", "<!-- "}, Repeated{"templates", "<template>"},
                    Repeated{"words", "x "}, Repeated{"empty_divisions", "<div></div>"},
                    Repeated{"attributes", "<p a=1 b=2 c=3 d=4 e=5 f=6>x</p>"}, Repeated{"links", "<a href=x>y</a>"}),
    [](const auto& one) { return std::string(one.param.name); });

TEST(ALoadThatTakesTooLong, is_waited_for_no_more_and_gives_way_to_the_next_one)
{
  ShownSurface surface;
  surface.load("<p>eins</p>");
  surface.page().runJavaScript("const end = Date.now() + 60000; while (Date.now() < end);", QWebEngineScript::ApplicationWorld);

  surface.setDocumentHtml("<p id=ueberschrift>zwei</p>");
  EXPECT_TRUE(comesTrue([&] { return !surface.busy(); }, 20000));
  EXPECT_EQ(surface.bodyInnerHtml(), "<p id=ueberschrift>zwei</p>");
  EXPECT_EQ(surface.textOfElement("ueberschrift"), "zwei");

  surface.load("<p>drei</p>");
  EXPECT_EQ(surface.bodyInnerHtml(), "<p>drei</p>");
  EXPECT_EQ(surface.textInDocument("document.body.innerText"), "drei");
}

TEST(NestedTags, that_are_pasted_do_no_harm_either)
{
  ShownSurface surface;
  surface.load("<p>Text</p>");
  std::string page;
  while (page.size() < 1'000'000)
    page += "<div>x";

  EXPECT_TRUE(surface.pasteHtml(page));

  EXPECT_THAT(surface.bodyInnerHtml(), HasSubstr("Text"));
}

TEST(NewDocument, is_empty_whatever_was_there)
{
  ShownSurface surface;
  surface.load("<body bgcolor=red><p>Text</p></body>");

  surface.newDocument();

  EXPECT_EQ(surface.bodyInnerHtml(), "");
  EXPECT_EQ(surface.textInDocument("document.bgColor"), "");
  EXPECT_EQ(surface.textOfElement("ueberschrift"), std::nullopt);
}

TEST(NewDocument, takes_the_body_that_is_set_while_it_is_busy)
{
  ShownSurface surface;

  surface.newDocument();
  surface.setBodyInnerHtml("<p>Text</p>");

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Text</p>");
}

TEST(Loading, is_no_change)
{
  ShownSurface surface;

  surface.load("<p>eins</p>");
  surface.bodyInnerHtml();
  surface.newDocument();
  surface.bodyInnerHtml();
  surface.setBodyInnerHtml("<p>zwei</p>");
  surface.bodyInnerHtml();
  surface.setBodyInnerHtml("<p>drei</p>");
  surface.bodyInnerHtml();
  letPass(700);

  EXPECT_EQ(surface.changes, 0);
}

TEST(Loading, of_pictures_and_styles_is_no_change)
{
  ShownSurface surface;

  surface.load(
      "<img src=x.jpg><img src=\"data:image/gif;base64,R0lGODlhAQABAAAAACw=\"><marquee>x</marquee><details open>y</details>");
  surface.setDocumentColours("#ff0000", "#00ff00");
  surface.setStyleRules("p { color: blue }");
  surface.setShowBorders(true);
  surface.setShowDetails(true);
  letPass(700);

  EXPECT_EQ(surface.changes, 0);
}

TEST(Loading, of_a_page_is_not_taken_for_the_change_of_the_one_before)
{
  ShownSurface surface;
  surface.load("<p>eins</p>");
  surface.placeCursor("p", 0);
  surface.execCommand(5000);
  surface.load("<p>zwei</p>");
  const int changes = surface.changes;

  letPass(700);

  EXPECT_EQ(surface.changes, changes);
}

TEST(ShownPage, has_colours_and_rules_that_are_not_part_of_it)
{
  ShownSurface surface;
  surface.setDocumentColours("#112233", "#445566");
  surface.setStyleRules("p { font-family: Courier; }");

  surface.load("<p>Text</p>");

  EXPECT_EQ(surface.textInDocument("getComputedStyle(document.body).backgroundColor"), "rgb(17, 34, 51)");
  EXPECT_EQ(surface.textInDocument("getComputedStyle(document.body).color"), "rgb(68, 85, 102)");
  EXPECT_EQ(surface.textInDocument("getComputedStyle(document.querySelector('p')).fontFamily"), "Courier");
  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Text</p>");
}

TEST(ShownPage, takes_an_invalid_colour_for_none)
{
  ShownSurface surface;

  surface.setDocumentColours("#12345x; } p { display: none", "#");
  surface.load("<p>Text</p>");

  EXPECT_EQ(surface.textInDocument("document.body.innerText"), "Text");
  EXPECT_EQ(surface.textInDocument("getComputedStyle(document.body).color"), "rgb(0, 0, 0)");
}

TEST(ShownPage, has_lines_around_borderless_tables_while_borders_are_shown)
{
  ShownSurface surface;
  surface.load("<table border=\"0\"><tbody><tr><td>a</td></tr></tbody></table>");
  const QString outline = "getComputedStyle(document.querySelector('td')).outlineStyle";

  EXPECT_EQ(surface.textInDocument(outline), "none");
  surface.setShowBorders(true);
  EXPECT_TRUE(surface.showBorders());
  EXPECT_EQ(surface.textInDocument(outline), "dotted");
  surface.setShowBorders(false);

  EXPECT_EQ(surface.textInDocument(outline), "none");
  EXPECT_EQ(surface.bodyInnerHtml(), "<table border=\"0\"><tbody><tr><td>a</td></tr></tbody></table>");
}

TEST(ShownPage, shows_what_is_hidden_while_details_are_shown)
{
  ShownSurface surface;
  surface.load("<p>Text</p><script>a()</script>");
  const QString display = "getComputedStyle(document.querySelector('script')).display";

  EXPECT_EQ(surface.textInDocument(display), "none");
  surface.setShowDetails(true);

  EXPECT_TRUE(surface.showDetails());
  EXPECT_EQ(surface.textInDocument(display), "inline-block");
  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Text</p><script>a()</script>");
}

TEST(ShownPage, is_laid_out_as_a_page_without_a_document_type)
{
  ShownSurface surface;

  surface.load("<!DOCTYPE html><html><body><p>x<table><tr><td>y</td></tr></table></body></html>");

  EXPECT_EQ(surface.textInDocument("document.compatMode"), "BackCompat");
}

} // namespace mrd::desktop
