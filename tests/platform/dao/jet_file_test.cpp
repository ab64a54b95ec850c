#include "base/errors.h"
#include "base/text.h"
#include "platform/dao/jet_file.h"
#include "platform/dao/jet_records.h"
#include "platform/dao/jet_wire.h"
#include "platform/files/path.h"
#include "support/temporary.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::dao {
namespace {

using base::Error;
using base::ErrorNumber;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using namespace std::string_view_literals;

struct Gathered : JetSink {
  struct Content {
    std::vector<std::string> columns;
    std::vector<std::vector<Value>> rows;
  };

  void table(JetTable table) override
  {
    last = table.name;
    for (const auto& [name, type] : table.columns)
      tables[last].columns.push_back(name + " " + type);
    tables[last];
  }
  void row(std::vector<Value> values) override { tables[last].rows.push_back(std::move(values)); }
  void leftOut(std::string what) override { notes.push_back(std::move(what)); }

  /// Field of the page with the id.
  Value page(std::string_view id, std::size_t column)
  {
    for (const auto& row : tables["Seite"].rows)
      if (row[0].text() == id)
        return row[column];
    ADD_FAILURE() << "no page " << id;
    return {};
  }

  std::map<std::string, Content> tables;
  std::vector<std::string> notes;
  std::string last;
};

JetReading builtReader() { return {std::filesystem::path(MRD_PROGRAM_DIR) / "mrd-jet-reader"}; }

std::string oldFile(const std::string& name)
{
  return files::systemPath(std::filesystem::path(MRD_TEST_DATA) / "jet" / (name + ".mdb"));
}

Gathered contentOf(const std::string& name)
{
  Gathered out;
  readJetFile(oldFile(name), builtReader(), out);
  return out;
}

// --- recognising

TEST(JetFile, is_told_by_its_beginning)
{
  const support::TemporaryDirectory directory;
  directory.write("kurz.mdb", "\0\1\0\0Standard Jet DB"sv);
  directory.write("jet.mdb", "\0\1\0\0Standard Jet DB\0\1"sv);
  directory.write("neuer.mdb", "\0\1\0\0Standard ACE DB\0\2"sv);

  EXPECT_TRUE(isJetFile(oldFile("altprojekt-v0")));
  EXPECT_TRUE(isJetFile(directory.file("jet.mdb")));
  EXPECT_FALSE(isJetFile(directory.file("kurz.mdb")));
  EXPECT_FALSE(isJetFile(directory.file("neuer.mdb")));
  EXPECT_FALSE(isJetFile(directory.file("fehlt.mdb")));
  EXPECT_FALSE(isJetFile(directory.path()));
}

// --- reading

TEST(ReadingAJetFile, gives_tables_with_their_columns_in_order)
{
  auto content = contentOf("altprojekt-jet4");

  EXPECT_THAT(content.notes, IsEmpty());
  EXPECT_EQ(content.tables.size(), 4u);
  EXPECT_THAT(content.tables["Seite"].columns,
              ElementsAre("id TEXT", "Überschrift TEXT", "html MEMO", "dateiname TEXT", "seitentyp-id LONG", "script MEMO",
                          "changingdate DATE", "expanded BIT"));
  EXPECT_THAT(content.tables["Artikel"].columns, ElementsAre("Artikel_deutsch TEXT", "Artikel_englisch TEXT", "Preis_Euro DOUBLE",
                                                             "Preis_Dollar DOUBLE", "Artikelnummer COUNTER"));
}

TEST(ReadingAJetFile, tells_null_from_an_empty_text)
{
  auto content = contentOf("altprojekt-jet4");

  EXPECT_EQ(content.page("05", 2), Value(Null{}));
  EXPECT_EQ(content.page("0505", 2), Value(""));
  EXPECT_EQ(content.page("0506", 3), Value(Null{}));
  EXPECT_EQ(content.page("0507", 3), Value(""));
  EXPECT_EQ(content.page("0504", 4), Value(Null{}));
}

TEST(ReadingAJetFile, gives_long_memos_whole_and_every_character)
{
  auto content = contentOf("altprojekt-jet4");

  EXPECT_EQ(content.page("0403", 2).text().size(), 85'049u);
  EXPECT_EQ(base::length(content.page("0403", 5).text()), 5'200u);
  EXPECT_EQ(content.page("040303", 1).text(), "Dritter Tag – Łódź, Tōkyō, Ω");
}

TEST(ReadingAJetFile, gives_numbers_to_the_last_bit_and_dates_as_they_are_wherever_the_clock_is)
{
  auto content = contentOf("altprojekt-jet4");

  EXPECT_EQ(content.tables["Artikel"].rows.back()[3], Value(0.30000000000000004));
  EXPECT_EQ(content.tables["Artikel"].rows.back()[4], Value(6));
  EXPECT_EQ(content.page("0508", 6), Value(Null{}));
  EXPECT_THAT(content.page("04", 6).text(), HasSubstr("2002-03-31 02:"));
  EXPECT_EQ(content.page("0202", 6), Value("2003-10-26 02:30:00"));
  EXPECT_THAT(content.page("0101", 6).text(), HasSubstr(" 00:00:00"));
}

TEST(ReadingAJetFile, gives_rows_in_their_order_where_the_first_of_two_counts)
{
  auto content = contentOf("altprojekt-jet4");

  std::vector<std::string> titles;
  for (const auto& row : content.tables["Einstellungen"].rows)
    if (row[0].text() == "Titel")
      titles.push_back(row[1].text());
  EXPECT_THAT(titles, ElementsAre("Ferienhaus Möwe", "Ferienhaus Möwe (zweite Zeile)"));
}

TEST(ReadingAJetFile, gives_moved_rows_once_and_deleted_ones_not)
{
  auto content = contentOf("altprojekt-gewachsen-jet4");

  EXPECT_EQ(content.tables["Seite"].rows.size(), 38u);
  EXPECT_THAT(content.page("00", 1).text(), HasSubstr("Ein viel längerer Titel als zuvor"));
  EXPECT_THAT(content.tables["Dateien"].rows, IsEmpty());
  EXPECT_THAT(content.notes, IsEmpty());
}

TEST(ReadingAJetFile, does_without_columns_that_came_later)
{
  auto content = contentOf("altprojekt-v0");

  EXPECT_EQ(content.tables["Seite"].columns.size(), 5u);
  EXPECT_EQ(content.page("index", 4), Value(1));
  EXPECT_EQ(content.tables.count("Artikel"), 0u);
}

// --- readers that fail

/// What reading with this program as the reader fails with.
Error failureOf(const JetReading& reading)
{
  Gathered ignored;
  try {
    readJetFile(oldFile("altprojekt-v0"), reading, ignored);
  } catch (const Error& error) {
    return error;
  }
  ADD_FAILURE() << "it was read";
  return {ErrorNumber::EngineError, ""};
}

struct StrangeReader : testing::Test {
  Error failureWith(const std::string& script, std::chrono::seconds time = std::chrono::seconds(20))
  {
    const auto program = directory.native() / "reader";
    directory.write("reader", "#!/bin/sh\n" + script + "\n");
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    return failureOf({program, time});
  }

  support::TemporaryDirectory directory;
};

TEST_F(StrangeReader, that_is_missing_is_named)
{
  EXPECT_THAT(failureOf({directory.native() / "nirgends"}).description(), HasSubstr("mrd-jet-reader"));
}

TEST_F(StrangeReader, that_falls_is_a_damaged_file)
{
  const auto error = failureWith("printf 'mrd-jet 1\\n'; kill -SEGV $$");

  EXPECT_EQ(error.kind(), ErrorNumber::NotADatabase);
  EXPECT_THAT(error.description(), HasSubstr("beschädigt"));
}

TEST_F(StrangeReader, that_never_ends_is_ended)
{
  EXPECT_THAT(failureWith("printf 'mrd-jet 1\\n'; exec sleep 60", std::chrono::seconds(1)).description(), HasSubstr("kein Ende"));
}

TEST_F(StrangeReader, that_never_stops_to_write_is_ended)
{
  EXPECT_THAT(failureWith("printf 'mrd-jet 1\\n'; while :; do printf 'L\\001\\000\\000\\000x'; done", std::chrono::seconds(2))
                  .description(),
              HasSubstr("kein Ende"));
}

TEST_F(StrangeReader, of_another_version_is_refused)
{
  EXPECT_THAT(failureWith("printf 'mrd-jet 9\\nE'").description(), HasSubstr("anderen Version"));
}

TEST_F(StrangeReader, may_complain_without_end)
{
  EXPECT_THAT(failureWith("yes >&2 & printf 'mrd-jet 1\\nF\\004\\000\\000\\000Pech'; kill $!").description(), "Pech");
}

// --- records

/// Bytes in pieces of one, so that every border of a piece is met.
struct Dripping : JetBytes {
  explicit Dripping(std::string_view given) : rest(given) {}
  std::size_t read(char* target, std::size_t) override
  {
    if (rest.empty())
      throw Error(ErrorNumber::NotADatabase, "zu Ende");
    *target = rest.front();
    rest.remove_prefix(1);
    return 1;
  }
  std::string_view rest;
};

std::string failureOfRecords(std::string_view records, Gathered& into)
{
  const auto all = std::string(wire::kGreeting).append(records);
  Dripping bytes(all);
  try {
    readJetRecords(bytes, into);
  } catch (const Error& error) {
    return error.description();
  }
  return "none";
}

std::string failureOfRecords(std::string_view records)
{
  Gathered ignored;
  return failureOfRecords(records, ignored);
}

TEST(JetRecords, are_read_up_to_the_last)
{
  Gathered content;

  const auto failure = failureOfRecords("T\5\0\0\0Seite\2\0\2\0\0\0id\4\0\0\0TEXT\1\0\0\0n\4\0\0\0LONG"
                                        "R\3\2\0\0\0"
                                        "00\1\xff\xff\xff\xff\xff\xff\xff\xff"
                                        "R\0\2\0\0\0\0\0\0\xf0\x3f"
                                        "L\3\0\0\0weg"
                                        "E und nichts mehr"sv,
                                        content);

  EXPECT_EQ(failure, "none");
  EXPECT_THAT(content.tables["Seite"].columns, ElementsAre("id TEXT", "n LONG"));
  EXPECT_THAT(content.tables["Seite"].rows,
              ElementsAre(ElementsAre(Value("00"), Value(-1)), ElementsAre(Value(Null{}), Value(1.0))));
  EXPECT_THAT(content.notes, ElementsAre("weg"));
}

TEST(JetRecords, that_end_too_early_are_a_failure)
{
  EXPECT_EQ(failureOfRecords(""), "zu Ende");
  EXPECT_EQ(failureOfRecords("T\5\0\0\0Sei"sv), "zu Ende");
}

TEST(JetRecords, that_are_none_are_a_failure)
{
  EXPECT_THAT(failureOfRecords("?"), HasSubstr("beschädigt"));
  EXPECT_THAT(failureOfRecords("R"), HasSubstr("beschädigt"));
  EXPECT_THAT(failureOfRecords("T\1\0\0\0x\1\0\1\0\0\0a\4\0\0\0TEXTR\7"sv), HasSubstr("beschädigt"));
  EXPECT_THAT(failureOfRecords("T\1\0\0\0x\xff\xff"sv), HasSubstr("beschädigt"));
  EXPECT_THAT(failureOfRecords("L\xff\xff\xff\xff"sv), HasSubstr("zu lang"));
}

TEST(JetRecords, of_a_failure_carry_its_words) { EXPECT_EQ(failureOfRecords("F\4\0\0\0Pech"sv), "Pech"); }

TEST(JetRecords, hold_text_that_is_repaired_where_it_is_none)
{
  Gathered content;
  failureOfRecords("L\3\0\0\0a\xff"
                   "bE"sv,
                   content);

  EXPECT_THAT(content.notes, ElementsAre(storedText("a\xff"
                                                    "b")));
}

} // namespace
} // namespace mrd::dao
