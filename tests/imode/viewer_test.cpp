#include "imode/viewer.h"

#include "imode/imode_site.h"

#include <gmock/gmock.h>

namespace mrd::imode {
namespace {

using testing::ElementsAre;

TEST(ViewerScript, is_one_line_with_the_path_of_the_homepage)
{
  EXPECT_EQ(viewerScript("\\home\\anna\\haus\\", "index.htm"),
            "document.getElementById(\"display\" ).src = \"/home/anna/haus/imode/index.htm\"; \r\n");
  EXPECT_EQ(viewerScript("C:\\haus\\", "start.html"),
            "document.getElementById(\"display\" ).src = \"C:/haus/imode/start.html\"; \r\n");
}

TEST(ViewerScript, escapes_what_would_end_it_or_means_something_else_in_an_address)
{
  EXPECT_EQ(viewerScript("\\a\"b\\50% #1?\\", "ä ♥.htm"),
            "document.getElementById(\"display\" ).src = \"/a%22b/50%25 %231%3F/imode/ä %E2%99%A5.htm\"; \r\n");
  EXPECT_EQ(viewerScript("\\a\nb\\", ""), "document.getElementById(\"display\" ).src = \"/a%0Ab/imode/\"; \r\n");
}

struct PreviewTest : testing::Test {
  ImodeSite site{{"00", "Start", "", "s*.htm"}};
  ImodeExport dialog{{site.program, site.language, site.fields, site.clock, site.shell}};

  PreviewTest()
  {
    site.programDirectory.write("imode/viewer.html", "");
    dialog.Form_Load(site.dbName);
  }
  std::string script() const { return site.programDirectory.read("imode/viewer.js"); }
  std::string address() const { return generator::between(script(), "\"display\" ).src = \"", "\"; "); }
};

TEST_F(PreviewTest, before_a_run_points_at_an_address_without_a_file_name)
{
  dialog.cbvorschau_Click();

  EXPECT_TRUE(address().ends_with("/imode/"));
  EXPECT_THAT(site.shell.opened, ElementsAre(site.program.file("\\imode\\viewer.html")));
}

TEST_F(PreviewTest, points_at_the_homepage_of_the_last_run)
{
  dialog.cbHTML_Click();

  dialog.cbvorschau_Click();

  EXPECT_TRUE(address().ends_with("/imode/sindex.htm"));
  EXPECT_EQ(address(), (site.site.native() / "imode/sindex.htm").string());
}

TEST_F(PreviewTest, is_written_anew_at_every_click)
{
  site.programDirectory.write("imode/viewer.js", "a longer text than the line that comes in its place, by far and by all means, "
                                                 "so that nothing of it may be left behind the new one when it is replaced");

  dialog.cbvorschau_Click();
  const auto first = script();
  site.programDirectory.write("imode/viewer.js", "x");
  dialog.cbvorschau_Click();

  EXPECT_EQ(script(), first);
}

TEST_F(PreviewTest, that_cannot_be_written_is_message_1)
{
  site.programDirectory.write("imode/viewer.js/x", "");
  site.ui.expect(1, "in Modul cbvorschau_Click");

  dialog.cbvorschau_Click();

  EXPECT_THAT(site.shell.opened, testing::IsEmpty());
}

} // namespace
} // namespace mrd::imode
