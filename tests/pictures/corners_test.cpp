#include "pictures/corners.h"

#include <gtest/gtest.h>

#include <cmath>

namespace mrd::pictures {
namespace {

constexpr image::Colour kOutside{0xdf, 0xea, 0xf0}, kInside{0x23, 0x64, 0x8c};

settings::Fields fieldsOf(std::string tbradius)
{
  settings::Fields fields;
  fields.tbradius = std::move(tbradius);
  fields.tbhintergrundaussen = "dfeaf0";
  fields.Tbtabelle = "#23648c";
  return fields;
}

const Corner& cornerOf(std::string_view fileName)
{
  for (const auto& corner : kCorners)
    if (corner.fileName == fileName)
      return corner;
  throw std::logic_error("no such corner");
}

TEST(Corners, are_written_in_their_order)
{
  std::vector<std::string_view> names;
  for (const auto& corner : kCorners)
    names.push_back(corner.fileName);

  EXPECT_EQ(names, (std::vector<std::string_view>{"ecke-ur.jpg", "ecke-ol.jpg", "ecke-or.jpg", "ecke-ul.jpg"}));
}

TEST(Corners, show_one_quarter_each_of_a_circle_around_the_inner_corner)
{
  struct Centre {
    const char* fileName;
    double x, y;
  };
  // The circle's box begins at 0 or at one radius and a pixel before the picture; its middle is a radius further.
  for (const auto& [fileName, x, y] : {Centre{"ecke-ol.jpg", 30, 30}, Centre{"ecke-or.jpg", -1, 30},
                                       Centre{"ecke-ul.jpg", 30, -1}, Centre{"ecke-ur.jpg", -1, -1}}) {
    const auto picture = drawCorner(cornerOf(fileName), fieldsOf("30"));
    ASSERT_EQ(picture.width(), 30);
    ASSERT_EQ(picture.height(), 30);
    for (int row = 0; row < 30; ++row)
      for (int column = 0; column < 30; ++column) {
        const auto distance = std::hypot(column + 0.5 - x, row + 0.5 - y);
        if (std::abs(distance - 30) > 1) {
          EXPECT_EQ(picture.pixel(column, row), distance < 30 ? kInside : kOutside) << fileName << " " << column << "," << row;
        }
      }
  }
}

TEST(Corners, are_plain_with_one_colour_for_both_sides)
{
  auto fields = fieldsOf("12");
  fields.Tbtabelle = fields.tbhintergrundaussen;

  for (const auto& corner : kCorners) {
    const auto picture = drawCorner(corner, fields);
    for (int row = 0; row < 12; ++row)
      for (int column = 0; column < 12; ++column)
        EXPECT_EQ(picture.pixel(column, row), kOutside);
  }
}

TEST(Corners, are_one_pixel_for_a_radius_of_zero_or_no_number)
{
  for (const auto* radius : {"0", "", "rund", " ", "0 px", "-0"}) {
    EXPECT_EQ(cornerRadius(radius), 1) << radius;
    EXPECT_EQ(drawCorner(kCorners[0], fieldsOf(radius)).width(), 1) << radius;
  }
}

TEST(Corners, take_the_number_at_the_start_of_the_text)
{
  EXPECT_EQ(cornerRadius("25"), 25);
  EXPECT_EQ(cornerRadius(" 25 px"), 25);
}

TEST(Corners, of_a_radius_that_cannot_be_drawn_are_one_pixel)
{
  for (const auto* radius : {"-5", "1e9", "99999999999999999999999", "2001"})
    EXPECT_EQ(cornerRadius(radius), 1) << radius;
  EXPECT_EQ(cornerRadius("2000"), 2000);
}

TEST(ColourTexts, are_read_with_and_without_their_sign)
{
  EXPECT_EQ(colourOf("23648c"), kInside);
  EXPECT_EQ(colourOf("#23648C"), kInside);
}

TEST(ColourTexts, are_filled_up_and_cut_to_six_digits)
{
  EXPECT_EQ(colourOf("ff"), (image::Colour{0, 0, 0xff}));
  EXPECT_EQ(colourOf("1123648c"), kInside);
  EXPECT_EQ(colourOf(""), (image::Colour{0, 0, 0}));
}

TEST(ColourTexts, that_are_no_colours_do_no_harm)
{
  for (const auto* text : {"rot", "#", "######", "zzzzzz", "ä"})
    EXPECT_NO_THROW(colourOf(text)) << text;
}

} // namespace
} // namespace mrd::pictures
