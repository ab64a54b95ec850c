#include "desktop/editing/shown_surface.h"
#include "platform/ui/editing_commands.h"

#include <QTest>
#include <QWebEngineView>

#include <gmock/gmock.h>

namespace mrd::desktop {

using namespace ui::command;

TEST(Typing, changes_the_page_and_tells_so)
{
  ShownSurface surface;
  surface.load("<p>Text</p>");
  surface.placeCursor("p", 4);

  surface.type(" am Meer");

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Text am Meer</p>");
  EXPECT_EQ(surface.changes, 1);
}

TEST(Typing, is_read_at_once)
{
  ShownSurface surface;
  surface.load("<p>Text</p>");
  surface.placeCursor("p", 4);

  QTest::keyClicks(surface.findChild<QWebEngineView*>()->focusProxy(), "abc");

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Textabc</p>");
}

TEST(Typing, after_a_read_is_a_change_again)
{
  ShownSurface surface;
  surface.load("<p>Text</p>");
  surface.placeCursor("p", 4);
  surface.type("a");
  surface.bodyInnerHtml();

  surface.type("b");

  EXPECT_TRUE(comesTrue([&] { return surface.changes == 2; }));
  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Textab</p>");
}

TEST(Typing, while_the_page_is_replaced_does_not_silence_what_is_typed_later)
{
  ShownSurface surface;
  for (int i = 0; i < 5; ++i) {
    surface.load("<p>Text</p>");
    surface.placeCursor("p", 4);
    QTest::keyClicks(surface.findChild<QWebEngineView*>()->focusProxy(), "abc");
    surface.setDocumentHtml("<p>neu</p>");
    QTest::keyClicks(surface.findChild<QWebEngineView*>()->focusProxy(), "abc");
    surface.setBodyInnerHtml("<p>neuer</p>");
    comesTrue([&] { return !surface.busy(); });
    letPass(i * 40);
    surface.bodyInnerHtml();
    const int changes = surface.changes;
    const int displays = surface.displays;

    surface.placeCursor("p", 3);
    surface.type("x");

    EXPECT_TRUE(comesTrue([&] { return surface.changes > changes && surface.displays > displays; })) << i;
  }
}

TEST(Typing, in_an_empty_document_works)
{
  ShownSurface surface;
  surface.newDocument();
  comesTrue([&] { return !surface.busy(); });

  surface.type("Hallo");

  EXPECT_THAT(surface.bodyInnerHtml(), testing::HasSubstr("Hallo"));
}

TEST(Typing, of_a_line_end_begins_a_paragraph)
{
  ShownSurface surface;
  surface.load("<p>Text</p>");
  surface.placeCursor("p", 2);

  surface.press(Qt::Key_Return);

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Te</p><p>xt</p>");
}

TEST(Typing, leaves_the_rest_of_the_page_byte_for_byte)
{
  ShownSurface surface;
  const std::string rest =
      "<img src=\"file://\\home\\web\\pix/x.jpg\" onload=\"f()\"><!-- x --><neu a=\"\"></neu>\r\n<pre>\r\n\r\nx</pre>";
  surface.load("<p>Text</p>" + rest);
  surface.placeCursor("p", 4);

  surface.type("x");

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Textx</p>" + rest);
}

TEST(Undo, takes_back_what_was_typed_in_one_go_and_redo_brings_it_again)
{
  ShownSurface surface;
  surface.load("<p>Text</p>");
  surface.placeCursor("p", 4);
  EXPECT_EQ(surface.status(kUndo), kDisabled);
  surface.type("abc");
  EXPECT_EQ(surface.status(kUndo), kEnabled);
  EXPECT_EQ(surface.queryStatus(kRedo), kDisabled);

  EXPECT_TRUE(surface.execCommand(kUndo));
  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Text</p>");
  EXPECT_EQ(surface.queryStatus(kRedo), kEnabled);
  EXPECT_TRUE(surface.execCommand(kRedo));

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Textabc</p>");
  EXPECT_FALSE(surface.execCommand(kRedo));
}

TEST(Undo, by_the_keyboard_does_the_same)
{
  ShownSurface surface;
  surface.load("<p>Text</p>");
  surface.placeCursor("p", 4);
  surface.type("abc");

  surface.press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Text</p>");
  surface.press(Qt::Key_Y, Qt::ControlModifier);

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Textabc</p>");
}

TEST(Undo, takes_back_commands_and_typing_in_their_order)
{
  ShownSurface surface;
  surface.load("<p>Text</p>");
  surface.placeCursor("p", 4);
  surface.type("x");
  surface.select("p");
  surface.execCommand(kBold);
  surface.execCommand(kSetBlockFormat, ui::Prompt::None, "Heading 1");
  surface.execCommand(kNumbers);
  surface.insertTable({});
  surface.pasteHtml("<div>y</div>");
  surface.setBodyInnerHtml("<p>ganz anders</p>");

  std::vector<std::string> texts;
  for (int i = 0; i < 7; ++i) {
    texts.push_back(surface.bodyInnerHtml());
    EXPECT_TRUE(surface.execCommand(kUndo)) << i;
  }

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Text</p>");
  EXPECT_FALSE(surface.execCommand(kUndo));
  for (int i = 6; i >= 0; --i) {
    EXPECT_TRUE(surface.execCommand(kRedo));
    EXPECT_EQ(surface.bodyInnerHtml(), texts[static_cast<std::size_t>(i)]);
  }
}

TEST(Undo, is_a_change)
{
  ShownSurface surface;
  surface.load("<p>Text</p>");
  surface.select("p");
  surface.execCommand(kBold);
  surface.bodyInnerHtml();
  const int changes = surface.changes;

  surface.execCommand(kUndo);

  EXPECT_TRUE(comesTrue([&] { return surface.changes > changes; }));
}

TEST(Undo, does_not_reach_behind_the_load)
{
  ShownSurface surface;
  surface.load("<p>eins</p>");
  surface.select("p");
  surface.execCommand(kBold);

  surface.newDocument();
  surface.setBodyInnerHtml("<p>zwei</p>");

  EXPECT_FALSE(surface.execCommand(kUndo));
  EXPECT_EQ(surface.bodyInnerHtml(), "<p>zwei</p>");
}

TEST(Undo, after_something_new_has_nothing_to_bring_again)
{
  ShownSurface surface;
  surface.load("<p>Text</p>");
  surface.select("p");
  surface.execCommand(kBold);
  surface.execCommand(kUndo);
  surface.execCommand(kItalic);

  EXPECT_FALSE(surface.execCommand(kRedo));
  EXPECT_EQ(surface.bodyInnerHtml(), "<p><i>Text</i></p>");
}

TEST(ContextMenu, is_asked_for_at_the_point_and_with_the_picture_under_it_selected)
{
  ShownSurface surface;
  int x = -1, pictureStatus = -1;
  ui::SurfaceEvents events;
  events.showContextMenu = [&](int atX, int) {
    x = atX;
    pictureStatus = surface.queryStatus(kPicture);
  };
  surface.setEvents(events);
  surface.load("<img src=\"x.jpg\" width=\"200\" height=\"200\" style=\"position: absolute; left: 0; top: 0\">");

  QTest::mouseClick(surface.findChild<QWebEngineView*>()->focusProxy(), Qt::RightButton, Qt::NoModifier, QPoint(50, 60));

  EXPECT_TRUE(comesTrue([&] { return x == 50; }));
  EXPECT_EQ(pictureStatus, kEnabled);
  EXPECT_EQ(surface.selectionType(), ui::SelectionType::Control);
}

TEST(ClickOnAPicture, selects_it)
{
  ShownSurface surface;
  surface.load("<p>Text</p><img src=\"x.jpg\" width=\"200\" height=\"200\" style=\"position: absolute; left: 0; top: 0\">");

  QTest::mouseClick(surface.findChild<QWebEngineView*>()->focusProxy(), Qt::LeftButton, Qt::NoModifier, QPoint(50, 60));

  EXPECT_TRUE(comesTrue([&] { return surface.selectionType() == ui::SelectionType::Control; }));
}

} // namespace mrd::desktop
