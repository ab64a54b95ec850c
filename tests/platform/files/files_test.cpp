#include "platform/files/files.h"

#include "base/errors.h"
#include "platform/files/scratch.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>

namespace mrd::files {
namespace {

using base::ErrorNumber;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

template <class Action>
base::Error failureOf(Action action)
{
  try {
    action();
  } catch (const base::Error& error) {
    return error;
  }
  ADD_FAILURE() << "no failure";
  return {ErrorNumber::ObjectNotSet, {}};
}

TEST(FileExists, is_true_for_a_file_in_any_case_and_false_for_a_directory)
{
  const Scratch scratch;
  scratch.write("Pix/A.jpg", "x");

  EXPECT_TRUE(fileExists(scratch.path("pix/a.JPG")));
  EXPECT_FALSE(fileExists(scratch.path("pix")));
  EXPECT_FALSE(fileExists(scratch.path("pix/b.jpg")));
  EXPECT_FALSE(fileExists(scratch.path("pix/a.jpg") + "\\"));
  EXPECT_FALSE(fileExists(""));
}

TEST(DirectoryExists, is_true_for_a_directory_with_or_without_separator)
{
  const Scratch scratch;
  scratch.write("Pix/a.jpg", "x");

  EXPECT_TRUE(directoryExists(scratch.path("pix")));
  EXPECT_TRUE(directoryExists(scratch.path("pix") + "\\"));
  EXPECT_FALSE(directoryExists(scratch.path("pix/a.jpg")));
  EXPECT_FALSE(directoryExists(""));
}

TEST(MakeDirectory, makes_one_and_accepts_one_that_is_there)
{
  const Scratch scratch;
  makeDirectory(scratch.path("pix"));
  makeDirectory(scratch.path("PIX") + "\\");

  EXPECT_TRUE(directoryExists(scratch.path("pix")));
  EXPECT_EQ(scratch.entries(), 1u);
}

TEST(MakeDirectory, needs_the_directory_above_and_a_free_name)
{
  const Scratch scratch;
  scratch.write("datei", "x");

  EXPECT_EQ(failureOf([&] { makeDirectory(scratch.path("a/b")); }).kind(), ErrorNumber::PathNotFound);
  EXPECT_EQ(failureOf([&] { makeDirectory(scratch.path("datei")); }).kind(), ErrorNumber::PathFileAccess);
}

TEST(FileNames, lists_files_in_order_without_directories)
{
  const Scratch scratch;
  scratch.write("b.htm", "");
  scratch.write("a.htm", "");
  scratch.write("pix/c.htm", "");
  scratch.write("mit\\backslash", "");

  EXPECT_THAT(fileNames(scratch.path()), ElementsAre("a.htm", "b.htm"));
  EXPECT_THAT(fileNames(scratch.path("fehlt")), IsEmpty());
}

TEST(CopyFile, replaces_an_older_file_and_keeps_the_date_of_the_source)
{
  const Scratch scratch;
  scratch.write("a.jpg", std::string(300'000, 'a'));
  scratch.write("b.jpg", "alt");
  const timespec then[]{{1'000'000'000, 0}, {1'000'000'000, 0}};
  ASSERT_EQ(::utimensat(AT_FDCWD, scratch.native("a.jpg").c_str(), then, 0), 0);

  copyFile(scratch.path("A.JPG"), scratch.path("B.JPG"));

  EXPECT_EQ(scratch.read("b.jpg"), std::string(300'000, 'a'));
  EXPECT_EQ(modificationTime(scratch.path("b.jpg")), base::localTime(1'000'000'000));
  EXPECT_EQ(scratch.entries(), 2u);
}

TEST(CopyFile, of_a_file_onto_itself_changes_nothing)
{
  const Scratch scratch;
  scratch.write("a.jpg", "abc");

  copyFile(scratch.path("a.jpg"), scratch.path("A.jpg"));

  EXPECT_EQ(scratch.read("a.jpg"), "abc");
  EXPECT_EQ(scratch.entries(), 1u);
}

TEST(CopyFile, tells_a_missing_file_from_a_missing_directory)
{
  const Scratch scratch;
  scratch.write("a.jpg", "abc");

  EXPECT_EQ(failureOf([&] { copyFile(scratch.path("b.jpg"), scratch.path("c.jpg")); }).kind(), ErrorNumber::FileNotFound);
  EXPECT_EQ(failureOf([&] { copyFile(scratch.path("x/b.jpg"), scratch.path("c.jpg")); }).kind(), ErrorNumber::PathNotFound);
  EXPECT_EQ(failureOf([&] { copyFile(scratch.path("a.jpg"), scratch.path("x/c.jpg")); }).kind(), ErrorNumber::PathNotFound);
}

TEST(CopyFile, refuses_what_is_no_file_and_leaves_nothing_behind)
{
  const Scratch scratch;
  scratch.write("a.jpg", "abc");
  makeDirectory(scratch.path("pix"));
  ASSERT_EQ(::mkfifo(scratch.native("roehre").c_str(), 0600), 0);

  EXPECT_EQ(failureOf([&] { copyFile(scratch.path("pix"), scratch.path("b.jpg")); }).kind(), ErrorNumber::PathFileAccess);
  EXPECT_EQ(failureOf([&] { copyFile(scratch.path("roehre"), scratch.path("b.jpg")); }).kind(), ErrorNumber::PathFileAccess);
  EXPECT_EQ(failureOf([&] { copyFile("\\dev\\zero", scratch.path("b.jpg")); }).kind(), ErrorNumber::PathFileAccess);
  EXPECT_EQ(failureOf([&] { copyFile(scratch.path("a.jpg"), scratch.path("pix")); }).kind(), ErrorNumber::PathFileAccess);
  EXPECT_EQ(scratch.entries(), 3u);
}

TEST(RemoveFile, removes_a_file_and_reports_a_missing_one)
{
  const Scratch scratch;
  scratch.write("a.jpg", "abc");

  removeFile(scratch.path("A.jpg"));

  EXPECT_EQ(scratch.entries(), 0u);
  EXPECT_EQ(failureOf([&] { removeFile(scratch.path("a.jpg")); }).kind(), ErrorNumber::FileNotFound);
}

TEST(ModificationTime, of_a_missing_file_is_a_failure)
{
  EXPECT_EQ(failureOf([] { modificationTime("\\mrd fehlt.jpg"); }).kind(), ErrorNumber::FileNotFound);
}

TEST(FileSize, counts_bytes_and_fails_as_reading_does)
{
  const Scratch scratch;
  scratch.write("a.txt", "ä\r\n");

  EXPECT_EQ(fileSize(scratch.path("A.txt")), 4u);
  EXPECT_EQ(failureOf([&] { fileSize(scratch.path("b.txt")); }).kind(), ErrorNumber::FileNotFound);
  EXPECT_EQ(failureOf([&] { fileSize(scratch.path()); }).kind(), ErrorNumber::PathFileAccess);
}

TEST(ReadFile, gives_all_bytes)
{
  const Scratch scratch;
  const std::string bytes = std::string("a\0\r\n\xFF", 5) + std::string(200'000, 'x');
  scratch.write("a.bin", bytes);

  EXPECT_EQ(readFile(scratch.path("a.bin")), bytes);
}

TEST(ReadFile, describes_the_failure_with_the_native_path)
{
  const Scratch scratch;
  const auto missing = failureOf([&] { readFile(scratch.path("fehlt.txt")); });

  EXPECT_EQ(missing.number(), 53);
  EXPECT_EQ(missing.description(), "Datei nicht gefunden: " + scratch.native("fehlt.txt").string());
  EXPECT_EQ(failureOf([&] { readFile(scratch.path("kein/pfad.txt")); }).number(), 76);
  EXPECT_EQ(failureOf([&] { readFile(scratch.path()); }).number(), 75);
}

/// Somebody without the superuser's rights, to whom files can be closed.
class OrdinaryUser {
public:
  OrdinaryUser() { EXPECT_EQ(::seteuid(before_ == 0 ? 65534 : before_), 0); }
  ~OrdinaryUser() { EXPECT_EQ(::seteuid(before_), 0); }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
  uid_t before_ = ::geteuid();
};

TEST(ReadFile, reports_a_file_that_is_closed_to_the_user)
{
  const Scratch scratch;
  scratch.write("a.txt", "x");
  ::chmod(scratch.native("a.txt").c_str(), 0);
  const OrdinaryUser user;

  const auto failure = failureOf([&] { readFile(scratch.path("a.txt")); });

  EXPECT_EQ(failure.number(), 75);
  EXPECT_THAT(failure.description(), HasSubstr("Kein Zugriff auf die Datei: "));
}

TEST(WriteFileAtomically, replaces_the_content_and_keeps_the_permissions)
{
  const Scratch scratch;
  scratch.write("a.ini", "alt");
  ::chmod(scratch.native("a.ini").c_str(), 0600);

  writeFileAtomically(scratch.path("A.INI"), "neu");

  struct stat status {};
  ::stat(scratch.native("a.ini").c_str(), &status);
  EXPECT_EQ(scratch.read("a.ini"), "neu");
  EXPECT_EQ(status.st_mode & 0777, 0600u);
  EXPECT_EQ(scratch.entries(), 1u);
}

TEST(WriteFileAtomically, keeps_a_symbolic_link)
{
  const Scratch scratch;
  scratch.write("echt/a.ini", "alt");
  std::filesystem::create_symlink("echt/a.ini", scratch.native("a.ini"));

  writeFileAtomically(scratch.path("a.ini"), "neu");

  EXPECT_TRUE(std::filesystem::is_symlink(scratch.native("a.ini")));
  EXPECT_EQ(scratch.read("echt/a.ini"), "neu");
}

TEST(WriteFileAtomically, leaves_nothing_of_a_run_that_was_killed_before_it_was_done)
{
  const Scratch scratch;
  const pid_t other = ::fork();
  if (other == 0) {
    const rlimit limit{4, 4};
    std::signal(SIGXFSZ, SIG_DFL);
    ::setrlimit(RLIMIT_FSIZE, &limit);
    writeFileAtomically(scratch.path("a.txt"), "ein langer Inhalt");
    ::_exit(0);
  }
  int status = 0;
  ::waitpid(other, &status, 0);
  ASSERT_TRUE(WIFSIGNALED(status));

  writeFileAtomically(scratch.path("a.txt"), "neu");

  EXPECT_EQ(scratch.entries(), 1u);
  EXPECT_EQ(scratch.read("a.txt"), "neu");
}

TEST(WriteFileAtomically, fails_in_a_missing_directory)
{
  const Scratch scratch;
  EXPECT_EQ(failureOf([&] { writeFileAtomically(scratch.path("x/a.ini"), "neu"); }).kind(), ErrorNumber::PathNotFound);
}

TEST(OutputFile, replaces_an_older_file_of_any_case)
{
  const Scratch scratch;
  scratch.write("Index.htm", "der alte, längere Inhalt");
  {
    OutputFile file(scratch.path("index.HTM"));
    file.write("neu");
    file.write("\r\n");
    file.close();
    file.close();
  }
  EXPECT_EQ(scratch.read("Index.htm"), "neu\r\n");
  EXPECT_EQ(scratch.entries(), 1u);
}

TEST(OutputFile, is_empty_as_soon_as_it_is_opened)
{
  const Scratch scratch;
  scratch.write("a.htm", "alt");
  const OutputFile file(scratch.path("a.htm"));

  EXPECT_EQ(scratch.read("a.htm"), "");
}

TEST(OutputFile, reports_a_missing_directory_and_a_directory_in_its_place)
{
  const Scratch scratch;
  makeDirectory(scratch.path("a.htm"));

  EXPECT_EQ(failureOf([&] { OutputFile(scratch.path("x/a.htm")); }).kind(), ErrorNumber::PathNotFound);
  EXPECT_EQ(failureOf([&] { OutputFile(scratch.path("a.htm")); }).kind(), ErrorNumber::PathFileAccess);
}

TEST(OutputFile, reports_a_full_disk)
{
  OutputFile file("\\dev\\full");
  const auto failure = failureOf([&] { file.write("x"); });

  EXPECT_EQ(failure.number(), 61);
  EXPECT_EQ(failure.description(), "Der Datenträger ist voll: /dev/full");
}

TEST(OutputDirectory, writes_files_over_those_of_another_case)
{
  const Scratch scratch;
  scratch.write("site/Index.htm", "alt");
  OutputDirectory directory(scratch.path("SITE"));

  directory.open("index.htm").write("eins");
  directory.open("Neu.htm").write("zwei");
  directory.open("neu.HTM").write("drei");

  EXPECT_THAT(fileNames(scratch.path("site")), ElementsAre("Index.htm", "Neu.htm"));
  EXPECT_EQ(scratch.read("site/Index.htm"), "eins");
  EXPECT_EQ(scratch.read("site/Neu.htm"), "drei");
}

TEST(OutputDirectory, prefers_the_name_as_written)
{
  const Scratch scratch;
  scratch.write("A.htm", "alt");
  scratch.write("a.htm", "alt");
  OutputDirectory directory(scratch.path());

  directory.open("a.htm").write("klein");
  directory.open("A.htm").write("groß");

  EXPECT_EQ(scratch.read("a.htm"), "klein");
  EXPECT_EQ(scratch.read("A.htm"), "groß");
}

TEST(OutputDirectory, that_is_missing_tells_at_the_first_file)
{
  const Scratch scratch;
  OutputDirectory directory(scratch.path("fehlt"));

  EXPECT_EQ(failureOf([&] { directory.open("a.htm"); }).kind(), ErrorNumber::PathNotFound);
}

} // namespace
} // namespace mrd::files
