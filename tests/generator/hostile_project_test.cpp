// Runs over what no editor writes and into directories that fail.

#include "generator/site_run.h"
#include "platform/files/files.h"

#include <gmock/gmock.h>

#include <filesystem>

#include <csignal>
#include <sys/resource.h>

namespace mrd::generator {
namespace {

/// Files of this process cannot grow beyond a size: what a full disk is to a database.
class FileSizeLimit {
public:
  FileSizeLimit()
  {
    getrlimit(RLIMIT_FSIZE, &before_);
    signalBefore_ = std::signal(SIGXFSZ, SIG_IGN);
  }
  ~FileSizeLimit()
  {
    lift();
    std::signal(SIGXFSZ, signalBefore_);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

  void set(rlim_t bytes) const
  {
    const rlimit limit{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  void lift() const { setrlimit(RLIMIT_FSIZE, &before_); }

private:
  rlimit before_{};
  void (*signalBefore_)(int) = SIG_DFL;
};

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

TEST(Hostile, a_pattern_that_leads_out_is_refused_for_its_page_alone)
{
  SiteRun site{{"00", "Start", ""},
               {"01", "Oben", "", "../oben.htm"},
               {"02", "Tief", "", "pix/tief.htm"},
               {"03", "Wurzel", "", "\\wurzel.htm"},
               {"04", "Laufwerk", "", "C:x.htm"},
               {"05", "Punkte", "", ".."},
               {"06", "Gut", "", "gut..htm"}};
  for (const auto* name : {"../oben.htm", "pix/tief.htm", "\\wurzel.htm", "C:x.htm", ".."})
    site.ui.expect(101, name);

  const auto outcome = site.run();

  EXPECT_TRUE(outcome.finished);
  EXPECT_EQ(outcome.generated, 2u);
  EXPECT_EQ(outcome.refused, 5u);
  EXPECT_EQ(site.labelSeite, "Fertig! Es wurden 2 Seiten generiert.");
  EXPECT_THAT(site.files(), ElementsAre("gut..htm", "index.htm", "mrdnav.js"));
  EXPECT_FALSE(std::filesystem::exists(site.site.native().parent_path() / "oben.htm"));
}

TEST(Hostile, a_homepage_that_leads_out_is_refused_and_the_rest_is_written)
{
  SiteRun site{{"00", "Start", "", "../*.htm"}, {"01", "Haus", ""}};
  site.ui.expect(101);

  const auto outcome = site.run();

  EXPECT_EQ(outcome.generated, 1u);
  EXPECT_EQ(outcome.refused, 1u);
  EXPECT_TRUE(site.has("01.htm"));
}

TEST(Hostile, a_homepage_whose_name_is_an_address_is_refused)
{
  SiteRun site{{"00", "Start", "", "http://x.example/"}, {"01", "Haus", ""}};
  site.ui.expect(101, "http://x.example/");

  EXPECT_EQ(site.run().generated, 1u);
  EXPECT_THAT(site.menuTargets("01.htm"), ElementsAre("http://x.example/"));
}

TEST(Hostile, a_page_whose_name_comes_out_empty_is_refused)
{
  SiteRun site{{"00", "Start", ""}, {"", "Ohne Nummer", "", "*"}, {"01", "Haus", ""}};
  site.ui.expect(101);

  EXPECT_EQ(site.run().generated, 2u);
}

TEST(Hostile, an_id_that_leads_out_is_refused)
{
  SiteRun site{{"00", "Start", ""}, {"../01", "Oben", ""}, {"a/b", "Tief", "", "http://x.example", 2}};
  site.ui.expect(101).expect(101);

  EXPECT_EQ(site.run().refused, 2u);
  EXPECT_FALSE(std::filesystem::exists(site.site.native().parent_path() / "01.htm"));
}

TEST(Hostile, null_everywhere_is_a_page_without_anything)
{
  SiteRun site{
      {"00", std::nullopt, {}, {}, std::nullopt}, {"01", std::nullopt, {}, {}, std::nullopt}, {"0101", std::nullopt, {}, {}, 1}};

  const auto outcome = site.run();

  EXPECT_EQ(outcome.generated, 3u);
  EXPECT_THAT(site.menuTargets("0101.htm"), ElementsAre("index.htm"));
  EXPECT_EQ(site.body("0101.htm"), "");
}

TEST(Hostile, a_page_without_an_id_does_no_harm)
{
  SiteRun site{{"00", "Start", ""}, {"01", "Haus", ""}};
  site.project.db().execute("INSERT INTO Seite (Überschrift, dateiname) VALUES ('ohne', 'ohne.htm')");

  EXPECT_TRUE(site.run().finished);
  EXPECT_TRUE(site.has("01.htm"));
}

TEST(Hostile, wrong_types_are_read_as_text_and_numbers)
{
  SiteRun site{{"00", "Start", ""}};
  site.project.db().execute(
      "INSERT INTO Seite (id, Überschrift, html, dateiname, [seitentyp-id], changingdate) VALUES (?, ?, ?, ?, ?, ?)",
      {1, 2.5, 42, 7, "drei", "kein Datum"});

  const auto outcome = site.run();

  EXPECT_TRUE(outcome.finished);
  EXPECT_EQ(outcome.generated, 2u);
  EXPECT_EQ(site.body("7"), "42");
}

TEST(Hostile, ids_that_are_no_ids_are_written_like_others)
{
  SiteRun site{{"00", "Start", ""}};
  for (const auto* id : {"1", "x", "001", "M0101", "010101010101", "O'Neil", "ÄÖ", "01 02", "-1", "\"; DROP"})
    site.project.addPage({id, "Seite", ""});

  const auto outcome = site.run();

  EXPECT_TRUE(outcome.finished);
  EXPECT_EQ(outcome.generated, 11u);
  EXPECT_TRUE(site.has("O'Neil.htm"));
  EXPECT_TRUE(site.has("ÄÖ.htm"));
  EXPECT_EQ(site.project.ids().size(), 11u);
}

TEST(Hostile, two_rows_of_one_id_are_both_written)
{
  SiteRun site{{"00", "Start", ""}, {"01", "Eins", "eins", "eins.htm"}, {"01", "Zwei", "zwei", "zwei.htm"}};

  EXPECT_EQ(site.run().generated, 3u);
  EXPECT_EQ(site.body("eins.htm"), "eins");
  EXPECT_EQ(site.body("zwei.htm"), "zwei");
}

TEST(Hostile, a_project_without_its_homepage_is_generated)
{
  SiteRun site{{"01", "Haus", ""}, {"02", "Ort", ""}};

  const auto outcome = site.run();

  EXPECT_TRUE(outcome.finished);
  EXPECT_EQ(outcome.generated, 2u);
  EXPECT_THAT(site.menuTargets("01.htm"), ElementsAre("index.htm", "02.htm"));
}

TEST(Hostile, a_project_without_pages_ends_with_a_message)
{
  SiteRun site{};
  site.ui.expect(0, "Es wurden keine Seiten zum Generieren gefunden.");

  EXPECT_FALSE(site.run().finished);
  EXPECT_EQ(site.project.setting("lastgendate"), std::nullopt);
}

TEST(Hostile, a_project_file_that_is_gone_or_lacks_its_settings_is_told_to_the_caller)
{
  SiteRun site{{"00", "Start", ""}};
  site.project.db().execute("DROP TABLE Einstellungen");
  EXPECT_THROW(site.run(), base::Error);

  site.dbName = site.pictures.file("weg.mdb");
  EXPECT_THROW(site.run(), base::Error);
  EXPECT_THAT(site.files(), IsEmpty());
}

TEST(Hostile, values_that_are_their_own_placeholders_end)
{
  SiteRun site{{"00", "[mrd:Überschrift]", "[mrd:Inhalt]"}, {"01", "[mrd:ID][mrd:Überschrift]", "", "[mrd:ID].htm"}};
  site.fields.tbtitel = "[mrd:Titel][mrd:Überschrift]";
  site.fields.tbschriftart = "[mrd:Schriftart]";
  site.fields.tbText = "[mrd:Textfarbe]";
  site.fields.Tbtabelle = "[mrd:Tabellenfarbe]";
  site.fields.ComboInhalt.selectText("[mrd:Inhaltbreite]");
  site.fields.ComboMenüspalte.selectText("[mrd:Menübreite]");
  site.fields.tbbasisurl = "src='pix";
  site.project.setSetting("KopfHTML", "[mrd:Kopf]");

  EXPECT_EQ(site.run().generated, 2u);
  EXPECT_EQ(site.body("index.htm"), "[mrd:Inhalt]");
}

TEST(Hostile, a_picture_that_is_a_directory_or_unreadable_stops_nothing)
{
  SiteRun site{{"00", "Start", ""}};
  site.pictures.write("ordner.jpg/x", "x");
  site.project.db().execute("UPDATE Seite SET html = ? WHERE id = '00'",
                            {"<img src='" + site.pictures.file("ordner.jpg") + "'><img src='" + site.pictures.file("weg.jpg") +
                             "'><img src='\\proc\\self\\mem.jpg'>"});
  site.ui.expect(0, "pix\\ordner.jpg wurde nicht gefunden!")
      .expect(0, "pix\\weg.jpg wurde nicht gefunden!")
      .expect(0, "pix\\mem.jpg wurde nicht gefunden!");

  EXPECT_TRUE(site.run().finished);
  EXPECT_EQ(site.body("index.htm"), "<img src=\"pix/ordner.jpg\"><img src=\"pix/weg.jpg\"><img src=\"pix/mem.jpg\">");
}

TEST(Hostile, a_copy_that_fails_stops_the_run_with_the_words_of_the_platform)
{
  SiteRun site{{"00", "Start", ""}};
  site.programDirectory.write("mrdbanner.gif", "banner");
  site.site.write("pix", "eine Datei");
  site.ui.acceptAll();

  EXPECT_FALSE(site.run().finished);
  ASSERT_EQ(site.ui.messages.size(), 1u);
  EXPECT_EQ(site.ui.messages[0].number, 1);
  EXPECT_THAT(site.ui.messages[0].text, HasSubstr("in Modul cbHTML_Click"));
}

TEST(Hostile, references_of_endless_length_and_odd_bytes_do_no_harm)
{
  SiteRun site{{"00", "Start",
                "<img src='" + std::string(100000, 'a') + ".jpg'><a href='file://" + std::string(100000, 'b') +
                    ".jpg'>x</a><img src='\x01%00%zz'><img src='" + std::string(5000, '/') + "'>"}};
  site.ui.acceptAll();

  EXPECT_TRUE(site.run().finished);
}

TEST(Hostile, deep_nesting_is_no_reason_to_fail)
{
  std::string deep;
  for (int i = 0; i < 20000; ++i)
    deep += "<div><b>";
  SiteRun site{{"00", "Start", deep + "x"}};

  EXPECT_TRUE(site.run().finished);
  EXPECT_THAT(site.body("index.htm"), HasSubstr("x"));
}

// A device that is always full stands in for the disk. It is no file, which the register tells first.
TEST(FullDisk, ends_the_run_with_a_message_and_lets_the_next_one_work)
{
  SiteRun site{{"00", "Start", ""}, {"01", "Haus", std::string(100000, 'x')}, {"02", "Ort", ""}};
  std::filesystem::create_symlink("/dev/full", site.site.native() / "01.htm");
  site.ui.expect(0, "01.htm wurde nicht gefunden!").expect(1, "(61) in Modul cbHTML_Click");

  const auto outcome = site.run();

  EXPECT_FALSE(outcome.finished);
  EXPECT_FALSE(site.has("02.htm"));
  EXPECT_TRUE(site.has("index.htm")) << "what was written stays";
  EXPECT_EQ(site.project.setting("lastgendate"), std::nullopt);
  EXPECT_EQ(site.ui.pointerShape, ui::Pointer::Default);
  EXPECT_GE(site.ui.progressHidden, 1);

  std::filesystem::remove(site.site.native() / "01.htm");
  EXPECT_TRUE(site.run().finished);
}

TEST(FullDisk, also_when_the_page_is_small)
{
  SiteRun site{{"00", "Start", ""}};
  std::filesystem::create_symlink("/dev/full", site.site.native() / "index.htm");
  site.ui.expect(0, "index.htm wurde nicht gefunden!").expect(1, "(61)");

  EXPECT_FALSE(site.run().finished);
}

TEST(FullDisk, that_lets_the_register_down_at_the_end_is_told_and_the_run_is_not_finished)
{
  SiteRun site{{"00", "Start", ""}};
  site.run();
  site.clock.present.year += 1;
  site.ui.expect(1, "in Modul cbHTML_Click");
  FileSizeLimit limit;
  site.ui.atPump = [&] { limit.set(8192); };

  const auto outcome = site.run();
  limit.lift();

  EXPECT_FALSE(outcome.finished);
  EXPECT_EQ(site.project.setting("lastgendate"), "17.05.2024 08:30:15");
  EXPECT_THAT(site.entered(1), ElementsAre("mrdnav.js", "index.htm")) << "the rows of the run before";
}

TEST(ExportDirectory, that_cannot_be_written_is_a_message)
{
  SiteRun site{{"00", "Start", ""}};
  site.fields.tbpfadexport = "\\proc\\self\\";
  site.ui.acceptAll();

  EXPECT_FALSE(site.run().finished);
  ASSERT_EQ(site.ui.messages.size(), 1u);
  EXPECT_EQ(site.project.setting("lastgendate"), std::nullopt);
}

TEST(ExportDirectory, that_is_a_file_is_message_37)
{
  SiteRun site{{"00", "Start", ""}};
  site.pictures.write("datei", "x");
  site.fields.tbpfadexport = site.pictures.file("datei") + "\\";
  site.ui.expect(37);

  EXPECT_FALSE(site.run().finished);
}

TEST(ExportDirectory, of_any_name_is_the_base_of_relative_pictures_and_links)
{
  for (const std::string name : {"Anna's Seiten", "a &amp; \"b\"", "100%41", "C#", "wer?", "jpg file:"}) {
    SiteRun site{{"00", "Start", "<img src='bilder/x.gif'><a href=\"bilder/o'neil.jpg\">x</a>"}};
    site.pictures.write(name + "/bilder/x.gif", "x");
    site.pictures.write(name + "/bilder/o'neil.jpg", "y");
    site.fields.tbpfadexport = site.pictures.file(name + "\\");

    EXPECT_TRUE(site.run().finished) << name;
    EXPECT_EQ(site.pictures.read(name + "/pix/x.gif"), "x") << name;
    EXPECT_EQ(site.pictures.read(name + "/pix/o'neil.jpg"), "y") << name;
    EXPECT_THAT(site.pictures.read(name + "/index.htm"), HasSubstr("<img src=\"pix/x.gif\"><a href=\"pix/o'neil.jpg\">x</a>"))
        << name;
  }
}

TEST(ExportDirectory, in_which_a_page_s_file_is_a_directory_is_a_message)
{
  SiteRun site{{"00", "Start", ""}, {"01", "Haus", ""}};
  site.site.write("01.htm/x", "x");
  site.ui.expect(1, "(75) in Modul cbHTML_Click");

  EXPECT_FALSE(site.run().finished);
}

TEST(ExportDirectory, that_vanishes_during_the_run_is_a_message)
{
  SiteRun site{{"00", "Start", ""}, {"01", "Haus", ""}, {"02", "Ort", ""}};
  site.ui.atPump = [&] {
    if (site.ui.eventPumps == 1)
      std::filesystem::remove_all(site.site.native());
  };
  site.ui.acceptAll();

  EXPECT_FALSE(site.run().finished);
  EXPECT_FALSE(site.ui.messages.empty());
  EXPECT_EQ(site.ui.messages.back().number, 1);
  EXPECT_FALSE(std::filesystem::exists(site.site.native())) << "nothing makes it again";
}

TEST(User, stops_a_run_between_two_pages)
{
  SiteRun site{{"00", "Start", ""}, {"01", "Haus", ""}, {"02", "Ort", ""}, {"03", "Strand", ""}};
  site.ui.stopAtPump = 2;

  const auto outcome = site.run();

  EXPECT_FALSE(outcome.finished);
  EXPECT_LT(outcome.generated, 4u);
  EXPECT_FALSE(site.has("03.htm"));
  EXPECT_EQ(site.project.setting("lastgendate"), std::nullopt) << "pages that are not written yet stay due";
  EXPECT_GE(site.ui.progressHidden, 1);
  EXPECT_EQ(site.ui.pointerShape, ui::Pointer::Default);

  site.ui.stopAtPump = 0;
  EXPECT_EQ(site.run().generated, 4u);
}

TEST(User, who_stops_has_whole_pages)
{
  SiteRun site{{"00", "Start", ""}, {"01", "Haus", ""}, {"02", "Ort", ""}};
  site.ui.stopAtPump = 2;

  site.run();

  for (const auto& file : site.files()) {
    if (file.ends_with(".htm")) {
      EXPECT_THAT(site.page(file), testing::EndsWith("</HTML>\r\n\r\n\r\n\r\n\r\n")) << file;
    }
  }
}

TEST(Register, lists_what_was_written_when_a_run_ended_early)
{
  SiteRun site{{"00", "Start", ""}, {"01", "Haus", ""}};
  site.site.write("01.htm/x", "x");
  site.ui.expect(1);

  site.run();

  EXPECT_THAT(site.entered(1), Contains("index.htm"));
}

TEST(Register, takes_directories_with_apostrophes)
{
  SiteRun site{{"00", "Start", ""}, {"01", "O'Neil", "", "o'neil.htm"}};
  site.pictures.write("Anna's Seiten/x", "");
  site.fields.tbpfadexport = site.pictures.file("Anna's Seiten\\");

  EXPECT_TRUE(site.run().finished);
  EXPECT_TRUE(files::fileExists(site.pictures.file("Anna's Seiten\\o'neil.htm")));
  EXPECT_EQ(site.project.db().openRecordset("SELECT * FROM Dateien WHERE dateiname = ?", {"o'neil"}).recordCount(), 1u);
}

TEST(Register, has_one_row_for_a_file_without_extension)
{
  SiteRun site{{"00", "Start", ""}, {"01", "Haus", "", "haus"}, {"02", "Auch", "", "haus"}};

  site.run();

  EXPECT_EQ(site.project.db().openRecordset("SELECT * FROM Dateien WHERE dateiname = 'haus'").recordCount(), 1u);
}

} // namespace
} // namespace mrd::generator
