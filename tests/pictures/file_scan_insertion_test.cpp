// The options of the scan's window and its last button.

#include "base/errors.h"
#include "pictures/file_scan_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mrd::pictures {
namespace {

using testing::ElementsAre;

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

TEST_F(FileScan, without_a_choice_stays_open)
{
  form.cbeinfügen_Click();

  EXPECT_EQ(unloaded, 0);
}

TEST_F(FileScan, shows_how_far_an_insertion_is)
{
  photo("a.jpg", 20, 20);
  photo("b.jpg", 20, 20);
  form.Listpix = {{"a.jpg"}, {"b.jpg"}};
  form.LabelNeu = form.Labelalt = "5";
  std::vector<std::string> seen;
  whileScanning = [&] { seen.push_back(form.LabelNeu + form.Labelalt + " " + form.Listpix[0].text); };

  form.cbeinfügen_Click();

  const std::string done = "a.jpg   --   Bild auf Seite eingefügt!";
  EXPECT_THAT(seen, ElementsAre("00 a.jpg", "10 " + done, "20 " + done));
}

TEST_F(FileScan, keeps_the_marks_of_what_an_insertion_did_before_it_failed)
{
  photo("a.jpg", 20, 20);
  photo("b.jpg", 20, 20);
  form.Listpix = {{"a.jpg"}, {"b.jpg"}};
  form.lblnode = "@01";
  form.OpjedesBildeineSeite_Click();
  whileScanning = [&] {
    if (form.Labelalt == "01")
      desk.project.db().execute("DROP TABLE Seite");
  };

  EXPECT_THROW(form.cbeinfügen_Click(), base::Error);

  EXPECT_THAT(texts(form.Listpix), ElementsAre("a.jpg   --   untergeordnete Seite", "b.jpg"));
  EXPECT_FALSE(form.isBusy());
}

TEST_F(FileScan, takes_a_stored_quality_of_any_size)
{
  settings.setValue("Settings", "pix_quality", "1e30");
  form.Form_Load();
  EXPECT_GT(form.Slider1, 100);

  settings.setValue("Settings", "pix_quality", "-1e30");
  EXPECT_LT(storedConversion(settings).Slider1, 0);
}

} // namespace
} // namespace mrd::pictures
