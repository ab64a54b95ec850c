#include "pictures/file_scan.h"

#include "base/errors.h"
#include "pagetree/page_desk.h"
#include "pictures/picture_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace mrd::pictures {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> texts(const ListBox& box)
{
  std::vector<std::string> out;
  for (const auto& entry : box)
    out.push_back(entry.text);
  return out;
}

struct FileScan : testing::Test, PictureDesk {
  FileScan() { form.tbshare = fotos(); }

  void files(std::initializer_list<const char*> names)
  {
    for (const char* name : names)
      directory.write("fotos/" + std::string(name), "x");
  }
  FrmFileScan makeForm()
  {
    FileScanHooks hooks;
    hooks.anzeigen = [this](const std::string& datei, std::string_view darstellung) {
      shown.push_back(datei + " " + std::string(darstellung));
    };
    hooks.showViewer = [this] { ++viewerShown; };
    hooks.inserted = [this] { ++inserted; };
    FrmFileScan out(
        {{desk.project.db(), desk.program.language, desk.clock, fields, desk.program.files, desk.surface, working, [] {}},
         desk.tree,
         settings},
        hooks);
    out.window.unload = [this] { ++unloaded; };
    out.window.refresh = [this] {
      if (whileScanning)
        whileScanning();
    };
    return out;
  }

  pagetree::PageDesk desk{{"00", "Start"}, {"01", "Haus"}};
  frmBildkonvertierer working;
  files::UserSettings settings{(directory.native() / "benutzer.ini").native()};
  std::vector<std::string> shown;
  int viewerShown = 0, unloaded = 0, inserted = 0;
  std::function<void()> whileScanning;
  FrmFileScan form = makeForm();
};

TEST_F(FileScan, without_a_directory_does_nothing)
{
  form.tbshare = "";
  form.List1 = {{"da"}};

  form.Command1_Click();

  EXPECT_THAT(texts(form.List1), ElementsAre("da"));
}

TEST_F(FileScan, finds_pictures_by_the_last_three_letters_whatever_their_case)
{
  files({"photo.jpeg", "photo.JPG", "b.png", "text.txt", "~$brief.jpg", "unter/c.gif"});

  form.Command1_Click();

  EXPECT_THAT(texts(form.List1), ElementsAre("b.png", "photo.JPG", "unter\\c.gif"));
  EXPECT_EQ(form.labelanz, "3");
  EXPECT_EQ(form.Command1, FrmFileScan::kStart);
  EXPECT_EQ(desk.program.ui.pointerShape, ui::Pointer::Default);
}

TEST_F(FileScan, takes_a_name_that_ends_like_any_piece_of_the_list)
{
  files({"x.g b", "x.mp "});

  form.Command1_Click();

  EXPECT_THAT(texts(form.List1), ElementsAre("x.g b", "x.mp "));
}

TEST_F(FileScan, of_all_files_takes_those_of_office_too)
{
  files({"~$brief.jpg", "text.txt"});
  form.CheckAlle = true;

  form.Command1_Click();

  EXPECT_THAT(texts(form.List1), ElementsAre("text.txt", "~$brief.jpg"));
}

TEST_F(FileScan, stays_out_of_subdirectories_where_they_are_not_wanted)
{
  files({"a.jpg", "unter/c.gif"});
  form.CheckSubDir = false;

  form.Command1_Click();

  EXPECT_THAT(texts(form.List1), ElementsAre("a.jpg"));
}

TEST_F(FileScan, lets_the_users_extensions_win)
{
  files({"a.jpg", "b.txt"});
  form.Checkfrei = true;
  form.tbext = "txt";
  form.Command1_Click();
  EXPECT_THAT(texts(form.List1), ElementsAre("b.txt"));

  form.tbext = "";
  form.Command1_Click();
  EXPECT_THAT(form.List1, IsEmpty());
}

TEST_F(FileScan, of_new_pictures_lists_all_and_counts_none)
{
  files({"a.jpg"});
  form.Checknurneue = true;

  form.Command1_Click();

  EXPECT_THAT(texts(form.List1), ElementsAre("a.jpg"));
  EXPECT_EQ(form.labelanz, "0");
}

TEST_F(FileScan, of_all_new_files_leaves_out_those_of_the_register)
{
  files({"alt's.jpg", "neu.jpg"});
  desk.project.db().execute("INSERT INTO Dateien (pfadLokal, dateiname) VALUES (?, ?)", {fotos(), "ALT's.jpg"});
  form.CheckAlle = form.Checknurneue = true;

  form.Command1_Click();

  EXPECT_THAT(texts(form.List1), ElementsAre("neu.jpg"));
  EXPECT_EQ(form.labelanz, "2");
  EXPECT_EQ(form.LabelNeu, "1");
  EXPECT_EQ(form.Labelalt, "1");
}

TEST_F(FileScan, fails_where_the_register_lacks_its_column_and_can_be_started_again)
{
  files({"a.jpg"});
  desk.project.db().execute("DROP TABLE Dateien");
  form.CheckAlle = form.Checknurneue = true;

  EXPECT_THROW(form.Command1_Click(), base::Error);

  EXPECT_EQ(form.Command1, FrmFileScan::kStart);
}

TEST_F(FileScan, that_is_stopped_keeps_what_it_found)
{
  files({"a/1.jpg", "b/2.jpg", "c/3.jpg"});
  int refreshes = 0;
  whileScanning = [&] {
    // At the start, and in the directory above before those in it.
    if (++refreshes == 4)
      form.Command1_Click();
  };

  form.Command1_Click();

  EXPECT_THAT(texts(form.List1), ElementsAre("a\\1.jpg"));
  EXPECT_EQ(form.Command1, FrmFileScan::kStart);
}

TEST_F(FileScan, goes_round_no_circle_of_links)
{
  files({"a.jpg", "unter/b.jpg"});
  std::filesystem::create_directory_symlink("..", directory.native() / "fotos/unter/zurück");

  form.Command1_Click();

  EXPECT_THAT(texts(form.List1), ElementsAre("a.jpg", "unter\\b.jpg"));
}

TEST_F(FileScan, cuts_its_directory_off_a_path_wherever_it_stands)
{
  form.tbshare = "\\x\\";

  form.dropFiles({"\\x\\a\\x\\b.jpg", "\\y\\c.jpg"});

  EXPECT_THAT(texts(form.Listpix), ElementsAre("ab.jpg", "\\y\\c.jpg"));
  EXPECT_EQ(form.lblpixanz, "2");
}

TEST_F(FileScan, lets_files_from_elsewhere_stand_for_themselves_while_nothing_was_chosen)
{
  form.dropFiles({"\\y\\a.jpg", "\\y\\b.jpg"});

  EXPECT_THAT(texts(form.Listpix), ElementsAre("\\y\\a.jpg", "\\y\\b.jpg"));
  EXPECT_EQ(form.pathOf(form.Listpix[0]), "\\y\\a.jpg");
}

TEST_F(FileScan, keeps_its_directory_in_front_of_what_is_dropped_later)
{
  form.List1 = {{"da.jpg"}};

  form.dropFiles({"\\y\\a.jpg"});

  EXPECT_EQ(form.tbshare, fotos());
  EXPECT_EQ(form.pathOf(form.Listpix[0]), fotos() + "\\y\\a.jpg");
}

TEST_F(FileScan, takes_dropped_text_line_by_line)
{
  form.dropText(fotos() + "a.jpg\r\n" + fotos() + "b.jpg\r\n");

  EXPECT_THAT(texts(form.Listpix), ElementsAre("a.jpg", "b.jpg"));
}

TEST_F(FileScan, moves_marked_files_to_and_fro)
{
  form.List1 = {{"a"}, {"b", true}, {"c", true}};
  form.cbauswahlrüber_Click();
  EXPECT_THAT(texts(form.List1), ElementsAre("a"));
  EXPECT_THAT(texts(form.Listpix), ElementsAre("b", "c"));
  EXPECT_EQ(form.labelanz, "1");
  EXPECT_EQ(form.lblpixanz, "2");

  form.Listpix[0].selected = true;
  form.cbzurück_Click();
  EXPECT_THAT(texts(form.List1), ElementsAre("a", "b"));

  form.cballemarkieren_Click();
  form.cbmarkierungweg_Click();
  form.cbauswahlrüber_Click();
  EXPECT_THAT(texts(form.List1), ElementsAre("a", "b"));
}

TEST_F(FileScan, shows_a_clicked_picture_without_what_a_run_added)
{
  form.Listpix = {{"a.JPG   --   Bild auf Seite eingefügt!"}, {"b.ico"}};

  form.Listpix_Click(0);
  form.Listpix_Click(1);
  form.CheckBitmap = false;
  form.Listpix_Click(0);

  EXPECT_THAT(shown, ElementsAre(fotos() + "a.JPG Bitmap"));
  EXPECT_EQ(form.rotateList, "Listpix");
}

TEST_F(FileScan, shows_the_viewer_when_the_preview_is_switched_on)
{
  form.CheckBitmap_Click();
  form.CheckBitmap = false;
  form.CheckBitmap_Click();

  EXPECT_EQ(viewerShown, 1);
}

TEST_F(FileScan, turns_the_clicked_picture_and_names_the_new_one)
{
  std::filesystem::copy_file(files::nativePath(sample("hopper.bmp")), files::nativePath(fotos() + "h.bmp"));
  form.List1 = {{"h.bmp"}};
  form.cbrotieren_Click();
  EXPECT_THAT(shown, IsEmpty());

  form.List1_Click(0);
  form.cbrotieren_Click();

  EXPECT_THAT(texts(form.List1), ElementsAre("h.jpg"));
  EXPECT_EQ(form.rotateEntry, "h.jpg");
  EXPECT_EQ(shown.back(), fotos() + "h.jpg Bitmap");
}

TEST_F(FileScan, locks_its_options_to_each_other)
{
  form.CheckOriginalbilder = true;
  form.CheckOriginalbilder_Click();
  EXPECT_TRUE(form.CheckBildpartner && form.CheckPopupfenster && form.bildpartnerEnabled && form.popupEnabled);

  form.CheckOriginalbilder = false;
  form.CheckOriginalbilder_Click();
  EXPECT_FALSE(form.CheckBildpartner || form.CheckPopupfenster || form.bildpartnerEnabled || form.popupEnabled);

  form.CheckPopupfenster = true;
  form.CheckPopupfenster_Click();
  EXPECT_TRUE(form.CheckOriginalbilder);

  form.OpjedesBildeineSeite_Click();
  EXPECT_FALSE(form.tableEnabled);
  form.Opdieseseite_Click();
  EXPECT_TRUE(form.tableEnabled);

  form.opnichtkonvertieren_Click();
  EXPECT_TRUE(form.bildpartnerEnabled && form.popupEnabled && !form.opkonvertieren);
}

TEST_F(FileScan, refuses_texts_that_are_no_numbers)
{
  form.tbtabspalten = "drei";
  form.tbtabspalten_Change();
  EXPECT_EQ(form.tbtabspalten, "0");

  form.tbpixel = "viel";
  desk.program.ui.expect(30);
  form.tbpixel_LostFocus();
  form.tbpixel = "600";
  form.tbpixel_LostFocus();

  form.Slider1 = 40;
  form.Slider1_Scroll();
  EXPECT_EQ(form.sliderToolTip, "Kompressionsfaktor 40%");
}

TEST_F(FileScan, opens_with_its_first_contents)
{
  desk.tree.select("@01");

  form.Form_Load();

  EXPECT_EQ(form.tbshare, "c:\\");
  EXPECT_EQ(form.tbpixel, "580");
  EXPECT_EQ(form.Slider1, 35);
  EXPECT_TRUE(form.opkonvertieren && form.CheckSubDir && form.CheckBilder && form.CheckBitmap);
  EXPECT_FALSE(form.CheckAlle || form.Checkfrei || form.Checknurneue || form.CheckRahmen || form.CheckSchatten);
  EXPECT_EQ(form.lblnode, "@01");
}

TEST_F(FileScan, remembers_its_options_after_a_run_but_not_the_choice_of_names)
{
  photo("a.jpg", 20, 20);
  form.Listpix = {{"a.jpg"}};
  form.tbpixel = "700";
  form.CheckRahmen = true;
  form.opkonvertieren = false;
  form.opumbenennen = false;
  form.opbeibehalten = true;

  EXPECT_EQ(form.cbeinfügen_Click().inserted, 1u);

  EXPECT_EQ(unloaded, 1);
  auto next = makeForm();
  next.Form_Load();
  EXPECT_EQ(next.tbshare, fotos());
  EXPECT_EQ(next.tbpixel, "700");
  EXPECT_TRUE(next.CheckRahmen && !next.opkonvertieren && next.opumbenennen && !next.opbeibehalten);
  EXPECT_EQ(settings.value("Settings", "pix_opbeibehalten", ""), "True");
}

TEST_F(FileScan, that_is_closed_remembers_its_directory_alone)
{
  form.tbpixel = "700";

  form.cbschließen_Click();

  EXPECT_EQ(settings.value("Settings", "search", ""), fotos());
  EXPECT_EQ(settings.value("Settings", "pix_width", "nichts"), "nichts");
  EXPECT_EQ(unloaded, 1);
}

TEST_F(FileScan, tells_at_the_end_which_pictures_did_not_arrive_and_why)
{
  photo("gut.jpg", 20, 20);
  directory.write("fotos/leer.jpg", "");
  form.Listpix = {{"leer.jpg"}, {"gut.jpg"}};
  desk.program.ui.expect(126, "Die Datei ist leer.");

  EXPECT_EQ(form.cbeinfügen_Click().inserted, 2u);

  EXPECT_THAT(form.Listpix[0].text, testing::StartsWith("leer.jpg   --   "));
  EXPECT_THAT(form.Listpix[0].text, testing::HasSubstr("Die Datei ist leer."));
  EXPECT_EQ(form.Listpix[1].text, "gut.jpg   --   Bild auf Seite eingefügt!");
  EXPECT_EQ(inserted, 1);
}

TEST_F(FileScan, does_not_insert_at_a_size_that_is_no_number)
{
  photo("a.jpg", 20, 20);
  form.Listpix = {{"a.jpg"}};
  form.tbpixel = "viel";
  desk.program.ui.expect(30);

  EXPECT_FALSE(form.cbeinfügen_Click().begun);

  EXPECT_EQ(unloaded, 0);
  EXPECT_THAT(texts(form.Listpix), ElementsAre("a.jpg"));
}

TEST_F(FileScan, that_is_closed_ends)
{
  files({"a/1.jpg", "b/2.jpg"});
  int refreshes = 0;
  whileScanning = [&] {
    if (++refreshes == 4)
      form.cbschließen_Click();
  };

  form.Command1_Click();

  EXPECT_FALSE(form.isBusy());
  EXPECT_THAT(texts(form.List1), ElementsAre("a\\1.jpg"));
}

TEST_F(FileScan, does_not_begin_in_another_one)
{
  files({"a/1.jpg", "b/2.jpg"});
  int refreshes = 0;
  whileScanning = [&] {
    if (++refreshes > 20)
      return;
    form.Command1_Click();
    form.Command1_Click();
  };

  form.Command1_Click();

  EXPECT_FALSE(form.isBusy());
  EXPECT_EQ(form.Command1, FrmFileScan::kStart);
}

TEST_F(FileScan, without_a_choice_stays_open)
{
  form.cbeinfügen_Click();

  EXPECT_EQ(unloaded, 0);
}

TEST_F(FileScan, starts_with_a_chosen_folder)
{
  files({"a.jpg"});
  form.tbshare = "";
  desk.program.ui.answerFolderDialog(fotos());

  form.cbshare_Click();

  EXPECT_EQ(form.tbshare, fotos());
  EXPECT_THAT(texts(form.List1), Contains("a.jpg"));
}

} // namespace
} // namespace mrd::pictures
