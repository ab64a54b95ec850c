#include "desktop/editing/shown_surface.h"

#include <gtest/gtest.h>

#include <csignal>
#include <stdexcept>

namespace mrd::desktop {
namespace {

pid_t processOf(const ShownSurface& surface)
{
  const auto process = static_cast<pid_t>(surface.page().renderProcessPid());
  // No process is 0, which would name all of ours.
  return process > 0 ? process : throw std::runtime_error("the page has no process");
}

void killProcessOf(const ShownSurface& surface) { ::kill(processOf(surface), SIGKILL); }

bool isRestored(const ShownSurface& surface, int times = 1)
{
  return comesTrue([&] { return surface.restorations == times; }, 10000);
}

/// A second, and what a busy machine takes longer: an answer comes behind those to all that was asked within the second.
void letASecondPass(ShownSurface& surface)
{
  letPass(1000);
  surface.textInDocument("''");
}

} // namespace

TEST(Breakdown, brings_the_page_back_and_tells_so)
{
  ShownSurface surface;
  surface.load("<h3 id=\"ueberschrift\">Haus</h3>\r\n<p>Text</p>");

  killProcessOf(surface);

  EXPECT_TRUE(isRestored(surface));
  EXPECT_FALSE(surface.busy());
  EXPECT_EQ(surface.bodyInnerHtml(), "<h3 id=\"ueberschrift\">Haus</h3>\r\n<p>Text</p>");
  EXPECT_EQ(surface.textInDocument("document.querySelector('p').innerText"), "Text");
}

TEST(Breakdown, loses_nothing_that_was_typed_a_second_ago)
{
  ShownSurface surface;
  surface.load("<p>Text</p>");
  surface.placeCursor("p", 4);
  surface.type(" am Meer");
  letASecondPass(surface);

  killProcessOf(surface);

  EXPECT_TRUE(isRestored(surface));
  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Text am Meer</p>");
}

TEST(Breakdown, of_a_large_page_loses_nothing_that_was_typed_a_second_ago)
{
  ShownSurface surface;
  std::string page = "<p>Text</p>";
  while (page.size() < 2'500'000)
    page += "<p>Das Haus am Meer.</p>\r\n";
  surface.load(page);
  surface.placeCursor("p", 4);
  surface.type("x");
  comesTrue([&] { return surface.changes > 0; });
  letASecondPass(surface);

  killProcessOf(surface);

  EXPECT_TRUE(isRestored(surface));
  EXPECT_EQ(surface.bodyInnerHtml().substr(0, 12), "<p>Textx</p>");
}

TEST(Breakdown, leaves_the_surface_as_editable_as_before)
{
  ShownSurface surface;
  surface.setDocumentColours("#112233", "#445566");
  surface.load("<p>Text</p>");
  killProcessOf(surface);
  ASSERT_TRUE(isRestored(surface));
  const int changes = surface.changes;

  surface.setFocus();
  surface.placeCursor("p", 4);
  surface.type("x");

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Textx</p>");
  EXPECT_GT(surface.changes, changes);
  EXPECT_EQ(surface.textInDocument("getComputedStyle(document.body).color"), "rgb(68, 85, 102)");
}

TEST(Breakdown, is_no_change)
{
  ShownSurface surface;
  surface.load("<p>Text</p>");

  killProcessOf(surface);
  isRestored(surface);
  letPass(700);

  EXPECT_EQ(surface.changes, 0);
}

TEST(Breakdown, while_a_page_is_read_answers_with_the_copy)
{
  ShownSurface surface;
  surface.load("<p id=\"ueberschrift\">Text</p>");

  const auto process = processOf(surface);
  ::kill(process, SIGSTOP);
  const std::string read = surface.bodyInnerHtml();
  const auto heading = surface.textOfElement("ueberschrift");
  ::kill(process, SIGKILL);

  EXPECT_EQ(read, "<p id=\"ueberschrift\">Text</p>");
  EXPECT_EQ(heading, "Text");
  EXPECT_TRUE(isRestored(surface));
}

TEST(Breakdown, again_and_again_ends_in_a_surface_that_keeps_the_text)
{
  ShownSurface surface;
  surface.load("<p>Text</p>");
  for (int times = 1; times <= 5; ++times) {
    killProcessOf(surface);
    ASSERT_TRUE(isRestored(surface, times));
  }

  killProcessOf(surface);
  letPass(500);

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Text</p>");
  surface.load("<p>andere</p>");
  EXPECT_EQ(surface.bodyInnerHtml(), "<p>andere</p>");
  EXPECT_EQ(surface.textInDocument("document.body.innerText"), "andere");
}

} // namespace mrd::desktop
