#include "platform/ftp/listing.h"

#include <gtest/gtest.h>

namespace mrd::ftp {
namespace {

std::string columns(std::string_view text) { return asLines(parseListing(text, ListingForm::Columns)); }
std::string facts(std::string_view text) { return asLines(parseListing(text, ListingForm::Facts)); }

TEST(FtpListing, of_facts_gives_names_and_marks_directories)
{
  EXPECT_EQ(facts("type=cdir;modify=20030131123000; .\r\nType=pdir; ..\r\ntype=dir; pix\r\n"
                  "type=file;size=4711;  zwei  blanks.jpg\r\nsize=1;TYPE=file; o'hara \"x\".htm\r\n"),
            "pix/\r\n zwei  blanks.jpg\r\no'hara \"x\".htm\r\n");
}

TEST(FtpListing, of_unix_columns_gives_names_with_blanks_and_umlauts)
{
  EXPECT_EQ(columns("total 12\r\n"
                    "drwxr-xr-x   2 anna     users        4096 Jan 31 12:30 pix\r\n"
                    "drwxr-xr-x   2 anna     users        4096 Jan 31 12:30 .\r\n"
                    "-rw-r--r--   1 anna     users        4711 Feb  1  2003 küche und bad.htm\r\n"
                    "-rw-r--r--   1 1000     Domain Users    5 Mar 12 2004  vorn.htm\r\n"
                    "-rw-r--r--   1 ftp                   7 12. Mär 09:15 tag.htm\r\n"
                    "-rw-------    1 103      111             4 Nov 21 08:17 kurz.htm\r\n"
                    "-rw-r--r--+  1 a b 12 2003-01-31 12:30 iso.htm\r\n"
                    "lrwxrwxrwx   1 anna     users           9 Jan 31 12:30 start.htm -> index.htm\r\n"),
            "pix/\r\nküche und bad.htm\r\n vorn.htm\r\ntag.htm\r\nkurz.htm\r\niso.htm\r\nstart.htm\r\n");
}

TEST(FtpListing, knows_symbolic_links)
{
  EXPECT_EQ(linksOf(parseListing("lrwxrwxrwx   1 anna     users           9 Jan 31 12:30 cgi -> /srv/cgi\r\n"
                                 "-rw-r--r--   1 anna     users           9 Jan 31 12:30 a -> b\r\n",
                                 ListingForm::Columns)),
            std::vector<std::string>{"cgi"});
  EXPECT_EQ(
      linksOf(parseListing("type=OS.unix=slink:/srv; a\r\ntype=OS.unix=symlink; b\r\ntype=file; c\r\n", ListingForm::Facts)),
      (std::vector<std::string>{"a", "b"}));
}

TEST(FtpListing, of_dos_columns_gives_names_with_blanks)
{
  EXPECT_EQ(columns("01-31-03  12:30PM       <DIR>          pix\r\n"
                    "01-31-2003  12:30               4.711 ein bild.jpg\r\n"
                    "2003-01-31  12:30PM                  5 x.htm\r\n"),
            "pix/\r\nein bild.jpg\r\nx.htm\r\n");
}

TEST(FtpListing, reads_names_that_are_no_utf8_as_windows_1252)
{
  EXPECT_EQ(columns("-rw-r--r-- 1 a b 5 Jan 31 12:30 k\xFC"
                    "che.htm\r\n"),
            "küche.htm\r\n");
}

TEST(FtpListing, leaves_out_what_can_be_no_name)
{
  EXPECT_EQ(
      facts("type=file; ../../etc/passwd\ntype=file; a\tb.htm\ntype=file; x\x1b[2J.htm\ntype=file; \ntype=dir; ..\nunsinn\n\n"
            "type=file; gut.htm"),
      "gut.htm\r\n");
  EXPECT_EQ(columns("-rw-r--r-- 1 a b 5 Jan 31 12:30 ../x.htm\r\n-rw-r--r-- 1 a b 5 Jan 31 12:30\r\nd\r\n"), "");
}

TEST(FtpListing, of_ten_thousand_names_is_read_at_once)
{
  std::string text;
  for (int i = 0; i < 10000; ++i)
    text += "-rw-r--r--   1 anna     users        4096 Jan 31 12:30 bild" + std::to_string(i) + ".jpg\r\n";

  EXPECT_EQ(parseListing(text, ListingForm::Columns).size(), 10000u);
}

} // namespace
} // namespace mrd::ftp
