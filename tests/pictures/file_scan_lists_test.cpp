// The two lists of the scan's window: moving, dropping, looking, turning.

#include "base/errors.h"
#include "pictures/file_scan_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace mrd::pictures {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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
  form.dropText(fotos() + "a.jpg\r\n" + fotos() + "b.jpg");

  EXPECT_THAT(texts(form.Listpix), ElementsAre("a.jpg", "b.jpg"));
}

TEST_F(FileScan, takes_an_empty_line_behind_the_last_line_end_too)
{
  form.dropText(fotos() + "a.jpg\r\n");

  EXPECT_THAT(texts(form.Listpix), ElementsAre("a.jpg", ""));
  EXPECT_EQ(form.lblpixanz, "2");
}

TEST_F(FileScan, remembers_the_directory_that_gave_way_to_files_from_elsewhere)
{
  photo("a.jpg", 20, 20);
  form.tbshare = "\\ganz\\woanders\\";
  form.dropFiles({fotos() + "a.jpg"});
  EXPECT_EQ(form.tbshare, "");

  EXPECT_EQ(form.cbeinfügen_Click().inserted, 1u);

  EXPECT_EQ(settings.value("Settings", "search", ""), "\\ganz\\woanders\\");
  form.cbschließen_Click();
  EXPECT_EQ(settings.value("Settings", "search", ""), "\\ganz\\woanders\\");
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

TEST_F(FileScan, keeps_the_blanks_in_front_of_a_name)
{
  EXPECT_EQ(form.pathOf({" a.jpg   --   Bild auf Seite eingefügt!"}), fotos() + " a.jpg");
  EXPECT_EQ(form.pathOf({" a.jp "}), fotos() + " a.jp ");
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

TEST_F(FileScan, names_the_entry_anew_that_was_clicked_of_two_equal_ones)
{
  std::filesystem::copy_file(files::nativePath(sample("hopper.bmp")), files::nativePath(fotos() + "h.bmp"));
  form.Listpix = {{"h.bmp"}, {"b.jpg"}, {"h.bmp"}};

  form.Listpix_Click(2);
  form.cbrotieren_Click();

  EXPECT_THAT(texts(form.Listpix), ElementsAre("h.bmp", "b.jpg", "h.jpg"));
}

TEST_F(FileScan, finds_the_clicked_entry_again_when_the_list_has_changed)
{
  std::filesystem::copy_file(files::nativePath(sample("hopper.bmp")), files::nativePath(fotos() + "h.bmp"));
  form.List1 = {{"a.jpg", true}, {"h.bmp"}};
  form.List1_Click(1);
  form.cbauswahlrüber_Click();

  form.cbrotieren_Click();

  EXPECT_THAT(texts(form.List1), ElementsAre("h.jpg"));
}

} // namespace
} // namespace mrd::pictures
