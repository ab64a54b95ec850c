#include "frame/settings/export_path.h"

#include "base/errors.h"
#include "support/temporary.h"

#include <gmock/gmock.h>

namespace mrd::settings {
namespace {

namespace fs = std::filesystem;

struct ExportPathTest : testing::Test {
  support::TemporaryDirectory home, site;
  paths::ProgramFiles program{home.path()};

  void SetUp() override
  {
    home.write("hilfe/mrdnav.js", "nav");
    home.write("hilfe/pix/mrdbanner.gif", "gif");
  }
};

TEST_F(ExportPathTest, gets_its_separator_pix_and_the_two_files)
{
  EXPECT_EQ(tbpfadexport_LostFocus("  " + site.path() + " ", program), site.path() + "\\");

  EXPECT_EQ(site.read("mrdnav.js"), "nav");
  EXPECT_EQ(site.read("pix/mrdbanner.gif"), "gif");
}

TEST_F(ExportPathTest, may_be_written_with_slashes)
{
  EXPECT_EQ(tbpfadexport_LostFocus(site.native().string() + "/", program), site.path() + "\\");
}

TEST_F(ExportPathTest, keeps_files_that_are_there)
{
  site.write("mrdnav.js", "eigene");
  site.write("pix/mrdbanner.gif", "eigenes");

  tbpfadexport_LostFocus(site.path() + "\\", program);

  EXPECT_EQ(site.read("mrdnav.js"), "eigene");
  EXPECT_EQ(site.read("pix/mrdbanner.gif"), "eigenes");
}

TEST_F(ExportPathTest, that_does_not_exist_falls_back_to_the_program_directory)
{
  EXPECT_EQ(tbpfadexport_LostFocus(site.file("fehlt"), program), home.file("exportpfad\\"));

  EXPECT_EQ(home.read("exportpfad/mrdnav.js"), "nav");
  EXPECT_EQ(home.read("exportpfad/pix/mrdbanner.gif"), "gif");
  EXPECT_FALSE(fs::exists(site.native() / "fehlt"));
}

TEST_F(ExportPathTest, that_is_blank_falls_back_and_is_never_the_root)
{
  EXPECT_EQ(tbpfadexport_LostFocus("", program), home.file("exportpfad\\"));
  EXPECT_EQ(tbpfadexport_LostFocus("   ", program), home.file("exportpfad\\"));
}

TEST_F(ExportPathTest, falls_back_a_second_time_to_the_same_directory)
{
  tbpfadexport_LostFocus(site.file("fehlt"), program);

  EXPECT_EQ(tbpfadexport_LostFocus(site.file("fehlt"), program), home.file("exportpfad\\"));
}

TEST_F(ExportPathTest, is_made_ready_without_files_where_the_program_has_none)
{
  const support::TemporaryDirectory bare;

  EXPECT_EQ(tbpfadexport_LostFocus(site.path(), paths::ProgramFiles(bare.path())), site.path() + "\\");

  EXPECT_TRUE(fs::is_directory(site.native() / "pix"));
  EXPECT_FALSE(fs::exists(site.native() / "mrdnav.js"));
}

TEST_F(ExportPathTest, that_must_exist_is_reported_and_nothing_is_made)
{
  EXPECT_EQ(existingExportPath(site.file("fehlt"), program), std::nullopt);
  EXPECT_EQ(existingExportPath("", program), std::nullopt);

  EXPECT_FALSE(fs::exists(home.native() / "exportpfad"));
}

TEST_F(ExportPathTest, gets_its_picture_directory_once_and_only_where_it_is_there_itself)
{
  makePictureDirectory(site.path() + "\\");
  makePictureDirectory(site.path() + "\\");

  EXPECT_TRUE(fs::is_directory(site.native() / "pix"));
  EXPECT_FALSE(fs::exists(site.native() / "mrdnav.js"));
  EXPECT_THROW(makePictureDirectory(site.file("fehlt\\")), base::Error);
}

TEST_F(ExportPathTest, that_must_exist_and_does_is_made_ready)
{
  EXPECT_EQ(existingExportPath(site.path(), program), site.path() + "\\");

  EXPECT_EQ(site.read("pix/mrdbanner.gif"), "gif");
}

} // namespace
} // namespace mrd::settings
