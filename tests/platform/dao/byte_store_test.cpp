#include "platform/dao/byte_store.h"

#include "platform/dao/sample.h"

#include <gtest/gtest.h>

#include <array>

namespace mrd::dao {
namespace {

ContentHash hashOf(std::string_view text)
{
  const std::array pieces{text};
  return contentHash(pieces);
}

ContentHash hashOf(std::string_view a, std::string_view b)
{
  const std::array pieces{a, b};
  return contentHash(pieces);
}

TEST(ContentHashTest, tells_contents_and_the_borders_of_pieces_apart)
{
  EXPECT_EQ(hashOf("abc"), hashOf("abc"));
  EXPECT_NE(hashOf("abc"), hashOf("abd"));
  EXPECT_NE(hashOf("ab", "c"), hashOf("a", "bc"));
  EXPECT_NE(hashOf("abc", ""), hashOf("", "abc"));
  EXPECT_NE(hashOf("abc", ""), hashOf("abc"));
  EXPECT_NE(hashOf(""), contentHash({}));
}

class ByteStoreTest : public testing::Test {
protected:
  std::string path() const { return directory.file("ablage.cache"); }

  support::TemporaryDirectory directory;
};

TEST_F(ByteStoreTest, gives_back_what_was_put)
{
  const std::string body(40'000, 'x');
  {
    ByteStore store(path());
    store.put(hashOf("eins"), body);
    store.put(hashOf("leer"), "");
    EXPECT_EQ(store.get(hashOf("eins")), body);
    store.flush(false);
  }
  ByteStore store(path());
  EXPECT_EQ(store.get(hashOf("eins")), body);
  EXPECT_EQ(store.get(hashOf("leer")), "");
  EXPECT_EQ(store.get(hashOf("zwei")), std::nullopt);
}

TEST_F(ByteStoreTest, replaces_what_was_put_before)
{
  ByteStore store(path());
  store.put(hashOf("a"), "alt");
  store.put(hashOf("a"), "neu");
  store.flush(false);
  EXPECT_EQ(store.get(hashOf("a")), "neu");
}

TEST_F(ByteStoreTest, forgets_what_nobody_used)
{
  {
    ByteStore store(path());
    for (const char* name : {"gelesen", "geschrieben", "vergessen"})
      store.put(hashOf(name), name);
    store.flush(true);
  }
  {
    ByteStore store(path());
    store.get(hashOf("gelesen"));
    store.put(hashOf("geschrieben"), "neu");
    store.flush(true);
  }
  ByteStore store(path());
  EXPECT_EQ(store.get(hashOf("gelesen")), "gelesen");
  EXPECT_EQ(store.get(hashOf("geschrieben")), "neu");
  EXPECT_EQ(store.get(hashOf("vergessen")), std::nullopt);
}

TEST_F(ByteStoreTest, begins_anew_where_the_file_is_something_else)
{
  directory.write("ablage.cache", "kein Speicher");
  ByteStore store(path());
  EXPECT_EQ(store.get(hashOf("a")), std::nullopt);
  store.put(hashOf("a"), "b");
  store.flush(false);

  ByteStore again(path());
  EXPECT_EQ(again.get(hashOf("a")), "b");
}

TEST_F(ByteStoreTest, never_gives_back_damaged_bytes)
{
  {
    ByteStore store(path());
    for (int i = 0; i < 50; ++i)
      store.put(hashOf(std::to_string(i)), std::to_string(i) + std::string(5000, 'x'));
    store.flush(false);
  }
  const std::string whole = directory.read("ablage.cache");
  for (std::size_t round = 0; round < 60; ++round) {
    std::string damaged = whole;
    for (std::size_t at = round * 37; at < damaged.size(); at += 1999)
      damaged[at] = static_cast<char>(damaged[at] ^ 0x55);
    directory.write("ablage.cache", round % 3 == 0 ? damaged.substr(0, damaged.size() / (round + 2)) : damaged);
    ByteStore store(path());
    for (int i = 0; i < 50; ++i) {
      const auto found = store.get(hashOf(std::to_string(i)));
      EXPECT_TRUE(!found || *found == std::to_string(i) + std::string(5000, 'x'));
    }
    store.put(hashOf("neu"), "neu");
    store.flush(round % 2 == 0);
    EXPECT_EQ(store.get(hashOf("neu")), "neu") << round;
  }
}

TEST_F(ByteStoreTest, behaves_like_an_empty_one_where_it_cannot_be_opened)
{
  for (const auto& place : {directory.path(), directory.file("fehlt\\ablage.cache"), std::string()}) {
    ByteStore store(place);
    EXPECT_EQ(store.get(hashOf("a")), std::nullopt);
    store.put(hashOf("a"), "b");
    store.flush(true);
  }
}

TEST_F(ByteStoreTest, begins_anew_where_the_file_is_a_database_of_another_kind)
{
  runPlainSql(directory, "ablage.cache", "CREATE TABLE entry (key TEXT)");
  ByteStore store(path());
  EXPECT_EQ(store.get(hashOf("a")), std::nullopt);
  store.put(hashOf("a"), "b");
  store.flush(false);
  EXPECT_EQ(store.get(hashOf("a")), "b");
}

} // namespace
} // namespace mrd::dao
