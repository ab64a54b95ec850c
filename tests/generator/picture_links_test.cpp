#include "generator/picture_links.h"

#include "base/text.h"
#include "frame/project/file_register.h"
#include "generator/site_run.h"
#include "platform/files/files.h"

#include <gmock/gmock.h>

namespace mrd::generator {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr std::string_view kExport = "\\site\\";

struct Rewritten {
  std::string html;
  FoundPictures found;

  /// Source paths as "directory|name|extension", "-" before those that are not entered.
  std::vector<std::string> uses() const
  {
    std::vector<std::string> out;
    for (const auto& use : found.uses)
      out.push_back((use.enter ? "" : "-") + use.verzeichnis + "|" + use.name + "|" + use.erweiterung);
    return out;
  }
};

/// The body as a page's is made.
Rewritten rewritten(const std::string& body, const std::string& basislink = {},
                    const std::string& tbbasisurl = "http://x.example/")
{
  auto document = html::Document::fromText("<html><head><title>generator</title><base href='file://\\site\\'></head><body>" +
                                           body + "</body></html>");
  auto found = findebilder(document, {std::string(kExport), basislink, tbbasisurl});
  return {document.body().innerHtml(), std::move(found)};
}

/// Source of the one picture that a page with this reference has.
std::string sourceOf(const std::string& reference)
{
  const auto result = rewritten("<img src=\"" + reference + "\">");
  return result.found.uses.size() == 1 ? sourcePath(result.found.uses.front(), kExport) : "no picture";
}

std::string imageOf(const std::string& reference) { return rewritten("<img src=\"" + reference + "\">").html; }

std::string hrefOf(const std::string& href, const std::string& basislink = {},
                   const std::string& tbbasisurl = "http://x.example/")
{
  const auto text = rewritten("<a href=\"" + href + "\">x</a>", basislink, tbbasisurl).html;
  return base::replaceAll(between(text, "<a href=\"", "\">x</a>"), "&amp;", "&");
}

TEST(Pictures, of_every_form_of_local_reference_are_found_where_they_are)
{
  for (const auto* reference :
       {"file:///home/anna/Bild 1.jpg", "file://\\home\\anna\\Bild 1.jpg", "file:\\\\\\home\\anna\\Bild 1.jpg",
        "\\home\\anna\\Bild 1.jpg", "/home/anna/Bild 1.jpg", "file:///home/anna/Bild%201.jpg"}) {
    EXPECT_EQ(sourceOf(reference), "\\home\\anna\\Bild 1.jpg") << reference;
    EXPECT_EQ(imageOf(reference), "<img src=\"pix/bild 1.jpg\">") << reference;
  }
}

TEST(Pictures, of_drives_are_found_where_they_are)
{
  for (const auto* reference : {"file:///C:/Bilder/x.jpg", "file://C:\\Bilder\\x.jpg", "C:\\Bilder\\x.jpg", "C:/Bilder/x.jpg"}) {
    EXPECT_EQ(sourceOf(reference), "C:\\Bilder\\x.jpg") << reference;
    EXPECT_EQ(imageOf(reference), "<img src=\"pix/x.jpg\">") << reference;
  }
}

TEST(Pictures, that_are_in_pix_already_keep_their_form_and_are_their_own_source)
{
  const auto result = rewritten("<img src=\"pix/x.jpg\">");

  EXPECT_EQ(result.html, "<img src=\"pix/x.jpg\">");
  ASSERT_THAT(result.found.uses, SizeIs(1));
  EXPECT_EQ(sourcePath(result.found.uses[0], kExport), "\\site\\pix\\x.jpg");
  EXPECT_EQ(pathInPix(result.found.uses[0], kExport), "\\site\\pix\\x.jpg");
  EXPECT_TRUE(result.found.uses[0].enter);
}

TEST(Pictures, of_the_web_are_left_alone)
{
  for (const auto* reference : {"http://y.example/x.jpg", "HTTPS://y.example/x.jpg", "https://y.example/x.jpg",
                                "data:image/gif;base64,R0lGODlhAQABAAAAACw=", "cid:4711", "blob:https://y.example/1",
                                "mailto:anna@y.example", "javascript:bild()"}) {
    const auto result = rewritten("<img src=\"" + std::string(reference) + "\">");
    EXPECT_EQ(result.html, "<img src=\"" + std::string(reference) + "\">");
    for (const auto& use : result.found.uses)
      EXPECT_FALSE(use.enter) << reference;
  }
}

TEST(Pictures, are_called_in_lower_case_in_the_reference)
{
  EXPECT_EQ(imageOf("file:///home/Foto.JPG"), "<img src=\"pix/foto.jpg\">");
  EXPECT_EQ(imageOf("file:///home/ÜBERSICHT &amp; Straße.JPG"), "<img src=\"pix/übersicht &amp; straße.jpg\">");
}

TEST(Pictures, with_an_extension_that_is_too_long_keep_the_dot_alone)
{
  EXPECT_EQ(imageOf("file:///home/bild.backup"), "<img src=\"pix/bild.\">");
  EXPECT_EQ(imageOf("file:///home/bild"), "<img src=\"pix/bild.\">");
  EXPECT_EQ(imageOf("file:///home/bild.jpg ab"), "<img src=\"pix/bild.jpg \">");
}

TEST(Pictures, keep_all_their_other_attributes_in_their_order)
{
  EXPECT_EQ(rewritten("<IMG alt='a \"b\"' SRC=file:///home/x.jpg width=10 border=0>").html,
            "<img alt=\"a &quot;b&quot;\" src=\"pix/x.jpg\" width=\"10\" border=\"0\">");
}

TEST(Pictures, are_brought_in_the_order_of_the_page_before_all_links)
{
  const auto result = rewritten(
      "<a href='file:///l/1.jpg'>x</a><img src='file:///b/2.jpg'><p><img src='file:///b/3.gif'><a href='file:///l/4.JPG'>y</a>");

  EXPECT_THAT(result.uses(), ElementsAre("\\b\\|2|jpg", "\\b\\|3|gif", "\\l\\|1|jpg", "\\l\\|4|JPG"));
}

TEST(Pictures, without_a_reference_bring_nothing)
{
  const auto result = rewritten("<img alt=\"nichts\">");

  EXPECT_EQ(result.html, "<img alt=\"nichts\">");
  EXPECT_THAT(result.uses(), IsEmpty());
}

TEST(PictureLinks, lead_to_the_copy_whatever_the_letters_of_the_extension)
{
  EXPECT_EQ(hrefOf("file:///home/anna/Foto.JPG"), "pix/foto.jpg");
  EXPECT_EQ(hrefOf("file:///C:/Bilder/foto.jpg"), "pix/foto.jpg");
  EXPECT_EQ(hrefOf("file://\\home\\anna\\foto.Jpg"), "pix/foto.jpg");
}

TEST(PictureLinks, find_the_picture_where_it_is)
{
  for (const auto* href : {"file:///home/anna/Bild%201.jpg", "file://\\home\\anna\\Bild 1.jpg",
                           "javascript:popupfenster('file:///home/anna/Bild%201.jpg','x')"}) {
    const auto result = rewritten("<a href=\"" + std::string(href) + "\">x</a>");
    ASSERT_THAT(result.found.uses, SizeIs(1)) << href;
    EXPECT_EQ(sourcePath(result.found.uses[0], kExport), "\\home\\anna\\Bild 1.jpg") << href;
    EXPECT_TRUE(result.found.uses[0].enter) << href;
  }
}

TEST(PictureLinks, go_through_the_base_address_of_the_page)
{
  EXPECT_EQ(hrefOf("file:///home/x.jpg", "http://fremd.example/"), "http://fremd.example/pix/x.jpg");
}

TEST(PictureLinks, keep_the_words_around_the_reference)
{
  EXPECT_EQ(hrefOf("javascript:popupfenster('file:///home/Bild 1.jpg','Haus am Meer')"),
            "javascript:popupfenster('pix/bild 1.jpg','Haus am Meer')");
  EXPECT_EQ(hrefOf("javascript:popupfenster('file:///home/x.gif','a')"), "javascript:popupfenster('pix/x.gif','a')");
}

TEST(PictureLinks, of_the_transfer_service_name_the_full_address_of_the_site)
{
  EXPECT_EQ(hrefOf("javascript:picturetransfer('file:///home/x.jpg','4711')", "", "http://x.example/"),
            "javascript:picturetransfer('http://x.example/pix/x.jpg','4711')");
  EXPECT_EQ(hrefOf("javascript:picturetransfer('file:///home/x.jpg','4711')", "http://fremd.example/", "http://x.example/"),
            "javascript:picturetransfer('http://x.example/pix/x.jpg','4711')");
}

TEST(PictureLinks, append_the_slash_that_the_address_of_the_site_lacks)
{
  const auto result = rewritten("<a href=\"javascript:picturetransfer('file:///home/x.jpg','')\">x</a>", "", "http://x.example");

  EXPECT_NE(result.html.find("'http://x.example/pix/x.jpg'"), std::string::npos) << result.html;
  EXPECT_TRUE(result.found.slashAppended);
  EXPECT_FALSE(rewritten("<a href='file:///home/x.jpg'>x</a>", "", "http://x.example/").found.slashAppended);
  EXPECT_TRUE(rewritten("<a href='file:///home/x.jpg'>x</a>", "", "").found.slashAppended);
  EXPECT_FALSE(rewritten("<img src='file:///home/x.jpg'>", "", "").found.slashAppended) << "a picture needs no address";
}

TEST(PictureLinks, on_the_web_count_as_links_but_bring_no_picture)
{
  const auto result = rewritten("<a href=\"http://y.example/a/Foto.jpg\">x</a>");

  for (const auto& use : result.found.uses)
    EXPECT_FALSE(use.enter);
  EXPECT_EQ(result.html, "<a href=\"pix/foto.jpg\">x</a>");
}

TEST(PictureLinks, of_other_schemes_are_left_alone)
{
  for (const auto* href : {"https://y.example/x.jpg", "mailto:bild.jpg@y.example", "data:image/jpg;base64,AAAA",
                           "javascript:zeige('x.jpg')", "ftp://y.example/x.jpg"}) {
    EXPECT_EQ(hrefOf(href), href);
    EXPECT_THAT(rewritten("<a href=\"" + std::string(href) + "\">x</a>").uses(), IsEmpty()) << href;
  }
}

TEST(PictureLinks, are_only_those_with_a_photograph_or_a_quoted_path)
{
  for (const auto* href : {"02.htm", "#oben", "file:///home/liste.pdf", "file:///home/x.gif", "http://y.example/",
                           "javascript:hallo('du')", "x.php?a='b'"})
    EXPECT_EQ(hrefOf(href), href);
}

TEST(PictureLinks, of_image_maps_count_too)
{
  EXPECT_EQ(rewritten("<map name=\"m\"><area href=\"file:///home/x.jpg\" shape=\"rect\"></map>").html,
            "<map name=\"m\"><area href=\"pix/x.jpg\" shape=\"rect\"></map>");
}

TEST(PictureLinks, that_are_in_pix_already_keep_their_form)
{
  const auto result = rewritten("<a href=\"pix/gross.jpg\">x</a>");

  EXPECT_EQ(result.html, "<a href=\"pix/gross.jpg\">x</a>");
  ASSERT_THAT(result.found.uses, SizeIs(1));
  EXPECT_EQ(pathInPix(result.found.uses[0], kExport), "\\site\\pix\\gross.jpg");
}

TEST(PictureLinks, are_cut_behind_250_characters)
{
  const auto directory = "/" + std::string(230, 'd') + "/";

  const auto whole = splitLink("javascript:p('file://" + directory + "abc.jpg','Titel mit vielen Worten')");
  EXPECT_EQ(whole.prefix, "javascript:p('");
  EXPECT_EQ(whole.reference.substr(whole.reference.size() - 7), "abc.jpg");
  EXPECT_EQ(whole.suffix.size(), 250 - (directory.size() - 1) - 7) << "the root's slash does not count";
  EXPECT_TRUE(whole.suffix.starts_with("','Titel"));

  EXPECT_EQ(hrefOf("file://" + directory + "abcdefghijklmnop.jpg.jpg"), "pix/abcdefghijklmnop.jp");
}

TEST(PictureLinks, are_cut_by_characters_and_not_by_bytes)
{
  std::string umlauts;
  for (int i = 0; i < 240; ++i)
    umlauts += "ä";

  EXPECT_EQ(splitLink("javascript:p('file:///" + umlauts + ".jpg','abcdefgh')").suffix, "','abc");
}

/// Copies into a real export directory.
struct CopyTest : testing::Test {
  SiteRun run{{"00", "Start"}};
  const std::string exportpfad = run.site.path() + "\\";

  CopyTest() { files::makeDirectory(exportpfad + "pix"); }

  PictureUse picture(const std::string& name, const std::string& bytes)
  {
    run.pictures.write(name, bytes);
    return pictureOf(run.pictures.file(name));
  }
  void bring(const std::vector<PictureUse>& uses)
  {
    project::FileRegister fileRegister(run.project.db(), run.language);
    bringPictures(uses, exportpfad, fileRegister);
  }
};

TEST_F(CopyTest, lowers_the_name_of_the_copy)
{
  Bildkopie(picture("Foto.JPG", "1"), exportpfad);

  EXPECT_THAT(run.files(), ElementsAre("pix/foto.jpg"));
  EXPECT_EQ(run.site.read("pix/foto.jpg"), "1");
}

TEST_F(CopyTest, leaves_a_target_that_is_there_alone)
{
  run.site.write("pix/foto.jpg", "alt");

  Bildkopie(picture("Foto.JPG", "neu"), exportpfad);

  EXPECT_EQ(run.site.read("pix/foto.jpg"), "alt");
}

TEST_F(CopyTest, leaves_a_target_of_another_case_alone)
{
  run.site.write("pix/FOTO.jpg", "alt");

  Bildkopie(picture("Foto.JPG", "neu"), exportpfad);

  EXPECT_THAT(run.files(), ElementsAre("pix/FOTO.jpg"));
}

TEST_F(CopyTest, takes_the_first_of_two_pictures_with_one_name)
{
  bring({picture("a\\bild.jpg", "erstes"), picture("b\\BILD.jpg", "zweites")});

  EXPECT_THAT(run.files(), ElementsAre("pix/bild.jpg"));
  EXPECT_EQ(run.site.read("pix/bild.jpg"), "erstes");
  EXPECT_THAT(run.entered(2), ElementsAre("pix\\bild.jpg"));
}

TEST_F(CopyTest, finds_the_source_whatever_the_case_of_its_path)
{
  run.pictures.write("Ordner/Bild.JPG", "x");

  Bildkopie(pictureOf(run.pictures.file("ordner\\bild.jpg")), exportpfad);

  EXPECT_THAT(run.files(), ElementsAre("pix/bild.jpg"));
}

TEST_F(CopyTest, of_a_missing_picture_tells_that_it_is_not_in_pix)
{
  run.ui.expect(0, "Die Datei " + exportpfad + "pix\\weg.jpg wurde nicht gefunden!");

  bring({pictureOf(run.pictures.file("weg.jpg"))});

  EXPECT_THAT(run.entered(), IsEmpty());
}

TEST_F(CopyTest, of_a_directory_copies_nothing)
{
  run.pictures.write("bild.jpg/inhalt", "x");
  run.ui.expect(0, "pix\\bild.jpg wurde nicht gefunden!");

  bring({pictureOf(run.pictures.file("bild.jpg"))});

  EXPECT_THAT(run.files(), IsEmpty());
}

TEST_F(CopyTest, neither_copies_nor_enters_what_lies_on_the_web)
{
  bring({pictureOf("http:\\\\y.example\\x.jpg", false)});

  EXPECT_THAT(run.files(), IsEmpty());
  EXPECT_THAT(run.entered(), IsEmpty());
}

TEST_F(CopyTest, enters_names_with_apostrophes)
{
  bring({picture("Anna's Ordner\\O'Neil.jpg", "x")});

  EXPECT_THAT(run.entered(2), ElementsAre("pix\\o'neil.jpg"));
}

} // namespace
} // namespace mrd::generator
