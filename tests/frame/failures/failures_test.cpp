#include "frame/failures/failures.h"
#include "platform/files/files.h"
#include "support/test_program.h"

#include <gtest/gtest.h>

namespace mrd::failures {
namespace {

const base::Error kDiskFull(base::ErrorNumber::DiskFull, "Datenträger voll");

TEST(StandardHandler, shows_message_1_with_description_number_and_procedure)
{
  support::TestProgram program;
  program.ui.expect(1, "Datenträger voll (61) in Modul SavePage");

  const bool done = withStandardHandler(program.language, "SavePage", [] { throw kDiskFull; });

  EXPECT_FALSE(done);
}

TEST(StandardHandler, speaks_the_language_of_the_program)
{
  support::TestProgram program;
  program.language.setSprache("ENG");
  program.ui.expect(1, "An error has occurred: Datenträger voll (61) in Modul SavePage");

  withStandardHandler(program.language, "SavePage", [] { throw kDiskFull; });
}

TEST(StandardHandler, shows_nothing_for_a_procedure_that_ends_well)
{
  support::TestProgram program;
  int runs = 0;

  EXPECT_TRUE(withStandardHandler(program.language, "SavePage", [&] { ++runs; }));

  EXPECT_EQ(runs, 1);
}

TEST(PlainHandler, shows_a_plain_German_box_whatever_the_language)
{
  support::ScriptedUi ui;
  ui.expect(0, "Fehler Datenträger voll in Modul AddColumn.");

  EXPECT_FALSE(withPlainHandler(ui, "AddColumn", [] { throw kDiskFull; }));

  EXPECT_EQ(ui.messages.front().text, "Fehler Datenträger voll in Modul AddColumn.");
  EXPECT_EQ(ui.messages.front().style, ui::box::kOk);
}

TEST(WriteLogFile, makes_no_file)
{
  support::TestProgram program;
  const auto before = files::fileNames(program.directory.path());

  WriteLogFile("MovePage: 01 02");

  EXPECT_EQ(files::fileNames(program.directory.path()), before);
}

} // namespace
} // namespace mrd::failures
