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
