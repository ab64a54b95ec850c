#include "generator/templates/seiten_attribut.h"

#include "base/errors.h"

#include <gmock/gmock.h>

namespace mrd::templates {
namespace {

using testing::ElementsAre;

std::vector<std::string> values(const SeitenAttribute& list)
{
  std::vector<std::string> out;
  for (const auto& record : list)
    out.push_back(record.Platzhalter + "=" + record.Wert);
  return out;
}

std::string replaced(std::string text, const SeitenAttribute& list)
{
  replaceAttributes(text, list);
  return text;
}

template <class Action>
base::ErrorNumber errorOf(Action action)
{
  try {
    action();
  } catch (const base::Error& error) {
    return error.kind();
  }
  ADD_FAILURE() << "no error";
  return {};
}

TEST(SeitenAttribut, replaces_nothing_and_gives_the_empty_text)
{
  const SeitenAttribut record{"[mrd:Titel]", "Haus"};

  EXPECT_EQ(record.ersetze("[mrd:Titel]"), "");
  EXPECT_EQ(record.ersetze(""), "");
}

TEST(SeitenAttribute, keeps_the_order_of_entry)
{
  SeitenAttribute list;
  list.Add("[mrd:Titel]", "3");
  list.Add("[mrd:Kopf]", "1");
  list.Add("[mrd:GenDat]", "2");

  EXPECT_EQ(list.Count(), 3u);
  EXPECT_THAT(values(list), ElementsAre("[mrd:Titel]=3", "[mrd:Kopf]=1", "[mrd:GenDat]=2"));
}

TEST(SeitenAttribute, returns_the_record_that_was_added)
{
  SeitenAttribute list;
  const auto& record = list.Add("[mrd:Titel]", "Haus", "titel");

  EXPECT_EQ(record.Platzhalter, "[mrd:Titel]");
  EXPECT_EQ(record.Wert, "Haus");
}

TEST(SeitenAttribute, finds_records_by_position_from_one_and_by_key)
{
  SeitenAttribute list;
  list.Add("[mrd:Titel]", "Haus", "titel");
  list.Add("[mrd:Kopf]", "Kopf");

  EXPECT_EQ(list.Item(1).Wert, "Haus");
  EXPECT_EQ(list.Item(2).Wert, "Kopf");
  EXPECT_EQ(list.Item("titel").Wert, "Haus");
}

TEST(SeitenAttribute, has_nothing_outside_of_its_positions_and_keys)
{
  SeitenAttribute list;
  list.Add("[mrd:Titel]", "Haus");

  EXPECT_EQ(errorOf([&] { list.Item(0); }), base::ErrorNumber::SubscriptOutOfRange);
  EXPECT_EQ(errorOf([&] { list.Item(2); }), base::ErrorNumber::SubscriptOutOfRange);
  EXPECT_EQ(errorOf([&] { list.Item(""); }), base::ErrorNumber::SubscriptOutOfRange);
  EXPECT_EQ(errorOf([&] { list.Item("[mrd:Titel]"); }), base::ErrorNumber::SubscriptOutOfRange);
  EXPECT_EQ(errorOf([&] { list.Remove(2); }), base::ErrorNumber::SubscriptOutOfRange);
  EXPECT_EQ(errorOf([&] { list.Remove("titel"); }), base::ErrorNumber::SubscriptOutOfRange);
}

TEST(SeitenAttribute, takes_several_records_without_a_key)
{
  SeitenAttribute list;
  list.Add("a", "1");
  list.Add("a", "2");

  EXPECT_EQ(list.Count(), 2u);
}

TEST(SeitenAttribute, keeps_its_keys_when_a_record_before_them_is_removed)
{
  SeitenAttribute list;
  list.Add("a", "1", "eins");
  list.Add("b", "2", "zwei");
  list.Add("c", "3", "drei");

  list.Remove(1);
  EXPECT_THAT(values(list), ElementsAre("b=2", "c=3"));
  EXPECT_EQ(list.Item("drei").Wert, "3");

  list.Remove("zwei");
  EXPECT_THAT(values(list), ElementsAre("c=3"));
  EXPECT_EQ(list.Item("drei").Wert, "3");
  EXPECT_EQ(errorOf([&] { list.Item("eins"); }), base::ErrorNumber::SubscriptOutOfRange);
}

TEST(Replacement, takes_every_occurrence_of_the_whole_placeholder)
{
  SeitenAttribute list;
  list.Add("[mrd:Hintergrundfarbe]", "#ffffff");

  EXPECT_EQ(replaced("[mrd:Hintergrundfarbe][mrd:Hintergrundfarbeaussen]-[mrd:Hintergrundfarbe]", list),
            "#ffffff[mrd:Hintergrundfarbeaussen]-#ffffff");
}

TEST(Replacement, tells_upper_from_lower_case)
{
  SeitenAttribute list;
  list.Add("[mrd:Titel]", "Haus");

  EXPECT_EQ(replaced("[mrd:titel][MRD:Titel][mrd:Titel]", list), "[mrd:titel][MRD:Titel]Haus");
}

TEST(Replacement, runs_in_the_order_of_the_list)
{
  SeitenAttribute list;
  list.Add("a", "b");
  list.Add("b", "c");

  EXPECT_EQ(replaced("ab", list), "cc");

  SeitenAttribute backwards;
  backwards.Add("b", "c");
  backwards.Add("a", "b");
  EXPECT_EQ(replaced("ab", backwards), "bc");
}

TEST(Replacement, by_an_empty_value_removes_the_placeholder)
{
  SeitenAttribute list;
  list.Add("[mrd:Titel]", "");

  EXPECT_EQ(replaced("<[mrd:Titel]>", list), "<>");
}

TEST(Replacement, leaves_unknown_placeholders)
{
  SeitenAttribute list;
  list.Add("[mrd:Titel]", "Haus");

  EXPECT_EQ(replaced("[mrd:Menübreite][mrd:Nichts]", list), "[mrd:Menübreite][mrd:Nichts]");
}

TEST(Replacement, of_a_value_with_its_own_placeholder_ends_after_one_pass)
{
  SeitenAttribute list;
  list.Add("[mrd:Titel]", "<[mrd:Titel][mrd:Titel]>");

  EXPECT_EQ(replaced("[mrd:Titel]", list), "<[mrd:Titel][mrd:Titel]>");
}

TEST(Replacement, does_nothing_for_a_record_without_a_placeholder)
{
  SeitenAttribute list;
  list.Add("", "x");

  EXPECT_EQ(replaced("abc", list), "abc");
}

TEST(Replacement, leaves_the_excepted_placeholder)
{
  SeitenAttribute list;
  list.Add("[mrd:Dateiname]", "x.htm");
  list.Add("[mrd:Titel]", "Haus");

  std::string text = "[mrd:Dateiname][mrd:Titel]";
  replaceAttributes(text, list, "[mrd:Dateiname]");
  EXPECT_EQ(text, "[mrd:Dateiname]Haus");
}

} // namespace
} // namespace mrd::templates
