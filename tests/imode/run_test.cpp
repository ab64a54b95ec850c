// A run of the dialog for telephones, from its button to its closing line.

#include "base/product.h"
#include "imode/imode_site.h"
#include "platform/files/files.h"

#include <gmock/gmock.h>

namespace mrd::imode {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

TEST(ImodePage, is_written_letter_for_letter)
{
  ImodeSite site{{"00", "Start", "<p>Moin"}, {"01", "Küche", "<h3 id=ueberschrift>Küche</h3><p>a"}};
  site.fields.tbtitel = "Haus Möwe";
  site.fields.tbmeta = {"Ein Haus", "", "Haus, Meer"};
  site.fields.tbhintergrund = "ffffee";
  site.fields.tbText = "#000011";

  site.run();

  EXPECT_EQ(site.page("01.htm"), lines("<HTML><HEAD>¶"
                                       "<meta name='description' content='Ein Haus'>¶"
                                       "<meta name='keywords' content='Haus, Meer'>¶"
                                       "<meta name='date' content='2024-05-17'>¶"
                                       "¶<meta name='generator' content='" +
                                       std::string(base::kHomeAddress) + " Version " + std::string(base::kVersion) +
                                       "'>¶¶"
                                       "<TITLE>Haus Möwe: Küche</TITLE>¶"
                                       "</HEAD><BODY bgColor=#ffffee><FONT color=#000011>¶"
                                       "¶"
                                       "¶"
                                       "<!-- Beginn Inhalt -->¶"
                                       "<div align=\"center\">Küche<br></div><p>a</p>¶"
                                       "<!-- Ende Inhalt -->¶"
                                       "¶"
                                       "¶¶¶¶¶"
                                       "<!-- def15 --><br>¶"
                                       "[0] <A href='index.htm' accesskey='0'>Homepage</A><br>¶"
                                       "<!-- def18 -->&nbsp;&gt;Küche&lt;<br>¶"
                                       "<!-- def16 --><br>[1] <a href='index.htm' accesskey='1'>zurück</a><br>"
                                       "[3] <a href='index.htm' accesskey='3'>nächste Seite</a><br>¶¶"
                                       "</font>¶"));
}

TEST(ImodeRun, writes_every_page_in_the_order_of_the_ids_and_enters_nothing_else)
{
  ImodeSite site{{"02", "B", "popup picturetransfer", {}, 1, "<script></script>", "2024-01-01 00:00:00"},
                 {"00", "Start", ""},
                 {"01", "A", "", {}, 3, {}, "2020-01-01 00:00:00"}};
  site.programDirectory.write("popupbild.htm", "");
  site.programDirectory.write("mrdbanner.gif", "");

  const auto outcome = site.run();

  EXPECT_TRUE(outcome.finished);
  EXPECT_EQ(site.labelSeite, "Fertig!");
  EXPECT_THAT(site.entered(1), ElementsAre("index.htm", "01.htm", "02.htm"));
  EXPECT_THAT(site.entered(2), IsEmpty());
  EXPECT_THAT(site.files(), ElementsAre("imode/01.htm", "imode/02.htm", "imode/index.htm"));
  EXPECT_THAT(site.page("02.htm"), Not(HasSubstr("script")));
}

TEST(ImodeRun, of_a_project_without_pages_writes_none_and_ends)
{
  ImodeSite site(std::initializer_list<support::Page>{});

  EXPECT_TRUE(site.run().finished);

  EXPECT_EQ(site.labelSeite, "Fertig!");
  EXPECT_THAT(site.files(), IsEmpty());
}

TEST(ImodeRun, replaces_the_register_of_the_other_edition_and_leaves_the_servers_rows)
{
  ImodeSite site{{"00", "Start", ""}};
  site.project.db().execute("INSERT INTO Dateien (dateiname, [dateityp-id]) VALUES ('fern', 4)");
  site.SiteRun::run();

  site.run();

  EXPECT_THAT(site.entered(1), ElementsAre("index.htm"));
  EXPECT_THAT(site.entered(4), ElementsAre("fern"));
  EXPECT_THAT(site.SiteRun::entered(1), ElementsAre("imode\\index.htm"));
}

TEST(ImodeRun, does_not_move_the_date_from_which_new_pages_count)
{
  ImodeSite site{{"00", "Start", ""}};
  site.project.setSetting("lastgendate", "01.02.2003 04:05:06");

  site.run();

  EXPECT_EQ(site.project.setting("lastgendate"), "01.02.2003 04:05:06");
}

TEST(ImodeRun, without_an_export_directory_is_message_37_and_writes_nothing)
{
  ImodeSite site{{"00", "Start", ""}};
  site.project.db().execute("INSERT INTO Dateien (dateiname, [dateityp-id]) VALUES ('alt', 1)");
  site.fields.tbpfadexport = site.site.file("gibt es nicht");
  site.ui.expect(37);

  EXPECT_FALSE(site.run().finished);

  EXPECT_THAT(site.entered(1), ElementsAre("alt"));
}

TEST(ImodeRun, without_a_project_is_message_24)
{
  ImodeSite site{{"00", "Start", ""}};
  site.dbName.clear();
  site.ui.expect(24);

  EXPECT_FALSE(site.run().finished);
}

TEST(ImodeRun, makes_its_directories_and_takes_those_that_are_there)
{
  ImodeSite site{{"00", "Start", ""}};
  site.fields.tbpfadexport = site.site.path();

  site.run();
  site.run();

  EXPECT_TRUE(files::directoryExists(site.site.file("imode\\pix")));
  EXPECT_FALSE(files::directoryExists(site.site.file("pix")));
}

TEST(ImodeRun, names_files_as_the_other_edition_does)
{
  ImodeSite site{{"00", "Start", "", "s*.html"}, {"01", "Fremd", "", "http://x.example/", 2}, {"02", "Muster", "", "a*b*.htm"}};

  site.run();

  EXPECT_THAT(site.entered(1), ElementsAre("sindex.html", "01.htm", "a02b02.htm"));
  EXPECT_THAT(site.keys("sindex.html"), ElementsAre("sindex.html", "http://x.example/"));
}

TEST(ImodeRun, refuses_a_file_outside_of_its_directory_and_goes_on)
{
  ImodeSite site{{"00", "Start", ""}, {"01", "Weg", "", "../x.htm"}};
  site.ui.expect(101);

  const auto outcome = site.run();

  EXPECT_EQ(outcome.refused, 1u);
  EXPECT_TRUE(site.has("index.htm"));
}

TEST(ImodeRun, lists_no_blind_page_and_leads_from_it_to_the_first_one)
{
  ImodeSite site{{"00", "Start", ""}, {"01", "A", ""}, {"02", "B", ""}, {"03", "Blind", "", {}, 3}};

  site.run();

  EXPECT_TRUE(site.has("03.htm"));
  EXPECT_EQ(site.menu("03.htm"), lines("¶<A href='01.htm'>A</A><br>¶<A href='02.htm'>B</A><br>¶"));
  EXPECT_THAT(site.keys("03.htm"), ElementsAre("index.htm", "01.htm"));
}

TEST(ImodeRun, links_external_pages_through_the_address_and_auction_pages_not)
{
  ImodeSite site{{"00", "Start", ""}, {"01", "Fremd", "<img src='pix/a.gif'>", {}, 2}, {"02", "Auktion", "", {}, 4}};
  site.fields.tbbasisurl = "www.x.example";
  site.fields.Opimmodekopf = settings::OpImodeKopf::Text;
  site.fields.tbimodekopftext = "<img src='pix/k.gif'>";

  site.run();

  EXPECT_EQ(site.body("01.htm"), image("http://www.x.example/pix/a.gif"));
  EXPECT_EQ(site.menu("01.htm"),
            lines("¶<!-- def18 -->&nbsp;&gt;Fremd&lt;<br><A href='http://www.x.example/02.htm'>Auktion</A><br>¶"));
  EXPECT_THAT(site.keys("01.htm"), ElementsAre("http://www.x.example/index.htm", "http://www.x.example/02.htm"));
  EXPECT_THAT(site.page("01.htm"), HasSubstr("<div align=center><img src='pix/k.gif'></div><br>"));
  EXPECT_THAT(site.keys("02.htm"), ElementsAre("01.htm", "index.htm"));
}

TEST(ImodeRun, completes_the_field_of_the_address_with_an_external_page)
{
  ImodeSite site{{"00", "Start", ""}, {"01", "Fremd", "", {}, 2}};
  site.fields.tbbasisurl = "HTTP://X.example";

  site.run();

  EXPECT_EQ(site.fields.tbbasisurl, "HTTP://X.example/");
  EXPECT_THAT(site.keys("01.htm"), ElementsAre("HTTP://X.example/index.htm", "HTTP://X.example/index.htm"));
}

TEST(ImodeRun, leaves_the_field_of_the_address_alone_without_one)
{
  ImodeSite site{{"00", "Start", ""}, {"01", "Auktion", "", {}, 4}};
  site.fields.tbbasisurl = "x.example";

  site.run();

  EXPECT_EQ(site.fields.tbbasisurl, "x.example");
}

TEST(ImodeRun, writes_pages_with_server_code_raw_and_tells_of_them)
{
  ImodeSite site{{"00", "Start", ""}};
  const auto raw = "<table><tr><td><? a ?></td></tr></table>" + image("file://" + site.picture("gross.jpg", 300, 200));
  site.project.addPage({"01", "Zähler", raw, "z*.php"});
  site.ui.expect(38, "z01.php");

  site.run();

  EXPECT_EQ(site.body("z01.php"), raw);
  EXPECT_THAT(site.entered(2), IsEmpty());
  EXPECT_FALSE(site.has("pix/gross_xs.gif"));
}

TEST(ImodeRun, gives_the_same_bytes_twice)
{
  ImodeSite site{{"00", "Start", ""}};
  site.project.addPage(
      {"01", "Bild", "<table><tr><td>" + image("file://" + site.picture("a.jpg", 300, 200)) + "</td></tr></table>"});

  site.run();
  const auto first = site.page("01.htm"), gif = site.site.read("imode/pix/a_xs.gif");
  site.run();

  EXPECT_EQ(site.page("01.htm"), first);
  EXPECT_EQ(site.site.read("imode/pix/a_xs.gif"), gif);
}

TEST(ImodeRun, does_not_take_bodies_of_the_other_edition_from_their_side_file)
{
  ImodeSite site{{"00", "Start", "<table><tr><td>a</td></tr></table>"}};

  site.SiteRun::run();
  site.run();
  site.SiteRun::run();

  EXPECT_EQ(site.body("index.htm"), "a<br><br>\r\n");
  EXPECT_EQ(site.SiteRun::body("index.htm"), "<table><tbody><tr><td>a</td></tr></tbody></table>");
}

TEST(ImodeRun, stops_behind_the_page_at_hand_when_the_user_asks)
{
  ImodeSite site{{"00", "Start", ""}, {"01", "A", ""}, {"02", "B", ""}};
  site.ui.stopAtPump = 2;

  EXPECT_FALSE(site.run().finished);

  EXPECT_TRUE(site.has("index.htm"));
  EXPECT_FALSE(site.has("02.htm"));
}

} // namespace
} // namespace mrd::imode
