#include "pictures/thumbnails.h"

#include "base/text.h"
#include "pagetree/page_desk.h"
#include "pictures/picture_desk.h"
#include "pictures/plain_surface.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mrd::pictures {
namespace {

using image::Image;
using image::Size;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

struct Thumbnail : testing::Test, PictureDesk {};

TEST_F(Thumbnail, is_made_small_beside_its_picture)
{
  EXPECT_EQ(vorschaubild_jpg(photo("a.jpg", 600, 400), fields), "a_xs.jpg");
  EXPECT_EQ(vorschaubild_jpg(photo("b.jpg", 400, 600), fields), "b_xs.jpg");
  EXPECT_EQ(vorschaubild_jpg(photo("c.jpg", 600, 600), fields), "c_xs.jpg");

  EXPECT_EQ(Image::sizeOf(fotos() + "a_xs.jpg"), (Size{120, 80}));
  EXPECT_EQ(Image::sizeOf(fotos() + "b_xs.jpg"), (Size{80, 120}));
  EXPECT_EQ(Image::sizeOf(fotos() + "c_xs.jpg"), (Size{120, 120}));
}

TEST_F(Thumbnail, of_a_small_picture_is_the_picture_itself)
{
  EXPECT_EQ(vorschaubild_jpg(photo("a.jpg", 120, 90), fields), "a.jpg");

  EXPECT_THAT(files::fileNames(fotos()), testing::ElementsAre("a.jpg"));
}

TEST_F(Thumbnail, that_exists_is_kept_unless_they_are_made_anew)
{
  const auto picture = photo("a.jpg", 600, 400);
  directory.write("fotos/a_xs.jpg", "alt");

  EXPECT_EQ(vorschaubild_jpg(picture, fields), "a_xs.jpg");
  EXPECT_EQ(directory.read("fotos/a_xs.jpg"), "alt");

  fields.CheckVorschauBilderNeu = true;
  vorschaubild_jpg(picture, fields);
  EXPECT_EQ(Image::sizeOf(fotos() + "a_xs.jpg"), (Size{120, 80}));
}

TEST_F(Thumbnail, for_telephones_is_a_gif_in_their_directory)
{
  EXPECT_EQ(vorschaubild_gif(photo("a.jpg", 600, 400), fields), "a_xs.gif");
  EXPECT_EQ(vorschaubild_gif(photo("b.jpg", 60, 40), fields), "b.jpg");

  EXPECT_THAT(files::fileNames(directory.file("export\\imode\\pix")), testing::ElementsAre("a_xs.gif"));
  EXPECT_THAT(directory.read("export/imode/pix/a_xs.gif"), StartsWith("GIF87a"));
}

TEST_F(Thumbnail, for_telephones_is_made_only_where_it_is_missing)
{
  directory.write("export/imode/pix/a_xs.gif", "alt");
  fields.CheckVorschauBilderNeu = true;

  vorschaubild_gif(photo("a.jpg", 600, 400), fields);

  EXPECT_EQ(directory.read("export/imode/pix/a_xs.gif"), "alt");
}

struct ThumbnailTable : testing::Test, PictureDesk {
  void addChild(const std::string& id, const std::string& heading, const std::string& html,
                std::optional<std::string> fileName = "*.htm")
  {
    desk.project.addPage({id, heading, html, std::move(fileName)});
    pagetree::fillTree(desk.tree, desk.project.db());
  }
  std::string picture(const std::string& name) { return "<p><img src=\"file://" + photo(name, 300, 200) + "\"></p>"; }
  std::string body() const { return desk.surface.bodyInnerHtml(); }
  /// What a page without a table gets, as it is written.
  std::string written(const std::string& seite)
  {
    PlainSurface surface;
    Thumbnails({desk.project.db(), desk.program.language, fields, surface, desk.tree, desk.active, desk.fields, window})
        .MakeThumbs(seite);
    return surface.body;
  }

  pagetree::PageDesk desk{{"00", "Start", "<p>x</p>"}, {"01", "Haus", "<h3 id=ueberschrift>Haus</h3>"}};
  frmBildkonvertierer window;
  Thumbnails thumbnails{
      {desk.project.db(), desk.program.language, fields, desk.surface, desk.tree, desk.active, desk.fields, window}};
};

TEST_F(ThumbnailTable, of_a_page_without_sub_pages_still_closes_a_row)
{
  EXPECT_EQ(written("01"), "<p>da</p>\r\n<div align=center id=thumbs><table border=\"0\"></tr></table></div>");
  EXPECT_TRUE(desk.active.PageDirty);
}

TEST_F(ThumbnailTable, shows_the_first_picture_of_each_direct_sub_page)
{
  addChild("0101", " Küche ", picture("kueche.jpg") + picture("zwei.jpg"));
  addChild("010101", "Herd", picture("herd.jpg"));

  thumbnails.MakeThumbs("01");

  EXPECT_THAT(body(), HasSubstr("<tr><td align=\"center\"><a href=\"0101.htm\" title=\"Küche\"><img src=\"" + fotos() +
                                "kueche_xs.jpg\" border=\"0\"><br></a></td></tr>"));
  EXPECT_THAT(body(), Not(HasSubstr("Herd")));
}

TEST_F(ThumbnailTable, bears_titles_where_they_are_wanted)
{
  fields.OptionVorschauMitTitel = true;
  addChild("0101", " Küche ", picture("kueche.jpg"), "kueche*.html");

  EXPECT_THAT(written("01"), HasSubstr("<tr><td align=\"center\"><a href=\"kueche0101.html\" title=\"Küche\"><img src=\"" +
                                       fotos() + "kueche_xs.jpg\" border=\"0\"><br>Küche</a></td></tr></table>"));
}

TEST_F(ThumbnailTable, leaves_html_in_a_heading_html)
{
  fields.OptionVorschauMitTitel = true;
  addChild("0101", "Küche & <b>Bad</b>", picture("kueche.jpg"));
  addChild("0102", "Flur & <i>Keller</i>", "<p>Text</p>");

  const auto table = written("01");

  EXPECT_THAT(table, HasSubstr("title=\"Küche & <b>Bad</b>\"><img"));
  EXPECT_THAT(table, HasSubstr("<br>Küche & <b>Bad</b></a></td>"));
  EXPECT_THAT(table, HasSubstr("<td align='center'><a href='0102.htm'>Flur & <i>Keller</i></a></td>"));
}

TEST_F(ThumbnailTable, shows_a_page_without_a_picture_of_its_own_as_text)
{
  addChild("0101", "Ohne", "<p>Text</p>", std::nullopt);
  addChild("0102", "Fehlt", "<img src=\"file://" + fotos() + "fehlt.jpg\">" + picture("da.jpg"));

  thumbnails.MakeThumbs("01");

  EXPECT_THAT(body(), HasSubstr("<td align=\"center\"><a href=\"0101.htm\">Ohne</a></td>"));
  EXPECT_THAT(body(), HasSubstr("<td align=\"center\"><a href=\"0102.htm\">Fehlt</a></td>"));
}

TEST_F(ThumbnailTable, goes_on_behind_a_picture_that_cannot_be_read)
{
  directory.write("fotos/kaputt.jpg", "kein Bild");
  addChild("0101", "Kaputt", "<img src=\"file://" + fotos() + "kaputt.jpg\">");
  addChild("0102", "Gut", picture("gut.jpg"));

  EXPECT_TRUE(thumbnails.MakeThumbs("01"));

  EXPECT_EQ(thumbnails.damaged(), 1u);
  EXPECT_THAT(body(), HasSubstr("kaputt_xs.jpg"));
  EXPECT_THAT(body(), HasSubstr("gut_xs.jpg"));
}

TEST_F(ThumbnailTable, tells_at_its_end_of_all_pictures_that_cannot_be_read)
{
  for (const std::string name : {"eins", "zwei"}) {
    directory.write("fotos/" + name + ".jpg", "kein Bild");
    addChild(name == "eins" ? "0101" : "0102", name, "<img src=\"file://" + fotos() + name + ".jpg\">");
  }
  desk.tree.select("@01");

  thumbnails.MakeThumbs("");

  const auto& told = desk.program.ui.toldWarnings;
  ASSERT_EQ(told.size(), 1u);
  EXPECT_THAT(told.front(), testing::ElementsAre(HasSubstr("eins.jpg"), HasSubstr("zwei.jpg")));
}

TEST_F(ThumbnailTable, has_full_rows_and_no_empty_one)
{
  for (int n = 1; n <= 8; ++n)
    addChild("010" + std::to_string(n), "Seite", "<p></p>");

  std::string expected = "<p>da</p>\r\n<div align=center id=thumbs><table border=\"0\">";
  for (int n = 1; n <= 8; ++n)
    expected += std::string(n % 4 == 1 ? "<tr>" : "") + "<td align='center'><a href='010" + std::to_string(n) +
                ".htm'>Seite</a></td>" + (n % 4 == 0 ? "</tr>" : "");
  EXPECT_EQ(written("01"), expected + "</table></div>");
}

TEST_F(ThumbnailTable, ends_no_row_at_a_number_of_cells_that_no_row_has)
{
  addChild("0101", "Seite", "<p></p>");
  for (const char* number : {"1e30", "-1e30", "1.5", "0"}) {
    fields.tbVorschauAnzahl = number;
    EXPECT_THAT(written("01"), HasSubstr("Seite</a></td></tr></table>")) << number;
  }
}

TEST_F(ThumbnailTable, is_refilled_by_a_second_run)
{
  addChild("0101", "Eins", "<p></p>");
  thumbnails.MakeThumbs("01");
  const auto first = body();
  addChild("0102", "Zwei", "<p></p>");

  thumbnails.MakeThumbs("01");

  EXPECT_THAT(body(), HasSubstr("Zwei"));
  EXPECT_EQ(body().find("thumbs"), body().rfind("thumbs"));
  EXPECT_THAT(first, Not(HasSubstr("Zwei")));
}

TEST_F(ThumbnailTable, fills_every_element_of_its_name)
{
  addChild("0101", "Eins", "<p></p>");
  desk.surface.setBodyInnerHtml("<div id=thumbs>a<p id=thumbs>b</p></div><div id=thumbs>c</div>");

  thumbnails.MakeThumbs("01");

  EXPECT_NE(body().find("Eins"), body().rfind("Eins"));
  EXPECT_THAT(body(), Not(HasSubstr(">c<")));
}

TEST_F(ThumbnailTable, of_the_homepage_shows_the_first_level_without_itself)
{
  desk.tree.select("@00");

  thumbnails.MakeThumbs("");

  EXPECT_THAT(body(), HasSubstr("01.htm"));
  EXPECT_THAT(body(), Not(HasSubstr("00.htm")));
}

TEST_F(ThumbnailTable, ends_with_a_note_only_where_a_user_asked_for_it)
{
  fields.CheckVorschauMeldung = true;
  thumbnails.MakeThumbs("01");

  desk.tree.select("@01");
  desk.program.ui.expect(0, "NICHT in die Thumbnails übernommen. Erstellen Sie bitte ggf. die Tumbnails neu.");
  thumbnails.MakeThumbs("");
}

TEST_F(ThumbnailTable, of_external_pages_names_the_site)
{
  desk.fields.opseitentyp = 4;
  fields.tbbasisurl = "www.haus.example";
  addChild("0101", "Eins", "<p></p>");

  thumbnails.MakeThumbs("01");

  EXPECT_THAT(body(), HasSubstr("href=\"http://www.haus.example/0101.htm\""));
  EXPECT_EQ(fields.tbbasisurl, "www.haus.example/");
}

TEST_F(ThumbnailTable, of_all_pages_tells_of_pictures_that_cannot_be_read_once_for_all_pages)
{
  for (const std::string parent : {"02", "03"}) {
    desk.project.addPage({parent, "Mit", "<h3 id=ueberschrift>Mit</h3><div id=thumbs>alt</div>", "*.htm"});
    directory.write("fotos/kaputt" + parent + ".jpg", "kein Bild");
    addChild(parent + "01", "Neu", "<img src=\"file://" + fotos() + "kaputt" + parent + ".jpg\">");
  }
  desk.program.ui.expect(0, "Sollen jetzte", ui::Button::Yes);

  thumbnails.allevorschaubilderneu(desk.store);

  ASSERT_EQ(desk.program.ui.toldWarnings.size(), 1u);
  EXPECT_EQ(desk.program.ui.toldWarnings.front().size(), 2u);
}

TEST_F(ThumbnailTable, of_all_pages_is_renewed_only_after_a_yes)
{
  desk.project.addPage({"02", "Mit", "<h3 id=ueberschrift>Mit</h3><div id=thumbs>alt</div>", "*.htm"});
  addChild("0201", "Neu", "<p></p>");
  desk.program.ui.expect(0, "Sollen jetzte alle Vorschaubilder aktualisiert werden?", ui::Button::No);
  thumbnails.allevorschaubilderneu(desk.store);
  EXPECT_THAT(desk.text("02", "html"), HasSubstr("alt"));

  desk.program.ui.expect(0, "Sollen jetzte", ui::Button::Yes);
  thumbnails.allevorschaubilderneu(desk.store);

  EXPECT_THAT(desk.text("02", "html"), HasSubstr("0201.htm"));
  EXPECT_THAT(desk.text("01", "html"), Not(HasSubstr("thumbs")));
}

} // namespace
} // namespace mrd::pictures
