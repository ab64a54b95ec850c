#include "frame/paths/paths.h"

#include "support/temporary.h"

#include <gtest/gtest.h>

namespace mrd::paths {

bool operator==(const PathParts& a, const PathParts& b)
{
  return a.verzeichnis == b.verzeichnis && a.name == b.name && a.erweiterung == b.erweiterung;
}

void PrintTo(const PathParts& parts, std::ostream* out)
{
  *out << "'" << parts.verzeichnis << "' '" << parts.name << "' '" << parts.erweiterung << "'";
}

namespace {

TEST(PathParts, are_directory_with_separator_name_and_extension_without_dot)
{
  EXPECT_EQ(teile_dateipfad("c:\\fotos\\x.jpg"), (PathParts{"c:\\fotos\\", "x", "jpg"}));
}

TEST(PathParts, of_a_bare_file_name_have_no_directory) { EXPECT_EQ(teile_dateipfad("x.jpg"), (PathParts{"", "x", "jpg"})); }

TEST(PathParts, take_the_last_dot_only) { EXPECT_EQ(teile_dateipfad("a\\b.c.d"), (PathParts{"a\\", "b.c", "d"})); }

TEST(PathParts, look_for_no_extension_in_front_of_the_last_separator)
{
  EXPECT_EQ(teile_dateipfad("c:\\a.b\\c"), (PathParts{"c:\\a.b\\", "c", ""}));
}

TEST(PathParts, lose_the_tail_of_a_long_extension)
{
  EXPECT_EQ(teile_dateipfad("c:\\bild.backup"), (PathParts{"c:\\", "bild", ""}));
}

TEST(PathParts, keep_a_long_extension_up_to_its_first_blank_included)
{
  EXPECT_EQ(teile_dateipfad("bild.jpg 1234 Jan"), (PathParts{"", "bild", "jpg "}));
}

TEST(PathParts, keep_four_characters_of_extension_blanks_and_all)
{
  EXPECT_EQ(teile_dateipfad("bild.j pg"), (PathParts{"", "bild", "j pg"}));
  EXPECT_EQ(teile_dateipfad("bild.html"), (PathParts{"", "bild", "html"}));
}

TEST(PathParts, count_characters_of_an_extension_and_not_bytes)
{
  EXPECT_EQ(teile_dateipfad("bild.äöüß"), (PathParts{"", "bild", "äöüß"}));
  EXPECT_EQ(teile_dateipfad("bild.äöüßx"), (PathParts{"", "bild", ""}));
}

TEST(PathParts, of_a_directory_alone_take_it_as_the_name)
{
  EXPECT_EQ(teile_dateipfad("c:\\fotos\\"), (PathParts{"", "c:\\fotos\\", ""}));
}

TEST(PathParts, of_a_dot_file_take_the_directory_as_the_name)
{
  EXPECT_EQ(teile_dateipfad("a\\.gif"), (PathParts{"", "a\\", "gif"}));
}

TEST(PathParts, of_a_text_without_dot_and_separator_are_a_name)
{
  EXPECT_EQ(teile_dateipfad("bild"), (PathParts{"", "bild", ""}));
}

TEST(PathParts, of_a_closing_dot_have_an_empty_extension)
{
  EXPECT_EQ(teile_dateipfad("a\\bild."), (PathParts{"a\\", "bild", ""}));
}

TEST(PathParts, of_an_empty_text_are_empty) { EXPECT_EQ(teile_dateipfad(""), (PathParts{"", "", ""})); }

TEST(FilePresence, is_true_for_a_file_and_false_for_a_directory_and_a_missing_name)
{
  support::TemporaryDirectory directory;
  directory.write("Ordner/Bild.jpg", "x");

  EXPECT_TRUE(datei_vorhanden(directory.file("Ordner\\Bild.jpg")));
  EXPECT_TRUE(datei_vorhanden(directory.file("ordner\\bild.JPG")));
  EXPECT_FALSE(datei_vorhanden(directory.file("Ordner")));
  EXPECT_FALSE(datei_vorhanden(directory.file("Ordner\\anderes.jpg")));
  EXPECT_FALSE(datei_vorhanden(""));
}

} // namespace
} // namespace mrd::paths
