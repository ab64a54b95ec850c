#include "platform/dao/dialect.h"

#include "platform/dao/sample.h"

#include <gmock/gmock.h>

namespace mrd::dao {
namespace {

using base::ErrorNumber;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

int errorFor(std::string_view statement)
{
  return errorOf([&] { translateStatement(statement); });
}

TEST(Dialect, leaves_the_inside_of_literals_alone)
{
  const auto translation = translateStatement("SELECT * FROM t WHERE a = 'DELETE * FROM x; Mid$(TRUE) [b] #1/1/2000#'");
  EXPECT_THAT(translation.sql, HasSubstr("'DELETE * FROM x; Mid$(TRUE) [b] #1/1/2000#'"));
}

TEST(Dialect, doubles_quotes_on_the_way_out)
{
  EXPECT_THAT(translateStatement("SELECT * FROM t WHERE a = \"it's \"\"x\"\"\"").sql, HasSubstr("'it''s \"x\"'"));
  EXPECT_THAT(translateStatement("SELECT [a\"b] FROM t").sql, HasSubstr("\"a\"\"b\""));
}

TEST(Dialect, takes_exactly_one_statement)
{
  EXPECT_EQ(errorFor("SELECT * FROM t;"), 0);
  for (const char* text : {"SELECT * FROM t; DELETE * FROM t",
                           "SELECT * FROM t;;",
                           "",
                           ";",
                           "t",
                           "SELECT",
                           "SELECT * FROM",
                           "SELECT FROM t",
                           "SELECT * FROM t WHERE",
                           "SELECT * FROM t ORDER",
                           "SELECT * FROM t ORDER BY 1",
                           "SELECT * FROM t, u",
                           "SELECT * t",
                           "SELECT * FROM t JOIN u",
                           "SELECT * FROM t WHERE a = 'x",
                           "DELETE t",
                           "DROP DATABASE",
                           "ATTACH 'x' AS y",
                           "PRAGMA writable_schema = 1",
                           "VACUUM",
                           "SELECT * FROM t WHERE a = 'x' -- ",
                           "SELECT * FROM t /* */",
                           "SELECT TOP x * FROM t",
                           "SELECT TOP 99999999999999999999 * FROM t",
                           "UPDATE t SET",
                           "INSERT INTO t",
                           "SELECT * FROM (SELECT 1)",
                           "SELECT load_extension('x') FROM t",
                           "SELECT a FROM t WHERE 'abc'"})
    EXPECT_EQ(errorFor(text), number(ErrorNumber::SyntaxError)) << text;
}

TEST(Dialect, refuses_a_zero_byte)
{
  EXPECT_EQ(errorFor(std::string_view("SELECT * FROM t WHERE a = '\0'", 29)), number(ErrorNumber::SyntaxError));
}

TEST(Dialect, writes_dates_as_date_columns_hold_them)
{
  EXPECT_THAT(translateStatement("SELECT * FROM t WHERE a > #2/9/2003 7:05:01#").sql, HasSubstr("'2003-02-09 07:05:01'"));
  EXPECT_THAT(translateStatement("SELECT * FROM t WHERE a > #12/31/1999#").sql, HasSubstr("'1999-12-31 00:00:00'"));
  for (const char* date :
       {"#2/30/2003#", "#31/12/2003#", "#1/1/03#", "#2003#", "#1/1/2003 25:00:00#", "#1/1/2003 1#", "#a/b/c#", "##", "#1/1/2003"})
    EXPECT_EQ(errorFor(std::string("SELECT * FROM t WHERE a > ") + date), number(ErrorNumber::SyntaxError)) << date;
}

TEST(Dialect, tells_whether_rows_can_be_found_again)
{
  EXPECT_TRUE(translateStatement("SELECT * FROM t WHERE a = 'x' ORDER BY b").keyed);
  EXPECT_TRUE(translateStatement("SELECT a, t.b FROM t").keyed);
  EXPECT_FALSE(translateStatement("SELECT DISTINCT a FROM t").keyed);
  EXPECT_FALSE(translateStatement("SELECT Count(*) FROM t").keyed);
  EXPECT_FALSE(translateStatement("SELECT Len(a) FROM t").keyed);
  EXPECT_FALSE(translateStatement("SELECT a AS b FROM t").keyed);
}

TEST(Dialect, numbers_its_parameters)
{
  const auto translation = translateStatement("UPDATE t SET a = ?, b = ? WHERE c BETWEEN ? AND ?");
  EXPECT_EQ(translation.parameters, 4U);
  EXPECT_THAT(translation.sql, HasSubstr("?4"));
}

TEST(Dialect, lets_the_engine_use_an_index_for_digits)
{
  Sample sample;
  sample.page("01 "), sample.page("01"), sample.page("010"), sample.page("0"), sample.page("01A"), sample.page("M01"),
      sample.page("02");

  EXPECT_THAT(sample.ids("SELECT * FROM Seite WHERE id = '01'"), ElementsAre("01 ", "01"));
  EXPECT_THAT(sample.ids("SELECT * FROM Seite WHERE '01 ' = id"), ElementsAre("01 ", "01"));
  EXPECT_THAT(sample.ids("SELECT * FROM Seite WHERE id <= '01' ORDER BY id"), ElementsAre("0", "01 ", "01"));
  EXPECT_THAT(sample.ids("SELECT * FROM Seite WHERE id < '01'"), ElementsAre("0"));
  EXPECT_THAT(sample.ids("SELECT * FROM Seite WHERE '01' < id ORDER BY id"), ElementsAre("010", "01A", "02", "M01"));
  EXPECT_THAT(sample.ids("SELECT * FROM Seite WHERE id >= '01' ORDER BY id"),
              ElementsAre("01 ", "01", "010", "01A", "02", "M01"));
  EXPECT_THAT(sample.ids("SELECT * FROM Seite WHERE id LIKE '01'"), ElementsAre("01 ", "01"));
  EXPECT_THAT(sample.ids("SELECT * FROM Seite WHERE id LIKE '01*' ORDER BY id"), ElementsAre("01 ", "01", "010", "01A"));
}

class Expressions : public testing::Test {
protected:
  /// The value of an expression over a table of one row.
  std::string value(std::string_view expression)
  {
    if (!sample.db().hasTable("eins")) {
      sample.db().execute("CREATE TABLE eins (a TEXT, n LONG, leer TEXT)");
      sample.db().execute("INSERT INTO eins VALUES ('Äpfel ', 7, NULL)");
    }
    return sample.column("SELECT " + std::string(expression) + " FROM eins", "Expr1000").at(0);
  }

  Sample sample;
};

TEST_F(Expressions, know_the_text_functions)
{
  EXPECT_EQ(value("Mid$('Straße', 5, 1)"), "ß");
  EXPECT_EQ(value("Mid('Straße', 5)"), "ße");
  EXPECT_EQ(value("Mid('abc', 0, 2)"), "ab");
  EXPECT_EQ(value("Mid('abc', 9)"), "");
  EXPECT_EQ(value("Len(a)"), "6");
  EXPECT_EQ(value("Len(0123)"), "3");
  EXPECT_EQ(value("Left(a, 2)"), "Äp");
  EXPECT_EQ(value("Left('abc', -1)"), "");
  EXPECT_EQ(value("Right$('Straße', 2)"), "ße");
  EXPECT_EQ(value("Right('abc', 0)"), "");
  EXPECT_EQ(value("Right('abc', 9)"), "abc");
  EXPECT_EQ(value("UCase(a)"), "ÄPFEL ");
  EXPECT_EQ(value("LCase('ÄB')"), "äb");
  EXPECT_EQ(value("Trim(' a ') & '|'"), "a|");
  EXPECT_EQ(value("Val('12abc')"), "12");
  EXPECT_EQ(value("IIf(n > 5, 'viel', 'wenig')"), "viel");
}

TEST_F(Expressions, give_null_for_null)
{
  for (const char* expression :
       {"Len(leer)", "Mid(leer, 1)", "UCase(leer)", "Right(leer, 1)", "leer + 'x'", "leer = 'x'", "leer LIKE '*'", "Val(leer)"})
    EXPECT_EQ(value(expression), "NULL") << expression;
  EXPECT_EQ(value("leer & 'x'"), "x");
  EXPECT_EQ(value("IsNull(leer)"), "1");
  EXPECT_EQ(value("leer IS NULL"), "1");
  EXPECT_EQ(value("a IS NOT NULL"), "1");
}

TEST_F(Expressions, calculate)
{
  EXPECT_EQ(value("1 + 2 * 3 - 4"), "3");
  EXPECT_EQ(value("-(2 - 5)"), "3");
  EXPECT_EQ(value("7 / 2"), "3.5");
  EXPECT_EQ(value("7 mod 4"), "3");
  EXPECT_EQ(value("'a' + 'b'"), "ab");
  EXPECT_EQ(value("n & 'x'"), "7x");
  EXPECT_EQ(value(".5 + 1"), "1.5");
}

TEST_F(Expressions, compare_as_the_dialect_does)
{
  EXPECT_EQ(value("a = 'äPFEL'"), "1");
  EXPECT_EQ(value("a <> 'äPFEL'"), "0");
  EXPECT_EQ(value("a IN ('birnen', 'äpfel')"), "1");
  EXPECT_EQ(value("a NOT IN ('birnen', 'äpfel')"), "0");
  EXPECT_EQ(value("'B' BETWEEN 'a' AND 'c'"), "1");
  EXPECT_EQ(value("n NOT BETWEEN 1 AND 5"), "1");
  EXPECT_EQ(value("n = '7'"), "1");
  EXPECT_EQ(value("n = TRUE"), "1");
  EXPECT_EQ(value("n <> FALSE"), "1");
  EXPECT_EQ(value("n = no"), "0");
  EXPECT_EQ(value("NOT n = 7"), "0");
  EXPECT_EQ(value("a LIKE 'ä*L'"), "1");
  EXPECT_EQ(value("a NOT LIKE '[!a-z]pfel'"), "0");
}

TEST_F(Expressions, refuse_a_literal_text_beside_a_number)
{
  EXPECT_EQ(errorOf([&] { value("n = 'sieben'"); }), number(ErrorNumber::TypeMismatch));
  EXPECT_EQ(errorOf([&] { value("n = ''"); }), number(ErrorNumber::TypeMismatch));
}

TEST_F(Expressions, may_be_aggregates)
{
  sample.page("01", "b"), sample.page("02", "Ä"), sample.page("03", "a");

  EXPECT_THAT(sample.column("SELECT Count(*) FROM Seite WHERE id > '01'", "Expr1000"), ElementsAre("2"));
  EXPECT_THAT(sample.column("SELECT Max(id) AS hoechste, Min(Überschrift) FROM Seite", "hoechste"), ElementsAre("03"));
  EXPECT_THAT(sample.column("SELECT Min(Überschrift) FROM Seite", "Expr1000"), ElementsAre("a"));
}

TEST(Names, ignore_case_with_umlauts_too)
{
  Sample sample;
  sample.page("00", "Start");
  sample.db().execute("INSERT INTO DATEIEN (ÜBERTRAGEN) VALUES (yes)");

  EXPECT_THAT(sample.column("SELECT ÜBERSCHRIFT FROM SEITE WHERE sEITE.überschrift = 'START'", "überSCHRIFT"),
              ElementsAre("Start"));
  EXPECT_THAT(sample.column("SELECT * FROM dateien WHERE [ÜBERTRAGEN] = TRUE", "Übertragen"), ElementsAre("1"));
  EXPECT_EQ(sample.db().execute("UPDATE seite SET ÜberSchrift = 'x' WHERE ÜBERSCHRIFT = 'start'"), 1U);
}

TEST(Names, that_are_missing_are_told)
{
  Sample sample;
  EXPECT_EQ(errorOf([&] { sample.db().openRecordset("SELECT * FROM Gibtesnicht"); }), number(ErrorNumber::ItemNotFound));
  EXPECT_EQ(errorOf([&] { sample.db().openRecordset("SELECT fehlt FROM Seite"); }), number(ErrorNumber::ItemNotFound));
  EXPECT_EQ(errorOf([&] { sample.db().openRecordset("SELECT * FROM Seite ORDER BY fehlt"); }), number(ErrorNumber::ItemNotFound));
  EXPECT_EQ(errorOf([&] { sample.db().openRecordset("SELECT * FROM Seite WHERE Dateien.id = '1'"); }),
            number(ErrorNumber::ItemNotFound));
  EXPECT_EQ(errorOf([&] { sample.db().openRecordset("SELECT * FROM sqlite_master"); }), number(ErrorNumber::ItemNotFound));
  EXPECT_EQ(errorOf([&] { sample.db().execute("SELECT * FROM Seite"); }), number(ErrorNumber::SyntaxError));
  EXPECT_EQ(errorOf([&] { sample.db().openRecordset("DELETE * FROM Seite"); }), number(ErrorNumber::SyntaxError));
}

TEST(Order, ignores_case_and_puts_null_first)
{
  Sample sample;
  sample.page("1", "b"), sample.page("2", "A"), sample.page("3", "a "), sample.page("4", Null{}), sample.page("5", "B");

  EXPECT_THAT(sample.ids("SELECT * FROM Seite ORDER BY Überschrift"), ElementsAre("4", "2", "3", "1", "5"));
  EXPECT_THAT(sample.ids("SELECT * FROM Seite ORDER BY Überschrift DESC, id DESC"), ElementsAre("5", "1", "3", "2", "4"));
}

TEST(Order, without_one_is_that_of_the_table)
{
  Sample sample;
  sample.page("3", "gleich"), sample.page("1", "gleich"), sample.page("2", "gleich");

  EXPECT_THAT(sample.ids("SELECT * FROM Seite WHERE Überschrift LIKE 'gleich'"), ElementsAre("3", "1", "2"));
  EXPECT_THAT(sample.ids("SELECT TOP 2 * FROM Seite"), ElementsAre("3", "1"));
}

} // namespace
} // namespace mrd::dao
