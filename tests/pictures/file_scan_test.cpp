#include "base/errors.h"
#include "pictures/file_scan_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>
#include <utility>

namespace mrd::pictures {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

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
  desk.project.db().execute("CREATE TABLE Dateien (dateiname TEXT)");
  form.CheckAlle = form.Checknurneue = true;

  EXPECT_THROW(form.Command1_Click(), base::Error);

  EXPECT_EQ(form.Command1, FrmFileScan::kStart);
  EXPECT_FALSE(form.isBusy());
}

TEST_F(FileScan, for_new_pictures_opens_the_register_though_it_looks_for_none)
{
  files({"a.jpg"});
  desk.project.db().execute("DROP TABLE Dateien");
  form.Command1_Click();
  EXPECT_THAT(texts(form.List1), ElementsAre("a.jpg"));

  form.Checknurneue = true;

  EXPECT_THROW(form.Command1_Click(), base::Error);
}

TEST_F(FileScan, can_be_started_again_whatever_ended_it)
{
  files({"a.jpg"});
  bool isBroken = true;
  whileScanning = [&] {
    if (std::exchange(isBroken, false))
      throw std::runtime_error("Fenster");
  };

  EXPECT_THROW(form.Command1_Click(), std::runtime_error);

  EXPECT_EQ(form.Command1, FrmFileScan::kStart);
  EXPECT_FALSE(form.isBusy());
  form.Command1_Click();
  EXPECT_THAT(texts(form.List1), ElementsAre("a.jpg"));
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
