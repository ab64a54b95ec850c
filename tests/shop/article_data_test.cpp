#include "shop/article_data.h"

#include "support/temporary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace mrd::shop {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Articles : testing::Test {
  explicit Articles()
  {
    add("Poster", 12.5);
    add("Tasse", 8);
    add("Karte", 1.2);
  }
  void add(const char* name, double euro)
  {
    project.db().execute("INSERT INTO Artikel (Artikel_deutsch, Artikel_englisch, Preis_Euro) VALUES (?, ?, ?)",
                         {name, std::string(name) + " e", euro});
  }
  std::vector<std::string> names()
  {
    std::vector<std::string> found;
    for (auto rows = project.db().openRecordset("SELECT * FROM Artikel Order By Artikelnummer"); !rows.eof(); rows.moveNext())
      found.push_back(rows.value("Artikel_deutsch").text());
    return found;
  }
  dao::Value stored(std::string_view column, int number)
  {
    return project.db().openRecordset("SELECT * FROM Artikel WHERE Artikelnummer = ?", {number}).value(column);
  }

  support::TemporaryProject project{{"00", "Start"}};
  ArticleTexts boxes;
  std::vector<std::string> errors;
  std::vector<int> validated;
  int repositions = 0;
  ArticleData data{project.db(),
                   boxes,
                   Decimals("GER"),
                   {[this](const base::Error& error) { errors.push_back(error.description()); }, [this] { ++repositions; },
                    [this](DataAction action) { validated.push_back(static_cast<int>(action)); }}};
};

TEST_F(Articles, begin_with_the_first_in_the_boxes)
{
  EXPECT_TRUE(data.Refresh());

  EXPECT_THAT(boxes, ElementsAre("1", "Poster", "Poster e", "12,5", ""));
  EXPECT_EQ(data.caption, "Datensatz: 1");
  EXPECT_EQ(repositions, 1);
  EXPECT_FALSE(data.isDirty());
}

TEST_F(Articles, are_reached_by_the_four_moves_and_end_at_the_ends)
{
  data.Refresh();
  std::vector<std::string> seen;
  for (const auto action : {DataAction::MovePrevious, DataAction::MoveNext, DataAction::MoveLast, DataAction::MoveNext,
                            DataAction::MovePrevious, DataAction::MoveFirst}) {
    data.move(action);
    seen.push_back(boxes[kGerman] + " " + data.caption);
  }
  EXPECT_THAT(seen, ElementsAre("Poster Datensatz: 1", "Tasse Datensatz: 2", "Karte Datensatz: 3", "Karte Datensatz: 3",
                                "Tasse Datensatz: 2", "Poster Datensatz: 1"));
  EXPECT_THAT(validated, ElementsAre(2, 3, 4, 3, 2, 1));
}

TEST_F(Articles, without_any_have_empty_boxes_and_no_number)
{
  project.db().execute("DELETE * FROM Artikel");

  EXPECT_TRUE(data.Refresh());
  EXPECT_TRUE(data.move(DataAction::MoveNext));
  EXPECT_TRUE(data.move(DataAction::MoveLast));

  EXPECT_THAT(boxes, ElementsAre("", "", "", "", ""));
  EXPECT_EQ(data.caption, "Datensatz: 0");
  EXPECT_EQ(data.AbsolutePosition(), -1);
  EXPECT_THAT(errors, IsEmpty());
}

TEST_F(Articles, are_stored_when_they_are_left_changed)
{
  data.Refresh();
  boxes[kGerman] = "Plakat";
  boxes[kDollar] = "20,25";

  data.move(DataAction::MoveNext);

  EXPECT_EQ(boxes[kGerman], "Tasse");
  EXPECT_EQ(stored("Artikel_deutsch", 1).text(), "Plakat");
  EXPECT_EQ(stored("Preis_Dollar", 1).number(), 20.25);
}

TEST_F(Articles, keep_what_their_boxes_only_show_rounded)
{
  project.db().execute("UPDATE Artikel SET Preis_Euro = 0.30000000000000004 WHERE Artikelnummer = 1");
  data.Refresh();
  EXPECT_EQ(boxes[kEuro], "0,3");
  boxes[kGerman] = "Plakat";

  data.move(DataAction::MoveNext);

  EXPECT_EQ(stored("Preis_Euro", 1).number(), 0.30000000000000004);
}

TEST_F(Articles, that_cannot_be_stored_are_not_left)
{
  data.Refresh();
  boxes[kEuro] = "abc";

  EXPECT_FALSE(data.move(DataAction::MoveNext));
  EXPECT_FALSE(data.AddNew());
  EXPECT_FALSE(data.findFirst(2));
  EXPECT_FALSE(data.leave());

  EXPECT_THAT(boxes, ElementsAre("1", "Poster", "Poster e", "abc", ""));
  EXPECT_TRUE(data.isDirty());
  EXPECT_THAT(errors, testing::Each("Das ist keine Zahl: abc"));
  EXPECT_EQ(errors.size(), 4U);
  EXPECT_EQ(stored("Preis_Euro", 1).number(), 12.5);
}

TEST_F(Articles, read_anew_forget_what_is_not_stored)
{
  data.Refresh();
  data.move(DataAction::MoveLast);
  boxes[kEuro] = "abc";

  EXPECT_TRUE(data.Refresh());

  EXPECT_THAT(boxes, ElementsAre("1", "Poster", "Poster e", "12,5", ""));
  EXPECT_EQ(stored("Preis_Euro", 3).number(), 1.2);
}

TEST_F(Articles, that_are_new_have_empty_boxes_and_get_their_number_when_they_are_stored)
{
  data.Refresh();

  EXPECT_TRUE(data.AddNew());
  EXPECT_THAT(boxes, ElementsAre("", "", "", "", ""));
  EXPECT_EQ(data.caption, "Datensatz: 1");
  boxes[kGerman] = "Buch";
  boxes[kEuro] = "1.234,50";
  EXPECT_TRUE(data.UpdateRecord());

  EXPECT_THAT(boxes, ElementsAre("4", "Buch", "", "1234,5", ""));
  EXPECT_EQ(data.caption, "Datensatz: 4");
  EXPECT_THAT(names(), ElementsAre("Poster", "Tasse", "Karte", "Buch"));
  EXPECT_TRUE(stored("Artikel_englisch", 4).isNull());
}

TEST_F(Articles, that_are_new_and_empty_leave_nothing_behind)
{
  data.Refresh();
  data.AddNew();

  data.move(DataAction::MoveNext);

  EXPECT_EQ(boxes[kGerman], "Tasse");
  EXPECT_THAT(names(), ElementsAre("Poster", "Tasse", "Karte"));
  EXPECT_FALSE(data.isAdding());
}

TEST_F(Articles, that_are_new_and_filled_in_are_stored_by_the_next_move)
{
  data.Refresh();
  data.AddNew();
  boxes[kGerman] = "Buch";

  data.move(DataAction::MoveFirst);

  EXPECT_EQ(boxes[kGerman], "Poster");
  EXPECT_THAT(names(), ElementsAre("Poster", "Tasse", "Karte", "Buch"));
}

TEST_F(Articles, can_be_filled_in_where_there_is_none)
{
  project.db().execute("DELETE * FROM Artikel");
  data.Refresh();
  boxes[kGerman] = "Buch";

  EXPECT_TRUE(data.UpdateRecord());

  EXPECT_THAT(names(), ElementsAre("Buch"));
  EXPECT_EQ(data.caption, "Datensatz: 1");
}

TEST_F(Articles, that_are_removed_give_way_to_the_next)
{
  data.Refresh();
  data.move(DataAction::MoveNext);

  EXPECT_TRUE(data.Delete());

  EXPECT_EQ(boxes[kGerman], "Karte");
  EXPECT_EQ(data.caption, "Datensatz: 2");
  EXPECT_THAT(names(), ElementsAre("Poster", "Karte"));
}

TEST_F(Articles, removed_from_the_end_give_way_to_the_one_before)
{
  data.Refresh();
  data.move(DataAction::MoveLast);

  EXPECT_TRUE(data.Delete());

  EXPECT_EQ(boxes[kGerman], "Tasse");
}

TEST_F(Articles, removed_to_the_last_leave_an_empty_list)
{
  data.Refresh();
  for (int i = 0; i < 3; ++i)
    EXPECT_TRUE(data.Delete());

  EXPECT_THAT(names(), IsEmpty());
  EXPECT_THAT(boxes, ElementsAre("", "", "", "", ""));
  EXPECT_EQ(data.caption, "Datensatz: 0");
  EXPECT_THAT(errors, IsEmpty());

  EXPECT_FALSE(data.Delete());
  EXPECT_THAT(errors, ElementsAre("Kein aktueller Datensatz."));
}

TEST_F(Articles, that_are_new_and_removed_are_given_up)
{
  data.Refresh();
  data.AddNew();
  boxes[kGerman] = "Buch";

  EXPECT_TRUE(data.Delete());

  EXPECT_EQ(boxes[kGerman], "Poster");
  EXPECT_THAT(names(), ElementsAre("Poster", "Tasse", "Karte"));
}

TEST_F(Articles, are_found_by_their_number)
{
  data.Refresh();

  EXPECT_TRUE(data.findFirst(3));
  EXPECT_EQ(boxes[kGerman], "Karte");
  EXPECT_EQ(data.caption, "Datensatz: 3");
  EXPECT_FALSE(data.findFirst(17));
  EXPECT_EQ(boxes[kGerman], "Karte");
}

TEST_F(Articles, whose_table_is_gone_tell_of_it)
{
  data.Refresh();
  project.db().execute("DROP TABLE Artikel");
  boxes[kGerman] = "Plakat";

  EXPECT_FALSE(data.UpdateRecord());
  EXPECT_FALSE(data.Refresh());

  EXPECT_EQ(errors.size(), 2U);
}

TEST_F(Articles, that_were_removed_elsewhere_cannot_be_stored)
{
  data.Refresh();
  project.db().execute("DELETE * FROM Artikel WHERE Artikelnummer = 1");
  boxes[kGerman] = "Plakat";

  EXPECT_FALSE(data.UpdateRecord());

  EXPECT_EQ(errors.size(), 1U);
  EXPECT_EQ(boxes[kGerman], "Plakat");
}

TEST_F(Articles, with_apostrophes_and_other_signs_are_stored_as_they_are)
{
  data.Refresh();
  const std::string name = "Anna's \"Möwe\"; DROP TABLE Artikel --";
  boxes[kGerman] = name;

  EXPECT_TRUE(data.UpdateRecord());

  EXPECT_EQ(stored("Artikel_deutsch", 1).text(), name);
}

} // namespace
} // namespace mrd::shop
