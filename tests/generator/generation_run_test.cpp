// A run of the export dialog from its button to its closing line.

#include "generator/site_run.h"
#include "platform/files/files.h"
#include "platform/image/image.h"

#include <gmock/gmock.h>

namespace mrd::generator {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

support::Page pageOf(std::string id, std::string changingdate, std::optional<std::string> html = "")
{
  return {id, "Seite " + id, std::move(html), {}, 1, {}, std::move(changingdate)};
}

TEST(Run, writes_every_page_and_enters_what_it_wrote_in_its_order)
{
  SiteRun site{{"00", "Start", ""}, {"01", "Haus", "popup picturetransfer"}, {"02", "Blind", "", {}, 3}};
  site.pictures.write("b.jpg", "b");
  site.pictures.write("k.gif", "k");
  site.project.setSetting("KopfHTML", "<img src='" + site.pictures.file("k.gif") + "'>");
  site.project.db().execute("UPDATE Seite SET html = ? WHERE id = '01'",
                            {"popup picturetransfer<img src='" + site.pictures.file("b.jpg") + "'>"});
  site.programDirectory.write("mrdbanner.gif", "banner");
  site.programDirectory.write("popupbild.htm", "popup");
  site.programDirectory.write("picturetransfer.js", "transfer");
  site.programDirectory.write("mrdshop.js", "shop");

  const auto outcome = site.run();

  EXPECT_TRUE(outcome.finished);
  EXPECT_EQ(outcome.generated, 3u);
  EXPECT_EQ(outcome.refused, 0u);
  EXPECT_EQ(site.labelSeite, "Fertig! Es wurden 3 Seiten generiert.");
  const std::vector<EnteredFile> expected{
      {"pix\\mrdbanner.gif", 2}, {"mrdnav.js", 1},          {"mrdshop.js", 1}, {"index.htm", 1}, {"pix\\k.gif", 2}, {"01.htm", 1},
      {"popupbild.htm", 1},      {"picturetransfer.js", 1}, {"pix\\b.jpg", 2}, {"02.htm", 1}};
  EXPECT_EQ(site.entered(), expected);
  EXPECT_THAT(site.files(), ElementsAre("01.htm", "02.htm", "index.htm", "mrdnav.js", "mrdshop.js", "picturetransfer.js",
                                        "pix/b.jpg", "pix/k.gif", "pix/mrdbanner.gif", "popupbild.htm"));
}

TEST(Run, enters_files_in_lower_case_as_due_with_their_date)
{
  SiteRun site{{"00", "Start", "", "Start-Seite.HTM"}};

  site.run();

  EXPECT_TRUE(site.has("Start-Seite.HTM"));
  auto row = site.project.db().openRecordset("SELECT * FROM Dateien WHERE dateiname = 'start-seite'");
  ASSERT_EQ(row.recordCount(), 1u);
  EXPECT_EQ(row.value("erweiterung").text(), "htm");
  EXPECT_EQ(row.value("dateityp-id").integer(), 1);
  EXPECT_TRUE(row.value("übertragen").yes());
  EXPECT_THAT(row.value("dateidatum").text(), testing::MatchesRegex("[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2}"));
}

TEST(Run, keeps_the_listings_of_the_server_in_the_register)
{
  SiteRun site{{"00", "Start", ""}};
  for (const auto type : {1, 2, 4, 5})
    site.project.db().execute("INSERT INTO Dateien (pfad, dateiname, erweiterung, [dateityp-id]) VALUES ('alt', 'alt', 'htm', ?)",
                              {type});

  site.run();

  EXPECT_THAT(site.entered(4), ElementsAre("altalt.htm"));
  EXPECT_THAT(site.entered(5), ElementsAre("altalt.htm"));
  EXPECT_THAT(site.entered(1), ElementsAre("mrdnav.js", "index.htm"));
  EXPECT_THAT(site.entered(2), IsEmpty());
}

TEST(Run, replaces_older_pages)
{
  SiteRun site{{"00", "Start", "neu"}};
  site.site.write("index.htm", std::string(100000, 'x'));

  site.run();

  EXPECT_EQ(site.body("index.htm"), "neu");
  EXPECT_THAT(site.page("index.htm"), Not(HasSubstr("xxx")));
}

TEST(Run, leaves_files_alone_that_belong_to_no_page)
{
  SiteRun site{{"00", "Start", ""}};
  site.site.write("mrdstyle.css", "alt");

  site.run();

  EXPECT_EQ(site.page("mrdstyle.css"), "alt");
  EXPECT_THAT(site.entered(1), Not(Contains("mrdstyle.css")));
}

TEST(Run, makes_the_picture_directory_that_is_missing)
{
  SiteRun site{{"00", "Start", ""}};

  site.run();

  EXPECT_TRUE(files::directoryExists(site.site.file("pix")));
}

TEST(Run, takes_an_export_directory_without_its_separator)
{
  SiteRun site{{"00", "Start", ""}};
  site.fields.tbpfadexport = site.site.path();

  EXPECT_TRUE(site.run().finished);
  EXPECT_TRUE(site.has("index.htm"));
}

TEST(Run, into_a_missing_directory_is_message_37_and_changes_nothing)
{
  SiteRun site{{"00", "Start", ""}};
  site.fields.tbpfadexport = site.site.file("weg\\");
  site.project.setSetting("lastgendate", "01.02.2003 04:05:06");
  site.project.db().execute("INSERT INTO Dateien (pfad, dateiname, [dateityp-id]) VALUES ('alt', 'alt', 1)");
  site.ui.expect(37);

  const auto outcome = site.run();

  EXPECT_FALSE(outcome.finished);
  EXPECT_EQ(site.unloads, 1);
  EXPECT_THAT(site.entered(), SizeIs(1));
  EXPECT_EQ(site.project.setting("lastgendate"), "01.02.2003 04:05:06");
  EXPECT_FALSE(files::directoryExists(site.site.file("weg")));
}

TEST(Run, into_an_empty_export_path_is_message_37)
{
  SiteRun site{{"00", "Start", ""}};
  for (const auto* blank : {"", "  "}) {
    site.fields.tbpfadexport = blank;
    site.ui.expect(37);
    EXPECT_FALSE(site.run().finished);
  }
}

TEST(Run, without_a_project_is_message_24)
{
  SiteRun site{{"00", "Start", ""}};
  site.dbName = "";
  site.ui.expect(24);

  EXPECT_FALSE(site.run().finished);
  EXPECT_EQ(site.unloads, 1);
  EXPECT_THAT(site.files(), IsEmpty());
}

TEST(Run, stores_its_moment)
{
  SiteRun site{{"00", "Start", ""}};

  site.run();

  EXPECT_EQ(site.project.setting("lastgendate"), "17.05.2024 08:30:15");
}

TEST(Run, shows_each_page_and_its_progress_and_hides_it_at_the_end)
{
  SiteRun site{{"00", "Start", ""}, {"01", "Küche", "", "k-*.htm"}};

  site.run();

  EXPECT_THAT(site.ui.statusTexts, testing::IsSupersetOf({"ID:00 - index.htm: Start", "ID:01 - k-01.htm: Küche",
                                                          "Fertig! Es wurden 2 Seiten generiert."}));
  EXPECT_THAT(site.ui.progressSteps, testing::IsSupersetOf({std::pair<std::size_t, std::size_t>{1, 2}, {2, 2}}));
  EXPECT_GE(site.ui.progressHidden, 1);
  EXPECT_EQ(site.ui.pointerShape, ui::Pointer::Default);
  EXPECT_GE(site.ui.eventPumps, 2);
}

TEST(Run, takes_the_newest_change_first)
{
  SiteRun site{pageOf("00", "2024-01-01 00:00:00"), pageOf("01", "2024-01-03 00:00:00"), pageOf("02", "2024-01-02 00:00:00")};

  site.run();

  EXPECT_THAT(site.entered(1), ElementsAre("mrdnav.js", "01.htm", "02.htm", "index.htm"));
}

TEST(Run, names_files_by_pattern_and_number)
{
  SiteRun site{{"00", "Start", "", "*.html"},  {"0102", "Voll", "", "*.htm"},
               {"02", "Fest", "", "fest.htm"}, {"03", "Fremd", "", "http://y.example/a", 2},
               {"04", "Stern", "", "*-*.x"},   {"05", "Leer", "", ""},
               {"06", "Groß", "", "HTTP.htm"}};

  site.run();

  EXPECT_THAT(site.files(),
              ElementsAre("0102.htm", "03.htm", "04-04.x", "05.htm", "HTTP.htm", "fest.htm", "index.html", "mrdnav.js"));
}

TEST(Run, links_an_external_page_by_its_address_and_generates_it_by_its_number)
{
  SiteRun site{{"00", "Start", ""}, {"01", "Fremd", "", "http://y.example/a", 2}};

  site.run();

  EXPECT_TRUE(site.has("01.htm"));
  EXPECT_THAT(site.menuTargets("index.htm"), ElementsAre("http://y.example/a"));
}

TEST(Run, names_the_homepage_index_also_when_its_pattern_is_empty_or_null)
{
  for (const std::optional<std::string>& pattern :
       {std::optional<std::string>{}, std::optional<std::string>{""}, std::optional<std::string>{"*.htm"}}) {
    SiteRun site{{"00", "Start", "", pattern}};
    const auto outcome = site.run();
    EXPECT_TRUE(site.has("index.htm"));
    EXPECT_EQ(outcome.startdatei, "index.htm");
  }
}

TEST(Run, lets_two_pages_with_one_file_write_it_one_after_the_other)
{
  SiteRun site{{"00", "Start", ""}, {"01", "Eins", "eins", "gleich.htm"}, {"02", "Zwei", "zwei", "GLEICH.htm"}};

  EXPECT_EQ(site.run().generated, 3u);
  EXPECT_THAT(site.entered(1), ElementsAre("mrdnav.js", "index.htm", "gleich.htm"));
  EXPECT_EQ(site.body("gleich.htm"), "zwei");
}

TEST(NewOnly, of_nothing_changed_writes_the_homepage_alone)
{
  SiteRun site{pageOf("00", "2024-01-01 00:00:00"), pageOf("01", "2024-01-01 00:00:00")};
  site.pictures.write("a.jpg", "a");
  site.pictures.write("b.jpg", "b");
  site.project.db().execute("UPDATE Seite SET html = ? WHERE id = '00'", {"<img src='" + site.pictures.file("a.jpg") + "'>"});
  site.project.db().execute("UPDATE Seite SET html = ? WHERE id = '01'", {"<img src='" + site.pictures.file("b.jpg") + "'>"});
  site.run();
  site.site.write("01.htm", "von vorhin");

  const auto outcome = site.runNewOnly();

  EXPECT_EQ(outcome.generated, 1u);
  EXPECT_EQ(site.labelSeite, "Fertig! Es wurden 1 Seiten generiert.");
  EXPECT_EQ(site.page("01.htm"), "von vorhin");
  const std::vector<EnteredFile> expected{{"mrdnav.js", 1}, {"index.htm", 1}, {"pix\\a.jpg", 2}};
  EXPECT_EQ(site.entered(), expected);
}

TEST(NewOnly, handles_the_newest_change_first)
{
  SiteRun site{pageOf("00", "2024-01-01 00:00:00"), pageOf("01", "2024-06-01 00:00:00"), pageOf("02", "2024-06-02 00:00:00"),
               pageOf("03", "2024-05-01 00:00:00")};
  site.project.setSetting("lastgendate", "17.05.2024 08:30:15");

  site.runNewOnly();

  EXPECT_THAT(site.entered(1), ElementsAre("mrdnav.js", "02.htm", "01.htm", "index.htm"));
}

TEST(NewOnly, moves_the_date_that_it_compares_with)
{
  SiteRun site{pageOf("00", "2024-01-01 00:00:00"), pageOf("01", "2024-06-01 00:00:00")};
  site.clock.present = {2024, 6, 2, 0, 0, 0};
  EXPECT_EQ(site.runNewOnly().generated, 2u) << "no run before";

  EXPECT_EQ(site.runNewOnly().generated, 1u);
  EXPECT_EQ(site.project.setting("lastgendate"), "02.06.2024 00:00:00");
}

TEST(NewOnly, stops_at_a_date_that_is_none)
{
  SiteRun site{{"00", "Start", ""}};
  site.project.setSetting("lastgendate", "gestern");
  site.ui.expect(1, "(13) in Modul cbHTML_Click");

  const auto outcome = site.runNewOnly();

  EXPECT_FALSE(outcome.finished);
  EXPECT_FALSE(site.has("index.htm"));
  EXPECT_EQ(site.project.setting("lastgendate"), "gestern");
  EXPECT_EQ(site.ui.pointerShape, ui::Pointer::Default);
}

TEST(NewOnly, of_the_homepage_knows_it_for_its_links)
{
  SiteRun site{{"00", "Start", "", "start.htm"}, pageOf("01", "2024-06-01 00:00:00")};
  site.project.setSetting("lastgendate", "17.05.2024 08:30:15");

  site.runNewOnly();

  EXPECT_THAT(site.menuTargets("01.htm"), ElementsAre("start.htm"));
}

TEST(Preview, writes_one_page_opens_it_and_moves_the_date)
{
  SiteRun site{{"00", "Start", "", "start.htm"}, {"01", "Haus", ""}, {"02", "Ort", ""}};
  site.project.setSetting("lastgendate", "01.02.2003 04:05:06");

  const auto outcome = site.preview("01");

  EXPECT_EQ(outcome.generated, 1u);
  EXPECT_THAT(site.shell.opened, ElementsAre(site.site.file("01.htm")));
  EXPECT_EQ(site.project.setting("lastgendate"), "17.05.2024 08:30:15");
  EXPECT_THAT(site.entered(1), ElementsAre("mrdnav.js", "01.htm")) << "the register holds only this run's files";
  EXPECT_FALSE(site.has("start.htm"));
}

TEST(Preview, takes_the_homepage_for_links_from_the_table)
{
  SiteRun site{{"00", "Start", "", "start.htm"}, {"01", "Haus", ""}, {"0101", "Küche", ""}};

  site.preview("01");

  EXPECT_THAT(site.menuTargets("01.htm"), ElementsAre("start.htm", "0101.htm"));
  EXPECT_THAT(site.pageTurn("01.htm"), ElementsAre("start.htm|&lt; Start", "#oben|oben", "0101.htm|Küche &gt;"));
}

TEST(Preview, of_an_external_page_has_no_base_address)
{
  SiteRun site{{"00", "Start", ""}, {"01", "Fremd", "<img src='pix/a.gif'>", {}, 2}};
  site.site.write("pix/a.gif", "");
  site.fields.tbbasisurl = "http://x.example/";

  site.preview("01");

  EXPECT_EQ(site.body("01.htm"), "<img src=\"pix/a.gif\">");
  EXPECT_THAT(site.menuTargets("01.htm"), ElementsAre("index.htm"));
}

TEST(Preview, of_the_homepage_bears_its_name)
{
  SiteRun site{{"00", "Start", "", "*.html"}};

  EXPECT_EQ(site.preview("00").startdatei, "index.html");
  EXPECT_THAT(site.shell.opened, ElementsAre(site.site.file("index.html")));
}

TEST(Preview, of_a_page_that_is_not_there_ends_with_a_message)
{
  SiteRun site{{"00", "Start", ""}};
  site.ui.expect(0, "Es wurden keine Seiten zum Generieren gefunden.");

  const auto outcome = site.preview("77");

  EXPECT_FALSE(outcome.finished);
  EXPECT_EQ(site.project.setting("lastgendate"), std::nullopt);
  EXPECT_THAT(site.shell.opened, IsEmpty());
  EXPECT_EQ(site.ui.pointerShape, ui::Pointer::Default);
}

TEST(FullRun, opens_nothing)
{
  SiteRun site{{"00", "Start", ""}};

  site.run();

  EXPECT_THAT(site.shell.opened, IsEmpty());
}

TEST(PreviewButton, opens_the_homepage_of_the_last_run)
{
  SiteRun site{{"00", "Start", "", "start.htm"}};
  frmHTMLExport dialog({site.program, site.language, site.fields, site.clock, site.shell});
  ASSERT_TRUE(dialog.Form_Load(site.dbName));
  dialog.cbHTML_Click();

  dialog.cbvorschau_Click();

  ASSERT_THAT(site.shell.opened, SizeIs(1));
  EXPECT_TRUE(files::fileExists(site.shell.opened[0])) << site.shell.opened[0];
  EXPECT_TRUE(site.shell.opened[0].ends_with("\\start.htm"));
}

struct CornerRun : testing::Test {
  SiteRun site{{"00", "Start", ""}};

  CornerRun()
  {
    site.fields.CheckRundeEcke = true;
    site.fields.tbradius = "20";
    site.fields.tbhintergrundaussen = "ffffff";
    site.fields.Tbtabelle = "#000000";
  }
  std::string cornerFile(const std::string& name) const { return site.site.file("pix\\" + name); }
};

TEST_F(CornerRun, makes_and_enters_the_four_pictures_first_of_all)
{
  site.programDirectory.write("mrdbanner.gif", "banner");

  site.run();

  EXPECT_THAT(site.entered(2),
              ElementsAre("pix\\ecke-ur.jpg", "pix\\ecke-ol.jpg", "pix\\ecke-or.jpg", "pix\\ecke-ul.jpg", "pix\\mrdbanner.gif"));
  for (const auto* name : {"ecke-ur.jpg", "ecke-ol.jpg", "ecke-or.jpg", "ecke-ul.jpg"}) {
    const auto picture = image::Image::load(cornerFile(name));
    EXPECT_EQ(picture.width(), 20);
    EXPECT_EQ(picture.height(), 20);
  }
  EXPECT_THAT(site.page("index.htm"), HasSubstr("<img src='pix/ecke-ul.jpg' hspace=0 vspace=0></TD>"));
}

TEST_F(CornerRun, fills_the_inner_side_of_each_arc)
{
  site.run();

  struct Side {
    const char* name;
    int innerX, innerY;
  };
  for (const auto& [name, innerX, innerY] :
       {Side{"ecke-ol.jpg", 17, 17}, Side{"ecke-or.jpg", 2, 17}, Side{"ecke-ul.jpg", 17, 2}, Side{"ecke-ur.jpg", 2, 2}}) {
    const auto picture = image::Image::load(cornerFile(name));
    EXPECT_LT(picture.pixel(innerX, innerY).red, 40) << name;
    EXPECT_GT(picture.pixel(19 - innerX, 19 - innerY).red, 215) << name;
  }
}

TEST_F(CornerRun, of_radius_zero_or_no_number_is_one_pixel)
{
  for (const auto* radius : {"0", "", "rund", "00"}) {
    site.fields.tbradius = radius;
    site.run();
    EXPECT_EQ(image::Image::load(cornerFile("ecke-ol.jpg")).width(), 1) << radius;
  }
}

TEST_F(CornerRun, does_not_fail_for_any_radius)
{
  for (const auto* radius : {"-5", "1e9", "99999999999999999999", "2.5", "nan", "inf", "25 px"}) {
    site.fields.tbradius = radius;
    EXPECT_TRUE(site.run().finished) << radius;
  }
}

TEST_F(CornerRun, brings_the_pictures_below_the_base_address_of_external_pages)
{
  site.project.addPage({"01", "Fremd", "", {}, 2});
  site.fields.tbbasisurl = "http://x.example/";

  site.run();

  EXPECT_THAT(site.page("01.htm"), HasSubstr("<img src='http://x.example/pix/ecke-ul.jpg' hspace=0 vspace=0>"));
  EXPECT_THAT(site.page("01.htm"), HasSubstr("<img alt='' src='http://x.example/pix/ecke-ol.jpg' hspace=0 vspace=0 align=top>"));
}

TEST_F(CornerRun, leaves_older_pictures_when_the_option_is_off)
{
  site.run();
  const auto before = site.site.read("pix/ecke-ol.jpg");
  site.fields.CheckRundeEcke = false;
  site.fields.Tbtabelle = "ff0000";

  site.run();

  EXPECT_EQ(site.site.read("pix/ecke-ol.jpg"), before);
  EXPECT_THAT(site.entered(2), IsEmpty());
  EXPECT_THAT(site.page("index.htm"), Not(HasSubstr("ecke-")));
}

TEST(Repetition, gives_the_same_bytes_entries_and_messages_from_kept_bodies)
{
  SiteRun site{{"00", "Start", "<P>a<img src='http://y.example/x.jpg'>"}, {"02", "Skript", "<? x ?>", "x.php"}};
  site.pictures.write("B.jpg", "b");
  site.project.addPage(
      {"01", "Bild", "<IMG SRC='" + site.pictures.file("B.jpg") + "'><img src='" + site.pictures.file("weg.jpg") + "'>"});
  site.ui.acceptAll();
  site.run();
  const auto firstEntries = site.entered();
  const auto firstPage = site.page("01.htm");
  const auto firstMessages = site.ui.messages.size();

  site.run();

  EXPECT_EQ(site.entered(), firstEntries);
  EXPECT_EQ(site.page("01.htm"), firstPage);
  EXPECT_EQ(site.ui.messages.size(), 2 * firstMessages);
  EXPECT_EQ(firstMessages, 2u);
}

TEST(Repetition, brings_a_picture_again_that_was_removed_from_the_site)
{
  SiteRun site{{"00", "Start", ""}};
  site.pictures.write("b.jpg", "b");
  site.project.db().execute("UPDATE Seite SET html = ? WHERE id = '00'", {"<img src='" + site.pictures.file("b.jpg") + "'>"});
  site.run();
  files::removeFile(site.site.file("pix\\b.jpg"));

  site.run();

  EXPECT_TRUE(site.has("pix/b.jpg"));
  EXPECT_THAT(site.entered(2), ElementsAre("pix\\b.jpg"));
}

TEST(Repetition, follows_a_change_of_what_a_body_depends_on)
{
  SiteRun site{{"00", "Start", ""},
               {"01", "Fremd", "<a href=\"javascript:picturetransfer('file:///a/b.jpg')\">x</a><img src='pix/a.gif'>", {}, 2}};
  site.programDirectory.write("picturetransfer.js", "");
  site.site.write("pix/a.gif", "");
  site.site.write("pix/b.jpg", "");
  site.fields.tbbasisurl = "http://eins.example/";
  site.run();
  EXPECT_THAT(site.body("01.htm"), HasSubstr("'http://eins.example/pix/b.jpg'"));
  site.fields.tbbasisurl = "http://zwei.example/";

  site.run();

  EXPECT_EQ(
      site.body("01.htm"),
      "<a href=\"javascript:picturetransfer('http://zwei.example/pix/b.jpg')\">x</a><img src=\"http://zwei.example/pix/a.gif\">");
}

TEST(SiteAddress, gets_its_slash_from_the_first_link_that_needs_it)
{
  SiteRun site{{"00", "Start", "<img src='pix/a.gif'>"},
               {"01", "Bild", "<a href='pix/a.jpg'>x</a>"},
               {"02", "Fern", "<a href=\"javascript:picturetransfer('file://pix/a.jpg')\">x</a>"}};
  site.programDirectory.write("picturetransfer.js", "");
  site.site.write("pix/a.gif", "");
  site.site.write("pix/a.jpg", "");
  site.fields.tbbasisurl = "http://x.example";

  site.preview("00");
  EXPECT_EQ(site.fields.tbbasisurl, "http://x.example");
  site.run();

  EXPECT_EQ(site.fields.tbbasisurl, "http://x.example/");
  EXPECT_EQ(site.body("02.htm"), "<a href=\"javascript:picturetransfer('http://x.example/pix/a.jpg')\">x</a>");
}

} // namespace
} // namespace mrd::generator
