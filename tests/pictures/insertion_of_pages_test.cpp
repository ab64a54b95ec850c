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
using testing::ElementsAre;
using testing::HasSubstr;

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
