#include "shop/auction.h"

#include "base/product.h"
#include "pagetree/plain_tree.h"
#include "support/test_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mrd::shop {
namespace {

using testing::ElementsAre;
using testing::EndsWith;

struct RecordedClipboard : ui::Clipboard {
  void clear() override { steps.emplace_back("clear"); }
  void setText(std::string_view text) override { steps.emplace_back(text); }
  std::vector<std::string> steps;
};

struct AddressShell : ui::Shell {
  void open(std::string_view) override {}
  void openAddress(std::string_view address) override { opened.emplace_back(address); }
  std::vector<std::string> opened;
};

struct Auction : testing::Test {
  Auction()
  {
    settings.tbpfadexport = program.directory.path() + "\\";
    tree.addNode("", "@00", "Start", 1);
    tree.addNode("@00", "@05", "Angebot", 4);
    tree.select("@05");
  }
  /// What is on the clipboard when a file with this content is copied.
  std::string copied(const std::string& text)
  {
    program.directory.write("05.htm", text);
    program.ui.expect(46);
    auction.cbEbayHTMLkopieren_Click();
    return clipboard.steps.back();
  }

  support::TestProgram program;
  pagetree::PlainTree tree;
  RecordedClipboard clipboard;
  AddressShell shell;
  pagetree::PageFields page;
  settings::Fields settings;
  int scriptChanges = 0;
  AuctionHelper auction{{program.language, tree, clipboard, shell, page, settings}, [this] { ++scriptChanges; }};
};

TEST_F(Auction, copies_style_and_body_without_the_head)
{
  EXPECT_EQ(
      copied(
          "<HTML><HEAD>\r\n<title>Angebot</title>\r\n<meta name='x'>\r\n<STYLE type=text/css>\r\np { color: red }\r\n</STYLE>\r\n"
          "</HEAD>\r\n<BODY bgcolor=white>\r\nM\xf6we\r\n</BODY></HTML>\r\nmehr\r\n"),
      "<STYLE type=text/css>\r\np { color: red }\r\n</STYLE>\r\n<BODY bgcolor=white>\r\nMöwe\r\n</BODY></HTML>\r\n");
  EXPECT_THAT(clipboard.steps, testing::SizeIs(2));
  EXPECT_EQ(clipboard.steps.front(), "clear");
}

TEST_F(Auction, copies_nothing_of_a_page_without_a_style_element)
{
  EXPECT_EQ(copied("<HTML><HEAD>\r\n<link rel=stylesheet href=mrdstyle.css>\r\n</HEAD>\r\n<BODY>\r\nText\r\n</BODY>\r\n"), "");
}

TEST_F(Auction, copies_nothing_of_a_page_with_lower_case_tags)
{
  EXPECT_EQ(copied("<html><head>\r\n<style>p{}</style>\r\n</head>\r\n<body>\r\nText\r\n</body>\r\n"), "");
}

TEST_F(Auction, leaves_a_line_out_that_ends_the_head_with_all_that_stands_in_it)
{
  EXPECT_EQ(copied("<STYLE>a</STYLE>\r\nb</HEAD><BODY>c\r\nd</BODY>\r\n"), "<STYLE>a</STYLE>\r\nd</BODY>\r\n");
}

TEST_F(Auction, begins_anew_at_a_second_style_element)
{
  EXPECT_EQ(copied("<STYLE>\r\na</BODY>\r\nb\r\n<STYLE>c\r\nd"), "<STYLE>\r\na</BODY>\r\n<STYLE>c\r\nd\r\n");
}

TEST_F(Auction, starts_and_ends_on_one_line) { EXPECT_EQ(copied("<STYLE>x</BODY>\r\ny\r\n"), "<STYLE>x</BODY>\r\n"); }

TEST_F(Auction, page_has_to_be_generated_first)
{
  program.ui.expect(47);

  auction.cbEbayHTMLkopieren_Click();

  EXPECT_THAT(clipboard.steps, testing::IsEmpty());
}

TEST_F(Auction, page_has_the_file_name_that_the_generator_gives_it)
{
  const std::string text = "<STYLE>x\r\n";
  for (const auto& [pattern, file] : {std::pair{"", "05.htm"},
                                      {"haus_*.htm", "haus_05.htm"},
                                      {"*-*.php", "05-05.php"},
                                      {"http://x.example/a.htm", "05.htm"},
                                      {"https", "05.htm"},
                                      {"fest.htm", "fest.htm"}}) {
    program.directory.write(file, text);
    page.tbdateiname = pattern;
    program.ui.expect(46);

    auction.cbEbayHTMLkopieren_Click();

    EXPECT_EQ(clipboard.steps.back(), text) << pattern;
    std::filesystem::remove(program.directory.native() / file);
  }
}

TEST_F(Auction, page_has_to_be_selected)
{
  tree.clear();

  EXPECT_THROW(auction.cbEbayHTMLkopieren_Click(), base::Error);
}

TEST_F(Auction, tag_takes_the_place_of_the_pages_script)
{
  page.tbScript = "<script>alt</script>";
  page.TBEbayArtikelnummer = "4711";

  auction.CbEbayMetatag_Click();

  EXPECT_EQ(page.tbScript, "<meta http-equiv='refresh' content='0; URL=" + std::string(base::kAuctionItemServer) +
                               "/ws/eBayISAPI.dll?ViewItem&item=4711'>");
  EXPECT_EQ(scriptChanges, 1);
}

TEST_F(Auction, tag_without_a_number_ends_behind_the_sign)
{
  auction.CbEbayMetatag_Click();

  EXPECT_THAT(page.tbScript, EndsWith("/ws/eBayISAPI.dll?ViewItem&item='>"));
}

TEST_F(Auction, list_of_categories_is_opened)
{
  auction.cbebaykategorien_Click();

  EXPECT_THAT(shell.opened, ElementsAre(std::string(base::kAuctionListings)));
}

} // namespace
} // namespace mrd::shop
