// Every statement that the system sends to the engine, in the form in which it sends it.

#include "platform/dao/sample.h"

#include <gmock/gmock.h>

namespace mrd::dao {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Vocabulary : public testing::Test {
protected:
  Vocabulary()
  {
    sample.page("0102", "Küche", 1);
    sample.page("01", "Haus", 1);
    sample.page("00", "Start", 1);
    sample.page("02", "Versteckt", 3);
    sample.page("010201", "Herd", 2);
    sample.page("0101", "Bad", 1);
    sample.page("03", "Garten's", Null{});
    sample.page("0301", "Teich", 4);
  }

  Sample sample;
};

TEST_F(Vocabulary, selects_the_root_page)
{
  EXPECT_THAT(sample.ids("SELECT * FROM Seite Where Seite.ID = '00' ORDER BY ID;"), ElementsAre("00"));
}

TEST_F(Vocabulary, selects_one_page)
{
  EXPECT_THAT(sample.ids("SELECT * FROM Seite Where Seite.ID = '0102' ORDER BY ID;"), ElementsAre("0102"));
  EXPECT_THAT(sample.ids("SELECT * FROM Seite Where Seite.ID = '0199' ORDER BY ID;"), IsEmpty());
  EXPECT_THAT(sample.ids("select * from seite WHERE ID ='0102'"), ElementsAre("0102"));
}

TEST_F(Vocabulary, selects_the_children_of_a_node)
{
  EXPECT_THAT(sample.ids("Select * from Seite Where Mid$(Seite.ID, 1, 2) = '01' And Len(Seite.ID) = 4 ORDER BY ID;"),
              ElementsAre("0101", "0102"));
}

TEST_F(Vocabulary, compares_the_start_of_an_id_with_a_bare_number_as_numbers)
{
  EXPECT_THAT(sample.ids("SELECT * FROM Seite Where Mid$(Seite.ID, 1, 2) = 01 And Len(Seite.ID) = 4 ORDER BY ID;"),
              ElementsAre("0101", "0102"));
  EXPECT_THAT(sample.ids("SELECT * FROM Seite Where Mid$(Seite.ID, 1, 4) = 0102 And Len(Seite.ID) = 6 ORDER BY ID;"),
              ElementsAre("010201"));
}

TEST_F(Vocabulary, selects_all_pages_of_one_level)
{
  EXPECT_THAT(sample.ids("Select * from Seite Where Len(Seite.ID) = 2 And Seite.ID <> '00' ORDER BY ID;"),
              ElementsAre("01", "02", "03"));
  EXPECT_THAT(sample.ids("SELECT Seite.id, Seite.Überschrift From Seite WHERE ((Len([id])='4')) AND (id<>'00') ORDER BY ID ASC;"),
              ElementsAre("0101", "0102", "0301"));
}

TEST_F(Vocabulary, selects_a_page_and_its_subtree)
{
  EXPECT_THAT(sample.ids("SELECT * FROM Seite Where Seite.ID Like '01*' ORDER BY ID;"),
              ElementsAre("01", "0101", "0102", "010201"));
  EXPECT_THAT(sample.ids("SELECT * FROM Seite Where Seite.ID Like '*' ORDER BY ID;").size(), 8U);
}

TEST_F(Vocabulary, selects_the_moved_page_alone_and_those_with_a_move_mark)
{
  sample.page("M0105", "unterwegs");

  EXPECT_THAT(sample.ids("SELECT * FROM Seite Where Seite.ID Like '01' Order by ID;"), ElementsAre("01"));
  EXPECT_THAT(sample.ids("SELECT * FROM Seite Where Seite.ID Like 'M*' Order by ID;"), ElementsAre("M0105"));
}

TEST_F(Vocabulary, selects_below_a_page_by_length)
{
  EXPECT_THAT(sample.ids("SELECT * FROM Seite Where (Seite.ID Like '01*') and (len(seite.id)>2) ORDER BY ID;"),
              ElementsAre("0101", "0102", "010201"));
  EXPECT_THAT(sample.ids("SELECT * FROM Seite Where Seite.ID Like '01*' And Len(Seite.ID) = Len('01') + 2 ORDER BY ID;"),
              ElementsAre("0101", "0102"));
  EXPECT_THAT(sample.ids("SELECT * FROM Seite Where Seite.ID Like '0102*' And Len(Seite.ID) > Len('0102') Order by ID;"),
              ElementsAre("010201"));
  EXPECT_THAT(sample.ids("SELECT * FROM Seite Where Seite.ID Like '0102*' And Len(Seite.ID) > Len(1234) Order by ID;"),
              ElementsAre("010201"));
}

TEST_F(Vocabulary, orders_by_the_length_of_the_id)
{
  auto rows = sample.db().openRecordset("SELECT * FROM Seite Where Seite.ID Like '01*' ORDER BY len(ID);");
  rows.moveLast();
  EXPECT_EQ(rows.value("ID").text(), "010201");
}

TEST_F(Vocabulary, selects_rows_by_the_start_of_their_id_with_a_blank_in_the_literal)
{
  EXPECT_THAT(sample.ids("SELECT Seite.id, Seite.Überschrift From Seite WHERE (((Mid$([id],1,4))='0102 ')) ORDER BY ID ASC;"),
              ElementsAre("0102", "010201"));
}

TEST_F(Vocabulary, selects_the_level_of_a_page_from_its_end)
{
  EXPECT_THAT(sample.ids("SELECT * FROM Seite Where (seite.id LIKE '*') AND Len(Seite.ID) = 2 Order by ID DESC;"),
              ElementsAre("03", "02", "01", "00"));
  EXPECT_THAT(sample.ids("SELECT * FROM Seite Where (seite.id LIKE '01*') AND  (Len(Seite.ID) = Len('0101')) Order by ID;"),
              ElementsAre("0101", "0102"));
}

TEST_F(Vocabulary, selects_a_page_by_its_heading_with_question_marks_for_apostrophes)
{
  EXPECT_THAT(sample.ids("SELECT * FROM Seite WHERE Überschrift LIKE 'Garten?s'"), ElementsAre("03"));
  EXPECT_THAT(sample.ids("SELECT * FROM Seite WHERE Überschrift LIKE 'KÜCHE'"), ElementsAre("0102"));
}

TEST_F(Vocabulary, selects_the_top_menu_without_blind_pages)
{
  EXPECT_THAT(
      sample.ids("select id, Überschrift, [seitentyp-id], dateiname from seite WHERE (((Seite.id)>'00' And (Seite.id)<='99' "
                 "And (Len([id])<3) and ([seitentyp-id]<>3) )) Order By ID"),
      ElementsAre("01"));
  EXPECT_THAT(sample.ids("SELECT * FROM Seite WHERE ([id] LIKE '?\?') and ([seitentyp-id]<>3) ORDER BY ID"),
              ElementsAre("00", "01"));
  EXPECT_THAT(sample.ids("SELECT * FROM Seite WHERE ([id] LIKE '01?\?') and ([seitentyp-id]<>3) ORDER BY ID"),
              ElementsAre("0101", "0102"));
}

TEST_F(Vocabulary, selects_the_deeper_menus_in_each_of_their_forms)
{
  EXPECT_THAT(
      sample.ids("select id, dateiname, Überschrift, [seitentyp-id] from seite WHERE (((Seite.id)>'01' And (Seite.id)<'02' And "
                 "(Len([id])=4)) and ([seitentyp-id]<>3) ) Order By ID"),
      ElementsAre("0101", "0102"));
  EXPECT_THAT(
      sample.ids("select id, dateiname, Überschrift, [seitentyp-id] from seite WHERE (((Seite.id)>'0102' And (Seite.id)<'0103' "
                 "And (Len([id])=6) and ([seitentyp-id]<>3) )) Order By ID"),
      ElementsAre("010201"));
  EXPECT_THAT(sample.ids("select id, dateiname, Überschrift, [seitentyp-id] from seite WHERE (((Seite.id)>'010201' And "
                         "(Seite.id)<'010202' And (Len([id])=8) and ([seitentyp-id]<>3))) Order By ID"),
              IsEmpty());
}

TEST_F(Vocabulary, never_lists_pages_below_99_whose_bound_is_100)
{
  sample.page("9901");

  EXPECT_THAT(
      sample.ids("select id, dateiname, Überschrift, [seitentyp-id] from seite WHERE (((Seite.id)>'99' And (Seite.id)<'100' And "
                 "(Len([id])=4)) and ([seitentyp-id]<>3) ) Order By ID"),
      IsEmpty());
}

TEST_F(Vocabulary, finds_the_next_the_previous_and_the_parent_page)
{
  EXPECT_THAT(sample.ids("SELECT TOP 1 * FROM Seite WHERE ID>'0102' and ([seitentyp-id]<>3) ORDER BY ID"), ElementsAre("010201"));
  EXPECT_THAT(sample.ids("SELECT TOP 1 * FROM Seite WHERE ID<'0102' and ([seitentyp-id]<>3) ORDER BY ID DESC"),
              ElementsAre("0101"));
  EXPECT_THAT(sample.ids("SELECT TOP 1 * FROM Seite WHERE ID='01' and ([seitentyp-id]<>3)"), ElementsAre("01"));
  EXPECT_THAT(sample.ids("SELECT TOP 1 * FROM Seite WHERE ID<'00' and ([seitentyp-id]<>3) ORDER BY ID DESC"), IsEmpty());
}

TEST_F(Vocabulary, selects_the_children_for_thumbnails)
{
  EXPECT_THAT(sample.ids("SELECT * FROM Seite WHERE (ID like '01?\?') and (ID<>'00') ORDER BY ID"), ElementsAre("0101", "0102"));
  EXPECT_THAT(sample.ids("SELECT * FROM Seite WHERE (ID like '?\?') and (ID<>'00') ORDER BY ID"), ElementsAre("01", "02", "03"));
}

TEST_F(Vocabulary, selects_the_pages_that_changed_since_the_last_run)
{
  sample.db().execute("UPDATE Seite SET changingdate = '2003-07-09 10:05:00' WHERE id = '01'");
  sample.db().execute("UPDATE Seite SET changingdate = '2003-07-09 10:05:01' WHERE id = '0101'");
  sample.db().execute("UPDATE Seite SET changingdate = '2003-12-01 00:00:00' WHERE id = '02'");

  EXPECT_THAT(sample.ids("select * from seite  WHERE (id = '00') OR (changingdate > #7/9/2003 10:05:00#)  Order By ID"),
              ElementsAre("00", "0101", "02"));
  EXPECT_THAT(
      sample.ids(
          "select * from seite  WHERE (id = '00') OR (changingdate > #7/9/2003 10:05:00#)  Order By changingdate DESC, ID"),
      ElementsAre("02", "0101", "00"));
  EXPECT_THAT(sample.ids("select * from seite  WHERE (id = '00') OR (changingdate > #1/1/1900 00:00:00#)  Order By ID"),
              ElementsAre("00", "01", "0101", "02"));
}

TEST_F(Vocabulary, deletes_a_page_with_its_subtree)
{
  EXPECT_EQ(sample.db().execute("DELETE * FROM Seite Where Seite.ID like '01*' "), 4U);
  EXPECT_THAT(sample.ids("select * from seite Order By ID"), ElementsAre("00", "02", "03", "0301"));
}

TEST_F(Vocabulary, clears_the_file_register_and_tells_its_kinds_apart)
{
  for (const int type : {1, 2, 4, 5})
    sample.db().execute("INSERT INTO Dateien (dateiname, [dateityp-id], übertragen) VALUES (?, ?, ?)", {"d", type, type == 2});

  EXPECT_THAT(sample.column("SELECT * FROM Dateien WHERE ([dateityp-id]=2) and (übertragen=TRUE)", "dateityp-id"),
              ElementsAre("2"));
  EXPECT_THAT(sample.column("SELECT * FROM Dateien WHERE [dateityp-id]=1 ", "dateityp-id"), ElementsAre("1"));
  EXPECT_EQ(sample.db().execute("DELETE * FROM Dateien WHERE ([Dateityp-id] = 1) OR ([Dateityp-id] = 2)"), 2U);
  EXPECT_EQ(sample.db().execute("DELETE * FROM Dateien WHERE [Dateityp-ID]=4"), 1U);
  EXPECT_THAT(sample.column("SELECT * FROM Dateien", "DATEITYP-ID"), ElementsAre("5"));
}

TEST_F(Vocabulary, finds_a_registered_file_whatever_its_case)
{
  sample.db().execute("INSERT INTO Dateien (pfad, dateiname, erweiterung) VALUES ('c:\\übung', 'straße', 'jpg')");

  EXPECT_THAT(sample.column("SELECT * FROM Dateien WHERE (pfad='C:\\ÜBUNG') AND (dateiname='Straße') AND (erweiterung='JPG ') ",
                            "dateiname"),
              ElementsAre("straße"));
}

TEST_F(Vocabulary, reads_the_control_types_of_a_window_once_each)
{
  for (const char* type : {"Toolbar", "Label", "label", "Menu", "Label "})
    sample.db().execute("INSERT INTO tbl_Language (FormName, ControlType) VALUES ('frmMain', ?)", {type});

  EXPECT_EQ(sample.column("SELECT distinct tbl_Language.ControlType FROM tbl_Language WHERE FormName = 'FrmMain';", "ControlType")
                .size(),
            3U);
}

TEST_F(Vocabulary, reads_the_pages_of_a_tab_backwards_by_a_column_named_like_a_keyword)
{
  for (const char* index : {"0", "2", "1"})
    sample.db().execute("INSERT INTO tbl_Language (FormName, ControlType, Index, Language) VALUES ('frmMain', 'Tab', ?, 'GER')",
                        {index});

  EXPECT_THAT(
      sample.column("Select * from tbl_Language Where (FormName = 'frmMain') And (ControlType = 'Tab') And (Language = 'GER')"
                    "order by Index desc;",
                    "Index"),
      ElementsAre("2", "1", "0"));
}

TEST_F(Vocabulary, reads_an_active_message)
{
  sample.db().execute("INSERT INTO Messages (MsgNo, MsgLang, MsgActive, MsgPrompt1) VALUES (37, 'GER', no, 'aus')");
  sample.db().execute("INSERT INTO Messages (MsgNo, MsgLang, MsgActive, MsgPrompt1) VALUES (37, 'ENG', -1, 'old')");
  sample.db().execute("INSERT INTO Messages (MsgNo, MsgLang, MsgActive, MsgPrompt1) VALUES (37, 'GER', yes, 'an')");

  EXPECT_THAT(sample.column("SELECT * FROM Messages WHERE [MsgNo]=37 AND [MsgLang]='GER' AND [MsgActive]= yes;", "MsgPrompt1"),
              ElementsAre("an"));
  EXPECT_THAT(sample.column("SELECT * FROM Messages WHERE [MsgNo]=37 AND [MsgLang]='ENG' AND [MsgActive]= yes;", "MsgPrompt1"),
              ElementsAre("old"));
}

TEST_F(Vocabulary, creates_the_article_table_and_reads_it_in_order)
{
  sample.db().execute(
      "CREATE TABLE Artikel (Artikel_deutsch TEXT, Artikel_englisch TEXT, Preis_Euro DOUBLE, Preis_Dollar DOUBLE, "
      "Artikelnummer COUNTER CONSTRAINT Artikelnummer PRIMARY KEY);");
  sample.db().execute("INSERT INTO Artikel (Artikel_deutsch, Preis_Euro) VALUES ('Stuhl', 12.5)");
  sample.db().execute("INSERT INTO Artikel (Artikel_deutsch) VALUES ('Tisch')");

  EXPECT_THAT(sample.db().columns("artikel"),
              ElementsAre("Artikel_deutsch", "Artikel_englisch", "Preis_Euro", "Preis_Dollar", "Artikelnummer"));
  EXPECT_THAT(sample.column("SELECT * FROM Artikel Order By Artikelnummer", "Artikelnummer"), ElementsAre("1", "2"));
  EXPECT_THAT(sample.column("SELECT * FROM Artikel Order By Artikelnummer", "preis_euro"), ElementsAre("12.5", "NULL"));
}

TEST_F(Vocabulary, adds_the_columns_that_old_projects_lack)
{
  sample.db().execute("CREATE TABLE Alt (id TEXT)");
  sample.db().execute("INSERT INTO Alt (id) VALUES ('00')");
  sample.db().execute("ALTER TABLE Alt ADD COLUMN expanded BIT;");
  sample.db().execute("ALTER TABLE Alt ADD COLUMN script MEMO;");
  sample.db().execute("ALTER TABLE Alt ADD COLUMN changingdate DATE;");

  EXPECT_THAT(sample.db().columns("ALT"), ElementsAre("id", "expanded", "script", "changingdate"));
  auto rows = sample.db().openRecordset("Alt");
  EXPECT_FALSE(rows.value("expanded").yes());
  EXPECT_TRUE(rows.value("script").isNull());
}

TEST_F(Vocabulary, opens_whole_tables_by_statement_and_by_name)
{
  EXPECT_EQ(sample.ids("Select * from Seite ").size(), 8U);
  EXPECT_EQ(sample.ids("SELECT * FROM Seite").size(), 8U);
  EXPECT_EQ(sample.ids("seite").size(), 8U);
  EXPECT_EQ(sample.db().openRecordset("select * from Einstellungen").recordCount(), 0U);
  EXPECT_EQ(sample.db().openRecordset("SELECT * FROM dateien").recordCount(), 0U);
}

} // namespace
} // namespace mrd::dao
