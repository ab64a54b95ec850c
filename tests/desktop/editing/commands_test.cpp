#include "desktop/editing/shown_surface.h"
#include "platform/ui/editing_commands.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>

#include <gmock/gmock.h>

namespace mrd::desktop {

using namespace ui::command;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using ui::Prompt;

namespace {

/// A command that works on selected text: what it makes of `<p>Text</p>`, and whether it then is latched.
struct TextCommand {
  int command;
  const char* argument;
  const char* result;
  bool latches;
};

void PrintTo(const TextCommand& one, std::ostream* out) { *out << one.command; }

} // namespace

class TextCommands : public testing::TestWithParam<TextCommand> {};

TEST_P(TextCommands, change_the_selected_text_and_tell_so)
{
  const TextCommand& one = GetParam();
  ShownSurface surface;
  surface.load("<p>Text</p>");
  surface.select("p");
  EXPECT_EQ(surface.status(one.command), kEnabled);

  EXPECT_TRUE(surface.execCommand(one.command, Prompt::None, one.argument));

  EXPECT_EQ(surface.bodyInnerHtml(), one.result);
  EXPECT_EQ(surface.queryStatus(one.command), one.latches ? kLatched : kEnabled);
  EXPECT_TRUE(comesTrue([&] { return surface.changes == 1; }));
}

INSTANTIATE_TEST_SUITE_P(
    Each, TextCommands,
    testing::Values(
        TextCommand{kBold, "", "<p><b>Text</b></p>", true}, TextCommand{kItalic, "", "<p><i>Text</i></p>", true},
        TextCommand{kUnderline, "", "<p><u>Text</u></p>", true}, TextCommand{kNumbers, "", "<ol><li>Text</li></ol>", true},
        TextCommand{kBullets, "", "<ul><li>Text</li></ul>", true},
        TextCommand{kCentre, "", "<p style=\"text-align: center; \">Text</p>", true},
        TextCommand{kRight, "", "<p style=\"text-align: right; \">Text</p>", true},
        TextCommand{kSetForeColour, "#ff0000", "<p><font color=\"#ff0000\">Text</font></p>", false},
        TextCommand{kSetFontName, "Arial", "<p><font face=\"Arial\">Text</font></p>", false},
        TextCommand{kSetFontSize, "5", "<p><font size=\"5\">Text</font></p>", false},
        TextCommand{kSetBackColour, "#ffff00", "<p><span style=\"background-color: rgb(255, 255, 0);\">Text</span></p>", false},
        TextCommand{kHyperlink, "seite.htm", "<p><a href=\"seite.htm\">Text</a></p>", false},
        TextCommand{kSetBlockFormat, "Heading 2", "<h2>Text</h2>", false}, TextCommand{kDelete, "", "<p><br></p>", false}));

TEST(Lists, made_of_a_part_of_a_paragraph_come_back_the_same)
{
  ShownSurface surface;
  for (const char* const page :
       {"<p>eins<br>zwei<br>drei</p>", "<h2>eins<br>zwei</h2>", "eins<br>zwei", "<p>eins</p><p>zwei</p>"}) {
    for (const int command : {kNumbers, kBullets, kIndent}) {
      surface.load(page);
      surface.execCommand(kSelectAll);
      surface.execCommand(command);
      const std::string html = surface.bodyInnerHtml();

      EXPECT_THAT(html, HasSubstr("zwei"));
      EXPECT_EQ(surface.reloaded(), html) << page << command;
    }
  }
}

TEST(LeftAlignment, is_latched_where_text_stands_left_and_takes_back_another)
{
  ShownSurface surface;
  surface.load("<p style=\"text-align: center;\">Text</p>");
  surface.select("p");
  EXPECT_EQ(surface.status(kLeft), kEnabled);

  surface.execCommand(kLeft);

  EXPECT_EQ(surface.bodyInnerHtml(), "<p style=\"text-align: left;\">Text</p>");
  EXPECT_EQ(surface.queryStatus(kLeft), kLatched);
}

TEST(ToggledCommand, takes_back_what_it_did)
{
  ShownSurface surface;
  surface.load("<p>Text</p>");
  for (const int command : {kBold, kItalic, kUnderline}) {
    surface.select("p");
    surface.execCommand(command);
    surface.execCommand(command);
    EXPECT_EQ(surface.bodyInnerHtml(), "<p>Text</p>") << command;
  }
}

TEST(Indent, and_outdent_move_a_paragraph_in_and_out)
{
  ShownSurface surface;
  surface.load("<p>Text</p>");
  surface.select("p");

  EXPECT_TRUE(surface.execCommand(kIndent));
  EXPECT_THAT(surface.bodyInnerHtml(), HasSubstr("<blockquote"));
  EXPECT_GE(surface.queryStatus(kOutdent), kEnabled);
  EXPECT_TRUE(surface.execCommand(kOutdent));

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Text</p>");
}

TEST(RemoveFormat, leaves_the_text)
{
  ShownSurface surface;
  surface.load("<p><b><i><font color=\"red\">Text</font></i></b></p>");
  surface.select("p");

  EXPECT_TRUE(surface.execCommand(kRemoveFormat));

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Text</p>");
}

TEST(Status, of_every_command_is_below_three_or_tells_that_it_can_be_run)
{
  ShownSurface surface;
  surface.load("<p>Text</p>");
  surface.select("p");
  surface.waitForDisplay();

  for (int command = 5000; command <= 5051; ++command) {
    if (command == 5001)
      EXPECT_EQ(surface.queryStatus(command), kNotSupported);
    else
      EXPECT_THAT(surface.queryStatus(command), testing::AnyOf(kDisabled, kEnabled, kLatched, kMixed)) << command;
  }
  EXPECT_EQ(surface.queryStatus(4711), kNotSupported);
  EXPECT_FALSE(surface.execCommand(4711));
}

TEST(Status, of_cut_and_copy_wants_selected_text)
{
  QGuiApplication::clipboard()->setText("x");
  ShownSurface surface;
  surface.load("<p>Text</p>");

  surface.placeCursor("p", 2);
  EXPECT_EQ(surface.status(kCut), kDisabled);
  EXPECT_EQ(surface.status(kCopy), kDisabled);
  EXPECT_EQ(surface.status(kPaste), kEnabled);
  EXPECT_EQ(surface.status(kSelectAll), kEnabled);
  surface.selectText("p", 0, 2);

  EXPECT_EQ(surface.status(kCut), kEnabled);
  EXPECT_EQ(surface.status(kCopy), kEnabled);
}

TEST(Status, of_paste_wants_something_in_the_clipboard)
{
  ShownSurface surface;
  surface.load("<p>Text</p>");
  surface.placeCursor("p", 2);
  surface.waitForDisplay();

  QGuiApplication::clipboard()->clear();
  EXPECT_EQ(surface.queryStatus(kPaste), kDisabled);
  EXPECT_EQ(surface.queryStatus(kPasteText), kDisabled);
  QImage picture(2, 2, QImage::Format_RGB32);
  picture.fill(Qt::red);
  QGuiApplication::clipboard()->setImage(picture);
  EXPECT_EQ(surface.queryStatus(kPaste), kEnabled);
  EXPECT_EQ(surface.queryStatus(kPasteText), kDisabled);
  QGuiApplication::clipboard()->setText("x");

  EXPECT_EQ(surface.queryStatus(kPaste), kEnabled);
  EXPECT_EQ(surface.queryStatus(kPasteText), kEnabled);
}

TEST(Status, of_table_commands_wants_the_cursor_in_a_table)
{
  ShownSurface surface;
  surface.load("<p>Text</p><table><tbody><tr><td>a</td></tr></tbody></table>");
  const auto commands = {kInsertRow, kInsertColumn, kInsertCell, kDeleteRows, kDeleteColumns, kDeleteCells, kSplitCell};

  surface.placeCursor("p", 0);
  surface.waitForDisplay();
  for (const int command : commands)
    EXPECT_EQ(surface.queryStatus(command), kDisabled) << command;
  surface.placeCursor("td", 0);
  surface.waitForDisplay();

  for (const int command : commands)
    EXPECT_EQ(surface.queryStatus(command), kEnabled) << command;
}

TEST(Status, of_the_picture_command_tells_whether_a_picture_is_selected)
{
  ShownSurface surface;
  surface.load("<p>Text<img src=\"x.jpg\"></p>");

  surface.placeCursor("p", 0);
  EXPECT_EQ(surface.status(kPicture), kDisabled);
  surface.selectElement("img");

  EXPECT_EQ(surface.status(kPicture), kEnabled);
  EXPECT_EQ(surface.commandValue(kPicture), "x.jpg");
}

TEST(Status, of_positioning_tells_whether_the_element_is_absolute)
{
  ShownSurface surface;
  surface.load("<p>Text<img src=\"x.jpg\"></p>");
  surface.placeCursor("p", 0);
  EXPECT_EQ(surface.status(kAbsolutePosition), kDisabled);
  surface.selectElement("img");
  EXPECT_EQ(surface.status(kAbsolutePosition), kEnabled);

  surface.execCommand(kAbsolutePosition);

  EXPECT_EQ(surface.queryStatus(kAbsolutePosition), kLatched);
}

TEST(DisplayChanged, is_told_when_the_cursor_moves_into_other_text)
{
  ShownSurface surface;
  surface.load("<p>Text</p><p><b id=\"b\">fett</b></p>");
  surface.placeCursor("p", 0);
  EXPECT_EQ(surface.status(kBold), kEnabled);
  const int displays = surface.displays;

  surface.placeCursor("#b", 2);

  EXPECT_TRUE(comesTrue([&] { return surface.displays > displays && surface.queryStatus(kBold) == kLatched; }));
}

TEST(Values, are_those_of_the_text_at_the_cursor)
{
  ShownSurface surface;
  surface.load("<p><font face=\"Courier New\" size=\"5\" color=\"#336699\" style=\"background-color: #ffffcc\">Text</font></p>");

  surface.placeCursor("font", 2);

  EXPECT_EQ(surface.value(kGetFontName), "Courier New");
  EXPECT_EQ(surface.commandValue(kGetFontSize), "5");
  EXPECT_EQ(surface.commandValue(kGetForeColour), "#336699");
  EXPECT_EQ(surface.commandValue(kGetBackColour), "#ffffcc");
  EXPECT_EQ(surface.commandValue(kGetBlockFormat), "Paragraph");
}

TEST(BlockFormats, have_sixteen_names_in_either_language)
{
  ShownSurface surface;

  EXPECT_THAT(surface.blockFormatNames(),
              ElementsAre("Normal", "Formatted", "Address", "Heading 1", "Heading 2", "Heading 3", "Heading 4", "Heading 5",
                          "Heading 6", "Numbered List", "Bulleted List", "Directory List", "Menu List", "Definition Term",
                          "Definition", "Paragraph"));
  surface.setLanguage("GER");
  EXPECT_EQ(surface.blockFormatNames().size(), 16U);
  EXPECT_EQ(surface.blockFormatNames()[3], "Überschrift 1");
}

TEST(BlockFormats, are_found_as_they_were_set_by_their_names)
{
  ShownSurface surface;
  for (const auto& name : surface.blockFormatNames()) {
    surface.load("<div>Text</div>");
    surface.placeCursor("div", 2);

    EXPECT_TRUE(surface.execCommand(kSetBlockFormat, Prompt::None, name)) << name;

    EXPECT_EQ(surface.commandValue(kGetBlockFormat), name);
    const std::string html = surface.bodyInnerHtml();
    EXPECT_THAT(html, HasSubstr("Text"));
    EXPECT_EQ(surface.reloaded(), html);
  }
}

TEST(BlockFormats, make_what_their_names_say)
{
  ShownSurface surface;
  const auto made = [&](std::string_view name) {
    surface.load("<div>Text</div>");
    surface.placeCursor("div", 2);
    surface.execCommand(kSetBlockFormat, Prompt::None, name);
    return surface.bodyInnerHtml();
  };

  EXPECT_EQ(made("Formatted"), "<pre>Text</pre>");
  EXPECT_EQ(made("Überschrift 3"), "<h3>Text</h3>");
  EXPECT_EQ(made("Nummerierung"), "<ol><li>Text</li></ol>");
  EXPECT_EQ(made("Menu List"), "<menu><li>Text</li></menu>");
  EXPECT_EQ(made("Definition"), "<dl><dd>Text</dd></dl>");
  EXPECT_EQ(made("no such format"), "<div>Text</div>");
}

TEST(BlockFormats, leave_a_list_for_a_heading)
{
  ShownSurface surface;
  surface.load("<ul><li>Text</li></ul>");
  surface.placeCursor("li", 2);

  surface.execCommand(kSetBlockFormat, Prompt::None, "Heading 1");

  EXPECT_EQ(surface.bodyInnerHtml(), "<h1>Text</h1>");
}

TEST(Link, at_the_cursor_is_changed_and_taken_away)
{
  ShownSurface surface;
  surface.load("<p><a href=\"a.htm\" target=\"_blank\">Text</a></p>");
  surface.placeCursor("a", 2);
  EXPECT_EQ(surface.value(kHyperlink), "a.htm");

  EXPECT_TRUE(surface.execCommand(kHyperlink, Prompt::None, "b.htm"));
  EXPECT_EQ(surface.bodyInnerHtml(), "<p><a href=\"b.htm\" target=\"_blank\">Text</a></p>");
  EXPECT_TRUE(surface.execCommand(kUnlink));

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Text</p>");
}

TEST(Link, without_selected_text_shows_its_reference)
{
  ShownSurface surface;
  surface.load("<p>Text </p>");
  surface.placeCursor("p", 5);

  EXPECT_TRUE(surface.execCommand(kHyperlink, Prompt::None, "a.htm?b&c"));

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Text <a href=\"a.htm?b&amp;c\">a.htm?b&amp;c</a></p>");
}

TEST(Picture, is_put_at_the_cursor_or_in_place_of_the_selected_one)
{
  ShownSurface surface;
  surface.load("<p>Text</p>");
  surface.placeCursor("p", 2);

  EXPECT_TRUE(surface.execCommand(kPicture, Prompt::None, "file://C:\\web\\pix/a.jpg"));
  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Te<img src=\"file://C:\\web\\pix/a.jpg\" border=\"0\">xt</p>");
  surface.selectElement("img");
  EXPECT_TRUE(surface.execCommand(kPicture, Prompt::None, "b.jpg"));

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Te<img src=\"b.jpg\" border=\"0\">xt</p>");
}

TEST(Prompt, asks_the_owner_with_the_present_value_and_goes_on_with_the_answer)
{
  ShownSurface surface;
  std::string asked;
  ui::SurfacePrompts prompts;
  prompts.link = [&](const ui::LinkValues& present) {
    asked = present.href;
    return std::optional(ui::LinkValues{"neu.htm"});
  };
  prompts.font = [&](const ui::FontChoice&) { return std::optional(ui::FontChoice{"Arial", "4"}); };
  prompts.searchText = [](std::string_view) { return std::optional<std::string>("xt"); };
  surface.setPrompts(prompts);
  surface.load("<p><a href=\"alt.htm\">Text</a></p>");
  surface.select("a");
  surface.waitForDisplay();

  EXPECT_TRUE(surface.execCommand(kHyperlink, Prompt::Ask));
  EXPECT_EQ(asked, "alt.htm");
  EXPECT_THAT(surface.bodyInnerHtml(), HasSubstr("href=\"neu.htm\""));
  EXPECT_TRUE(surface.execCommand(kFont, Prompt::Ask));
  EXPECT_THAT(surface.bodyInnerHtml(), HasSubstr("<font face=\"Arial\" size=\"4\">"));
  EXPECT_TRUE(surface.execCommand(kFindText, Prompt::Ask));

  EXPECT_EQ(surface.selectedText(), "xt");
}

TEST(Prompt, that_is_cancelled_changes_nothing)
{
  ShownSurface surface;
  surface.load("<p>Text</p>");
  surface.select("p");

  for (const int command : {kHyperlink, kPicture, kFont, kFindText})
    EXPECT_FALSE(surface.execCommand(command, Prompt::Ask)) << command;

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Text</p>");
  EXPECT_EQ(surface.changes, 0);
}

TEST(Find, selects_the_next_place_whatever_its_case_and_begins_again_at_the_top)
{
  ShownSurface surface;
  surface.load("<p id=\"a\">Haus</p><p id=\"b\">haus</p>");

  EXPECT_TRUE(surface.execCommand(kFindText, Prompt::None, "HAUS"));
  EXPECT_EQ(surface.selectedText(), "Haus");
  EXPECT_TRUE(surface.execCommand(kFindText, Prompt::None, "HAUS"));
  EXPECT_EQ(surface.selectedText(), "haus");
  EXPECT_TRUE(surface.execCommand(kFindText, Prompt::None, "HAUS"));
  EXPECT_EQ(surface.selectedText(), "Haus");

  EXPECT_FALSE(surface.execCommand(kFindText, Prompt::None, "Garten"));
  EXPECT_EQ(surface.changes, 0);
}

TEST(SelectAll, selects_the_whole_page)
{
  ShownSurface surface;
  surface.load("<p>eins</p><p>zwei</p>");

  surface.execCommand(kSelectAll);
  surface.execCommand(kDelete);

  EXPECT_THAT(surface.bodyInnerHtml(), Not(HasSubstr("eins")));
  EXPECT_THAT(surface.bodyInnerHtml(), Not(HasSubstr("zwei")));
}

TEST(Positioning, makes_an_element_absolute_where_it_stands_and_back)
{
  ShownSurface surface;
  surface.load("<p>Text<img src=\"x.jpg\" width=\"10\" height=\"10\"></p>");
  surface.selectElement("img");

  surface.execCommand(kAbsolutePosition);
  EXPECT_THAT(surface.bodyInnerHtml(), testing::ContainsRegex("style=\"position: absolute; left: [0-9]+px; top: [0-9]+px;\""));
  surface.selectElement("img");
  surface.execCommand(kAbsolutePosition);

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Text<img src=\"x.jpg\" width=\"10\" height=\"10\"></p>");
}

TEST(Positioning, leaves_an_element_with_margins_inside_of_a_positioned_one_where_it_stands)
{
  ShownSurface surface;
  surface.load(
      "<div style=\"position: absolute; left: 100px; top: 50px;\"><img id=\"i\" width=\"20\" height=\"20\" src=\"x.jpg\" "
      "style=\"margin: 7px;\"></div>");
  const auto place = [&] {
    return surface.textInDocument("(() => { const r = document.getElementById('i').getBoundingClientRect(); "
                                  "return Math.round(r.left) + ' ' + Math.round(r.top); })()");
  };
  const std::string before = place();
  surface.selectElement("#i");

  surface.execCommand(kAbsolutePosition);

  EXPECT_EQ(place(), before);
}

TEST(Layers, are_ordered_by_the_commands_for_them)
{
  ShownSurface surface;
  const std::string other = "<div style=\"position: absolute; z-index: 4\">x</div>";
  const auto layerAfter = [&](int command, const std::string& layer) {
    surface.load(other + "<div id=\"a\" style=\"position: absolute; z-index: " + layer + "\">y</div>");
    surface.placeCursor("#a", 0);
    EXPECT_TRUE(surface.execCommand(command)) << command;
    return surface.textInDocument("document.getElementById('a').style.zIndex");
  };

  EXPECT_EQ(layerAfter(kBringToFront, "1"), "5");
  EXPECT_EQ(layerAfter(kSendToBack, "1"), "-1");
  EXPECT_EQ(layerAfter(kBringForward, "1"), "2");
  EXPECT_EQ(layerAfter(kSendBackward, "1"), "0");
  EXPECT_EQ(layerAfter(kBringAboveText, "-3"), "3");
  EXPECT_EQ(layerAfter(kSendBelowText, "3"), "-3");
}

TEST(LockedElement, is_not_positioned)
{
  ShownSurface surface;
  surface.load("<div id=\"a\" style=\"position: absolute\">y</div>");
  surface.placeCursor("#a", 0);

  EXPECT_TRUE(surface.execCommand(kLockElement));
  EXPECT_EQ(surface.queryStatus(kLockElement), kLatched);
  EXPECT_EQ(surface.queryStatus(kAbsolutePosition), kDisabled);
  EXPECT_FALSE(surface.execCommand(kBringToFront));
  EXPECT_TRUE(surface.execCommand(kLockElement));

  EXPECT_TRUE(surface.execCommand(kBringToFront));
}

} // namespace mrd::desktop
