#include "platform/files/ini_file.h"

#include "base/errors.h"
#include "platform/files/scratch.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace mrd::files {
namespace {

class IniFileTest : public testing::Test {
protected:
  IniFile file() const { return IniFile(scratch.path("mirandel.INI")); }
  void write(const std::string& text) const { scratch.write("mirandel.INI", text); }
  std::string text() const { return scratch.read("mirandel.INI"); }

  Scratch scratch;
};

using Reading = IniFileTest;
using Writing = IniFileTest;

TEST_F(Reading, a_missing_file_has_no_values) { EXPECT_EQ(file().value("Language", "Lang"), std::nullopt); }

TEST_F(Reading, a_directory_has_no_values) { EXPECT_EQ(IniFile(scratch.path()).value("Language", "Lang"), std::nullopt); }

TEST_F(Reading, names_are_found_in_any_case)
{
  write("[LANGUAGE]\r\nlang=GER\r\n[Größe]\r\nÄnderung=1\r\n");

  EXPECT_EQ(file().value("Language", "Lang"), "GER");
  EXPECT_EQ(file().value("GRÖßE", "änderung"), "1");
}

TEST_F(Reading, blanks_and_one_pair_of_quotes_are_taken_off)
{
  write("[ a ]\n  x \t=  eins  \n y=\" zwei \"\nz='drei'\nq=\"'vier'\"\nu=\"fünf\ne=\nn=\"\nk=a=b\n");

  EXPECT_EQ(file().value("a", "x"), "eins");
  EXPECT_EQ(file().value("a", "y"), " zwei ");
  EXPECT_EQ(file().value("a", "z"), "drei");
  EXPECT_EQ(file().value("a", "q"), "'vier'");
  EXPECT_EQ(file().value("a", "u"), "\"fünf");
  EXPECT_EQ(file().value("a", "e"), "");
  EXPECT_EQ(file().value("a", "n"), "\"");
  EXPECT_EQ(file().value("a", "k"), "a=b");
}

TEST_F(Reading, the_first_match_wins)
{
  write("[a]\r\nx=1\r\nx=2\r\n[b]\r\nx=3\r\n[a]\r\ny=4\r\n");

  EXPECT_EQ(file().value("a", "x"), "1");
  EXPECT_EQ(file().value("a", "y"), std::nullopt);
}

TEST_F(Reading, keys_outside_their_section_and_in_comments_do_not_count)
{
  write("x=0\r\n[b]\r\nx=1\r\n[a]\r\n;x=2\r\n ; x=3\r\nx\r\n");

  EXPECT_EQ(file().value("a", "x"), std::nullopt);
}

TEST_F(Reading, a_heading_without_closing_bracket_is_one)
{
  write("[a\nx=1\n");

  EXPECT_EQ(file().value("a", "x"), "1");
}

TEST_F(Reading, bytes_that_are_no_utf8_are_windows_1252)
{
  write("[a]\r\nx=C:\\B\xFC"
        "cher\\\x80\r\n");

  EXPECT_EQ(file().value("a", "x"), "C:\\Bücher\\€");
}

TEST_F(Writing, starts_a_new_file)
{
  file().setValue("Language", "Lang", "GER");

  EXPECT_EQ(text(), "[Language]\r\nLang=GER\r\n");
}

TEST_F(Writing, changes_the_first_match_and_keeps_everything_else)
{
  write("; Kopf\r\n\r\n[Language]\r\nlang = ENG\r\nlang=x\r\n\r\n[LastFile]\r\nFile1=a\r\n");

  file().setValue("LANGUAGE", "Lang", "GER");

  EXPECT_EQ(text(), "; Kopf\r\n\r\n[Language]\r\nlang =GER\r\nlang=x\r\n\r\n[LastFile]\r\nFile1=a\r\n");
}

TEST_F(Writing, adds_a_key_at_the_end_of_its_section)
{
  write("[a]\r\nx=1\r\n\r\n\r\n[b]\r\ny=2\r\n");

  file().setValue("a", "neu", "3");
  file().setValue("b", "neu", "4");

  EXPECT_EQ(text(), "[a]\r\nx=1\r\nneu=3\r\n\r\n\r\n[b]\r\ny=2\r\nneu=4\r\n");
}

TEST_F(Writing, adds_a_section_at_the_end)
{
  write("[a]\nx=1");

  file().setValue("b", "y", "2");

  EXPECT_EQ(text(), "[a]\r\nx=1\r\n[b]\r\ny=2\r\n");
}

TEST_F(Writing, turns_windows_1252_into_utf8)
{
  write("[a]\r\nx=\xFC\r\n");

  file().setValue("a", "y", "ä");

  EXPECT_EQ(text(), "[a]\r\nx=ü\r\ny=ä\r\n");
}

TEST_F(Writing, values_read_back_as_they_were)
{
  for (const char* value :
       {"", "GER", " vorn", "hinten ", "\ttab", "\"ganz\"", "'halb", "\"", "a=b;c", "[x]", "\\home\\Ü\\x.mdb"}) {
    file().setValue("a", "x", value);
    EXPECT_EQ(file().value("a", "x"), value);
  }
}

TEST_F(Writing, a_value_cannot_bring_in_lines_of_its_own)
{
  file().setValue("a", "x", "1\r\n[b]\r\ny=2");

  EXPECT_EQ(file().value("a", "x"), "1  [b]  y=2");
  EXPECT_EQ(file().value("b", "y"), std::nullopt);
}

TEST_F(Writing, refuses_names_that_would_read_as_something_else)
{
  EXPECT_THROW(file().setValue("a", "x=y", "1"), base::Error);
  EXPECT_THROW(file().setValue("a", " ", "1"), base::Error);
  EXPECT_THROW(file().setValue("a", ";x", "1"), base::Error);
  EXPECT_THROW(file().setValue("a", "[x", "1"), base::Error);
  EXPECT_THROW(file().setValue("a", "x\ny", "1"), base::Error);
  EXPECT_THROW(file().setValue("a]", "x", "1"), base::Error);
  EXPECT_EQ(scratch.entries(), 0u);
}

TEST_F(Writing, fails_where_the_directory_is_missing)
{
  EXPECT_THROW(IniFile(scratch.path("fehlt/a.ini")).setValue("a", "x", "1"), base::Error);
}

TEST_F(Writing, at_the_same_time_loses_no_key)
{
  constexpr int kWriters = 6, kKeys = 8;
  std::vector<std::thread> writers;
  for (int writer = 0; writer < kWriters; ++writer)
    writers.emplace_back([this, writer] {
      for (int key = 0; key < kKeys; ++key)
        file().setValue("a", "k" + std::to_string(writer) + "-" + std::to_string(key), "wert");
    });
  for (auto& writer : writers)
    writer.join();

  for (int writer = 0; writer < kWriters; ++writer)
    for (int key = 0; key < kKeys; ++key)
      EXPECT_EQ(file().value("a", "k" + std::to_string(writer) + "-" + std::to_string(key)), "wert");
  EXPECT_EQ(scratch.entries(), 1u);
}

TEST_F(Writing, never_shows_readers_half_a_file)
{
  file().setValue("a", "x", "1");
  std::jthread writer([this](const std::stop_token& stop) {
    while (!stop.stop_requested())
      file().setValue("a", "y", std::string(20'000, 'y'));
  });
  for (int i = 0; i < 200; ++i)
    ASSERT_EQ(file().value("a", "x"), "1");
}

} // namespace
} // namespace mrd::files
