#include "desktop/editing/shown_surface.h"
#include "support/temporary.h"

#include <QElapsedTimer>

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
  QElapsedTimer clock;
  clock.start();

  surface.load(page);
  const std::string read = surface.bodyInnerHtml();

  EXPECT_EQ(read, page);
  EXPECT_LT(clock.elapsed(), 10000);
  surface.setBodyInnerHtml(page + "<p>Ende</p>");
  EXPECT_EQ(surface.bodyInnerHtml(), page + "<p>Ende</p>");
}

TEST(LoadedPage, of_a_megabyte_of_nested_tags_neither_hangs_nor_breaks_down)
{
  ShownSurface surface;
  for (const char* const tag : {"<div>", "<b>", "<font color=red>", "<table>", "<table><tr><td>", "<ul><li>", "<blockquote>", "<span>", "<a>",
                                "<form>", "<p>", "<svg>", "<dl><dd>", "<center>", "<select>", "<i><b><u>", "<marquee>", "<fieldset>"}) {
    std::string page = "Anfang";
    for (int i = 0; page.size() < 1'000'000; ++i)
      page += tag;
    QElapsedTimer clock;
    clock.start();

    surface.load(page);
    const std::string read = surface.bodyInnerHtml();
    const auto loadMs = clock.restart();
    surface.waitForDisplay();
    printf("%s load %lld display %lld size %zu\n", tag, (long long)loadMs, (long long)clock.elapsed(), read.size());

    EXPECT_THAT(read, StartsWith("Anfang"));
    EXPECT_EQ(surface.restorations, 0) << tag;
  }
}

} // namespace mrd::desktop
