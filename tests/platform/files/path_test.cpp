#include "platform/files/path.h"

#include "platform/files/scratch.h"

#include <gtest/gtest.h>

#include <array>

namespace mrd::files {
namespace {

TEST(NativePath, turns_backslashes_into_slashes) { EXPECT_EQ(nativePath("\\mrd\\gibt es\\nicht.jpg"), "/mrd/gibt es/nicht.jpg"); }

TEST(NativePath, takes_slashes_and_doubled_separators_too)
{
  EXPECT_EQ(nativePath("\\mrd\\\\gibt/es//nicht"), "/mrd/gibt/es/nicht");
}

TEST(NativePath, drops_the_separator_at_the_end_but_keeps_the_root)
{
  EXPECT_EQ(nativePath("\\mrd\\gibt\\"), "/mrd/gibt");
  EXPECT_EQ(nativePath("\\"), "/");
  EXPECT_EQ(nativePath(""), "");
}

TEST(NativePath, finds_a_file_in_another_case)
{
  const Scratch scratch;
  scratch.write("Fotos/Urlaub ÄÖ.JPG", "x");

  EXPECT_EQ(nativePath(scratch.path("fotos/urlaub äö.jpg")), scratch.native("Fotos/Urlaub ÄÖ.JPG"));
}

TEST(NativePath, prefers_the_name_as_written)
{
  const Scratch scratch;
  scratch.write("A.txt", "1");
  scratch.write("a.txt", "2");
  scratch.write("a.TXT", "3");

  EXPECT_EQ(nativePath(scratch.path("a.txt")), scratch.native("a.txt"));
  EXPECT_EQ(nativePath(scratch.path("a.TXT")), scratch.native("a.TXT"));
}

TEST(NativePath, takes_the_same_one_of_several_names_in_another_case)
{
  const Scratch scratch;
  scratch.write("a.Txt", "1");
  scratch.write("A.txt", "2");

  EXPECT_EQ(nativePath(scratch.path("a.txt")), scratch.native("A.txt"));
}

TEST(NativePath, takes_what_nothing_matches_as_written_below_what_matches)
{
  const Scratch scratch;
  scratch.write("Pix/a.jpg", "x");

  EXPECT_EQ(nativePath(scratch.path("pix/Neu.jpg")), scratch.native("Pix/Neu.jpg"));
  EXPECT_EQ(nativePath(scratch.path("pix/Neu/Datei.jpg")), scratch.native("Pix/Neu/Datei.jpg"));
}

TEST(NativePath, counts_blanks_at_the_end_of_a_name)
{
  const Scratch scratch;
  scratch.write("Bild ", "x");

  EXPECT_EQ(nativePath(scratch.path("bild")), scratch.native("bild"));
}

TEST(NativePath, does_not_look_for_a_drive_below_the_current_directory)
{
  EXPECT_EQ(nativePath("C:\\fotos\\x.jpg"), "/C:/fotos/x.jpg");
  EXPECT_EQ(nativePath("c:x.jpg"), "/c:/x.jpg");
}

TEST(NativePath, is_not_cut_short_by_a_zero_byte)
{
  const Scratch scratch;
  scratch.write("a", "x");

  EXPECT_EQ(nativePath(scratch.path("a") + std::string("\0.jpg", 5)), scratch.native("a?.jpg"));
}

TEST(SystemPath, is_the_native_path_with_backslashes)
{
  EXPECT_EQ(systemPath("/home/anna/Fotos/x y.jpg"), "\\home\\anna\\Fotos\\x y.jpg");
  EXPECT_EQ(systemPath("/"), "\\");
}

TEST(SystemPath, makes_a_relative_path_absolute)
{
  std::string expected = (std::filesystem::current_path() / "a" / "b.mdb").string();
  for (char& c : expected)
    c = c == '/' ? '\\' : c;

  EXPECT_EQ(systemPath("a/./b.mdb"), expected);
}

TEST(SystemPath, resolves_steps_upwards)
{
  const Scratch scratch;
  scratch.write("a/x", "");
  std::filesystem::create_directory_symlink(scratch.native("a"), scratch.native("link"));

  EXPECT_EQ(systemPath(scratch.native("a/../b.mdb")), scratch.path("b.mdb"));
  EXPECT_EQ(systemPath(scratch.native("link/../b.mdb")), scratch.path("b.mdb"));
}

TEST(SystemPath, of_nothing_is_nothing) { EXPECT_EQ(systemPath(""), ""); }

struct Reference {
  const char* reference;
  const char* path;
};

TEST(PathFromReference, reads_all_forms_of_a_local_reference)
{
  constexpr std::array kForms{
      Reference{"file:///C:/fotos/x.jpg", "C:\\fotos\\x.jpg"},
      Reference{"file://C:\\fotos\\x.jpg", "C:\\fotos\\x.jpg"},
      Reference{"file:C:\\fotos\\x.jpg", "C:\\fotos\\x.jpg"},
      Reference{"file:/C:/x.jpg", "C:\\x.jpg"},
      Reference{"file:///C|/x.jpg", "C:\\x.jpg"},
      Reference{"file://localhost/C:/x.jpg", "C:\\x.jpg"},
      Reference{"file:///home/anna/x.jpg", "\\home\\anna\\x.jpg"},
      Reference{"file://\\home\\anna\\x.jpg", "\\home\\anna\\x.jpg"},
      Reference{"file:\\\\\\home\\anna\\x.jpg", "\\home\\anna\\x.jpg"},
      Reference{"file:/home/anna/x.jpg", "\\home\\anna\\x.jpg"},
      Reference{"file:////home/anna/x.jpg", "\\home\\anna\\x.jpg"},
      Reference{"file://localhost/home/x.jpg", "\\home\\x.jpg"},
      Reference{"FILE://LocalHost\\home\\x.jpg", "\\home\\x.jpg"},
      Reference{"File:///home/x.jpg", "\\home\\x.jpg"},
      Reference{" \r\n\tfile:///home/x.jpg", "\\home\\x.jpg"},
      Reference{"file://\\home\\anna\\site\\pix/x.jpg", "\\home\\anna\\site\\pix\\x.jpg"},
      Reference{"file:///", "\\"},
      Reference{"file:", ""},
      Reference{"\\home\\anna\\x.jpg", "\\home\\anna\\x.jpg"},
      Reference{"/home/anna/x.jpg", "\\home\\anna\\x.jpg"},
      Reference{"\\\\home\\x.jpg", "\\home\\x.jpg"},
      Reference{"C:\\fotos\\x.jpg", "C:\\fotos\\x.jpg"},
      Reference{"C:/fotos/x.jpg", "C:\\fotos\\x.jpg"},
      Reference{"", ""},
  };
  for (const auto& form : kForms)
    EXPECT_EQ(pathFromReference(form.reference), form.path) << form.reference;
}

TEST(PathFromReference, leaves_a_relative_reference_relative)
{
  EXPECT_EQ(pathFromReference("pix/x.jpg"), "pix\\x.jpg");
  EXPECT_EQ(pathFromReference("x.jpg"), "x.jpg");
  EXPECT_EQ(pathFromReference("file:x.jpg"), "x.jpg");
  EXPECT_EQ(pathFromReference("file://pix/x.jpg"), "pix\\x.jpg");
  EXPECT_EQ(pathFromReference("localhost/x.jpg"), "localhost\\x.jpg");
}

TEST(PathFromReference, decodes_percent_escapes)
{
  EXPECT_EQ(pathFromReference("file:///home/Urlaub%201.jpg"), "\\home\\Urlaub 1.jpg");
  EXPECT_EQ(pathFromReference("%C3%9Cbersicht%20%26%20Stra%c3%9fe.JPG"), "Übersicht & Straße.JPG");
  EXPECT_EQ(pathFromReference("file:%2F%2F%2Fhome%5Cx"), "\\home\\x");
  EXPECT_EQ(pathFromReference("100%25.jpg"), "100%.jpg");
}

TEST(PathFromReference, takes_escapes_that_are_no_utf8_as_windows_1252)
{
  EXPECT_EQ(pathFromReference("%DCbersicht%80.jpg"), "Übersicht€.jpg");
  EXPECT_EQ(pathFromReference("a%C3%BC%FCb"), "aüüb");
  EXPECT_EQ(pathFromReference("a%C3"), "aÃ");
}

TEST(PathFromReference, keeps_percent_signs_that_are_no_escapes)
{
  EXPECT_EQ(pathFromReference("50%"), "50%");
  EXPECT_EQ(pathFromReference("50%.jpg"), "50%.jpg");
  EXPECT_EQ(pathFromReference("50%2"), "50%2");
  EXPECT_EQ(pathFromReference("a%00b"), "a%00b");
}

TEST(PathFromReference, keeps_query_and_fragment_as_part_of_the_name)
{
  EXPECT_EQ(pathFromReference("pix/x.jpg?a=1#b"), "pix\\x.jpg?a=1#b");
}

TEST(ForeignReference, has_another_scheme_than_file_and_http)
{
  for (const char* reference : {"https://a.example/x.jpg", "data:image/gif;base64,R0", "mailto:a@b.example", "cid:1", "blob:x",
                                "HTTPS://a.example", " \t\r\nhttps://a.example", "ht\ntps://a.example", "ftp://a.example/x",
                                "javascript:popup('x.jpg')", "view-source:x", "h2.a+b:x"})
    EXPECT_TRUE(isForeignReference(reference)) << reference;
}

TEST(ForeignReference, is_neither_a_local_one_nor_one_of_the_web)
{
  for (const char* reference : {"file:///x.jpg", "FILE:x", "http://a.example/x.jpg", "HTTP://A", "pix/x.jpg", "", "#oben",
                                "C:\\x.jpg", "c:/x.jpg", "\\home\\x:y", "pix/a:b.jpg", "?a:b", ":x", "2a:x"})
    EXPECT_FALSE(isForeignReference(reference)) << reference;
}

TEST(ForeignReference, is_no_script_that_names_a_local_file)
{
  EXPECT_FALSE(isForeignReference("javascript:popup('file:///C:/x.jpg')"));
  EXPECT_FALSE(isForeignReference("JavaScript:popup('FILE://x.jpg')"));
}

} // namespace
} // namespace mrd::files
