#include "base/text.h"
#include "desktop/controls/html_source.h"
#include "editor/search_replace.h"
#include "support/test_program.h"

#include <QApplication>
#include <QPalette>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextLayout>

#include <gmock/gmock.h>

#include <random>

namespace mrd::desktop {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// The field on the screen.
struct ShownSource {
  explicit ShownSource(std::string_view text)
  {
    field.resize(500, 300);
    field.show();
    field.setSource(text);
    wait();
  }
  static void wait() { QTest::qWait(120); }
  void placeCursor(std::size_t position)
  {
    field.select({position, 0});
    wait();
  }
  /// Colours of a line, by the text that has them.
  std::vector<std::string> coloured(int line)
  {
    const QTextBlock block = field.document()->findBlockByNumber(line);
    std::vector<std::string> parts;
    for (const auto& format : block.layout()->formats())
      parts.push_back(block.text().mid(format.start, format.length).toStdString());
    return parts;
  }
  std::vector<std::string> texts(const std::vector<ui::TextRange>& ranges)
  {
    std::vector<std::string> all;
    for (const auto& range : ranges)
      all.push_back(
          field.toPlainText().mid(static_cast<qsizetype>(range.start), static_cast<qsizetype>(range.length)).toStdString());
    return all;
  }

  HtmlSource field;
};

TEST(SourceMirror, holds_the_systems_text_after_any_changes)
{
  std::mt19937 random(1);
  const auto below = [&](qsizetype limit) {
    return limit == 0 ? 0 : static_cast<qsizetype>(random() % static_cast<unsigned>(limit));
  };
  const std::vector<QString> pieces{"", "a", "ä", "\n", "<p>", "€uro", "zwei\nZeilen\n", QString::fromUtf8("\xF0\x9F\x90\xA6")};
  SourceMirror mirror;
  QString text = "Anfang\nöäü\n";
  mirror.reset(text);
  for (int i = 0; i < 3000; ++i) {
    const qsizetype at = below(text.size() + 1), removed = std::min(below(4), text.size() - at);
    const QString& piece = pieces[static_cast<std::size_t>(below(static_cast<qsizetype>(pieces.size())))];
    text.replace(at, removed, piece);
    mirror.replace(at, removed, piece);
    if (text.isValidUtf16()) {
      ASSERT_EQ(mirror.source(), base::toCrLf(text.toStdString())) << i;
    }
    ASSERT_EQ(mirror.text(), text);
  }
}

TEST(Source, comes_back_as_the_system_keeps_it)
{
  ShownSource shown("<p>Möwe</p>\r\n<p>a\xC2\xA0z</p>\r\n");

  EXPECT_EQ(shown.field.source(), "<p>Möwe</p>\r\n<p>a\xC2\xA0z</p>\r\n");
  QTest::keyClicks(&shown.field, "x");
  EXPECT_EQ(shown.field.source(), "x<p>Möwe</p>\r\n<p>a\xC2\xA0z</p>\r\n");
  shown.field.undo();
  EXPECT_EQ(shown.field.source(), "<p>Möwe</p>\r\n<p>a\xC2\xA0z</p>\r\n");
  shown.field.setSource("");

  EXPECT_EQ(shown.field.source(), "");
}

TEST(Source, that_is_there_already_keeps_its_cursor)
{
  ShownSource shown("eins\r\nzwei");
  shown.field.select({2, 3});

  shown.field.setSource("eins\r\nzwei");

  EXPECT_EQ(shown.field.selection(), (ui::TextRange{2, 3}));
}

TEST(Source, finds_whatever_the_case_and_replaces_so_that_it_can_be_undone)
{
  ShownSource shown("GRÜSSE\r\ngrüße Grüsse");

  EXPECT_EQ(shown.field.find("grüsse", 0), (ui::TextRange{0, 6}));
  EXPECT_EQ(shown.field.find("grüsse", 1), (ui::TextRange{13, 6}));
  EXPECT_EQ(shown.field.find("grüsse", 14), std::nullopt);
  EXPECT_EQ(shown.field.find("", 0), std::nullopt);
  shown.field.select({13, 6});
  EXPECT_EQ(shown.field.selectedText(), "Grüsse");
  shown.field.replaceSelection("Wünsche");
  EXPECT_EQ(shown.field.source(), "GRÜSSE\r\ngrüße Wünsche");
  EXPECT_EQ(shown.field.selection(), (ui::TextRange{20, 0}));
  shown.field.run(ui::EditAction::Undo);

  EXPECT_EQ(shown.field.source(), "GRÜSSE\r\ngrüße Grüsse");
}

TEST(Source, of_five_megabytes_is_searched_around_and_replaced_hit_by_hit)
{
  constexpr int kLines = 75'000, kFirst = 10, kSecond = 40'000, kLast = kLines - 1;
  const auto page = [&](const std::string& first, const std::string& second, const std::string& last) {
    std::string text;
    for (int line = 0; line < kLines; ++line)
      text += "<p>Zeile mit " +
              (line == kFirst    ? first
               : line == kSecond ? second
               : line == kLast   ? last
                                 : std::string("Ärmeln")) +
              ", Öl und Füßen; und so geht es immer weiter</p>\r\n";
    return text;
  };
  const std::string text = page("ÄRGER", "ärger", "Ärger");
  ASSERT_GT(text.size(), 5'000'000U);
  ShownSource shown(text);
  support::TestProgram program;
  int changes = 0;
  editor::FormSuchenErsetzen form(program.language, shown.field,
                                  {[] { return editor::FormSuchenErsetzen::Top::Source; }, [] {}, [&] { ++changes; }});
  form.tbsuchen = "ärGER";
  form.tbersetzen = "Ärger mit Öl";
  // From behind the second hit: on to the last, and around to the first.
  shown.field.select({shown.field.find("ärger", 1'000'000)->end(), 0});
  form.cbersetzen_Click();
  EXPECT_EQ(shown.field.selectedText(), "Ärger");
  form.cbersetzen_Click();
  EXPECT_EQ(shown.field.selectedText(), "ÄRGER");
  form.cbersetzen_Click();
  EXPECT_EQ(shown.field.selectedText(), "ärger");
  form.cbersetzen_Click();

  EXPECT_EQ(changes, 3);
  EXPECT_TRUE(shown.field.source() == page("Ärger mit Öl", "Ärger mit Öl", "Ärger mit Öl"));
  for (int i = 0; i < 3; ++i)
    shown.field.run(ui::EditAction::Undo);
  EXPECT_TRUE(shown.field.source() == text);
  form.tbsuchen = "steht nirgends";
  program.ui.expect(27);
  form.cbsuchen_Click();
}

TEST(Source, tells_what_can_be_done)
{
  ShownSource shown("Text");
  EXPECT_FALSE(shown.field.can(ui::EditAction::Undo));
  EXPECT_FALSE(shown.field.can(ui::EditAction::Cut));
  shown.field.run(ui::EditAction::SelectAll);
  EXPECT_TRUE(shown.field.can(ui::EditAction::Copy));
  shown.field.run(ui::EditAction::Cut);
  EXPECT_TRUE(shown.field.can(ui::EditAction::Undo));
  shown.field.run(ui::EditAction::Undo);
  EXPECT_TRUE(shown.field.can(ui::EditAction::Redo));
  shown.field.run(ui::EditAction::Redo);
  shown.field.run(ui::EditAction::Paste);

  EXPECT_EQ(shown.field.source(), "Text");
}

TEST(SourceColours, are_those_of_tags_attributes_and_comments)
{
  ShownSource shown("<p class=\"x\">Text</p>\r\n<!-- eins\r\nzwei --> drei");

  EXPECT_THAT(shown.coloured(0), ElementsAre("<p", "class", "\"x\"", ">", "</p>"));
  EXPECT_THAT(shown.coloured(2), ElementsAre("zwei -->"));
  QTest::keyClicks(&shown.field, "<!--");
  shown.wait();

  EXPECT_THAT(shown.coloured(0), ElementsAre("<!--<p class=\"x\">Text</p>"));
}

TEST(SourceColours, follow_the_palette)
{
  ShownSource shown("<p>Text</p>");
  const auto colour = [&] {
    return shown.field.document()->firstBlock().layout()->formats().constFirst().format.foreground().color();
  };
  const QColor light = colour();
  QPalette dark = shown.field.palette();
  dark.setColor(QPalette::Base, Qt::black);

  shown.field.setPalette(dark);
  shown.wait();

  EXPECT_NE(colour(), light);
}

TEST(SourceColours, of_a_long_text_come_with_the_lines_in_sight)
{
  std::string text;
  for (int i = 0; i < 5000; ++i)
    text += "<p>Zeile</p>\r\n";
  ShownSource shown(text);
  EXPECT_THAT(shown.coloured(0), testing::Not(IsEmpty()));
  EXPECT_THAT(shown.coloured(4000), IsEmpty());

  shown.field.verticalScrollBar()->setValue(4000);
  shown.wait();

  EXPECT_THAT(shown.coloured(4000), testing::Not(IsEmpty()));
}

TEST(SourceTags, that_belong_together_are_marked_at_the_cursor)
{
  ShownSource shown("<div>\r\n<p>Text</p>\r\n</div>");

  shown.placeCursor(2);
  EXPECT_THAT(shown.texts(shown.field.markedTags()), ElementsAre("<div>", "</div>"));
  shown.placeCursor(11);
  EXPECT_THAT(shown.field.markedTags(), IsEmpty());
  shown.field.setSource("<div><p>Text</div>");
  shown.placeCursor(6);

  EXPECT_THAT(shown.texts(shown.field.markedTags()), ElementsAre("<p>"));
}

TEST(SourcePlaces, of_a_text_are_all_marked_in_sight)
{
  ShownSource shown("Haus\r\nHAUS haus\r\nHof");

  shown.field.markAll("haus");
  EXPECT_THAT(shown.texts(shown.field.markedPlaces()), ElementsAre("Haus", "HAUS", "haus"));
  QTest::keyClicks(&shown.field, "haus ");
  shown.wait();
  EXPECT_THAT(shown.field.markedPlaces(), SizeIs(4));
  shown.field.markAll("");

  EXPECT_THAT(shown.field.markedPlaces(), IsEmpty());
}

TEST(LineNumbers, stand_beside_the_lines_and_get_room_for_more)
{
  ShownSource shown("eins\r\nzwei");
  auto& numbers = *shown.field.findChild<QWidget*>("lineNumbers");
  EXPECT_TRUE(numbers.isVisible());
  const int width = numbers.width();
  std::string text;
  for (int i = 0; i < 20000; ++i)
    text += "x\r\n";

  shown.field.setSource(text);
  shown.wait();

  EXPECT_GT(numbers.width(), width);
  EXPECT_GE(shown.field.viewport()->geometry().left(), numbers.width());
}

} // namespace
} // namespace mrd::desktop
