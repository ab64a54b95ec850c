#include "generator/body_rewriter.h"

#include "base/windows1252.h"
#include "generator/site_run.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <thread>

namespace mrd::generator {
namespace {

using testing::ElementsAre;

BodySource sourceOf(std::string html, std::string script = {})
{
  return {std::move(html), std::move(script), {"\\site\\", "", "http://x.example/"}};
}

TEST(BodyRewriting, gives_the_body_in_output_bytes_with_its_pictures)
{
  const auto body = rewriteBody(sourceOf("<P>Dünen ♥<IMG SRC='file:///a/B.jpg'>"));

  EXPECT_EQ(body.bytes, "<p>D\xFCnen &#9829;<img src=\"pix/b.jpg\"></p>");
  ASSERT_EQ(body.found.uses.size(), 1u);
  EXPECT_EQ(body.found.uses[0].fileName(), "b.jpg");
}

TEST(BodyRewriting, lets_a_script_that_leaves_the_head_spill_into_the_body)
{
  EXPECT_EQ(rewriteBody(sourceOf("<p>a", "<script>x</script>")).bytes, "<p>a</p>");
  EXPECT_EQ(rewriteBody(sourceOf("<p>a", "Text im Kopf")).bytes, "Text im Kopf<p>a</p>");
}

TEST(BodyRewriting, is_the_same_on_any_thread)
{
  const auto expected = rewriteBody(sourceOf("<table><tr><td><img src='a.jpg'>")).bytes;
  std::vector<std::string> found(4);
  {
    std::vector<std::jthread> threads;
    for (auto& one : found)
      threads.emplace_back([&one] {
        for (int i = 0; i < 50; ++i)
          one = rewriteBody(sourceOf("<table><tr><td><img src='a.jpg'>")).bytes;
      });
  }
  EXPECT_THAT(found, testing::Each(expected));
}

struct BodyCacheTest : testing::Test {
  support::TemporaryDirectory directory;
  const std::string path = directory.file("projekt.cache");

  static RewrittenBody someBody()
  {
    RewrittenBody body;
    body.bytes = std::string("<p>\xFC\0</p>", 9);
    body.found.uses = {{"\\a\\", "B", "jpg", true}, {"http:\\\\y\\", "c", "", false}};
    body.found.slashAppended = true;
    body.found.dependsOnMissingSlash = true;
    return body;
  }
};

TEST_F(BodyCacheTest, gives_back_in_a_later_run_what_an_earlier_one_kept)
{
  const auto key = BodyCache::keyOf(sourceOf("a"));
  {
    BodyCache cache(path);
    EXPECT_FALSE(cache.get(key));
    cache.put(key, someBody());
    cache.flush(true);
  }

  BodyCache cache(path);
  const auto body = cache.get(key);

  ASSERT_TRUE(body);
  EXPECT_EQ(body->bytes, someBody().bytes);
  ASSERT_EQ(body->found.uses.size(), 2u);
  EXPECT_EQ(body->found.uses[0].verzeichnis, "\\a\\");
  EXPECT_EQ(body->found.uses[0].name, "B");
  EXPECT_TRUE(body->found.uses[0].enter);
  EXPECT_EQ(body->found.uses[1].erweiterung, "");
  EXPECT_FALSE(body->found.uses[1].enter);
  EXPECT_TRUE(body->found.slashAppended);
  EXPECT_TRUE(body->found.dependsOnMissingSlash);
}

TEST_F(BodyCacheTest, tells_sources_apart_by_all_that_a_body_depends_on)
{
  const auto base = BodyCache::keyOf(sourceOf("a", "b"));

  EXPECT_EQ(BodyCache::keyOf(sourceOf("a", "b")), base);
  EXPECT_NE(BodyCache::keyOf(sourceOf("ab", "")), base);
  EXPECT_NE(BodyCache::keyOf(sourceOf("", "ab")), base);
  EXPECT_NE(BodyCache::keyOf({"a", "b", {"\\andere\\", "", "http://x.example/"}}), base);
  EXPECT_NE(BodyCache::keyOf({"a", "b", {"\\site\\", "http://z.example/", "http://x.example/"}}), base);
}

TEST_F(BodyCacheTest, of_random_bytes_or_a_directory_is_empty_and_no_failure)
{
  directory.write("projekt.cache", std::string(5000, '\x7f'));
  BodyCache damaged(path);
  EXPECT_FALSE(damaged.get(BodyCache::keyOf(sourceOf("a"))));
  EXPECT_NO_THROW(damaged.flush(true));

  directory.write("ordner/x", "");
  BodyCache directoryInstead(directory.file("ordner"));
  directoryInstead.put(BodyCache::keyOf(sourceOf("a")), someBody());
  EXPECT_NO_THROW(directoryInstead.flush(true));
}

TEST_F(BodyCacheTest, that_was_cut_off_gives_whole_bodies_or_none)
{
  const auto key = BodyCache::keyOf(sourceOf("a"));
  {
    BodyCache cache(path);
    cache.put(key, someBody());
    cache.flush(true);
  }
  const auto whole = directory.read("projekt.cache");

  for (std::size_t length = 0; length < whole.size(); length += whole.size() / 60 + 1) {
    directory.write("projekt.cache", whole.substr(0, length));
    BodyCache cache(path);
    if (const auto body = cache.get(key)) {
      EXPECT_EQ(body->bytes, someBody().bytes) << length;
    }
  }
}

TEST(SideFile, may_be_removed_at_any_time)
{
  SiteRun site{{"00", "Start", "<P>a"}};
  site.run();
  const auto before = site.page("index.htm");
  for (const auto& entry : std::filesystem::directory_iterator(site.project.directory().native()))
    if (!entry.path().filename().string().starts_with("projekt.mdb") || entry.path().string().ends_with(".cache"))
      std::filesystem::remove(entry.path());

  site.run();

  EXPECT_EQ(site.page("index.htm"), before);
}

} // namespace
} // namespace mrd::generator
