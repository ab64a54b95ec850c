#include "base/errors.h"
#include "base/format.h"
#include "pictures/insertion_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

} // namespace
} // namespace mrd::pictures
