#include "platform/dao/sample.h"

#include "platform/dao/dialect.h"

#include <gtest/gtest.h>

namespace mrd::dao {
namespace {

using base::ErrorNumber;

class SearchCriteria : public testing::Test {
protected:
  SearchCriteria()
  {
    for (const auto& [key, value] :
         {std::pair{"Titel", "eins"}, {"titel", "zwei"}, {"ShopID", "drei"}, {"it's", "vier"}, {"Menübreite", "fünf"}})
      sample.db().execute("INSERT INTO Einstellungen (Einstellung, Wert) VALUES (?, ?)", {key, value});
  }

  /// Value of the first row that meets the criteria; "-" for none.
  std::string found(std::string_view criteria, const Parameters& parameters = {})
  {
    auto rows = sample.db().openRecordset("select * from Einstellungen");
    rows.findFirst(criteria, parameters);
    return rows.noMatch() ? "-" : rows.value("Wert").text();
  }
  int errorFor(std::string_view criteria)
  {
    return errorOf([&] { found(criteria); });
  }

  Sample sample;
};

TEST_F(SearchCriteria, find_the_first_of_several_rows) { EXPECT_EQ(found("Einstellung = 'Titel'"), "eins"); }

TEST_F(SearchCriteria, do_not_tell_cases_and_trailing_blanks_apart)
{
  EXPECT_EQ(found("einstellung = 'SHOPid  '"), "drei");
  EXPECT_EQ(found("EINSTELLUNG = 'menÜBREITE'"), "fünf");
}

TEST_F(SearchCriteria, without_a_match_leave_no_current_row)
{
  auto rows = sample.db().openRecordset("Einstellungen");
  rows.findFirst("Einstellung = 'fehlt'");

  EXPECT_TRUE(rows.noMatch());
  EXPECT_EQ(errorOf([&] { rows.edit(); }), number(ErrorNumber::NoCurrentRecord));
}

TEST_F(SearchCriteria, take_values_as_parameters_whatever_is_in_them)
{
  EXPECT_EQ(found("Einstellung = ?", {"it's"}), "vier");
  EXPECT_EQ(found("Einstellung = ?", {"' OR 1=1 --"}), "-");
  EXPECT_EQ(errorOf([&] { found("Einstellung = ?"); }), number(ErrorNumber::SyntaxError));
}

TEST_F(SearchCriteria, join_conditions)
{
  EXPECT_EQ(found("(Einstellung = 'titel') and (Wert='zwei')"), "zwei");
  EXPECT_EQ(found("(Wert = 'drei') OR (Wert = 'zwei')"), "zwei");
  EXPECT_EQ(found("(Wert = 'x') OR (Wert = 'fünf') OR (Wert = 'drei')"), "drei");
  EXPECT_EQ(found("NOT (Wert = 'eins') AND Einstellung LIKE 't*'"), "zwei");
}

TEST_F(SearchCriteria, refuse_a_value_with_an_apostrophe)
{
  EXPECT_EQ(errorFor("Einstellung = 'it's'"), number(ErrorNumber::SyntaxError));
  EXPECT_EQ(errorFor("(Einstellung = 'it's') and (Wert = 'x')"), number(ErrorNumber::SyntaxError));
  EXPECT_EQ(errorFor("Einstellung = '''"), number(ErrorNumber::SyntaxError));
}

TEST_F(SearchCriteria, refuse_values_that_try_to_become_a_condition)
{
  for (const char* value : {"x' OR 'a'='a", "x' OR Einstellung = 'Titel", "x' OR TRUE OR 'a'='", "x' OR Einstellung <> 'y",
                            "x' OR 1=1 OR ''='", "x'; DELETE * FROM Einstellungen WHERE 'a'='a", "x' OR NOT Wert='", "a'='b",
                            "T' & 'itel", "T' + 'itel", "x' OR 'b", "x' OR Wert LIKE '*", "x' OR Wert IS NOT NULL OR Wert='",
                            "x' UNION SELECT * FROM Seite WHERE id='", "x' -- ", "x' AND 'a'='a"}) {
    EXPECT_EQ(errorFor(std::string("Einstellung = '") + value + "'"), number(ErrorNumber::SyntaxError)) << value;
  }
  EXPECT_EQ(sample.db().openRecordset("Einstellungen").recordCount(), 5U);
}

TEST_F(SearchCriteria, take_a_doubled_apostrophe_for_one) { EXPECT_EQ(found("Einstellung = 'it''s'"), "vier"); }

TEST_F(SearchCriteria, refuse_what_is_not_exactly_one_condition)
{
  for (const char* text : {"",
                           "   ",
                           "'a'",
                           "5",
                           "Wert",
                           "Einstellung",
                           "Einstellung =",
                           "= 'a'",
                           "(Wert='a'",
                           "Wert='a')",
                           "Wert='a';",
                           "Wert='a' Wert='b'",
                           "SELECT * FROM Einstellungen",
                           "Wert='a' ORDER BY Wert",
                           "Wert='a', Wert='b'",
                           "TRUE",
                           "1=1",
                           "Wert BETWEEN 'a'",
                           "Wert IN",
                           "Wert IN ()",
                           "Wert NOT",
                           "NOT",
                           "Wert = = 'a'",
                           "count(*) = 1",
                           "[Wert = 'a'",
                           "Wert = #13/45/2003#",
                           "Wert = #",
                           "Wert ! 'a'"})
    EXPECT_EQ(errorFor(text), number(ErrorNumber::SyntaxError)) << text;
}

TEST_F(SearchCriteria, name_a_column_that_is_missing)
{
  EXPECT_EQ(errorFor("pfadLokal='a'"), number(ErrorNumber::ItemNotFound));
  EXPECT_EQ(errorFor("Seite.Wert='a'"), number(ErrorNumber::ItemNotFound));
  EXPECT_NE(descriptionOf([&] { found("pfadLokal='a'"); }).find("pfadLokal"), std::string::npos);
}

TEST_F(SearchCriteria, of_any_depth_end_in_an_error_and_not_in_an_overflow)
{
  const auto nested = [](std::size_t depth, const std::string& open, const std::string& close) {
    std::string out;
    for (std::size_t i = 0; i < depth; ++i)
      out += open;
    out += "Wert='a'";
    for (std::size_t i = 0; i < depth; ++i)
      out += close;
    return out;
  };

  EXPECT_EQ(errorFor(nested(20, "(", ")")), 0);
  EXPECT_EQ(errorFor(nested(100'000, "(", ")")), number(ErrorNumber::SyntaxError));
  EXPECT_EQ(errorFor(nested(100'000, "NOT ", "")), number(ErrorNumber::SyntaxError));
  EXPECT_EQ(errorFor(nested(100'000, "Len(", ")")), number(ErrorNumber::SyntaxError));
  EXPECT_EQ(errorFor(nested(100'000, "- ", "")), number(ErrorNumber::SyntaxError));
  EXPECT_EQ(errorFor(nested(100'000, "Wert='b' AND ", "")), number(ErrorNumber::SyntaxError));
  EXPECT_EQ(errorFor(nested(50, "((", ") BETWEEN Wert AND Wert)")), number(ErrorNumber::SyntaxError));
}

TEST_F(SearchCriteria, also_search_rows_that_were_read_at_once)
{
  auto rows = sample.db().openRecordset("SELECT DISTINCT Einstellung, Wert FROM Einstellungen");
  rows.findFirst("einstellung = 'SHOPID' AND Wert = ?", {"drei"});

  EXPECT_FALSE(rows.noMatch());
  EXPECT_EQ(rows.value("Wert").text(), "drei");
  rows.findFirst("einstellung = 'fehlt'");
  EXPECT_TRUE(rows.noMatch());
}

TEST_F(SearchCriteria, search_only_the_rows_of_the_recordset)
{
  auto rows = sample.db().openRecordset("SELECT * FROM Einstellungen WHERE Wert <> 'eins'");
  rows.findFirst("Einstellung = 'Titel'");
  EXPECT_EQ(rows.value("Wert").text(), "zwei");
}

TEST_F(SearchCriteria, follow_the_order_of_the_recordset)
{
  auto rows = sample.db().openRecordset("SELECT * FROM Einstellungen ORDER BY Wert DESC");
  rows.findFirst("Einstellung = 'Titel'");
  EXPECT_EQ(rows.value("Wert").text(), "zwei");
}

} // namespace
} // namespace mrd::dao
