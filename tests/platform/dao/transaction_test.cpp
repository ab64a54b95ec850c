#include "platform/dao/sample.h"

#include <gmock/gmock.h>

#include <optional>

namespace mrd::dao {
namespace {

using base::ErrorNumber;
using testing::ElementsAre;

TEST(TransactionTest, keeps_what_was_committed)
{
  Sample sample;
  {
    Transaction transaction(sample.db());
    sample.page("00");
    transaction.commit();
  }
  auto other = Database::open(sample.path());
  EXPECT_EQ(other.openRecordset("Seite").recordCount(), 1U);
}

TEST(TransactionTest, undoes_everything_when_it_is_left)
{
  Sample sample;
  sample.page("00", "alt");
  try {
    const Transaction transaction(sample.db());
    auto rows = sample.db().openRecordset("Seite");
    rows.edit();
    rows.set("Überschrift", "neu");
    rows.update();
    sample.page("01");
    sample.db().execute("CREATE TABLE Neu (a TEXT)");
    throw std::runtime_error("mittendrin");
  } catch (const std::runtime_error&) {
  }

  EXPECT_THAT(sample.column("Seite", "Überschrift"), ElementsAre("alt"));
  EXPECT_FALSE(sample.db().hasTable("Neu"));
}

TEST(TransactionTest, leaves_open_recordsets_usable_after_a_rollback)
{
  Sample sample;
  sample.page("00", "alt"), sample.page("01", "alt");
  auto rows = sample.db().openRecordset("SELECT * FROM Seite ORDER BY id");
  Transaction transaction(sample.db());
  rows.edit();
  rows.set("id", "M00");
  rows.update();
  transaction.rollback();

  rows.moveFirst();
  EXPECT_EQ(rows.value("id").text(), "00");
  rows.moveNext();
  EXPECT_EQ(rows.value("id").text(), "01");
}

TEST(TransactionTest, does_not_nest)
{
  Sample sample;
  std::optional<Transaction> outer(sample.db());
  EXPECT_EQ(errorOf([&] { const Transaction inner(sample.db()); }), number(ErrorNumber::EngineError));
  sample.page("00");
  outer->commit();
  outer.reset();
  EXPECT_EQ(sample.ids("Seite").size(), 1U);

  const Transaction next(sample.db());
}

TEST(TransactionTest, may_be_rolled_back_and_left)
{
  Sample sample;
  Transaction transaction(sample.db());
  sample.page("00");
  transaction.rollback();
  transaction.rollback();
  EXPECT_EQ(sample.ids("Seite").size(), 0U);
}

TEST(TransactionTest, holds_off_other_writers)
{
  Sample sample;
  auto other = Database::open(sample.path());
  const Transaction transaction(sample.db());

  EXPECT_EQ(other.openRecordset("Seite").recordCount(), 0U);
  EXPECT_EQ(errorOf([&] { other.execute("INSERT INTO Seite (id) VALUES ('00')"); }), number(ErrorNumber::DatabaseLocked));
}

} // namespace
} // namespace mrd::dao
