// Pictures and links of finished pages.

#include "generator/text_pictures.h"

#include "generator/templates/template_site.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>

namespace mrd::generator {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct TextPicturesTest : testing::Test {
  TemplateSite site{{"00", "Start", ""}};
  project::FileRegister files{site.project.db(), site.language};
  std::string tbbasisurl = "http://x.example/";
  TextPictures pictures{site.program, site.site.path() + "\\", files, tbbasisurl};
  std::string a = site.pictures.file("A.JPG");

  TextPicturesTest()
  {
    site.ui.acceptAll();
    std::filesystem::create_directory(site.site.native() / "pix");
    site.pictures.write("A.JPG", "a");
  }

  std::string of(std::string_view text, std::string_view basislink = {}) { return pictures.HTMBilderAnpassen(text, basislink); }
  /// The picture as pages name it.
  std::string reference(std::string_view slashes) const
  {
    std::string path = a;
    std::ranges::replace(path, '\\', '/');
    return std::string(slashes) + path.substr(1);
  }
};

TEST_F(TextPicturesTest, bring_and_enter_a_picture_in_lower_case)
{
  EXPECT_EQ(of("<img src='" + a + "'>"), "<img src='pix/a.jpg'>");

  EXPECT_THAT(site.files(), ElementsAre("pix/a.jpg"));
  EXPECT_EQ(site.site.read("pix/a.jpg"), "a");
  EXPECT_THAT(site.entered(), ElementsAre(EnteredFile{"pix\\a.jpg", 2}));
}

TEST_F(TextPicturesTest, know_every_form_of_local_reference)
{
  for (const auto& form : {reference("file:///"),
                           reference("file://"
                                     "/"),
                           reference("/"), "file://" + a, "file:\\\\" + a, a})
    EXPECT_EQ(of("<img src=\"" + form + "\">"), "<img src=\"pix/a.jpg\">") << form;
  EXPECT_EQ(site.site.read("pix/a.jpg"), "a");
}

TEST_F(TextPicturesTest, decode_percent_signs)
{
  site.pictures.write("Bild 1.jpg", "1");

  EXPECT_EQ(of("<img src='" + site.pictures.file("Bild%201.jpg") + "'>"), "<img src='pix/bild 1.jpg'>");
  EXPECT_EQ(site.site.read("pix/bild 1.jpg"), "1");
}

TEST_F(TextPicturesTest, keep_both_kinds_of_quotes)
{
  EXPECT_EQ(of("<img src=\"" + a + "\" alt='x'><img alt=\"y\" src='" + a + "'>"),
            "<img src=\"pix/a.jpg\" alt='x'><img alt=\"y\" src='pix/a.jpg'>");
}

TEST_F(TextPicturesTest, know_attributes_in_any_case)
{
  EXPECT_EQ(of("<IMG SRC='" + a + "'><img Src = '" + a + "'>"), "<IMG SRC='pix/a.jpg'><img Src = 'pix/a.jpg'>");
}

TEST_F(TextPicturesTest, look_for_the_quote_within_five_characters)
{
  EXPECT_EQ(of("src=   '" + a + "'"), "src=   'pix/a.jpg'");
  EXPECT_EQ(of("src=     '" + a + "'"), "src=     '" + a + "'");
}

TEST_F(TextPicturesTest, leave_values_without_quotes) { EXPECT_EQ(of("<img src=" + a + ">"), "<img src=" + a + ">"); }

TEST_F(TextPicturesTest, that_are_in_pix_already_keep_their_form_and_are_entered)
{
  site.site.write("pix/x.jpg", "x");

  EXPECT_EQ(of("<img src='pix/x.jpg'>"), "<img src='pix/x.jpg'>");

  EXPECT_THAT(site.entered(2), ElementsAre("pix\\x.jpg"));
}

TEST_F(TextPicturesTest, without_a_directory_stay_as_they_are_written)
{
  EXPECT_EQ(of("<script src='Mrdnav.js'></script><img src='Bild.JPG'>"), "<script src='Mrdnav.js'></script><img src='Bild.JPG'>");

  EXPECT_THAT(site.entered(), IsEmpty());
}

TEST_F(TextPicturesTest, without_a_value_stay)
{
  EXPECT_EQ(of("<img src=''><img src=\"xxx\">"), "<img src=''><img src=\"xxx\">");
  EXPECT_THAT(site.entered(), IsEmpty());
}

TEST_F(TextPicturesTest, of_other_schemes_stay)
{
  for (const auto* value : {"https://y.example/a/B.jpg", "data:image/gif;base64,R0lGODlhAQABAAAAACw=", "cid:47/11", "blob:x/y"})
    EXPECT_EQ(of("<img src=\"" + std::string(value) + "\">"), "<img src=\"" + std::string(value) + "\">");
  EXPECT_THAT(site.entered(), IsEmpty());
  EXPECT_THAT(site.files(), IsEmpty());
}

TEST_F(TextPicturesTest, that_are_missing_are_rewritten_and_reported)
{
  EXPECT_EQ(of("<img src='" + site.pictures.file("Weg.jpg") + "'>"), "<img src='pix/weg.jpg'>");

  EXPECT_THAT(site.entered(), IsEmpty());
  ASSERT_EQ(site.ui.messages.size(), 1u);
}

TEST_F(TextPicturesTest, of_one_name_are_one_file_and_the_first_wins)
{
  site.pictures.write("b/a.jpg", "b");

  EXPECT_EQ(of("<img src='" + a + "'><img src='" + site.pictures.file("b\\a.jpg") + "'>"),
            "<img src='pix/a.jpg'><img src='pix/a.jpg'>");

  EXPECT_EQ(site.site.read("pix/a.jpg"), "a");
  EXPECT_THAT(site.entered(2), ElementsAre("pix\\a.jpg"));
}

TEST_F(TextPicturesTest, come_from_the_layouts_folder_where_the_page_has_none)
{
  site.programDirectory.write("xml/pix/Logo.gif", "logo");

  EXPECT_EQ(of("<img src='pix/Logo.gif'>"), "<img src='pix/logo.gif'>");

  EXPECT_THAT(site.files(), ElementsAre("pix/logo.gif"));
  EXPECT_THAT(site.entered(2), ElementsAre("pix\\logo.gif"));
}

TEST_F(TextPicturesTest, without_a_directory_come_from_the_layouts_folder_too)
{
  site.programDirectory.write("xml/pix/Logo.gif", "logo");

  EXPECT_EQ(of("<img src='Logo.gif'>"), "<img src='pix/logo.gif'>");

  EXPECT_THAT(site.files(), ElementsAre("pix/logo.gif"));
}

TEST_F(TextPicturesTest, of_the_page_come_before_those_of_the_layout)
{
  site.programDirectory.write("xml/pix/A.JPG", "layout");

  of("<img src='" + a + "'>");

  EXPECT_EQ(site.site.read("pix/a.jpg"), "a");
}

TEST_F(TextPicturesTest, are_found_in_plain_text_and_scripts)
{
  EXPECT_EQ(of("Das src='" + a + "' hier. <script>x.src = \"" + a + "\";</script>"),
            "Das src='pix/a.jpg' hier. <script>x.src = \"pix/a.jpg\";</script>");
}

TEST_F(TextPicturesTest, leave_the_popup_script)
{
  const std::string line = "f1 = open('popupbild.htm?src=' + source + '&bu=' + bu,'fenster1');";

  EXPECT_EQ(of(line), line);
  EXPECT_THAT(site.entered(), IsEmpty());
}

TEST_F(TextPicturesTest, whose_quote_never_ends_reach_to_the_end_of_the_text)
{
  EXPECT_EQ(of("<img src='" + a), "<img src='pix/a.jpg");
  EXPECT_EQ(of("src"), "src");
  EXPECT_EQ(of("src='"), "src='");
  EXPECT_EQ(of(""), "");
  EXPECT_EQ(of("href"), "href");
  EXPECT_EQ(of("href="), "href=");
  EXPECT_EQ(of("href='"), "href='");
}

TEST_F(TextPicturesTest, stand_behind_the_base_address)
{
  EXPECT_EQ(of("<img src='" + a + "'><script src='x.js'></script>", "http://x.example/"),
            "<img src='http://x.example/pix/a.jpg'><script src='http://x.example/x.js'></script>");
}

TEST_F(TextPicturesTest, keep_all_text_around)
{
  EXPECT_EQ(of("Überschrift ♥ <img alt='ß' src='" + a + "'> İ end"), "Überschrift ♥ <img alt='ß' src='pix/a.jpg'> İ end");
}

TEST_F(TextPicturesTest, with_a_lost_extension_keep_the_dot)
{
  site.pictures.write("bild.backup", "b");

  EXPECT_EQ(of("<img src='" + site.pictures.file("bild.backup") + "'>"), "<img src='pix/bild.'>");
}

TEST_F(TextPicturesTest, are_never_written_outside_of_pix)
{
  site.pictures.write("x.jpg", "x");

  of("<img src='" + site.pictures.file("sub\\..\\x.jpg") + "'><img src='..\\..\\oben.jpg'><img src='a/..'>");

  for (const auto& file : site.files())
    EXPECT_TRUE(file.starts_with("pix/")) << file;
}

TEST_F(TextPicturesTest, rewrite_links_to_local_files_through_the_sites_address)
{
  EXPECT_EQ(of("<a href='" + reference("file:///") + "'>x</a>"), "<a href='http://x.example/pix/a.jpg'>x</a>");

  EXPECT_EQ(site.site.read("pix/a.jpg"), "a");
  EXPECT_THAT(site.entered(2), ElementsAre("pix\\a.jpg"));
}

TEST_F(TextPicturesTest, give_the_sites_address_a_slash_with_the_first_link)
{
  tbbasisurl = "http://x.example";
  of("<a href='a.htm'>");
  EXPECT_EQ(tbbasisurl, "http://x.example");

  EXPECT_EQ(of("<a href='" + reference("file:///") + "'>"), "<a href='http://x.example/pix/a.jpg'>");
  EXPECT_EQ(tbbasisurl, "http://x.example/");
}

TEST_F(TextPicturesTest, rewrite_links_in_popup_calls_without_the_address)
{
  EXPECT_EQ(of("<a href=\"javascript:popupfenster('" + reference("file:///") + "','Titel')\">"),
            "<a href=\"javascript:popupfenster('pix/a.jpg','Titel')\">");
}

TEST_F(TextPicturesTest, rewrite_links_in_other_calls_with_the_address)
{
  EXPECT_EQ(of("<a href=\"javascript:picturetransfer('" + reference("file:///") + "')\">"),
            "<a href=\"javascript:picturetransfer('http://x.example/pix/a.jpg')\">");
}

TEST_F(TextPicturesTest, leave_links_without_a_local_file)
{
  for (const auto* href : {"01.htm", "#oben", "http://y.example/B.jpg", "mailto:anna@y.example", "https://y.example/",
                           "bilder/A.JPG", "javascript:history.back()"})
    EXPECT_EQ(of("<a href='" + std::string(href) + "'>"), "<a href='" + std::string(href) + "'>");
  EXPECT_THAT(site.entered(), IsEmpty());
}

TEST_F(TextPicturesTest, put_the_base_address_before_local_links_alone)
{
  EXPECT_EQ(
      of("<a href='01.htm'><a href='#oben'><a href='http://y.example/'><a href='http://x.example/02.htm'>", "http://x.example/"),
      "<a href='http://x.example/01.htm'><a href='#oben'><a href='http://y.example/'><a href='http://x.example/02.htm'>");
}

TEST_F(TextPicturesTest, find_links_in_plain_text_and_scripts)
{
  EXPECT_EQ(of("href='01.htm' <script>location.href = \"02.htm\"</script>", "http://x.example/"),
            "href='http://x.example/01.htm' <script>location.href = \"http://x.example/02.htm\"</script>");
}

TEST_F(TextPicturesTest, cut_local_links_behind_250_characters)
{
  // The separator behind "file://" is the first of them; umlauts are one character each.
  EXPECT_EQ(of("<a href='file:///" + std::string(300, 'n') + ".jpg'>"),
            "<a href='http://x.example/pix/" + std::string(249, 'n') + ".'>");
  EXPECT_THAT(of("<a href='file:///üü" + std::string(300, 'n') + ".jpg'>"), HasSubstr("/üü" + std::string(247, 'n') + ".'"));
}

TEST_F(TextPicturesTest, take_time_by_the_length_of_a_text_full_of_their_letters_and_not_by_its_square)
{
  std::string text;
  for (int i = 0; i < 50'000; ++i)
    text += "src href ";
  const auto start = std::chrono::steady_clock::now();

  EXPECT_EQ(of(text), text);

  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

} // namespace
} // namespace mrd::generator
