// What stands in a page, row by row, as a run of the dialog writes it.

#include "base/product.h"
#include "base/text.h"
#include "generator/head_tags.h"
#include "generator/page_assembly.h"
#include "generator/site_run.h"

#include <gmock/gmock.h>

namespace mrd::generator {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

const std::string kGenerator =
    "<meta name='generator' content='" + std::string(base::kHomeAddress) + " Version " + std::string(base::kVersion) + "'>";

TEST(WholePage, is_written_letter_for_letter)
{
  SiteRun site{{"00", "Start", "<p>Moin &amp; <B>hallo</B>"}, {"01", "Küche", "<h3 id=ueberschrift>Küche</h3>"}};
  site.fields.tbtitel = "Haus Möwe";
  site.fields.tbmeta = {"Ein Haus", "Anna", ""};
  site.project.setSetting("KopfHTML", "<b>Kopf</b>");

  site.run();

  EXPECT_EQ(
      site.page("01.htm"),
      lines("<HTML><HEAD>¶"
            "<meta name='description' content='Ein Haus'>¶"
            "<meta name='author' content='Anna'>¶"
            "<meta name='date' content='2024-05-17'>¶"
            "<meta name='revisit' content='After 20 days'>¶"
            "<meta name='expires' content='NEVER'>¶"
            "<meta http-equiv='imagetoolbar' content='no'>¶"
            "<meta name='robots' content='INDEX,FOLLOW'>¶¶"
            "¶" +
            kGenerator +
            "¶"
            "¶"
            "<TITLE>Haus Möwe: Küche</TITLE>¶"
            "<STYLE type=text/css>¶"
            "h3,div,p,td {FONT-FAMILY: Arial; FONT-SIZE:10pt}¶"
            "A:link {TEXT-DECORATION: none; color : #ff0000;}¶"
            "A:visited {TEXT-DECORATION: none; color : #ff0000;}¶"
            "A:active {TEXT-DECORATION: none; color : #ff0000;}¶"
            "A:hover {TEXT-DECORATION: underline; color : #ff0000;}¶"
            "</STYLE>¶"
            "</HEAD>¶¶"
            "<BODY bgColor=#ffffff>¶"
            "<TABLE id=tabelle bgColor=#ffffff cellSpacing=0 cellPadding=0 width=90% border=0 align=center>¶"
            " <TR valign=top> ¶"
            "<TD bgcolor=#0080FF>&nbsp;&nbsp;</td><TD align=left bgColor=#0080FF colspan=4><a name='oben'></a><b>Kopf</b></TD>"
            "<TD bgColor=#0080FF>&nbsp;&nbsp;&nbsp;</td></TR>¶"
            "<TR><td bgcolor=#0080FF></td><TD bgColor=#0080FF vAlign=top>¶"
            "<TABLE cellPadding=0 cellSpacing=0 width='140 px'>¶¶"
            "<tr><TD colSpan=3><A href='index.htm'><FONT face='Arial' size=2 color=#ff0000>Homepage</FONT></A></TD>¶</tr>¶¶"
            "<TR> ¶  <TD bgColor=#0080FF width=8><FONT color=#ff0000 face='Arial' size=2>&#149;</font></TD> ¶"
            "  <TD bgColor=#0080FF colSpan=2><FONT color=#ff0000 face='Arial' size=2>Küche</FONT></TD> ¶</TR> ¶"
            "<tr valign=bottom><TD valign=bottom colspan=3 bgColor=#0080FF align=center><br><br><br><br>¶</TD></tr>¶"
            "</TABLE><!-- Menü Ende --></TD>¶"
            "<td bgColor=#ffffff>&nbsp;&nbsp;</td><!-- Inhalt -->¶"
            "<TD vAlign=top bgColor=#ffffff><FONT color=#000000 face='Arial' size=2>¶¶"
            "<!-- Beginn Inhalt -->¶"
            "<h3 id=\"ueberschrift\">Küche</h3>¶"
            "<!-- Ende Inhalt -->¶<br>¶"
            "</FONT></TD><td bgColor=#ffffff>&nbsp;&nbsp;</td><td width=6 bgColor=#0080FF>&nbsp;</td></TR>¶"
            "<tr><TD bgColor=#0080FF valign=bottom>&nbsp;</TD>¶"
            "<td id=zelle bgColor=#0080FF colspan=4>&nbsp;¶"
            "<div ID='mrdnav' STYLE='position:absolute;'>¶"
            "<table bgColor=#0080FF border=0 cellpadding=0 cellspacing=0><tr>¶"
            "<td><layer ID='nsmrdnav' bgColor=#0080FF STYLE='position:absolute;'>"
            "<font size=2 face='Arial'><a href='index.htm'><FONT color=#ff0000>&lt; Start</font></a> | "
            "<a href='#oben'><FONT color=#ff0000>oben</font></a> | "
            "<a href='index.htm'><FONT color=#ff0000>Start &gt;</font></a></font>¶¶"
            "</layer></td></tr></table></div></td>¶"
            "<TD bgColor=#0080FF valign='bottom'>&nbsp;&nbsp;&nbsp;</TD>¶"
            "</TR></TABLE>¶<P></P></BODY>¶"
            "<SCRIPT language='Javascript1.2' src='mrdnav.js' type='text/javascript'></SCRIPT>¶"
            "<SCRIPT language='Javascript1.2'>¶//navposition();¶"
            "if ((document.all) || (document.layers)){¶  setInterval('navposition()', 800);¶}¶"
            "</SCRIPT ></HTML>¶¶¶¶¶"));
}

TEST(HeadTags, leave_out_what_is_empty)
{
  settings::Fields fields;

  EXPECT_THAT(metaTags(kBuiltInHead, fields, {2024, 1, 2, 0, 0, 0}),
              StartsWith("<meta name='date' content='2024-01-02'>\r\n<meta name='revisit'"));

  fields.tbmeta = {"a", "b", "c"};
  EXPECT_THAT(
      metaTags(kBuiltInHead, fields, {2024, 1, 2, 0, 0, 0}),
      StartsWith(
          "<meta name='description' content='a'>\r\n<meta name='author' content='b'>\r\n<meta name='keywords' content='c'>\r\n"));
}

TEST(HeadTags, of_the_popup_are_its_script)
{
  EXPECT_EQ(popupScript(kBuiltInHead),
            lines("<script language=JavaScript>¶"
                  "function popupfenster(src, bu)¶"
                  "     {¶"
                  "    if (bu == null) { bu = \"\";};¶"
                  "        bu = bu.replace(/ /g,\"%20\");¶"
                  "        srcu = src.replace(/ /g,\"%20\");¶"
                  "        f1 = open('popupbild.htm?src=' + src + '&bu=' + "
                  "bu,'fenster1','width=320,height=350,screenx=-0,screeny=-100,scrollbars=Yes,resizable=Yes,left=10,top=10');¶"
                  "        f1.focus();¶"
                  "     }¶"
                  "</script>"));
}

TEST(DocumentHead, puts_colours_into_the_meta_tags)
{
  SiteRun site{{"00", "Start", ""}};
  site.fields.tbmeta[0] = "Farbe [mrd:Textfarbe], [mrd:Titel]";

  site.run();

  EXPECT_THAT(site.page("index.htm"), HasSubstr("<meta name='description' content='Farbe #000000, [mrd:Titel]'>"));
}

TEST(DocumentHead, holds_the_script_of_the_page_between_blank_lines)
{
  SiteRun site{{"00", "Start", "", {}, 1, "<script>\nvar a = '[mrd:Textfarbe]';</script>"},
               {"01", "Leer", "", {}, 1, ""},
               {"02", "Ohne", ""}};

  site.run();

  EXPECT_THAT(site.page("index.htm"),
              HasSubstr(kGenerator + "\r\n\r\n\r\n<script>\nvar a = '[mrd:Textfarbe]';</script>\r\n\r\n<TITLE>"));
  EXPECT_THAT(site.page("01.htm"), HasSubstr(kGenerator + "\r\n\r\n\r\n\r\n\r\n<TITLE>")) << "an empty text is a text";
  EXPECT_THAT(site.page("02.htm"), HasSubstr(kGenerator + "\r\n\r\n<TITLE>"));
}

TEST(DocumentHead, of_a_page_that_mentions_popup_holds_its_script_and_brings_its_page)
{
  SiteRun site{{"00", "Start", "<p>Das Wort popup allein"}, {"01", "Ohne", "<p>POPUP"}};
  site.programDirectory.write("popupbild.htm", "Bild");

  site.run();

  EXPECT_THAT(site.page("index.htm"), HasSubstr(kGenerator + "\r\n\r\n\r\n" + popupScript(kBuiltInHead) + "\r\n\r\n<TITLE>"));
  EXPECT_THAT(site.page("01.htm"), Not(HasSubstr("popupfenster")));
  EXPECT_EQ(site.page("popupbild.htm"), "Bild");
  EXPECT_THAT(site.entered(1), testing::Contains("popupbild.htm"));
}

TEST(DocumentHead, tells_of_a_missing_popup_page_and_goes_on)
{
  SiteRun site{{"00", "Start", "popup"}};
  site.ui.expect(0, "Sie benötigen die Datei popupbild.htm. Bitte kontaktieren Sie " + std::string(base::kSupportMail) + " .");

  const auto outcome = site.run();

  EXPECT_TRUE(outcome.finished);
  EXPECT_THAT(site.page("index.htm"), HasSubstr("function popupfenster"));
}

TEST(DocumentHead, of_a_page_that_mentions_picturetransfer_holds_its_script_tag_and_brings_it)
{
  SiteRun site{{"00", "Start", "picturetransfer"}, {"01", "Fremd", "picturetransfer", {}, 2}};
  site.programDirectory.write("picturetransfer.js", "neu");
  site.site.write("picturetransfer.js", "alt");
  site.fields.tbbasisurl = "x.example";

  site.run();

  EXPECT_THAT(
      site.page("index.htm"),
      HasSubstr(kGenerator + "\r\n\r\n\r\n<script src='picturetransfer.js' TYPE='text/javascript'></script>\r\n\r\n<TITLE>"));
  EXPECT_THAT(site.page("01.htm"),
              HasSubstr("<script src='http://x.example/picturetransfer.js' TYPE='text/javascript'></script>"));
  EXPECT_EQ(site.page("picturetransfer.js"), "neu");
  EXPECT_THAT(site.entered(1), testing::Contains("picturetransfer.js"));
}

TEST(DocumentHead, of_all_three_has_them_in_their_order)
{
  SiteRun site{{"00", "Start", "popup picturetransfer", {}, 1, "<!-- eigenes -->"}};
  site.programDirectory.write("popupbild.htm", "");
  site.programDirectory.write("picturetransfer.js", "");

  site.run();

  EXPECT_THAT(site.page("index.htm"),
              HasSubstr("\r\n\r\n<!-- eigenes -->\r\n\r\n\r\n" + popupScript(kBuiltInHead) +
                        "\r\n\r\n\r\n<script src='picturetransfer.js' TYPE='text/javascript'></script>\r\n\r\n<TITLE>"));
}

TEST(Title, holds_heading_then_site_title_then_colours)
{
  SiteRun site{{"00", "[mrd:Titel] <b>&</b> [mrd:Textfarbe]", ""}};
  site.fields.tbtitel = "Möwe";

  site.run();

  EXPECT_THAT(site.page("index.htm"), HasSubstr("<TITLE>Möwe: Möwe <b>&</b> #000000</TITLE>"));
}

TEST(Title, that_is_its_own_placeholder_ends)
{
  SiteRun site{{"00", "[mrd:Überschrift]", ""}};
  site.fields.tbtitel = "[mrd:Titel] [mrd:Titel]";

  site.run();

  EXPECT_THAT(site.page("index.htm"), HasSubstr("<TITLE>[mrd:Titel] [mrd:Titel]: [mrd:Überschrift]</TITLE>"));
}

TEST(SharedHead, is_the_default_one_without_a_stored_one_and_keeps_its_placeholder)
{
  SiteRun site{{"00", "Start", ""}};

  site.run();

  EXPECT_THAT(
      site.page("index.htm"),
      HasSubstr("<a name='oben'></a><font face=\"[mrd:Schriftart]\"><div align=\"center\">made with Mirandel</div></font></TD>"));
}

TEST(SharedHead, is_parsed_and_its_pictures_are_brought)
{
  SiteRun site{{"00", "Start", ""}, {"01", "Fremd", "", {}, 2}};
  site.pictures.write("Logo.GIF", "logo");
  site.project.setSetting("KopfHTML", "<IMG SRC='" + site.pictures.file("Logo.GIF") + "'><p>[mrd:Kopf]");
  site.fields.tbbasisurl = "http://x.example";

  site.run();

  EXPECT_THAT(site.page("index.htm"), HasSubstr("<a name='oben'></a><img src=\"pix/logo.gif\"><p>[mrd:Kopf]</p></TD>"));
  EXPECT_THAT(site.page("01.htm"), HasSubstr("<a name='oben'></a><img src=\"http://x.example/pix/logo.gif\">"));
  EXPECT_EQ(site.page("pix/logo.gif"), "logo");
  EXPECT_THAT(site.entered(2), ElementsAre("pix\\logo.gif"));
}

TEST(HomepageEntry, has_no_link_on_the_homepage_and_one_elsewhere)
{
  SiteRun site{{"00", "Start", "", "start.html"}, {"01", "Haus", ""}};

  site.run();

  EXPECT_THAT(site.page("start.html"),
              HasSubstr("   <tr><TD colSpan=3><FONT face='Arial' size=2 color=#ff0000>Homepage</FONT></TD>\r\n   </tr>\r\n\r\n"));
  EXPECT_THAT(site.menuTargets("start.html"), ElementsAre("01.htm"));
  EXPECT_THAT(site.menuTargets("01.htm"), ElementsAre("start.html"));
}

TEST(Body, is_what_the_parser_makes_of_it_and_passes_no_replacement)
{
  SiteRun site{
      {"00", "Start", "<P ALIGN=center>[mrd:Textfarbe] [mrd:Titel]<BR>a<TABLE><TR><TD>x</TABLE><font color='red'>ü € ♥"}};

  site.run();

  EXPECT_EQ(site.body("index.htm"),
            "<p align=\"center\">[mrd:Textfarbe] [mrd:Titel]<br>a<table><tbody><tr><td>x</td></tr></tbody></table>"
            "<font color=\"red\">ü € &#9829;</font></p>")
      << "a document without a type keeps a table in its paragraph";
}

TEST(Body, goes_out_in_windows_1252)
{
  SiteRun site{{"00", "Größe €", "ä„♥"}};

  site.run();

  EXPECT_THAT(site.site.read("index.htm"), HasSubstr("Gr\xF6\xDF"
                                                     "e \x80"));
  EXPECT_THAT(site.site.read("index.htm"), HasSubstr("\r\n\xE4\x84&#9829;\r\n"));
}

TEST(Body, of_null_is_empty)
{
  SiteRun site{{"00", std::nullopt}};

  site.run();

  EXPECT_EQ(site.body("index.htm"), "");
  EXPECT_THAT(site.page("index.htm"), HasSubstr("<TITLE>: </TITLE>"));
}

TEST(Body, has_line_ends_of_text_files)
{
  SiteRun site{{"00", "Start", "a\nb\r\nc\rd<pre>\n\nx</pre>"}};

  site.run();

  EXPECT_EQ(site.body("index.htm").find('\n'), site.body("index.htm").find("\r\n") + 1);
  EXPECT_THAT(base::replaceAll(site.body("index.htm"), "\r\n", ""), Not(testing::ContainsRegex("[\r\n]")));
}

TEST(Body, brings_its_pictures_and_refers_to_pix)
{
  SiteRun site{{"00", "Start", ""}};
  site.pictures.write("Möwe 1.JPG", "möwe");
  site.pictures.write("gross.jpg", "groß");
  site.project.addPage({"01", "Bilder",
                        "<img src='file://" + site.pictures.file("Möwe 1.JPG") + "'><a href=\"javascript:popupfenster('file://" +
                            site.pictures.file("gross.jpg") + "','Möwe')\">x</a>"});
  site.programDirectory.write("popupbild.htm", "");

  site.run();

  EXPECT_EQ(site.body("01.htm"), "<img src=\"pix/möwe 1.jpg\"><a href=\"javascript:popupfenster('pix/gross.jpg','Möwe')\">x</a>");
  EXPECT_EQ(site.page("pix/gross.jpg"), "gro\xC3\x83\xC5\xB8") << "bytes as they are";
  EXPECT_TRUE(site.has("pix/möwe 1.jpg"));
  EXPECT_THAT(site.entered(2), ElementsAre("pix\\möwe 1.jpg", "pix\\gross.jpg"));
}

TEST(Body, of_a_page_with_server_code_goes_out_raw_and_is_told_at_the_end)
{
  SiteRun site{{"00", "Start", ""}};
  site.pictures.write("x.jpg", "x");
  const auto raw = "<P><? echo \"<b>\" ?><IMG SRC='" + site.pictures.file("x.jpg") + "'>\nü";
  site.project.addPage({"01", "Zähler", raw, "zaehler*.php"});
  site.project.addPage({"02", "Alt", "<% alt %>", "seite.asp"});
  site.project.addPage({"03", "Keine", "<P>", "php.htm"});
  site.ui.expect(38, "seite.asp");

  site.run();

  EXPECT_EQ(site.body("zaehler01.php"), raw);
  EXPECT_EQ(site.body("seite.asp"), "<% alt %>");
  EXPECT_EQ(site.body("php.htm"), "<p></p>");
  EXPECT_THAT(site.entered(2), IsEmpty());
  EXPECT_FALSE(site.has("pix/x.jpg"));
  ASSERT_EQ(site.ui.messages.size(), 1u);
  EXPECT_THAT(site.ui.messages[0].text, testing::ContainsRegex("zaehler.*\\.php\r?\n"));
}

TEST(Body, of_an_external_page_with_server_code_refers_to_the_base_address)
{
  SiteRun site{{"00", "Start", ""}, {"01", "Zähler", "<img src='pix/a.gif'><? x ?>", "z.php", 2}};
  site.fields.tbbasisurl = "x.example";
  site.ui.expect(38, "z.php");

  site.run();

  EXPECT_EQ(site.body("z.php"), "<img src='http://x.example/pix/a.gif'><? x ?>");
}

TEST(Body, may_have_scripts_that_fail)
{
  SiteRun site{{"00", "Start", "<script>fehlt(;</script><p onclick='x('>a", {}, 1, "<script>window.close(); throw 1;</script>"}};

  EXPECT_TRUE(site.run().finished);
  EXPECT_EQ(site.body("index.htm"), "<script>fehlt(;</script><p onclick=\"x(\">a</p>");
}

TEST(ExternalPage, takes_the_base_address_for_pictures_links_and_menu)
{
  SiteRun site{{"00", "Start", ""},
               {"01", "Haus", ""},
               {"02", "Fremd", "<img src='pix/a.gif'><a href='pix/b.jpg'>b</a>", {}, 2},
               {"03", "Ebay", "<img src='pix/a.gif'>", {}, 4}};
  site.site.write("pix/a.gif", "");
  site.site.write("pix/b.jpg", "");
  site.fields.tbbasisurl = "www.x.example";

  site.run();

  EXPECT_EQ(site.body("02.htm"), "<img src=\"http://www.x.example/pix/a.gif\"><a href=\"http://www.x.example/pix/b.jpg\">b</a>");
  EXPECT_EQ(site.body("03.htm"), "<img src=\"http://www.x.example/pix/a.gif\">");
  EXPECT_THAT(site.menuTargets("02.htm"),
              ElementsAre("http://www.x.example/index.htm", "http://www.x.example/01.htm", "http://www.x.example/03.htm"));
  EXPECT_THAT(site.pageTurn("02.htm"),
              ElementsAre("http://www.x.example/01.htm|&lt; Haus", "http://www.x.example/index.htm|Homepage", "#oben|oben",
                          "http://www.x.example/03.htm|Ebay &gt;"));
  EXPECT_THAT(site.menuTargets("01.htm"), ElementsAre("index.htm", "02.htm", "03.htm"));
}

TEST(ExternalPage, links_a_whole_address_behind_the_base_address)
{
  SiteRun site{{"00", "Start", ""}, {"01", "Fremd", "", "http://y.example/a", 2}, {"02", "Auch", "", {}, 2}};
  site.fields.tbbasisurl = "http://x.example/";

  site.run();

  EXPECT_THAT(site.menuTargets("02.htm"), ElementsAre("http://x.example/index.htm", "http://x.example/http://y.example/a"));
  EXPECT_THAT(site.menuTargets("index.htm"), ElementsAre("http://y.example/a", "02.htm"));
}

TEST(PageTurn, follows_the_order_of_the_menu)
{
  SiteRun site{{"00", "Start", ""}, {"01", "Haus", ""}, {"0101", "Küche", ""}, {"0102", "Bad", ""}, {"02", "Ort", ""}};

  site.run();

  EXPECT_THAT(site.pageTurn("0101.htm"), ElementsAre("01.htm|&lt; Haus", "#oben|oben", "0102.htm|Bad &gt;"));
  EXPECT_THAT(site.pageTurn("0102.htm"), ElementsAre("0101.htm|&lt; Küche", "01.htm|Haus", "#oben|oben", "02.htm|Ort &gt;"));
}

TEST(PageTurn, leads_from_the_last_page_to_the_homepage)
{
  SiteRun site{{"00", "Start", ""}, {"01", "Haus", ""}, {"02", "Ort", ""}};

  site.run();

  EXPECT_THAT(site.pageTurn("02.htm"),
              ElementsAre("01.htm|&lt; Haus", "index.htm|Homepage", "#oben|oben", "index.htm|Start &gt;"));
}

TEST(PageTurn, leads_from_the_homepage_to_itself_and_to_the_first_page)
{
  SiteRun site{{"00", "Start", ""}, {"01", "Haus", ""}, {"02", "Ort", ""}};

  site.run();

  EXPECT_THAT(site.pageTurn("index.htm"), ElementsAre("index.htm|&lt; Start", "#oben|oben", "01.htm|Haus &gt;"));
}

TEST(PageTurn, leads_from_a_blind_page_to_the_homepage_and_to_the_first_page)
{
  SiteRun site{{"00", "Start", ""}, {"01", "Haus", ""}, {"02", "Blind", "", {}, 3}, {"03", "Ort", ""}};

  site.run();

  EXPECT_THAT(site.menuTargets("02.htm"), ElementsAre("index.htm", "01.htm", "03.htm"));
  EXPECT_THAT(site.pageTurn("02.htm"), ElementsAre("index.htm|&lt; Start", "#oben|oben", "01.htm|Haus &gt;"));
}

TEST(PageTurn, has_an_empty_next_link_where_there_is_no_first_page)
{
  SiteRun site{{"00", "Start", ""}, {"02", "Ort", ""}};

  site.run();

  EXPECT_THAT(site.pageTurn("index.htm"), ElementsAre("index.htm|&lt; Start", "#oben|oben", "| &gt;"));
}

TEST(PageTurn, shows_no_parent_whose_file_is_that_of_the_previous_link)
{
  SiteRun site{{"00", "Start", ""}, {"01", "Haus", "", "gleich.htm"}, {"0101", "Küche", ""}};

  site.run();

  EXPECT_THAT(site.pageTurn("0101.htm"), ElementsAre("gleich.htm|&lt; Haus", "#oben|oben", "index.htm|Start &gt;"));
}

TEST(PageTurn, takes_for_the_parent_the_last_page_of_its_level_that_the_run_met)
{
  SiteRun site{{"00", "Start", "", {}, 1, {}, "2024-01-01 00:00:00"},
               {"01", "Haus", "", {}, 1, {}, "2024-01-05 00:00:00"},
               {"0101", "Küche", "", {}, 1, {}, "2024-01-02 00:00:00"},
               {"0102", "Bad", "", {}, 1, {}, "2024-01-03 00:00:00"},
               {"02", "Ort", "", {}, 1, {}, "2024-01-04 00:00:00"}};

  site.run();

  EXPECT_THAT(site.pageTurn("0102.htm"), ElementsAre("0101.htm|&lt; Küche", "02.htm|Ort", "#oben|oben", "02.htm|Ort &gt;"));
}

TEST(PageTurn, of_a_page_whose_level_above_was_not_met_yet_names_nothing)
{
  SiteRun site{{"00", "Start", "", {}, 1, {}, "2024-01-01 00:00:00"},
               {"01", "Haus", "", {}, 1, {}, "2024-01-02 00:00:00"},
               {"0101", "Küche", "", {}, 1, {}, "2024-01-03 00:00:00"}};

  site.run();

  EXPECT_THAT(site.pageTurn("0101.htm"), ElementsAre("01.htm|&lt; Haus", "|", "#oben|oben", "index.htm|Start &gt;"));
}

TEST(PageTurn, of_a_page_of_the_first_level_has_the_homepage_for_its_parent_also_when_that_was_not_met_yet)
{
  SiteRun site{{"00", "Start", "", "start.htm", 1, {}, "2024-01-01 00:00:00"},
               {"01", "Haus", "", {}, 1, {}, "2024-01-02 00:00:00"},
               {"02", "Ort", "", {}, 1, {}, "2024-01-03 00:00:00"}};

  site.run();

  EXPECT_THAT(site.pageTurn("02.htm"),
              ElementsAre("01.htm|&lt; Haus", "start.htm|Homepage", "#oben|oben", "start.htm|Start &gt;"));
}

TEST(PageTurn, puts_colours_into_headings)
{
  SiteRun site{{"00", "[mrd:Textfarbe]", ""}, {"01", "Haus", ""}};

  site.run();

  EXPECT_THAT(site.pageTurn("01.htm"), ElementsAre("index.htm|&lt; #000000", "#oben|oben", "index.htm|#000000 &gt;"));
}

TEST(Ancestors, know_the_homepage_from_the_start_and_each_level_by_its_last_page)
{
  Ancestors ancestors({"00", "Start", "start.htm"});
  EXPECT_EQ(ancestors.parentOf("05").file, "start.htm");
  EXPECT_EQ(ancestors.parentOf("05").Überschrift, "Homepage");
  EXPECT_EQ(ancestors.parentOf("0501").file, "");

  ancestors.takeUp({"05", "Fünf", "", 1, {}, {}}, "fuenf.htm");
  ancestors.takeUp({"0701", "Sieben", "", 1, {}, {}}, "0701.htm");
  EXPECT_EQ(ancestors.parentOf("0501").Überschrift, "Fünf");
  EXPECT_EQ(ancestors.parentOf("050101").file, "0701.htm");
  EXPECT_EQ(ancestors.parentOf("05").file, "start.htm");

  ancestors.takeUp({"00", "Start", "", 1, {}, {}}, "index.htm");
  EXPECT_EQ(ancestors.parentOf("05").file, "index.htm");
}

TEST(Ancestors, of_numbers_that_are_none_are_harmless)
{
  Ancestors ancestors({"00", "Start", "index.htm"});

  for (const auto* id : {"", "1", "001", "0101010101", "010101010101010101", "M01"}) {
    ancestors.takeUp({id, "x", "", 1, {}, {}}, "x.htm");
    EXPECT_NO_THROW(ancestors.parentOf(id)) << id;
  }
}

TEST(FrameRows, take_the_widths_as_they_stand)
{
  SiteRun site{{"00", "Start", ""}};
  site.fields.ComboInhalt.selectText("[mrd:Menübreite] 800 px");
  site.fields.ComboMenüspalte.selectText("auto");

  site.run();

  EXPECT_THAT(site.page("index.htm"), HasSubstr("width=auto 800 px border=0"));
  EXPECT_THAT(site.page("index.htm"), HasSubstr("cellSpacing=0 width='auto'>"));
}

TEST(MenuRows, show_the_comment_that_nothing_replaces)
{
  SiteRun site{{"00", "Start", ""}, {"01", "Haus", ""}, {"0101", "Küche", ""}};

  site.run();

  EXPECT_THAT(site.page("01.htm"), HasSubstr("<!-- [mrd:aktivID] -->"));
}

TEST(ServerCode, is_told_by_the_name)
{
  EXPECT_TRUE(hasServerCode("a*.php"));
  EXPECT_TRUE(hasServerCode("a.asp"));
  EXPECT_TRUE(hasServerCode("a.aspx"));
  EXPECT_TRUE(hasServerCode("a.php.htm"));
  EXPECT_FALSE(hasServerCode("php.htm"));
  EXPECT_FALSE(hasServerCode(""));
}

} // namespace
} // namespace mrd::generator
