#include "open_window.h"

#include "platform/files/path.h"

#include <gtest/gtest.h>

namespace mrd::mainform {
namespace {

struct ProgramTest : testing::Test, Surroundings {
  /// The language after a start with this INI file.
  std::string languageWith(const std::string& ini)
  {
    directory.write("mirandel.INI", ini);
    Program program(files(), clock, ui);
    program.startLanguage();
    return program.language.Sprache();
  }
};

TEST_F(ProgramTest, speaks_german_without_an_ini_file)
{
  Program program(files(), clock, ui);

  program.startLanguage();

  EXPECT_EQ(program.language.Sprache(), "GER");
  EXPECT_EQ(iniValue("LastFile", "LangFile"), directory.file("language.mdb"));
}

TEST_F(ProgramTest, takes_the_language_of_the_ini_file_in_any_case)
{
  EXPECT_EQ(languageWith("[Language]\r\nLang=ENG\r\n"), "ENG");
  EXPECT_EQ(languageWith("[Language]\r\nLang=eng\r\n"), "ENG");
  EXPECT_EQ(languageWith("[language]\r\nlang=ger\r\n"), "GER");
}

TEST_F(ProgramTest, speaks_german_for_every_other_language_even_one_of_two_letters)
{
  for (const auto* const language : {"de", "en", "FRA", "ENGLISH", ""})
    EXPECT_EQ(languageWith(std::string("[Language]\r\nLang=") + language + "\r\n"), "GER") << language;
}

TEST_F(ProgramTest, lives_in_the_directory_that_is_named)
{
  EXPECT_EQ(findProgramDirectory(directory.native().string()), directory.path());
  EXPECT_EQ(findProgramDirectory(directory.native().string() + "/"), directory.path());
}

} // namespace
} // namespace mrd::mainform
