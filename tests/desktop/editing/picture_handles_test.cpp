// Pictures under the pointer: selected as a whole by a click, sized by their handles, moved where they are positioned.

#include "desktop/editing/shown_surface.h"
#include "platform/ui/editing_commands.h"

#include <QTest>
#include <QWebEngineView>

#include <gmock/gmock.h>

namespace mrd::desktop {

using namespace ui::command;
using testing::HasSubstr;

namespace {

/// A page with a picture of 100 by 50 pixels at its start.
struct PicturePage {
  explicit PicturePage(const std::string& attributes = {}, const std::string& behind = "<p>Text</p>")
  {
    surface.load("<div><img id=\"x\" src=\"x.jpg\" width=\"100\" height=\"50\"" + attributes + "></div>" + behind);
  }

  QWidget& view() const { return *surface.findChild<QWebEngineView*>()->focusProxy(); }
  QPoint place(const char* part) const
  {
    const auto value = surface
                           .inDocument(QString("(() => { const r = (%1).getBoundingClientRect(); return [r.left + r.width / 2, "
                                               "r.top + r.height / 2]; })()")
                                           .arg(part))
                           .toList();
    return {qRound(value.at(0).toDouble()), qRound(value.at(1).toDouble())};
  }
  QPoint picture() const { return place("document.getElementById('x')"); }
  QPoint handle(const char* name) const
  {
    return place(QString("document.documentElement.lastElementChild.shadowRoot.querySelector('.handle.%1')").arg(name).toUtf8());
  }
  bool isFramed() const
  {
    return surface.inDocument("!document.documentElement.lastElementChild.shadowRoot.getElementById('frame').hidden").toBool();
  }
  void click(QPoint point)
  {
    QTest::mouseClick(&view(), Qt::LeftButton, {}, point);
    letPass(100);
  }
  void drag(QPoint from, QPoint by, bool drops = true)
  {
    QTest::mousePress(&view(), Qt::LeftButton, {}, from);
    letPass(60);
    for (const int part : {2, 1}) {
      QTest::mouseMove(&view(), from + by / part);
      letPass(60);
    }
    if (drops)
      QTest::mouseRelease(&view(), Qt::LeftButton, {}, from + by);
    letPass(100);
  }
  std::string attribute(const char* name) const
  {
    return surface.textInDocument(QString("document.getElementById('x').getAttribute('%1') ?? 'none'").arg(name));
  }

  ShownSurface surface;
};

} // namespace

TEST(PictureUnderThePointer, is_selected_as_a_whole_by_a_click)
{
  PicturePage page;
  EXPECT_FALSE(page.isFramed());

  page.click(page.picture());

  EXPECT_EQ(page.surface.selectionType(), ui::SelectionType::Control);
  EXPECT_TRUE(page.isFramed());
  EXPECT_EQ(page.surface.status(kPicture), kEnabled);
  page.click(page.place("document.querySelector('p')"));
  EXPECT_FALSE(page.isFramed());
}

TEST(PictureUnderThePointer, is_sized_by_the_handle_of_a_side)
{
  PicturePage page;
  page.click(page.picture());

  page.drag(page.handle("e"), {40, 3});

  EXPECT_EQ(page.attribute("width"), "140");
  EXPECT_EQ(page.attribute("height"), "50");
  EXPECT_TRUE(page.isFramed());
  EXPECT_EQ(page.surface.changes, 1);
}

TEST(PictureUnderThePointer, keeps_its_proportions_at_a_corner)
{
  PicturePage page;
  page.click(page.picture());

  page.drag(page.handle("se"), {100, 50});

  EXPECT_EQ(page.attribute("width"), "200");
  EXPECT_EQ(page.attribute("height"), "100");
}

TEST(PictureUnderThePointer, gets_its_size_back_by_one_step_of_undoing)
{
  PicturePage page;
  const std::string before = page.surface.bodyInnerHtml();
  page.click(page.picture());
  page.drag(page.handle("se"), {60, 30});
  ASSERT_NE(page.surface.bodyInnerHtml(), before);

  page.surface.execCommand(kUndo);

  EXPECT_EQ(page.surface.bodyInnerHtml(), before);
}

TEST(PictureUnderThePointer, keeps_its_size_when_the_drag_is_given_up)
{
  PicturePage page;
  const std::string before = page.surface.bodyInnerHtml();
  page.click(page.picture());
  const QPoint from = page.handle("se");

  page.drag(from, {60, 30}, false);
  page.surface.press(Qt::Key_Escape);
  QTest::mouseRelease(&page.view(), Qt::LeftButton, {}, from + QPoint(60, 30));
  letPass(100);

  EXPECT_EQ(page.surface.bodyInnerHtml(), before);
}

TEST(PictureUnderThePointer, keeps_to_the_grid_where_that_is_wanted)
{
  PicturePage page;
  page.surface.setSnapToGrid(true);
  EXPECT_TRUE(page.surface.snapToGrid());
  page.click(page.picture());

  page.drag(page.handle("e"), {43, 0});

  EXPECT_EQ(page.attribute("width"), "140");
}

TEST(PositionedPicture, is_moved_by_the_pointer_and_keeps_to_the_grid)
{
  PicturePage page(" style=\"position: absolute; left: 50px; top: 50px;\"");
  page.click(page.picture());

  page.drag(page.picture(), {33, 21});
  EXPECT_EQ(page.attribute("style"), "position: absolute; left: 83px; top: 71px;");
  page.surface.setSnapToGrid(true);
  page.drag(page.picture(), {33, 21});

  EXPECT_EQ(page.attribute("style"), "position: absolute; left: 120px; top: 90px;");
}

TEST(PositionedPicture, that_is_locked_has_no_handles_and_stays)
{
  PicturePage page(" style=\"position: absolute; left: 50px; top: 50px;\"");
  page.click(page.picture());
  page.surface.execCommand(kLockElement);
  const std::string before = page.surface.bodyInnerHtml();

  page.drag(page.picture(), {33, 21});

  EXPECT_EQ(page.surface.bodyInnerHtml(), before);
  EXPECT_FALSE(page.surface
                   .inDocument("[...document.documentElement.lastElementChild.shadowRoot.querySelectorAll('.handle')]"
                               ".some(h => getComputedStyle(h).display !== 'none')")
                   .toBool());
}

TEST(Frame, is_no_part_of_the_page)
{
  PicturePage page;
  const std::string before = page.surface.bodyInnerHtml();

  page.click(page.picture());

  EXPECT_EQ(page.surface.bodyInnerHtml(), before);
  page.surface.execCommand(kSelectAll);
  EXPECT_THAT(page.surface.selectedText(), testing::Not(HasSubstr("frame")));
}

TEST(PictureValues, are_asked_for_with_those_of_the_selected_picture)
{
  PicturePage page(" alt=\"Möwe\" align=\"left\" border=\"2\"");
  ui::PictureValues asked;
  ui::SurfacePrompts prompts;
  prompts.picture = [&](const ui::PictureValues& present) {
    asked = present;
    auto wanted = present;
    wanted.alt = "See & \"Meer\"";
    wanted.width = "";
    wanted.height = "80";
    wanted.align = "";
    return std::optional(wanted);
  };
  page.surface.setPrompts(prompts);
  page.surface.selectElement("#x");

  EXPECT_TRUE(page.surface.execCommand(kPicture, ui::Prompt::Ask));

  EXPECT_EQ(asked.src + asked.alt + asked.width + asked.height + asked.align + asked.border, "x.jpgMöwe10050left2");
  EXPECT_THAT(page.surface.bodyInnerHtml(),
              HasSubstr("<img id=\"x\" src=\"x.jpg\" height=\"80\" alt=\"See &amp; &quot;Meer&quot;\" border=\"2\">"));
}

TEST(LinkValues, make_a_link_of_a_picture_or_text_with_its_window_and_take_it_away)
{
  PicturePage page({}, "<p>Text</p>");
  std::optional<ui::LinkValues> answer;
  ui::SurfacePrompts prompts;
  prompts.link = [&](const ui::LinkValues&) { return answer; };
  page.surface.setPrompts(prompts);
  const std::string before = page.surface.bodyInnerHtml();

  page.surface.selectElement("#x");
  answer = {"gross.jpg", "_blank"};
  EXPECT_TRUE(page.surface.execCommand(kHyperlink, ui::Prompt::Ask));
  EXPECT_THAT(page.surface.bodyInnerHtml(), HasSubstr("<a href=\"gross.jpg\" target=\"_blank\"><img id=\"x\""));
  answer = ui::LinkValues{};
  EXPECT_TRUE(page.surface.execCommand(kHyperlink, ui::Prompt::Ask));
  EXPECT_EQ(page.surface.bodyInnerHtml(), before);

  page.surface.select("p");
  answer = {"a.htm", "_blank"};
  page.surface.execCommand(kHyperlink, ui::Prompt::Ask);
  EXPECT_THAT(page.surface.bodyInnerHtml(), HasSubstr("<p><a href=\"a.htm\" target=\"_blank\">Text</a></p>"));
}

TEST(Elements, of_the_page_are_read_and_changed_in_one_step)
{
  ShownSurface surface;
  surface.load("<table border=\"1\"><tbody><tr><td id=\"x\">Text</td><td>b</td></tr></tbody></table>");
  const std::string before = surface.bodyInnerHtml();
  surface.placeCursor("#x", 2);

  auto cell = surface.parentElement();
  ASSERT_TRUE(cell);
  EXPECT_EQ(cell->tagName(), "TD");
  EXPECT_EQ(cell->getAttribute("ID"), "x");
  EXPECT_EQ(cell->getAttribute("align"), std::nullopt);
  EXPECT_EQ(cell->outerHTML(), "<td id=\"x\">Text</td>");
  auto row = cell->parentElement();
  ASSERT_TRUE(row);
  EXPECT_EQ(row->children().size(), 2U);
  EXPECT_EQ(*row->children().front().parentElement(), *row);
  {
    const ui::UndoStep step(surface);
    cell->setAttribute("bgColor", "#ff0000");
    cell->removeAttribute("id");
    row->setStyle("font-size", "12pt");
  }
  EXPECT_EQ(surface.bodyInnerHtml(), "<table border=\"1\"><tbody><tr style=\"font-size: 12pt;\"><td bgcolor=\"#ff0000\">Text</td>"
                                     "<td>b</td></tr></tbody></table>");
  surface.execCommand(kUndo);
  EXPECT_EQ(surface.bodyInnerHtml(), before);

  surface.load("<p>neu</p>");
  EXPECT_EQ(cell->tagName(), "");
  EXPECT_EQ(cell->parentElement(), std::nullopt);
}

TEST(Elements, around_a_selected_picture_are_none_and_the_picture_is_the_selected_one)
{
  PicturePage page;
  page.surface.selectElement("#x");

  EXPECT_EQ(page.surface.parentElement(), std::nullopt);
  ASSERT_TRUE(page.surface.selectedElement());
  EXPECT_EQ(page.surface.selectedElement()->getAttribute("src"), "x.jpg");
  page.surface.placeCursor("p", 0);
  EXPECT_EQ(page.surface.selectedElement(), std::nullopt);
}

} // namespace mrd::desktop
