// Commands in any order on a page that holds something of everything: whatever was done is taken back and done again to the
// letter.

#include "desktop/editing/shown_surface.h"
#include "platform/ui/editing_commands.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

namespace mrd::desktop {

using namespace ui::command;

namespace {

constexpr auto kPage =
    "<h3 id=\"ueberschrift\" align=\"center\">Möwe <i>und</i> Meer</h3>\n<p class=\"k\">Ein <b>alter <u>Text</u></b> hier<br>und "
    "da</p>\n"
    "<ul><li>eins</li><li>zwei <b>drei</b><ol><li>vier</li></ol></li></ul>\n"
    "<blockquote><p>Zitat</p><p>mehr</p></blockquote>lose <font color=\"red\">rot</font> Worte"
    "<table border=\"1\"><tbody><tr><td colspan=\"2\">a <b>b</b></td></tr><tr><td>c</td><td><p>d</p></td></tr></tbody></table>"
    "<p>Bild <img src=\"x.jpg\" width=\"20\" height=\"20\"> und <a href=\"b.htm\">Verweis</a></p><pre>\n\n  vor  \n</pre>"
    "<dl><dt>Wort</dt><dd>Sinn</dd></dl><div style=\"position: absolute; left: 10px; top: 300px;\">Ebene</div><!-- Ende -->";

struct Step {
  int command;
  const char* argument = "";
};

constexpr Step kSteps[] = {{kBold},
                           {kItalic},
                           {kUnderline},
                           {kNumbers},
                           {kBullets},
                           {kIndent},
                           {kOutdent},
                           {kLeft},
                           {kCentre},
                           {kRight},
                           {kSetForeColour, "#ff0000"},
                           {kSetBackColour, "#ffff00"},
                           {kSetFontName, "Arial"},
                           {kSetFontSize, "5"},
                           {kRemoveFormat},
                           {kDelete},
                           {kHyperlink, "neu.htm"},
                           {kUnlink},
                           {kPicture, "neu.jpg"},
                           {kInsertTable},
                           {kInsertRow},
                           {kDeleteColumns},
                           {kMergeCells},
                           {kSplitCell},
                           {kAbsolutePosition},
                           {kSetBlockFormat, "Normal"},
                           {kSetBlockFormat, "Heading 2"},
                           {kSetBlockFormat, "Formatted"},
                           {kSetBlockFormat, "Numbered List"},
                           {kSetBlockFormat, "Menu List"},
                           {kSetBlockFormat, "Definition"},
                           {kSetBlockFormat, "Paragraph"}};
/// What keys do, by the engine's own names.
constexpr const char* kKeys[] = {"'insertParagraph'", "'insertLineBreak'", "'delete'", "'forwardDelete'",
                                 "'insertText', false, 'x'"};

unsigned asked(const char* variable, unsigned otherwise)
{
  const char* const number = std::getenv(variable);
  return number ? static_cast<unsigned>(std::atoi(number)) : otherwise;
}

class User {
public:
  User(ShownSurface& surface, unsigned seed) : surface_(surface), random_(seed) {}

  /// Selects something, and does something to it; what it was.
  std::string act()
  {
    select();
    if (below(4) == 0) {
      const char* const key = kKeys[below(std::size(kKeys))];
      // Each for itself: typing that goes on is one step.
      surface_.inDocument(QString("document.dispatchEvent(new MouseEvent('mousedown')); document.execCommand(%1);"
                                  "document.dispatchEvent(new MouseEvent('mousedown'));")
                              .arg(key));
      return key;
    }
    if (below(8) == 0) {
      surface_.pasteHtml("<p>neu <b>x</b></p><p>y</p>");
      return "paste";
    }
    const Step& step = kSteps[below(std::size(kSteps))];
    surface_.execCommand(step.command, ui::Prompt::None, step.argument);
    return std::to_string(step.command) + step.argument;
  }

private:
  std::size_t below(std::size_t limit) { return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_); }

  /// From one letter to another, or the place before it.
  void select()
  {
    surface_.inDocument(
        QString("{ const walker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT), texts = [];"
                "while (walker.nextNode()) texts.push(walker.currentNode);"
                "const at = n => texts[n % texts.length] || document.body, place = (t, n) => n % ((t.length || 0) + 1);"
                "const a = at(%1), b = %3 ? at(%1 + %3 - 1) : a, from = place(a, %2);"
                "getSelection().setBaseAndExtent(a, from, b, %3 ? place(b, %4) : from); }")
            .arg(below(100))
            .arg(below(20))
            .arg(below(2) == 0 ? 0 : 1 + below(5))
            .arg(below(20)));
  }

  ShownSurface& surface_;
  std::mt19937 random_;
};

} // namespace

TEST(RandomCommands, are_taken_back_and_done_again_to_the_letter)
{
  constexpr int kActs = 8;
  const unsigned rounds = asked("MRD_RANDOM_PAGES", 60), firstSeed = asked("MRD_RANDOM_SEED", 1);
  ShownSurface surface;
  for (unsigned seed = firstSeed; seed < firstSeed + rounds; ++seed) {
    User user(surface, seed);
    surface.load(kPage);
    std::vector<std::string> pages{surface.bodyInnerHtml()};
    std::string acts;
    for (int i = 0; i < kActs; ++i) {
      acts += user.act() + "; ";
      if (const auto page = surface.bodyInnerHtml(); page != pages.back())
        pages.push_back(page);
    }

    std::size_t at = pages.size() - 1;
    while (at > 0 && surface.execCommand(kUndo))
      if (const auto page = surface.bodyInnerHtml(); page != pages[at]) {
        ASSERT_EQ(page, pages[at - 1]) << seed << ": " << acts;
        --at;
      }
    EXPECT_EQ(at, 0U) << seed << ": " << acts;
    while (at + 1 < pages.size() && surface.execCommand(kRedo))
      if (const auto page = surface.bodyInnerHtml(); page != pages[at]) {
        ASSERT_EQ(page, pages[at + 1]) << seed << ": " << acts;
        ++at;
      }
    EXPECT_EQ(at + 1, pages.size()) << seed << ": " << acts;
  }
}

} // namespace mrd::desktop
