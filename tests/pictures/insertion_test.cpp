#include "pictures/insertion.h"

#include "base/errors.h"
#include "base/format.h"
#include "base/text.h"
#include "pagetree/page_desk.h"
#include "pictures/picture_desk.h"
#include "pictures/plain_surface.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace mrd::pictures {
namespace {

using base::format;
using image::Image;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

struct Insertion : testing::Test, PictureDesk {
  InsertionOutcome run()
  {
    PictureInsertion insertion({desk.project.db(), desk.program.language, desk.clock, fields, desk.program.files, surface, window,
                                [this] { ++treesShown; }},
                               options);
    return insertion.run(chosen, [this] { advanced(); });
  }
  void choose(const std::string& name, int width = 40, int height = 30)
  {
    photo(name, width, height);
    chosen.Listpix.push_back(name);
  }
  void rename(const std::string& from, const std::string& to) const
  {
    std::filesystem::rename(files::nativePath(fotos() + from), files::nativePath(fotos() + to));
  }
  void chooseMany(int count)
  {
    for (int n = 1; n <= count; ++n)
      choose(format("p{}.jpg", n));
  }
  std::string image(const std::string& base, const std::string& file) const
  {
    return format("<img border=0 alt=\"{}\" src=\"file://{}pix/{}\" /><br />", base, fields.tbpfadexport, file);
  }
  std::string program() const { return desk.program.files.directory(); }

  pagetree::PageDesk desk{{"00", "Start"}, {"01", "Haus"}};
  PlainSurface surface;
  frmBildkonvertierer window;
  InsertionOptions options;
  ChosenPictures chosen{fotos(), {}, "@01"};
  int treesShown = 0;
  std::function<void()> advanced = [] {};
};

TEST_F(Insertion, of_nothing_does_nothing)
{
  EXPECT_FALSE(run().begun);

  EXPECT_EQ(surface.body, "<p>da</p>");
}

TEST_F(Insertion, of_more_than_99_pictures_is_refused)
{
  chosen.Listpix.assign(100, "a.jpg");
  desk.program.ui.expect(29);

  EXPECT_FALSE(run().begun);

  EXPECT_EQ(surface.body, "<p>da</p>");
}

TEST_F(Insertion, of_99_pictures_is_done)
{
  photo("a.jpg", 2, 2);
  chosen.Listpix.assign(99, "a.jpg");

  EXPECT_EQ(run().inserted, 99u);
}

TEST_F(Insertion, marks_and_counts_each_picture_when_it_arrives)
{
  chosen.LabelNeu = "7";
  choose("a.jpg");
  choose("b.jpg");
  std::vector<std::string> seen;
  advanced = [&] { seen.push_back(chosen.LabelNeu + chosen.Labelalt + " " + chosen.Listpix[0] + "," + chosen.Listpix[1]); };

  run();

  const std::string mark = "   --   Bild auf Seite eingefügt!";
  EXPECT_THAT(seen, ElementsAre("00 a.jpg,b.jpg", "10 a.jpg" + mark + ",b.jpg", "20 a.jpg" + mark + ",b.jpg" + mark));
}

TEST_F(Insertion, without_columns_puts_each_picture_into_a_box_of_its_own)
{
  choose(" Berg.JPG");
  choose("see.jpg", 1000, 500);

  EXPECT_EQ(run().inserted, 2u);

  EXPECT_EQ(surface.body, "<p>da</p><div align=\"center\"><br />\r\n" + image("berg", "_berg.jpg") +
                              "</div>\r\n<div align=\"center\"><br />\r\n" + image("see", "01_see_580.jpg") + "</div>\r\n");
  EXPECT_THAT(chosen.Listpix,
              ElementsAre(" Berg.JPG   --   Bild auf Seite eingefügt!", "see.jpg   --   Bild auf Seite eingefügt!"));
  EXPECT_EQ(treesShown, 0);
}

TEST_F(Insertion, fills_the_last_row_of_a_table)
{
  options.tbtabspalten = "3";
  chooseMany(7);

  run();

  std::string expected = "<p>da</p><table border=0 cellpadding=0 cellspacing=0 align=center>";
  for (int n = 1; n <= 7; ++n)
    expected += (n % 3 == 1 ? "<tr>" : "") + ("<td>" + image(format("p{}", n), format("p{}.jpg", n)) + "</td>") +
                (n % 3 == 0 ? "</tr>" : "");
  EXPECT_EQ(surface.body, expected + "<td>&nbsp;</td><td>&nbsp;</td></tr></table>");
}

TEST_F(Insertion, closes_a_complete_last_row_twice)
{
  options.tbtabspalten = "3";
  options.CheckRahmen = true;
  chooseMany(6);

  run();

  EXPECT_THAT(surface.body, HasSubstr("<table border=1 cellpadding=1 cellspacing=1 align=center><tr>"));
  EXPECT_TRUE(surface.body.ends_with("</td></tr></tr></table>"));
  EXPECT_THAT(surface.body, Not(HasSubstr("&nbsp;")));
}

TEST_F(Insertion, with_half_a_column_opens_rows_and_no_cell)
{
  options.tbtabspalten = "0.5";
  choose("a.jpg");

  run();

  EXPECT_EQ(surface.body, "<p>da</p><table border=0 cellpadding=0 cellspacing=0 align=center><tr>" + image("a", "a.jpg"));
}

TEST_F(Insertion, with_two_and_a_half_columns_ends_a_row_at_every_fifth_cell)
{
  options.tbtabspalten = "2.5";
  chooseMany(6);

  run();

  EXPECT_THAT(surface.body, HasSubstr(image("p5", "p5.jpg") + "</td></tr><tr><td>" + image("p6", "p6.jpg")));
  const std::string empty = "<td>&nbsp;</td>";
  EXPECT_TRUE(surface.body.ends_with(image("p6", "p6.jpg") + "</td>" + empty + empty + empty + empty + "</tr></table>"));
}

TEST_F(Insertion, with_columns_that_no_row_fills_ends_with_an_error_and_leaves_the_page)
{
  options.tbtabspalten = "1.1";
  chooseMany(2);

  EXPECT_THROW(run(), base::Error);

  EXPECT_EQ(surface.body, "<p>da</p>");
}

TEST_F(Insertion, looks_for_a_file_without_an_extension_that_is_none_for_the_path_rules)
{
  photo("bild.jpg", 40, 30);
  rename("bild.jpg", "bild.backup");
  chosen.Listpix.push_back("bild.backup");

  const auto outcome = run();

  EXPECT_THAT(outcome.failed, SizeIs(1));
  EXPECT_THAT(surface.body, HasSubstr(image("bild", "01_bild_580.jpg")));
  EXPECT_THAT(pixNames(), testing::IsEmpty());
}

TEST_F(Insertion, takes_a_picture_that_has_no_extension)
{
  photo("bild.jpg", 40, 30);
  rename("bild.jpg", "bild");
  chosen.Listpix.push_back("bild");

  EXPECT_THAT(run().failed, testing::IsEmpty());

  EXPECT_THAT(pixNames(), ElementsAre("bild.jpg"));
}

TEST_F(Insertion, with_a_popup_makes_the_picture_the_link)
{
  options.CheckPopupfenster = true;
  choose("a.jpg");

  run();

  EXPECT_THAT(surface.body,
              HasSubstr(format("<a href='file://{}a.jpg' target=_blank>", fotos()) + image("a", "a.jpg") + "</a></div>"));
}

TEST_F(Insertion, with_popup_and_order_shows_both_signs)
{
  options.CheckPopupfenster = options.CheckBildpartner = true;
  fields.tbBildpartnerID = "4711";
  choose("a.jpg");

  run();

  EXPECT_THAT(surface.body, HasSubstr(format("<br /><img alt='Originalgröße anzeigen' src='file://{0}/lupe.gif' border=0></a>"
                                             "<a href=\"javascript:picturetransfer('file://{1}a.jpg','4711')\">"
                                             "<img alt='Papierbild bestellen' src='file://{0}/karre.gif' border=0></a></div>",
                                             program(), fotos())));
}

TEST_F(Insertion, with_a_shadow_shows_its_copy)
{
  options.CheckSchatten = true;
  choose("a.jpg", 1000, 500);

  run();

  EXPECT_THAT(surface.body, HasSubstr(image("01_a_580", "01_a_580_shd.jpg")));
  EXPECT_EQ(Image::sizeOf(pix("01_a_580_shd.jpg")), (image::Size{593, 303}));
}

TEST_F(Insertion, skips_a_path_with_an_apostrophe)
{
  choose("anna's.jpg");
  choose("b.jpg");

  const auto outcome = run();

  EXPECT_EQ(outcome.inserted, 1u);
  EXPECT_THAT(outcome.skipped, SizeIs(1));
  EXPECT_EQ(chosen.Listpix[0], "anna's.jpg");
  EXPECT_THAT(pixNames(), ElementsAre("b.jpg"));
}

TEST_F(Insertion, goes_on_behind_a_picture_that_cannot_be_read_and_says_why)
{
  options.CheckSchatten = true;
  directory.write("fotos/kaputt.jpg", "kein Bild");
  chosen.Listpix.push_back("kaputt.jpg");
  choose("b.jpg");

  const auto outcome = run();

  EXPECT_EQ(outcome.inserted, 2u);
  ASSERT_THAT(outcome.failed, SizeIs(1));
  EXPECT_EQ(outcome.failed[0].path, fotos() + "kaputt.jpg");
  EXPECT_THAT(surface.body, HasSubstr("pix/01_kaputt_580_shd.jpg"));
  EXPECT_THAT(chosen.Listpix[0], StartsWith("kaputt.jpg   --   "));
  EXPECT_THAT(chosen.Listpix[1], HasSubstr("eingefügt"));
}

TEST_F(Insertion, keeps_the_order_of_pictures_that_share_a_target)
{
  options.opumbenennen = false;
  files::makeDirectory(fotos() + "zwei");
  choose("a.jpg", 500, 500);
  choose("zwei\\a.jpg", 30, 30);
  choose("b.jpg");

  run();

  EXPECT_EQ(Image::sizeOf(pix("a.jpg")), (image::Size{30, 30}));
  EXPECT_LT(surface.body.find("a.jpg"), surface.body.find("b.jpg"));
}

TEST_F(Insertion, tells_its_progress_and_stops_when_asked)
{
  chooseMany(12);
  desk.program.ui.stopAtPump = 1;

  const auto outcome = run();

  EXPECT_LT(outcome.inserted, 12u);
  EXPECT_GE(outcome.inserted, 1u);
  EXPECT_EQ(desk.program.ui.progressSteps.back().first, outcome.inserted);
  EXPECT_EQ(desk.program.ui.progressHidden, 1);
  EXPECT_EQ(desk.program.ui.pointerShape, ui::Pointer::Default);
  EXPECT_THAT(surface.body, HasSubstr("p1.jpg"));
}

struct InsertionOfPages : Insertion {
  InsertionOfPages() { options.Opdieseseite = false; }
};

TEST_F(InsertionOfPages, makes_a_page_below_for_each_picture)
{
  choose(" Der Berg.JPG", 1000, 500);

  run();

  EXPECT_EQ(desk.text("0101", "html"), "<body><p align=\"center\">\r\n"
                                       "<h3 align=\"center\" style=\"font-size:16pt;\" id=\"ueberschrift\">Der Berg</h3>\r\n"
                                       "<p align=\"center\"><img alt=\"Der Berg\" src=\"file://" +
                                           fields.tbpfadexport +
                                           "pix/0101__der_berg_580.jpg\" /><br></p><p>&nbsp;</p>\r\n</p></body>");
  EXPECT_EQ(desk.text("0101", "Überschrift"), "Der Berg");
  EXPECT_EQ(desk.text("0101", "dateiname"), "*.htm");
  EXPECT_EQ(desk.text("0101", "changingdate"), "2003-04-17 09:05:06");
  EXPECT_EQ(surface.body, "<p>da</p>");
  EXPECT_EQ(chosen.Listpix[0], " Der Berg.JPG   --   untergeordnete Seite");
  EXPECT_EQ(treesShown, 1);
}

TEST_F(InsertionOfPages, shows_the_number_of_each_new_page)
{
  desk.project.addPage({"0101", "da"});
  choose("a.jpg");
  choose("b.jpg");
  std::vector<std::string> seen;
  advanced = [&] { seen.push_back(chosen.LabelNeu + " " + chosen.Labelalt); };

  run();

  EXPECT_THAT(seen, ElementsAre("0 0", "0 02", "0 03"));
}

TEST_F(InsertionOfPages, that_fails_shows_the_pages_before_it_and_hides_its_progress)
{
  chooseMany(2);
  advanced = [&] {
    if (chosen.Labelalt == "01")
      desk.project.db().execute("DROP TABLE Seite");
  };

  EXPECT_THROW(run(), base::Error);

  EXPECT_EQ(treesShown, 1);
  EXPECT_EQ(desk.program.ui.progressHidden, 1);
  EXPECT_EQ(desk.program.ui.pointerShape, ui::Pointer::Default);
  EXPECT_FALSE(window.isShown());
  EXPECT_THAT(chosen.Listpix[0], HasSubstr("untergeordnete Seite"));
}

TEST_F(InsertionOfPages, with_popup_and_order_puts_both_signs_behind_the_picture)
{
  options.CheckPopupfenster = options.CheckBildpartner = true;
  choose("a.jpg");

  run();

  EXPECT_THAT(
      desk.text("0101", "html"),
      HasSubstr(format("pix/a.jpg\" /><br><a href='file://{0}a.jpg' target=_blank><img alt='Originalgröße anzeigen' "
                       "src='file://{1}/lupe.gif' border=0></a> <a href=\"javascript:picturetransfer('file://{0}a.jpg','')\">"
                       "<img alt='Papierbild bestellen' src='file://{1}/karre.gif' border=0></a></p>",
                       fotos(), program())));
}

TEST_F(InsertionOfPages, under_the_homepage_begins_the_first_level)
{
  chosen.lblnode = "@00";
  choose("a.jpg", 1000, 500);
  choose("b.jpg");

  run();

  EXPECT_THAT(desk.project.ids(), ElementsAre("00", "01", "02", "03"));
  EXPECT_THAT(pixNames(), ElementsAre("02_a_580.jpg", "b.jpg"));
}

TEST_F(InsertionOfPages, fills_holes_in_the_numbers)
{
  desk.project.addPage({"0102", "da"});
  chooseMany(3);

  run();

  EXPECT_THAT(desk.project.ids(), ElementsAre("00", "01", "0101", "0102", "0103", "0104"));
}

TEST_F(InsertionOfPages, ends_with_a_message_behind_number_98)
{
  for (int n = 1; n <= 97; ++n)
    desk.project.addPage({format("01{:02}", n), "da"});
  chooseMany(3);
  desk.program.ui.expect(20);

  const auto outcome = run();

  EXPECT_EQ(outcome.inserted, 1u);
  EXPECT_TRUE(outcome.outOfNumbers);
  EXPECT_EQ(chosen.Labelalt, "99");
  EXPECT_EQ(desk.project.ids().back(), "0198");
}

TEST_F(InsertionOfPages, with_98_pages_there_ends_at_once)
{
  for (int n = 1; n <= 98; ++n)
    desk.project.addPage({format("01{:02}", n), "da"});
  choose("a.jpg");
  desk.program.ui.expect(20);

  EXPECT_EQ(run().inserted, 0u);

  EXPECT_THAT(pixNames(), testing::IsEmpty());
}

TEST_F(InsertionOfPages, below_the_fourth_level_is_refused_before_anything_is_written)
{
  chosen.lblnode = "@01020304";
  choose("a.jpg");
  desk.program.ui.expect(19);

  EXPECT_FALSE(run().begun);

  EXPECT_THAT(pixNames(), testing::IsEmpty());
}

} // namespace
} // namespace mrd::pictures
