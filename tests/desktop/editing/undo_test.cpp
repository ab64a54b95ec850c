// Every command that changes the page is undone in one step, to the letter, and done again.

#include "desktop/editing/shown_surface.h"
#include "platform/ui/editing_commands.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <gtest/gtest.h>

namespace mrd::desktop {

using namespace ui::command;

namespace {

struct Change {
  int command;
  const char* argument;
  /// What is selected: all of it, or the element as a whole.
  const char* selector;
  bool whole = false;
};

void PrintTo(const Change& change, std::ostream* out) { *out << change.command; }

constexpr auto kPage =
    "<h3 id=\"ueberschrift\" align=\"center\">Möwe &amp; Meer</h3>\n<p id=\"p\">Ein <b>alter</b> Text</p>\n"
    "<ul><li id=\"li\">eins</li><li>zwei</li></ul>"
    "<table border=\"1\"><tbody><tr><td id=\"c\" colspan=\"2\">a</td></tr><tr><td id=\"d\">b</td><td>c</td></tr>"
    "</tbody></table>"
    "<p><img id=\"i\" src=\"x.jpg\" width=\"20\" height=\"20\"><a id=\"a\" href=\"b.htm\">Verweis</a></p>"
    "<div id=\"z\" style=\"position: absolute; left: 10px; top: 300px;\">Ebene</div>";

} // namespace

class Undoing : public testing::TestWithParam<Change> {};

TEST_P(Undoing, brings_back_the_exact_page_and_doing_it_again_the_exact_change)
{
  const Change& change = GetParam();
  QGuiApplication::clipboard()->setText("aus der Ablage");
  ShownSurface surface;
  surface.load(kPage);
  const std::string before = surface.bodyInnerHtml();
  if (change.whole)
    surface.selectElement(change.selector);
  else
    surface.select(change.selector);

  ASSERT_TRUE(surface.execCommand(change.command, ui::Prompt::None, change.argument));
  const std::string after = surface.bodyInnerHtml();
  EXPECT_NE(after, before);
  EXPECT_TRUE(surface.execCommand(kUndo));
  EXPECT_EQ(surface.bodyInnerHtml(), before);
  EXPECT_TRUE(surface.execCommand(kRedo));

  EXPECT_EQ(surface.bodyInnerHtml(), after);
}

INSTANTIATE_TEST_SUITE_P(
    Of, Undoing,
    testing::Values(Change{kBold, "", "#p"}, Change{kItalic, "", "#p"}, Change{kUnderline, "", "#p"}, Change{kNumbers, "", "#p"},
                    Change{kBullets, "", "#p"}, Change{kIndent, "", "#p"}, Change{kOutdent, "", "#li"}, Change{kLeft, "", "h3"},
                    Change{kCentre, "", "#p"}, Change{kRight, "", "#p"}, Change{kSetForeColour, "#ff0000", "#p"},
                    Change{kSetBackColour, "#ffff00", "#p"}, Change{kSetFontName, "Arial", "#p"}, Change{kSetFontSize, "5", "#p"},
                    Change{kRemoveFormat, "", "#p"}, Change{kSetBlockFormat, "Heading 2", "#p"},
                    Change{kSetBlockFormat, "Definition", "#p"}, Change{kDelete, "", "#p"}, Change{kDelete, "", "#i", true},
                    Change{kCut, "", "#p"}, Change{kCut, "", "#i", true}, Change{kPaste, "", "#p"}, Change{kPasteText, "", "#p"},
                    Change{kHyperlink, "neu.htm", "#p"}, Change{kHyperlink, "neu.htm", "#i", true}, Change{kUnlink, "", "#a"},
                    Change{kPicture, "neu.jpg", "#p"}, Change{kPicture, "neu.jpg", "#i", true}, Change{kInsertTable, "", "#p"},
                    Change{kInsertRow, "", "#d"}, Change{kInsertColumn, "", "#d"}, Change{kInsertCell, "", "#d"},
                    Change{kDeleteRows, "", "#d"}, Change{kDeleteColumns, "", "#d"}, Change{kDeleteCells, "", "#d"},
                    Change{kMergeCells, "", "tr:last-child"}, Change{kSplitCell, "", "#c"}, Change{kSplitCell, "", "#d"},
                    Change{kAbsolutePosition, "", "#i", true}, Change{kAbsolutePosition, "", "#z"},
                    Change{kLockElement, "", "#z"}, Change{kBringToFront, "", "#z"}, Change{kSendToBack, "", "#z"},
                    Change{kBringForward, "", "#z"}, Change{kSendBackward, "", "#z"}, Change{kBringAboveText, "", "#z"},
                    Change{kSendBelowText, "", "#z"}));

TEST(TextPaste, brings_the_text_of_the_clipboard_without_its_looks)
{
  ShownSurface surface;
  surface.load("<p><b id=\"b\">fett</b> Text</p>");
  surface.select("#b");
  surface.execCommand(kCopy);
  surface.placeCursor("p", 0);
  surface.inDocument("getSelection().collapse(document.querySelector('p'), 2)");

  EXPECT_TRUE(surface.execCommand(kPasteText));

  EXPECT_EQ(surface.bodyInnerHtml(), "<p><b id=\"b\">fett</b> Textfett</p>");
}

TEST(TextPaste, keeps_lines_and_takes_signs_as_they_are)
{
  ShownSurface surface;
  surface.load("<p>x</p>");
  surface.placeCursor("p", 1);
  QGuiApplication::clipboard()->setText("a <b>\nzwei & drei");

  surface.execCommand(kPasteText);

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>xa &lt;b&gt;<br>zwei &amp; drei</p>");
}

TEST(PastedPage, brings_no_classes_names_and_programs_of_its_own)
{
  ShownSurface surface;
  surface.load("<p>x</p>");
  surface.placeCursor("p", 1);
  auto* const data = new QMimeData;
  data->setHtml(
      "<div class=\"article__body\" id=\"ueberschrift\"><!--[if IE]><p>alt</p><![endif]--><a href=\" javascript:f()\" "
      "class=\"x\">Klick</a><img src=\"http://127.0.0.1:1/a.jpg\" srcset=\"http://127.0.0.1:1/b.jpg 2x\" loading=\"lazy\">"
      "<script src=\"http://127.0.0.1:1/x.js\"></script></div>");
  data->setText("Klick");
  QGuiApplication::clipboard()->setMimeData(data);

  surface.execCommand(kPaste);

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>x</p><div>Klick<img src=\"http://127.0.0.1:1/a.jpg\"></div>");
}

} // namespace mrd::desktop
