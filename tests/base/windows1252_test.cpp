#include "base/windows1252.h"

#include <gtest/gtest.h>

#include <string>

namespace mrd::base {
namespace {

TEST(Windows1252, gives_every_byte_a_character_and_takes_it_back)
{
  for (int byte = 0; byte < 256; ++byte) {
    const std::string bytes(1, static_cast<char>(byte));
    EXPECT_EQ(toWindows1252(fromWindows1252(bytes)), bytes) << byte;
  }
}

TEST(Windows1252, knows_the_euro_and_typographic_characters)
{
  EXPECT_EQ(toWindows1252("€ „Zitat“ ‚x‘ – — … ™ Œ Ÿ"), "\x80 \x84Zitat\x93 \x82x\x91 \x96 \x97 \x85 \x99 \x8C \x9F");
  EXPECT_EQ(fromWindows1252("\x80 \x84Zitat\x93"), "€ „Zitat“");
}

TEST(Windows1252, has_latin_letters_at_their_code_points)
{
  EXPECT_EQ(toWindows1252("Größe ÿ\u00A0"), "Gr\xF6\xDF"
                                            "e \xFF\xA0");
}

TEST(Windows1252, writes_other_characters_as_decimal_references)
{
  EXPECT_EQ(toWindows1252("♥"), "&#9829;");
  EXPECT_EQ(toWindows1252("Ł😀x"), "&#321;&#128512;x");
  EXPECT_EQ(toWindows1252("\uFEFF"), "&#65279;");
}

TEST(Windows1252, every_character_below_256_is_one_byte_or_a_reference)
{
  for (unsigned codepoint = 0x80; codepoint < 0x100; ++codepoint) {
    const std::string utf8{static_cast<char>(0xC0 | codepoint >> 6), static_cast<char>(0x80 | (codepoint & 0x3F))};
    const bool isUnknown =
        codepoint < 0xA0 && codepoint != 0x81 && codepoint != 0x8D && codepoint != 0x8F && codepoint != 0x90 && codepoint != 0x9D;
    const std::string expected =
        isUnknown ? "&#" + std::to_string(codepoint) + ";" : std::string(1, static_cast<char>(codepoint));
    EXPECT_EQ(toWindows1252(utf8), expected) << codepoint;
  }
}

TEST(Windows1252, leaves_bytes_that_are_no_utf8_as_they_are)
{
  EXPECT_EQ(toWindows1252("Gr\xF6\xDF"
                          "e"),
            "Gr\xF6\xDF"
            "e");
  EXPECT_EQ(toWindows1252("\xC3"), "\xC3");
  EXPECT_EQ(toWindows1252("\xE2\x82"), "\xE2\x82");
}

TEST(Windows1252, does_not_take_overlong_forms_for_characters)
{
  EXPECT_EQ(toWindows1252("\xC0\xBC"), "\xC0\xBC");
  EXPECT_EQ(toWindows1252("\xE0\x80\xBC"), "\xE0\x80\xBC");
  EXPECT_EQ(toWindows1252("\xED\xA0\x80"), "\xED\xA0\x80");
  EXPECT_EQ(toWindows1252("\xF4\x90\x80\x80"), "\xF4\x90\x80\x80");
}

TEST(Windows1252, is_appended_to_what_is_there)
{
  std::string page = "<p>";
  appendWindows1252(page, "ü");
  appendWindows1252(page, "");

  EXPECT_EQ(page, "<p>\xFC");
}

TEST(DecodeText, tells_utf8_from_windows_1252)
{
  EXPECT_EQ(decodeText("Größe"), "Größe");
  EXPECT_EQ(decodeText("Gr\xF6\xDF"
                       "e \x80"),
            "Größe €");
  EXPECT_EQ(decodeText(""), "");
}

TEST(DecodeText, drops_a_byte_order_mark)
{
  EXPECT_EQ(decodeText("\xEF\xBB\xBF"
                       "ä"),
            "ä");
}

} // namespace
} // namespace mrd::base
