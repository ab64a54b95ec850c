// Every command that changes the page is undone in one step, to the letter, and done again.

#include "desktop/editing/shown_surface.h"
#include "platform/ui/editing_commands.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

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

constexpr std::array kChanges{Change{kBold, "", "#p"},
                              Change{kItalic, "", "#p"},
                              Change{kUnderline, "", "#p"},
                              Change{kNumbers, "", "#p"},
                              Change{kBullets, "", "#p"},
                              Change{kIndent, "", "#p"},
                              Change{kOutdent, "", "#li"},
                              Change{kLeft, "", "h3"},
                              Change{kCentre, "", "#p"},
                              Change{kRight, "", "#p"},
                              Change{kSetForeColour, "#ff0000", "#p"},
                              Change{kSetBackColour, "#ffff00", "#p"},
                              Change{kSetFontName, "Arial", "#p"},
                              Change{kSetFontSize, "5", "#p"},
                              Change{kRemoveFormat, "", "#p"},
                              Change{kSetBlockFormat, "Heading 2", "#p"},
                              Change{kSetBlockFormat, "Definition", "#p"},
                              Change{kDelete, "", "#p"},
                              Change{kDelete, "", "#i", true},
                              Change{kCut, "", "#p"},
                              Change{kCut, "", "#i", true},
                              Change{kPaste, "", "#p"},
                              Change{kPasteText, "", "#p"},
                              Change{kHyperlink, "neu.htm", "#p"},
                              Change{kHyperlink, "neu.htm", "#i", true},
                              Change{kUnlink, "", "#a"},
                              Change{kPicture, "neu.jpg", "#p"},
                              Change{kPicture, "neu.jpg", "#i", true},
                              Change{kInsertTable, "", "#p"},
                              Change{kInsertRow, "", "#d"},
                              Change{kInsertColumn, "", "#d"},
                              Change{kInsertCell, "", "#d"},
                              Change{kDeleteRows, "", "#d"},
                              Change{kDeleteColumns, "", "#d"},
                              Change{kDeleteCells, "", "#d"},
                              Change{kMergeCells, "", "tr:last-child"},
                              Change{kSplitCell, "", "#c"},
                              Change{kSplitCell, "", "#d"},
                              Change{kAbsolutePosition, "", "#i", true},
                              Change{kAbsolutePosition, "", "#z"},
                              Change{kLockElement, "", "#z"},
                              Change{kBringToFront, "", "#z"},
                              Change{kSendToBack, "", "#z"},
                              Change{kBringForward, "", "#z"},
                              Change{kSendBackward, "", "#z"},
                              Change{kBringAboveText, "", "#z"},
                              Change{kSendBelowText, "", "#z"}};

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

INSTANTIATE_TEST_SUITE_P(Of, Undoing, testing::ValuesIn(kChanges));

TEST(EveryCommand, is_one_whose_change_is_undone_or_one_that_changes_nothing)
{
  constexpr std::array kOthers{
      kCopy,          kFindText,  kFont, kGetBackColour, kGetBlockFormat, kGetFontName, kGetBlockFormatNames, kGetFontSize,
      kGetForeColour, kSelectAll, kUndo, kRedo};
  ShownSurface surface;
  surface.load(kPage);
  const std::string before = surface.bodyInnerHtml();
  surface.select("#p");
  surface.waitForDisplay();

  for (int command = 5000; command < 5200; ++command) {
    const bool changes = std::ranges::find(kChanges, command, &Change::command) != kChanges.end();
    const bool isOther = std::ranges::find(kOthers, command) != kOthers.end();
    EXPECT_EQ(changes || isOther, surface.queryStatus(command) != kNotSupported) << command;
    EXPECT_FALSE(changes && isOther) << command;
    if (isOther)
      surface.execCommand(command);
    EXPECT_EQ(surface.bodyInnerHtml(), before) << command;
  }
}

class UndoingFormats : public testing::TestWithParam<int> {};

TEST_P(UndoingFormats, brings_back_the_exact_page)
{
  ShownSurface surface;
  const auto name = surface.blockFormatNames().at(static_cast<std::size_t>(GetParam()));
  for (const char* const selector : {"#p", "#li", "#c", "h3", "#z", "#alles"}) {
    surface.load(std::string(kPage) + "<p id=\"alles\">eins<br>zwei</p>lose");
    const std::string before = surface.bodyInnerHtml();
    surface.select(selector);

    surface.execCommand(kSetBlockFormat, ui::Prompt::None, name);
    const std::string after = surface.bodyInnerHtml();
    if (after == before)
      continue;
    surface.execCommand(kUndo);
    EXPECT_EQ(surface.bodyInnerHtml(), before) << name << selector;
    surface.execCommand(kRedo);
    EXPECT_EQ(surface.bodyInnerHtml(), after) << name << selector;
  }
}

INSTANTIATE_TEST_SUITE_P(Of, UndoingFormats, testing::Range(0, 16));

TEST(UndoOfADialog, takes_back_all_that_it_did_in_one_step)
{
  ShownSurface surface;
  ui::SurfacePrompts prompts;
  prompts.font = [](const ui::FontChoice&) { return ui::FontChoice{"Arial", "5"}; };
  prompts.link = [](const ui::LinkValues&) { return ui::LinkValues{"neu.htm", "_blank"}; };
  prompts.picture = [](const ui::PictureValues&) { return ui::PictureValues{"neu.jpg", "Neu", "30", "40", "left", "1"}; };
  surface.setPrompts(prompts);
  for (const int command : {kFont, kHyperlink, kPicture}) {
    surface.load(kPage);
    const std::string before = surface.bodyInnerHtml();
    if (command == kPicture)
      surface.selectElement("#i");
    else
      surface.select("#p");

    EXPECT_TRUE(surface.execCommand(command, ui::Prompt::Ask));
    EXPECT_NE(surface.bodyInnerHtml(), before);
    surface.execCommand(kUndo);

    EXPECT_EQ(surface.bodyInnerHtml(), before) << command;
    EXPECT_FALSE(surface.execCommand(kUndo));
  }
}

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
