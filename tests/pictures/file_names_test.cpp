#include "pictures/file_names.h"

#include <gtest/gtest.h>

namespace mrd::pictures {
namespace {

TEST(WebFileName, spells_umlauts_out_and_capital_ones_in_lower_case)
{
  EXPECT_EQ(bereinige_dateiname("äÄöÖüÜß.jpg"), "aeaeoeoeueuess.jpg");
}

TEST(WebFileName, has_a_line_for_blanks_ampersands_and_quotes)
{
  EXPECT_EQ(bereinige_dateiname("größe & maß.jpg"), "groesse___mass.jpg");
  EXPECT_EQ(bereinige_dateiname("a'b\"c.jpg"), "a_b_c.jpg");
}

TEST(WebFileName, keeps_everything_else)
{
  EXPECT_EQ(bereinige_dateiname("Foto-1 (é).JPG"), "Foto-1_(é).JPG");
  EXPECT_EQ(bereinige_dateiname(""), "");
}

} // namespace
} // namespace mrd::pictures
