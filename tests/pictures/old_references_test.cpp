#include "frame/settings/stored_settings.h"
#include "pictures/old_references.h"
#include "pictures/picture_references.h"
#include "platform/files/files.h"
#include "support/temporary.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace mrd::pictures {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// --- references in a text

std::vector<std::string> paths(const std::string& html)
{
  std::vector<std::string> out;
  for (const auto& reference : pictureReferences(html))
    out.push_back(reference.path);
  return out;
}

TEST(PictureReferences, are_found_in_images_backgrounds_and_links_to_pictures)
{
  EXPECT_THAT(paths(R"(<img src="file://C:\a\b.jpg"><td background='C:\muster.gif'><a href=file:///D:/gross.JPG>x</a>)"),
              ElementsAre(R"(C:\a\b.jpg)", R"(C:\muster.gif)", R"(D:\gross.JPG)"));
}

TEST(PictureReferences, are_found_in_calls_of_scripts_and_in_styles)
{
  const std::string html = R"x(<a href="javascript:popup('file://C:\a b\c.jpg','Bild &amp; Text')">)x"
                           R"x(<p style="background:url(file://C:\grund.png)" onclick="x(&quot;file:///C:/d.gif&quot;)">)x";

  const auto found = pictureReferences(html);

  ASSERT_EQ(found.size(), 3u);
  EXPECT_EQ(html.substr(found[0].begin, found[0].end - found[0].begin), R"(file://C:\a b\c.jpg)");
  EXPECT_EQ(found[1].path, R"(C:\grund.png)");
  EXPECT_EQ(found[2].path, R"(C:\d.gif)");
}

TEST(PictureReferences, have_their_escapes_read)
{
  EXPECT_THAT(paths(R"(<img src="file://C:\Haus%20&amp;%20Hof\gr&ouml;&szlig;e.gif">)"),
              ElementsAre(R"(C:\Haus & Hof\größe.gif)"));
}

TEST(PictureReferences, of_an_image_need_no_ending_of_a_picture)
{
  EXPECT_THAT(paths(R"(<img src="C:\a\bild"><a href="file://C:\a\text.htm"><a href="file://C:\a\preise.pdf">)"),
              ElementsAre(R"(C:\a\bild)"));
}

TEST(PictureReferences, to_the_web_and_placeholders_are_none)
{
  EXPECT_THAT(
      paths(R"(<img src="http://x/a.jpg"><img src="https://x/a.jpg"><img src="data:image/png;base64,x"><img src="">)"
            R"(<img src="//x/a.jpg"><img src="[mrd:Bild].jpg"><a href="#a.jpg"><a href="mailto:a@b.jpg"><img src="C:\pix\">)"),
      IsEmpty());
}

// --- a folder with pictures

TEST(PictureFolder, finds_a_name_whatever_its_case_as_near_to_the_old_place_as_can_be)
{
  const support::TemporaryDirectory directory;
  directory.write("a/pix/BILD.jpg", "1");
  directory.write("b/urlaub/bild.JPG", "2");
  directory.write("größe.gif", "3");
  const PictureFolder folder(directory.path());

  EXPECT_EQ(folder.find(R"(C:\Site\urlaub\Bild.jpg)"), directory.file("b\\urlaub\\bild.JPG"));
  EXPECT_EQ(folder.find(R"(C:\Site\pix\bild.jpg)"), directory.file("a\\pix\\BILD.jpg"));
  EXPECT_EQ(folder.find(R"(C:\anders\bild.jpg)"), directory.file("a\\pix\\BILD.jpg"));
  EXPECT_EQ(folder.find("GRÖßE.GIF"), directory.file("größe.gif"));
  EXPECT_EQ(folder.find(R"(C:\fehlt.jpg)"), std::nullopt);
  EXPECT_EQ(PictureFolder().find("bild.jpg"), std::nullopt);
  EXPECT_EQ(PictureFolder(directory.file("nirgends")).find("bild.jpg"), std::nullopt);
}

// --- a project

struct OldReferencesTest : testing::Test {
  OldReferencesTest() { site.write("pix/vorhanden.jpg", "schon da"); }

  TurnedReferences turn() { return turnOldReferences(project.db(), exportPath(), PictureFolder(folder.path())); }
  std::string exportPath() const { return site.path() + "\\"; }
  std::string html(std::string_view id) { return project.column(id, "html").text(); }
  std::string reference(const std::string& name) const { return "file://" + exportPath() + "pix/" + name; }
  std::vector<std::string> inPix() const { return files::fileNames(site.file("pix")); }

  support::TemporaryProject project{{"00", "Start"}};
  support::TemporaryDirectory site, folder;
};

TEST_F(OldReferencesTest, lead_to_the_copy_and_nothing_else_of_the_text_changes)
{
  folder.write("alt/Strand.JPG", "bild");
  const std::string before = "<P Class=x>a &amp; b<BR>\r\n<IMG  alt='<x>' SRC=\"", after = "\" border=0 ><b>offen <!-- c -->";
  project.addPage({"01", "Eins", before + R"(file://C:\Site\pix/strand.jpg)" + after});

  const auto result = turn();

  EXPECT_EQ(html("01"), before + reference("strand.jpg") + after);
  EXPECT_THAT(inPix(), ElementsAre("strand.jpg", "vorhanden.jpg"));
  EXPECT_EQ(result.turned, 1u);
  EXPECT_EQ(result.copied, 1u);
  EXPECT_THAT(result.missing, IsEmpty());
}

TEST_F(OldReferencesTest, lead_to_what_lies_in_pix_already)
{
  project.addPage({"01", "Eins", R"(<img src="file://C:\Site\pix/VORHANDEN.jpg">)"});

  const auto result = turn();

  EXPECT_EQ(html("01"), "<img src=\"" + reference("vorhanden.jpg") + "\">");
  EXPECT_EQ(result.copied, 0u);
}

TEST_F(OldReferencesTest, stay_where_nothing_is_found_and_are_listed_once_a_page)
{
  const std::string text = R"(<img src="file://C:\weg.jpg"><img src="file://C:\weg.jpg"><img src="D:\B&amp;B.gif">)";
  project.addPage({"01", "Eins", text});
  settings::StoredSettings(project.db()).set("KopfHTML", R"(<img src="C:\weg.jpg">)");

  const auto result = turn();

  EXPECT_EQ(html("01"), text);
  ASSERT_EQ(result.missing.size(), 3u);
  EXPECT_EQ(result.missing[0].place, "01");
  EXPECT_EQ(result.missing[1].reference, R"(D:\B&B.gif)");
  EXPECT_EQ(result.missing[2].place, "KopfHTML");
}

TEST_F(OldReferencesTest, to_files_of_this_machine_stay)
{
  folder.write("hier.jpg", "bild");
  const std::string text =
      "<img src=\"file://" + folder.file("hier.jpg") + "\"><img src=\"pix/vorhanden.jpg\"><img src=vorhanden.jpg>";
  project.addPage({"01", "Eins", text});

  const auto result = turn();

  EXPECT_EQ(html("01"), text);
  EXPECT_EQ(result.turned, 0u);
  EXPECT_THAT(result.missing, IsEmpty());
}

TEST_F(OldReferencesTest, of_different_pictures_with_one_name_lead_to_different_copies)
{
  folder.write("a/bild.jpg", "eins");
  folder.write("b/bild.jpg", "zwei");
  folder.write("c/bild.jpg", "eins");
  project.addPage({"01", "Eins", R"(<img src="C:\a\bild.jpg"><img src="C:\b\bild.jpg"><img src="C:\c\bild.jpg">)"});

  turn();

  EXPECT_EQ(html("01"), "<img src=\"" + reference("bild.jpg") + "\"><img src=\"" + reference("bild_2.jpg") + "\"><img src=\"" +
                            reference("bild.jpg") + "\">");
  EXPECT_EQ(site.read("pix/bild.jpg"), "eins");
  EXPECT_EQ(site.read("pix/bild_2.jpg"), "zwei");
}

TEST_F(OldReferencesTest, in_scripts_the_head_and_the_imode_head_are_turned_too)
{
  folder.write("logo.gif", "bild");
  project.addPage(
      {"01", "Eins", std::nullopt, std::nullopt, 1, R"(<img src="C:\logo.gif"><script>'<img src="C:\logo.gif">'</script>)"});
  project.setSetting("KopfHTML", R"(<td background="C:\logo.gif">)");
  project.setSetting("imodekopfgif", R"(C:\logo.gif)");

  turn();

  EXPECT_EQ(project.column("01", "script").text(),
            "<img src=\"" + reference("logo.gif") + R"("><script>'<img src="C:\logo.gif">'</script>)");
  EXPECT_TRUE(project.column("01", "html").isNull());
  EXPECT_EQ(project.setting("KopfHTML"), "<td background=\"" + reference("logo.gif") + "\">");
  EXPECT_EQ(project.setting("imodekopfgif"), site.file("pix\\logo.gif"));
}

TEST_F(OldReferencesTest, escape_what_would_end_a_value_or_mean_something_else)
{
  folder.write("a b#1 50%.jpg", "bild");
  project.addPage({"01", "Eins", R"(<img src=C:\a&#32;b#1&#32;50%25.jpg><img src="C:\a b#1 50%25.jpg">)"});

  turn();

  EXPECT_EQ(html("01"),
            "<img src=" + reference("a%20b%231%2050%25.jpg") + "><img src=\"" + reference("a b%231 50%25.jpg") + "\">");
  for (const auto& turned : pictureReferences(html("01")))
    EXPECT_TRUE(files::fileExists(turned.path)) << turned.path;
}

TEST_F(OldReferencesTest, that_are_turned_are_not_turned_again)
{
  folder.write("bild.jpg", "bild");
  project.addPage({"01", "Eins", R"(<img src="C:\bild.jpg">)"});
  turn();

  const auto second = turn();

  EXPECT_EQ(second.turned, 0u);
  EXPECT_EQ(second.copied, 0u);
  EXPECT_THAT(second.missing, IsEmpty());
}

TEST_F(OldReferencesTest, need_a_folder_only_where_something_is_missing)
{
  project.addPage({"01", "Eins", R"(<img src="C:\Site\pix\vorhanden.jpg">)"});
  EXPECT_FALSE(needPictureFolder(project.db(), exportPath()));

  project.addPage({"02", "Zwei", R"(<img src="C:\weg.jpg">)"});
  EXPECT_TRUE(needPictureFolder(project.db(), exportPath()));
  EXPECT_EQ(html("01"), R"(<img src="C:\Site\pix\vorhanden.jpg">)");
}

TEST_F(OldReferencesTest, whose_picture_cannot_be_copied_stay_and_are_told)
{
  folder.write("bild.jpg", "bild");
  const support::TemporaryDirectory noSite;
  project.addPage({"01", "Eins", R"(<img src="C:\bild.jpg">)"});

  const auto result = turnOldReferences(project.db(), noSite.path() + "\\", PictureFolder(folder.path()));

  EXPECT_EQ(html("01"), R"(<img src="C:\bild.jpg">)");
  EXPECT_EQ(result.failed.size(), 1u);
}

} // namespace
} // namespace mrd::pictures
