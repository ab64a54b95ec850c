#include "desktop/editing/shown_surface.h"
#include "platform/ui/editing_commands.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>

#include <gmock/gmock.h>

namespace mrd::desktop {

using namespace ui::command;
using testing::HasSubstr;
using testing::Not;

namespace {

void putIntoClipboard(const QString& html, const QString& text)
{
  auto* const data = new QMimeData;
  if (!html.isEmpty())
    data->setHtml(html);
  data->setText(text);
  QGuiApplication::clipboard()->setMimeData(data);
}

/// What an office program puts into the clipboard for a heading, a paragraph with bold text, a list of two levels and a table.
constexpr auto kOfficeDocument =
    R"(<html xmlns:v="urn:schemas-microsoft-com:vml" xmlns:o="urn:schemas-microsoft-com:office:office">
<head><meta name=Generator content="Word 11"><link rel=File-List href="file:///C:/x/filelist.xml">
<!--[if gte mso 9]><xml><o:OfficeDocumentSettings/></xml><![endif]-->
<style><!-- p.MsoNormal {mso-style-parent:""; font-size:12.0pt;} --></style></head>
<body lang=DE style='tab-interval:35.4pt'><!--StartFragment-->
<h1 style='margin-top:12pt'>Das Haus<o:p></o:p></h1>
<p class=MsoNormal style='mso-margin-top-alt:auto;text-align:center'><span lang=DE style='font-size:12.0pt;
font-family:"Times New Roman";mso-fareast-language:DE'>Es steht <b style='mso-bidi-font-weight:normal'>am
Meer</b> und ist <span style='color:red'>rot</span>.<o:p></o:p></span></p>
<p class=MsoNormal><o:p>&nbsp;</o:p></p>
<p class=MsoListParagraph style='text-indent:-18pt;mso-list:l0 level1 lfo1'><![if !supportLists]><span style='font-family:Symbol'><span
style='mso-list:Ignore'>&#183;<span style='font:7.0pt "Times New Roman"'>&nbsp;&nbsp; </span></span></span><![endif]>eins<o:p></o:p></p>
<p class=MsoListParagraph style='mso-list:l0 level2 lfo1'><span style='mso-list:Ignore'>1.<span>&nbsp;</span></span>zwei</p>
<p class=MsoListParagraph style='mso-list:l0 level1 lfo1'><span style='mso-list:Ignore'>&#183; </span>drei</p>
<table class=MsoTableGrid border=1 style='border-collapse:collapse;mso-yfti-tbllook:480'><tr style='mso-yfti-irow:0'>
<td width=307 valign=top style='width:230.3pt;mso-border-alt:solid windowtext .5pt'><p class=MsoNormal>Zelle</p></td></tr></table>
<p class=MsoNormal><a name="_Toc123"></a><a href="http://www.beispiel.de/">Verweis</a>
<img width=10 height=10 src="file:///C:/DOKUME~1/x/Temp/msohtmlclip1/01/clip_image002.jpg" v:shapes="_x0000_i1025"></p>
<!--EndFragment--></body></html>)";

} // namespace

TEST(PastedOfficeDocument, leaves_its_rubbish_behind)
{
  ShownSurface surface;
  surface.load("<p>Text</p>");
  surface.placeCursor("p", 4);
  putIntoClipboard(kOfficeDocument, "Das Haus");

  EXPECT_TRUE(surface.execCommand(kPaste));

  const std::string html = surface.bodyInnerHtml();
  for (const char* const rubbish : {"mso", "Mso", "<o:", "o:p", "<style", "<meta", "<link", "<!--", "lang=", "Times", "font-size",
                                    "xmlns", "clip_image", "_Toc", "<span></span>", "StartFragment", "windowtext"})
    EXPECT_THAT(html, Not(HasSubstr(rubbish)));
}

TEST(PastedOfficeDocument, keeps_what_the_author_meant)
{
  ShownSurface surface;
  surface.load("<p>Text</p>");
  surface.placeCursor("p", 4);
  putIntoClipboard(kOfficeDocument, "Das Haus");

  surface.execCommand(kPaste);

  const std::string html = surface.bodyInnerHtml();
  EXPECT_THAT(html, HasSubstr("<h1>Das Haus</h1>"));
  EXPECT_THAT(
      html,
      HasSubstr("<p style=\"text-align: center\">Es steht <b>am Meer</b> und ist <span style=\"color: red\">rot</span>.</p>"));
  EXPECT_THAT(html, HasSubstr("<ul><li>eins<ol><li>zwei</li></ol></li><li>drei</li></ul>"));
  EXPECT_THAT(html, HasSubstr("<td width=\"307\" valign=\"top\" style=\"width: 230.3pt\"><p>Zelle</p></td>"));
  EXPECT_THAT(html, HasSubstr("<a href=\"http://www.beispiel.de/\">Verweis</a>"));
  EXPECT_EQ(surface.reloaded(), html);
}

TEST(PastedOfficeDocument, by_the_keyboard_is_cleaned_too_and_can_be_undone)
{
  ShownSurface surface;
  surface.load("<p>Text</p>");
  surface.placeCursor("p", 4);
  putIntoClipboard(kOfficeDocument, "Das Haus");

  surface.press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_TRUE(comesTrue([&] { return surface.changes > 0; }));
  EXPECT_THAT(surface.bodyInnerHtml(), HasSubstr("<h1>Das Haus</h1>"));
  EXPECT_THAT(surface.bodyInnerHtml(), Not(HasSubstr("Mso")));
  surface.execCommand(kUndo);

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Text</p>");
}

TEST(PastedHtml, from_elsewhere_brings_no_scripts)
{
  ShownSurface surface;
  surface.load("<p>Text</p>");
  surface.placeCursor("p", 4);
  putIntoClipboard("<b onclick=\"f()\">x</b><script>g()</script><iframe src=\"http://a\"></iframe><img "
                   "src=\"http://127.0.0.1:1/x.jpg\" onerror=\"h()\">",
                   "x");

  surface.execCommand(kPaste);

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Text<b>x</b><img src=\"http://127.0.0.1:1/x.jpg\"></p>");
}

/// Something from elsewhere, and what of it comes into an empty paragraph.
struct Foreign {
  const char* name;
  const char* html;
  const char* pasted;
};

void PrintTo(const Foreign& foreign, std::ostream* out) { *out << foreign.name; }

class ForeignHtml : public testing::TestWithParam<Foreign> {};

TEST_P(ForeignHtml, is_cleaned)
{
  ShownSurface surface;
  surface.load("<p>x</p>");
  surface.placeCursor("p", 1);
  putIntoClipboard(QString::fromUtf8(GetParam().html), "y");

  surface.execCommand(kPaste);

  const std::string html = surface.bodyInnerHtml();
  EXPECT_EQ(html, GetParam().pasted);
  EXPECT_EQ(surface.reloaded(), html);
}

INSTANTIATE_TEST_SUITE_P(
    Of, ForeignHtml,
    testing::Values(
        Foreign{"links_with_blanks_in_the_scheme", "<a href=\"java\tscr\nipt:f()\">y</a><a href=\"\x01vbscript:f()\">z</a>",
                "<p>xyz</p>"},
        Foreign{"links_with_references_for_letters", "<a href=\"&#106;avascript&colon;f()\">y</a>", "<p>xy</p>"},
        Foreign{"links_to_data", "<a href=\"data:text/html,<script>f()</script>\">y</a>", "<p>xy</p>"},
        Foreign{"links_to_drawings", "<a href=\"data:image/svg+xml,<svg onload=f()>\">y</a>", "<p>xy</p>"},
        Foreign{"forms", "<form action=\"javascript:f()\"><button formaction=\"javascript:f()\">y</button></form>",
                "<p>x</p><form><button>y</button></form>"},
        Foreign{"drawings", "y<svg onload=\"f()\"><script>f()</script><a xlink:href=\"javascript:f()\"><text>z</text></a></svg>",
                "<p>xy</p>"},
        Foreign{"formulas",
                "y<math href=\"javascript:f()\"><mtext><style><!--</style><img title=\"--&gt;&lt;img src=1 "
                "onerror=f()&gt;\"></mtext></math>",
                "<p>xy</p>"},
        Foreign{"templates", "y<template><img src=x onerror=f()><script>f()</script></template>", "<p>xy</p>"},
        Foreign{"frames", "y<iframe srcdoc=\"<script>f()</script>\"></iframe><object data=x.swf></object><embed src=x>",
                "<p>xy</p>"},
        Foreign{"what_other_browsers_show", "y<noscript><img src=http://127.0.0.1:1/z.gif></noscript><noembed><b></noembed>",
                "<p>xy</p>"},
        Foreign{"styles_that_fetch",
                "<span style=\"background:url(http://127.0.0.1:1/x);color:red\">y</span>"
                "<span style=\"background-color:url(http://127.0.0.1:1/x)\">z</span>",
                "<p>x<span style=\"color: red\">y</span>z</p>"},
        Foreign{"styles_that_run",
                "<span style=\"width:expression(f());color:red\">y</span><span style=\"width:ex/**/pression(f())\">z</span>"
                "<span style=\"wid\\74h:1;width:\\65xpression(f())\">w</span>",
                "<p>x<span style=\"color: red\">y</span>zw</p>"},
        Foreign{"pictures_for_other_screens",
                "<picture><source srcset=\"http://127.0.0.1:1/a.webp 2x\" type=image/webp><img src=\"http://127.0.0.1:1/a.jpg\" "
                "srcset=\"http://127.0.0.1:1/b.jpg 2x\" sizes=100vw alt=A></picture>",
                "<p>x<img src=\"http://127.0.0.1:1/a.jpg\" alt=\"A\"></p>"},
        Foreign{"pictures_in_the_text", "<img src=\"data:image/gif;base64,R0lGODlhAQABAAAAACw=\" onload=f()>",
                "<p>x<img src=\"data:image/gif;base64,R0lGODlhAQABAAAAACw=\"></p>"},
        Foreign{"marks_of_programs",
                "<my-card is=x slot=y part=z role=note tabindex=0 aria-label=a><b _ngcontent-abc=\"\" v-on:click=f data-x=1 "
                "jsaction=\"f\" contenteditable=false>y</b></my-card>",
                "<p>x<b>y</b></p>"},
        Foreign{"conditional_comments", "<!--[if IE]><script>f()</script><![endif]--><![if !IE]>y<![endif]><!--z-->",
                "<p>xy</p>"},
        Foreign{"text_without_end", "y<plaintext><b>z", "<p>xy</p>"},
        Foreign{"titles_that_speak_of_programs", "<b title=\"javascript: die Sprache\">y</b>",
                "<p>x<b title=\"javascript: die Sprache\">y</b></p>"},
        Foreign{
            "tables",
            "<table class=t width=50% bgcolor=#eeeeee><tbody><tr><td colspan=2 nowrap onclick=f()>y</td></tr></tbody></table>",
            "<p>x</p><table width=\"50%\" bgcolor=\"#eeeeee\"><tbody><tr><td colspan=\"2\" nowrap=\"\">y</td></tr></tbody>"
            "</table>"}),
    [](const auto& one) { return std::string(one.param.name); });

TEST(PastedHtml, of_which_nothing_is_left_leaves_the_selected_text)
{
  ShownSurface surface;
  surface.load("<p>Text</p>");
  surface.select("p");
  putIntoClipboard("<script>f()</script><!-- x -->", "");
  EXPECT_FALSE(surface.execCommand(kPaste));
  auto* const data = new QMimeData;
  data->setData("application/x-unbekannt", "x");
  QGuiApplication::clipboard()->setMimeData(data);
  EXPECT_FALSE(surface.execCommand(kPaste));
  surface.press(Qt::Key_V, Qt::ControlModifier);

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Text</p>");
  EXPECT_FALSE(surface.execCommand(kUndo));
}

TEST(PastedHtml, of_two_megabytes_comes_in_time)
{
  ShownSurface surface;
  surface.load("<p>x</p>");
  surface.placeCursor("p", 1);
  std::string html;
  while (html.size() < 2'000'000)
    html += "<p class=MsoNormal style='mso-x:1;color:red'><span lang=DE>Das <b>Haus</b></span><o:p></o:p></p>\n";
  html += "<p>Ende</p>";
  putIntoClipboard(QString::fromStdString(html), "Das Haus");

  EXPECT_TRUE(surface.execCommand(kPaste));

  EXPECT_THAT(surface.bodyInnerHtml(), HasSubstr("<p style=\"color: red\">Das <b>Haus</b></p>"));
  EXPECT_THAT(surface.bodyInnerHtml(), HasSubstr("Ende"));
  EXPECT_EQ(surface.restorations, 0);
}

class DeepPaste : public testing::TestWithParam<const char*> {};

TEST_P(DeepPaste, by_the_keyboard_does_no_harm)
{
  ShownSurface surface;
  surface.load("<p>x</p>");
  surface.placeCursor("p", 1);
  QString html;
  while (html.size() < 1'000'000)
    html += GetParam();
  putIntoClipboard(html, "y");

  surface.press(Qt::Key_V, Qt::ControlModifier);

  EXPECT_TRUE(comesTrue([&] { return surface.changes > 0; }, 60000));
  EXPECT_THAT(surface.bodyInnerHtml(), HasSubstr("<p>x"));
  EXPECT_EQ(surface.restorations, 0);
}

INSTANTIATE_TEST_SUITE_P(Of, DeepPaste, testing::Values("<div>y", "<font color=red>y", "<b><p>y", "<table><tr><td>y"));

TEST(DroppedHtml, from_elsewhere_is_cleaned_and_stands_where_it_was_dropped)
{
  ShownSurface surface;
  surface.load("<p id=\"a\">eins</p><p id=\"b\">zwei</p>");

  surface.inDocument(
      "{ const data = new DataTransfer(); data.setData('text/html', '<b class=x onclick=f()>neu</b><script>f()</script>');"
      "const r = document.getElementById('b').getBoundingClientRect();"
      "document.getElementById('b').dispatchEvent(new DragEvent('drop', { bubbles: true, cancelable: true,"
      "clientX: r.left + 1, clientY: r.top + 5, dataTransfer: data })); }");
  EXPECT_EQ(surface.bodyInnerHtml(), "<p id=\"a\">eins</p><p id=\"b\"><b>neu</b>zwei</p>");
  surface.execCommand(kUndo);

  EXPECT_EQ(surface.bodyInnerHtml(), "<p id=\"a\">eins</p><p id=\"b\">zwei</p>");
}

TEST(PastedText, keeps_its_lines_and_is_no_html)
{
  ShownSurface surface;
  surface.load("<p>Text</p>");
  surface.selectText("p", 1, 3);
  putIntoClipboard("", "a <b>\nc & d");

  EXPECT_TRUE(surface.execCommand(kPaste));

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Ta &lt;b&gt;<br>c &amp; dt</p>");
}

TEST(CopiedPart, comes_back_with_all_that_it_had)
{
  ShownSurface surface;
  const std::string part = "<a href=\"javascript:picturetransfer('a','b')\" onclick=\"f()\" class=\"MsoX\">Bild</a><!-- x -->";
  surface.load("<p>" + part + "</p><p id=\"ziel\">y</p>");
  surface.select("p");

  EXPECT_TRUE(surface.execCommand(kCopy));
  surface.placeCursor("#ziel", 1);
  EXPECT_TRUE(surface.execCommand(kPaste));

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>" + part + "</p><p id=\"ziel\">y" + part + "</p>");
  EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), "Bild");
}

TEST(CopiedPart, by_the_keyboard_comes_back_with_all_that_it_had)
{
  ShownSurface surface;
  const std::string part = "<a href=\"javascript:picturetransfer('a','b')\" class=\"MsoX\">Bild\r\nzwei</a><!-- x -->";
  surface.load("<p>" + part + "</p><p id=\"ziel\">y</p>");
  surface.select("p");

  surface.press(Qt::Key_C, Qt::ControlModifier);
  surface.placeCursor("#ziel", 1);
  surface.press(Qt::Key_V, Qt::ControlModifier);

  EXPECT_TRUE(comesTrue([&] { return surface.changes > 0; }));
  EXPECT_EQ(surface.bodyInnerHtml(), "<p>" + part + "</p><p id=\"ziel\">y" + part + "</p>");
}

TEST(CopiedPart, is_not_what_another_program_copied_with_the_same_text)
{
  ShownSurface surface;
  surface.load("<p><b id=\"b\">Haus</b></p><p><img id=\"i\" src=\"eigenes.jpg\"></p><p id=\"ziel\">y</p>");
  surface.select("#b");
  surface.execCommand(kCopy);
  putIntoClipboard("<i>Haus</i>", "Haus");
  surface.placeCursor("#ziel", 1);
  surface.execCommand(kPaste);
  EXPECT_THAT(surface.bodyInnerHtml(), HasSubstr("y<i>Haus</i></p>"));

  surface.selectElement("#i");
  surface.execCommand(kCopy);
  putIntoClipboard("<img src=\"http://127.0.0.1:1/fremdes.jpg\">", "");
  surface.inDocument("getSelection().collapse(document.getElementById('ziel'), 0)");
  surface.execCommand(kPaste);

  EXPECT_THAT(surface.bodyInnerHtml(), HasSubstr("<p id=\"ziel\"><img src=\"http://127.0.0.1:1/fremdes.jpg\">y"));
}

TEST(CutPart, is_gone_and_in_the_clipboard)
{
  ShownSurface surface;
  surface.load("<p>Das alte Haus</p>");
  surface.selectText("p", 3, 8);

  EXPECT_TRUE(surface.execCommand(kCut));

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Das Haus</p>");
  EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), " alte");
  EXPECT_TRUE(comesTrue([&] { return surface.changes == 1; }));
}

TEST(CutPart, by_the_keyboard_is_gone_and_in_the_clipboard)
{
  ShownSurface surface;
  surface.load("<p>Das alte Haus</p>");
  surface.selectText("p", 3, 8);

  surface.press(Qt::Key_X, Qt::ControlModifier);

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Das Haus</p>");
  EXPECT_TRUE(comesTrue([&] { return QGuiApplication::clipboard()->text() == " alte"; }));
}

TEST(Cut, without_a_selection_does_nothing)
{
  ShownSurface surface;
  surface.load("<p>Text</p>");
  surface.placeCursor("p", 2);

  EXPECT_FALSE(surface.execCommand(kCut));
  EXPECT_FALSE(surface.execCommand(kCopy));

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Text</p>");
}

class PastedPicture : public testing::Test {
protected:
  PastedPicture()
  {
    ui::SurfaceEvents events;
    events.storePicture = [this](std::string_view given, std::string_view type) {
      bytes = given;
      mimeType = type;
      return reference;
    };
    events.atWork = [this] {
      ++questions;
      return atWork;
    };
    events.pasteLost = [this] { ++lost; };
    surface.setEvents(events);
    surface.load("<p>Text</p>");
    surface.placeCursor("p", 4);
  }

  static QImage image()
  {
    QImage made(20, 10, QImage::Format_RGB32);
    made.fill(Qt::green);
    return made;
  }

  ShownSurface surface;
  std::string bytes, mimeType;
  bool atWork = false;
  int questions = 0, lost = 0;
  std::optional<std::string> reference = "file://\\home\\web\\pix/bild1.png";
};

TEST_F(PastedPicture, is_handed_over_and_shown_by_the_reference_that_comes_back)
{
  QGuiApplication::clipboard()->setImage(image());

  EXPECT_TRUE(surface.execCommand(kPaste));

  EXPECT_EQ(mimeType, "image/png");
  EXPECT_EQ(QImage::fromData(QByteArray::fromStdString(bytes)).size(), QSize(20, 10));
  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Text<img src=\"file://\\home\\web\\pix/bild1.png\" border=\"0\"></p>");
}

TEST_F(PastedPicture, by_the_keyboard_is_handed_over_too)
{
  QGuiApplication::clipboard()->setImage(image());

  surface.press(Qt::Key_V, Qt::ControlModifier);

  EXPECT_TRUE(comesTrue([&] { return !bytes.empty(); }));
  EXPECT_THAT(surface.bodyInnerHtml(), HasSubstr("bild1.png"));
}

TEST_F(PastedPicture, by_the_keyboard_waits_for_the_end_of_a_save)
{
  atWork = true;
  QGuiApplication::clipboard()->setImage(image());
  surface.press(Qt::Key_V, Qt::ControlModifier);
  ASSERT_TRUE(comesTrue([&] { return questions > 2; }));
  QGuiApplication::clipboard()->setText("etwas anderes");
  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Text</p>");

  atWork = false;

  EXPECT_TRUE(comesTrue([&] { return surface.bodyInnerHtml().find("bild1.png") != std::string::npos; }));
  EXPECT_EQ(lost, 0);
}

TEST_F(PastedPicture, whose_page_has_gone_meanwhile_is_told_to_be_lost)
{
  atWork = true;
  QGuiApplication::clipboard()->setImage(image());
  surface.press(Qt::Key_V, Qt::ControlModifier);
  ASSERT_TRUE(comesTrue([&] { return questions > 0; }));

  surface.load("<p>andere Seite</p>");
  atWork = false;

  EXPECT_TRUE(comesTrue([&] { return lost == 1; }));
  EXPECT_EQ(surface.bodyInnerHtml(), "<p>andere Seite</p>");
  EXPECT_EQ(bytes, "");
}

TEST_F(PastedPicture, keeps_its_bytes_when_they_are_those_of_a_photograph)
{
  auto* const data = new QMimeData;
  data->setData("image/jpeg", "JPEG bytes");
  QGuiApplication::clipboard()->setMimeData(data);

  surface.execCommand(kPaste);

  EXPECT_EQ(mimeType, "image/jpeg");
  EXPECT_EQ(bytes, "JPEG bytes");
}

TEST_F(PastedPicture, that_is_refused_leaves_the_page_as_it_is)
{
  reference.reset();
  QGuiApplication::clipboard()->setImage(image());

  EXPECT_FALSE(surface.execCommand(kPaste));

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Text</p>");
}

TEST_F(PastedPicture, beside_text_gives_way_to_the_text)
{
  auto* const data = new QMimeData;
  data->setText("nur Text");
  data->setImageData(image());
  QGuiApplication::clipboard()->setMimeData(data);

  surface.execCommand(kPaste);

  EXPECT_EQ(bytes, "");
  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Textnur Text</p>");
}

} // namespace mrd::desktop
