#include "frame/paths/paths.h"
#include "support/temporary.h"

#include <gtest/gtest.h>

namespace mrd::paths {
namespace {

struct IniTest : testing::Test {
  support::TemporaryDirectory directory;
  std::string datei = directory.file("mirandel.INI");

  std::string read(std::string_view key) { return LeseIni("Language", key, datei); }
};

TEST_F(IniTest, a_missing_file_reads_nio) { EXPECT_EQ(read("Lang"), "nio"); }

TEST_F(IniTest, a_missing_key_and_a_missing_section_read_nio)
{
  directory.write("mirandel.INI", "[Language]\r\nLang=GER\r\n");

  EXPECT_EQ(read("Sprache"), "nio");
  EXPECT_EQ(LeseIni("LastFile", "Lang", datei), "nio");
}

TEST_F(IniTest, an_empty_value_reads_as_the_empty_text)
{
  directory.write("mirandel.INI", "[Language]\r\nLang=\r\n");

  EXPECT_EQ(read("Lang"), "");
}

TEST_F(IniTest, a_value_of_one_or_two_characters_reads_Fehler)
{
  directory.write("mirandel.INI", "[Language]\r\nLang=de\r\nEin=x\r\nUmlaut=äö\r\n");

  EXPECT_EQ(read("Lang"), "Fehler");
  EXPECT_EQ(read("Ein"), "Fehler");
  EXPECT_EQ(read("Umlaut"), "Fehler");
}

TEST_F(IniTest, a_value_of_three_characters_reads_as_it_stands_and_names_ignore_case)
{
  directory.write("mirandel.INI", "[LANGUAGE]\r\nLANG=eng\r\n");

  EXPECT_EQ(read("Lang"), "eng");
}

TEST_F(IniTest, a_long_value_is_cut_to_the_buffer)
{
  directory.write("mirandel.INI", "[Language]\r\nLang=" + std::string(3000, 'x') + "\r\n");

  EXPECT_EQ(read("Lang"), std::string(1023, 'x'));
}

TEST_F(IniTest, a_written_key_is_read_again_and_its_neighbours_stay)
{
  directory.write("mirandel.INI", "[Language]\r\nLang=GER\r\n[LastFile]\r\nFile1=\\a\\b.mdb\r\n");

  EXPECT_EQ(SchreibeIni("Language", "Lang", "ENG", datei), "");

  EXPECT_EQ(read("Lang"), "ENG");
  EXPECT_EQ(LeseIni("LastFile", "File1", datei), "\\a\\b.mdb");
}

TEST_F(IniTest, writing_where_no_file_can_be_made_gives_Fehler)
{
  EXPECT_EQ(SchreibeIni("Language", "Lang", "ENG", directory.file("fehlt\\mirandel.INI")), "Fehler");
}

TEST_F(IniTest, the_file_is_named_after_the_program_and_lies_in_its_directory)
{
  EXPECT_EQ(ProgramFiles("\\opt\\mirandel").iniFile(), "\\opt\\mirandel\\mirandel.INI");
  EXPECT_EQ(ProgramFiles("\\opt\\mirandel").file("\\mrdleer.mdb"), "\\opt\\mirandel\\mrdleer.mdb");
}

} // namespace
} // namespace mrd::paths
