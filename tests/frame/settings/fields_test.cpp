#include "frame/settings/fields.h"

#include <gmock/gmock.h>

namespace mrd::settings {
namespace {

using testing::ElementsAre;

TEST(Fields, offer_menu_widths_and_choose_140_px)
{
  const Fields fields;

  EXPECT_THAT(fields.ComboMenüspalte.entries, ElementsAre("auto", "100 px", "110 px", "120 px", "130 px", "140 px", "150 px",
                                                          "160 px", "170 px", "180 px", "190 px", "200 px"));
  EXPECT_EQ(fields.ComboMenüspalte.Text, "140 px");
  EXPECT_EQ(fields.ComboMenüspalte.ListIndex, 5);
}

TEST(Fields, offer_content_widths_and_choose_90_percent)
{
  const Fields fields;

  EXPECT_EQ(fields.ComboInhalt.entries.size(), 22u);
  EXPECT_EQ(fields.ComboInhalt.entries[5], "100%");
  EXPECT_EQ(fields.ComboInhalt.entries[6], "600 px");
  EXPECT_EQ(fields.ComboInhalt.entries.back(), "1200 px");
  EXPECT_EQ(fields.ComboInhalt.Text, "90%");
}

TEST(Fields, offer_four_layouts_and_five_ways_to_turn_pages_and_choose_the_first)
{
  const Fields fields;

  EXPECT_THAT(fields.ComboGrundlayout.entries,
              ElementsAre("Navigation linke Seite", "Navigation in Laschen oben", "ohne alles", "einfache Tabelle"));
  EXPECT_EQ(fields.ComboGrundlayout.Text, "Navigation linke Seite");
  EXPECT_EQ(fields.ComboBlättern.entries.size(), 5u);
  EXPECT_EQ(fields.ComboBlättern.Text, "Seitenüberschriften immer sichtbar");
}

TEST(ComboBox, shows_a_text_that_is_not_among_its_entries)
{
  Fields fields;

  fields.ComboInhalt.selectText("777 px");

  EXPECT_EQ(fields.ComboInhalt.Text, "777 px");
  EXPECT_EQ(fields.ComboInhalt.ListIndex, -1);
}

TEST(ComboBox, keeps_its_text_for_a_number_without_an_entry)
{
  Fields fields;

  fields.ComboBlättern.selectIndex(17);

  EXPECT_EQ(fields.ComboBlättern.ListIndex, 17);
  EXPECT_EQ(fields.ComboBlättern.Text, "Seitenüberschriften immer sichtbar");
}

} // namespace
} // namespace mrd::settings
