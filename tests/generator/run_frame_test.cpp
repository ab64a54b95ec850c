#include "generator/run_frame.h"

#include "generator/site_run.h"
#include "platform/files/files.h"

#include <gmock/gmock.h>

namespace mrd::generator {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::string_view kOrder = "changingdate DESC, ID";

TEST(StaysInDirectory, refuses_what_leads_out)
{
  for (const auto* name : {"../x.htm", "..", ".", "a/b.htm", "a\\b.htm", "..\\x.htm", "C:x.htm", "C:\\x.htm", "/x", "\\x", ""})
    EXPECT_FALSE(staysInDirectory(name)) << name;
}

TEST(StaysInDirectory, accepts_plain_names)
{
  for (const auto* name : {"index.htm", "..htm", "a..b.htm", "x", "Über uns.htm", "O'Neil.htm", ".htaccess"})
    EXPECT_TRUE(staysInDirectory(name)) << name;
}

struct PageQueryTest : testing::Test {
  support::TemporaryProject project{
      {"00", "Start", {}, {}, 1, {}, "2020-01-01 00:00:00"},    {"01", "Alt", {}, {}, 1, {}, "2024-05-01 10:00:00"},
      {"0101", "Gleich", {}, {}, 1, {}, "2024-05-02 09:08:07"}, {"0102", "Auch gleich", {}, {}, 1, {}, "2024-05-02 09:08:08"},
      {"02", "Neu", {}, {}, 1, {}, "2024-05-03 00:00:00"},      {"03", "Nie", {}, {}, 1}};

  std::vector<std::string> selected(const Selection& selection, const std::optional<std::string>& lastgendate)
  {
    const auto query = pageQuery(selection, lastgendate, kOrder);
    std::vector<std::string> out;
    for (auto row = project.db().openRecordset(query.sql, query.parameters); !row.eof(); row.moveNext())
      out.push_back(row.value("id").text());
    return out;
  }
};

TEST_F(PageQueryTest, takes_all_pages_newest_change_first)
{
  EXPECT_THAT(selected({}, "02.05.2024 09:08:07"), ElementsAre("02", "0102", "0101", "01", "00", "03"));
}

TEST_F(PageQueryTest, takes_the_homepage_and_what_changed_since_the_last_run)
{
  EXPECT_THAT(selected({"#", true}, "02.05.2024 09:08:07"), ElementsAre("02", "0102", "00"));
}

TEST_F(PageQueryTest, reads_the_date_of_the_last_run_in_both_forms)
{
  EXPECT_THAT(selected({"#", true}, "2024-05-02 09:08:07"), ElementsAre("02", "0102", "00"));
  EXPECT_THAT(selected({"#", true}, "2.5.2024 9:08:07"), ElementsAre("02", "0102", "00"));
}

TEST_F(PageQueryTest, counts_from_the_year_1900_without_a_last_run)
{
  EXPECT_THAT(selected({"#", true}, std::nullopt), ElementsAre("02", "0102", "0101", "01", "00"));
}

TEST_F(PageQueryTest, takes_the_homepage_alone_when_nothing_changed)
{
  EXPECT_THAT(selected({"#", true}, "01.01.2030 00:00:00"), ElementsAre("00"));
}

TEST_F(PageQueryTest, takes_the_one_page_of_a_preview_even_unchanged)
{
  EXPECT_THAT(selected({"01", true}, "01.01.2030 00:00:00"), ElementsAre("01"));
  EXPECT_THAT(selected({"99", false}, {}), IsEmpty());
}

TEST_F(PageQueryTest, of_an_id_with_an_apostrophe_finds_that_page_alone)
{
  project.addPage({"O'1", "Seltsam"});

  EXPECT_THAT(selected({"O'1", false}, {}), ElementsAre("O'1"));
  EXPECT_THAT(selected({"x' OR '1'='1", false}, {}), IsEmpty());
}

TEST_F(PageQueryTest, fails_on_a_date_that_is_none)
{
  try {
    selected({"#", true}, "gestern");
    FAIL() << "no failure";
  } catch (const base::Error& error) {
    EXPECT_EQ(error.kind(), base::ErrorNumber::TypeMismatch);
  }
  EXPECT_NO_THROW(selected({}, "gestern")) << "only a run of new pages needs the date";
}

TEST(LastGenDate, is_changed_or_added_in_its_form)
{
  support::TemporaryProject project{{"00", "Start"}};
  EXPECT_EQ(readSetting(project.db(), "lastgendate"), std::nullopt);

  writeLastGenDate(project.db(), {2024, 5, 7, 8, 3, 9});
  EXPECT_EQ(project.setting("lastgendate"), "07.05.2024 08:03:09");
  writeLastGenDate(project.db(), {2025, 12, 31, 23, 59, 59});
  EXPECT_EQ(project.setting("lastgendate"), "31.12.2025 23:59:59");
  EXPECT_EQ(project.db().openRecordset("SELECT * FROM Einstellungen WHERE Einstellung = 'lastgendate'").recordCount(), 1u);
}

struct SiteFilesTest : testing::Test {
  SiteRun run{{"00", "Start"}};
  const std::string exportpfad = run.site.path() + "\\";
  std::optional<project::FileRegister> fileRegister;

  SiteFilesTest()
  {
    files::makeDirectory(exportpfad + "pix");
    fileRegister.emplace(run.project.db(), run.language);
  }
  SiteFiles siteFiles() { return {run.program, exportpfad, *fileRegister}; }
};

TEST_F(SiteFilesTest, the_banner_comes_from_the_program_directory)
{
  run.programDirectory.write("mrdbanner.gif", "oben");
  run.programDirectory.write("hilfe/pix/mrdbanner.gif", "hilfe");

  siteFiles().bringBanner();

  EXPECT_EQ(run.site.read("pix/mrdbanner.gif"), "oben");
  EXPECT_THAT(run.entered(2), ElementsAre("pix\\mrdbanner.gif"));
}

TEST_F(SiteFilesTest, the_banner_comes_from_the_help_directory_else)
{
  run.programDirectory.write("hilfe/pix/mrdbanner.gif", "hilfe");

  siteFiles().bringBanner();

  EXPECT_EQ(run.site.read("pix/mrdbanner.gif"), "hilfe");
}

TEST_F(SiteFilesTest, a_banner_of_the_site_stays)
{
  run.programDirectory.write("mrdbanner.gif", "oben");
  run.site.write("pix/mrdbanner.gif", "eigener");

  siteFiles().bringBanner();

  EXPECT_EQ(run.site.read("pix/mrdbanner.gif"), "eigener");
  EXPECT_THAT(run.entered(2), ElementsAre("pix\\mrdbanner.gif"));
}

TEST_F(SiteFilesTest, no_banner_at_all_is_no_failure)
{
  siteFiles().bringBanner();

  EXPECT_THAT(run.files(), IsEmpty());
  EXPECT_THAT(run.entered(), IsEmpty());
}

TEST_F(SiteFilesTest, scripts_are_brought_as_far_as_they_are_there)
{
  run.programDirectory.write("cookiefunctions.js", "programm");
  run.site.write("mrdnav.js", "eigenes");

  siteFiles().bringScripts();

  EXPECT_THAT(run.entered(1), ElementsAre("mrdnav.js", "cookiefunctions.js"));
  EXPECT_EQ(run.site.read("mrdnav.js"), "eigenes") << "an older copy stays";
  EXPECT_EQ(run.site.read("cookiefunctions.js"), "programm");
  EXPECT_FALSE(run.has("mrdshop.js"));
}

TEST_F(SiteFilesTest, the_popup_page_is_brought_unless_the_site_has_one)
{
  EXPECT_FALSE(siteFiles().bringPopupPage());
  run.programDirectory.write("popupbild.htm", "programm");
  EXPECT_TRUE(siteFiles().bringPopupPage());
  EXPECT_EQ(run.site.read("popupbild.htm"), "programm");

  run.site.write("popupbild.htm", "eigene");
  EXPECT_TRUE(siteFiles().bringPopupPage());
  EXPECT_EQ(run.site.read("popupbild.htm"), "eigene");
  EXPECT_THAT(run.entered(1), ElementsAre("popupbild.htm"));
}

TEST_F(SiteFilesTest, the_transfer_script_of_the_program_replaces_the_copy_of_the_site)
{
  run.programDirectory.write("picturetransfer.js", "neu");
  run.site.write("picturetransfer.js", "alt");

  siteFiles().bringPictureTransferScript();

  EXPECT_EQ(run.site.read("picturetransfer.js"), "neu");
  EXPECT_THAT(run.entered(1), ElementsAre("picturetransfer.js"));
}

TEST_F(SiteFilesTest, the_transfer_script_of_the_site_is_entered_where_the_program_has_none)
{
  run.site.write("picturetransfer.js", "alt");

  siteFiles().bringPictureTransferScript();

  EXPECT_EQ(run.site.read("picturetransfer.js"), "alt");
  EXPECT_THAT(run.entered(1), ElementsAre("picturetransfer.js"));
}

TEST_F(SiteFilesTest, a_transfer_script_that_is_nowhere_is_told)
{
  run.ui.expect(0, "picturetransfer.js wurde nicht gefunden!");

  siteFiles().bringPictureTransferScript();

  EXPECT_THAT(run.entered(), IsEmpty());
}

} // namespace
} // namespace mrd::generator
