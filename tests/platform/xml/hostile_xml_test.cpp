// Files that no author of layouts writes. None of them may cost more than the moment that reading them takes.

#include "platform/xml/xml_document.h"

#include "base/text.h"
#include "support/temporary.h"

#include <gmock/gmock.h>

#include <chrono>
#include <filesystem>
#include <sys/resource.h>

namespace mrd::xml {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr std::chrono::seconds kPatience{20};

struct HostileXml : testing::Test {
  const std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
  support::TemporaryDirectory directory;

  std::optional<Element> loaded(std::string_view bytes) const
  {
    directory.write("a.xml", bytes);
    return loadXml(directory.file("a.xml"));
  }

  /// Text and attribute `n` of the document element; empty for a file that is nothing.
  std::string read(std::string_view bytes) const
  {
    const auto root = loaded(bytes);
    return root ? root->textContent() + std::string(root->attribute("n")) : std::string();
  }

  void TearDown() override { EXPECT_LT(std::chrono::steady_clock::now() - start, kPatience); }
};

std::string repeated(std::string_view text, std::size_t count)
{
  std::string out;
  out.reserve(text.size() * count);
  for (std::size_t i = 0; i < count; ++i)
    out += text;
  return out;
}

/// The most memory that the process has had.
long peakKb()
{
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

std::string nested(int depth)
{
  const auto count = static_cast<std::size_t>(depth);
  return repeated("<t>", count) + "x" + repeated("</t>", count);
}

TEST_F(HostileXml, that_is_empty_is_nothing)
{
  EXPECT_FALSE(loaded(""));
  EXPECT_FALSE(loaded("   \r\n"));
  EXPECT_FALSE(loaded("\xEF\xBB\xBF"));
  EXPECT_FALSE(loaded("<?xml version='1.0'?>"));
  EXPECT_FALSE(loaded("<!-- only -->"));
}

TEST_F(HostileXml, that_is_binary_is_nothing)
{
  std::string bytes;
  for (int i = 0; i < 100'000; ++i)
    bytes += static_cast<char>((i * 7919) >> 3);
  EXPECT_FALSE(loaded(bytes));
  EXPECT_FALSE(loaded(std::string(4096, '\0')));
  EXPECT_FALSE(loaded(std::string(4096, '\xff')));
  EXPECT_FALSE(loaded("\xFF\xFE"));
  EXPECT_FALSE(loaded("\xFE\xFF<"));
}

TEST_F(HostileXml, with_a_zero_byte_inside_is_nothing) { EXPECT_FALSE(loaded(std::string("<a>x\0y</a>", 10))); }

TEST_F(HostileXml, that_is_not_well_formed_is_nothing)
{
  for (const auto* text : {"text",
                           "<a>",
                           "<a></b>",
                           "<a/><b/>",
                           "<a><b></a></b>",
                           "<a x></a>",
                           "<a x=1/>",
                           "<a x='1' x='2'/>",
                           "<a>&</a>",
                           "<a>&unknown;</a>",
                           "<a>x < y</a>",
                           "<a/>x",
                           "x<a/>",
                           "<a><![CDATA[x</a>",
                           "<a><!-- x</a>",
                           "<a>&#0;</a>",
                           "<a n='<'/>",
                           "<a>&#xFFFFFFFFF;</a>",
                           "<a>]]></a>",
                           "<a",
                           "<",
                           "< a/>",
                           "<a><!-- x -- y --></a>",
                           "<1/>",
                           " <?xml version='1.0'?><a/>"})
    EXPECT_FALSE(loaded(text)) << text;
}

TEST_F(HostileXml, in_an_encoding_that_its_bytes_deny_is_read_as_its_bytes_say)
{
  EXPECT_EQ(read("<?xml version='1.0' encoding='UTF-8'?><a>K\xFC"
                 "che</a>"),
            "Küche");
  EXPECT_EQ(read("<?xml version='1.0' encoding='windows-1252'?><a>Küche</a>"), "Küche");
  EXPECT_EQ(read("<?xml version='1.0' encoding='UTF-16'?><a>Küche</a>"), "Küche");
  EXPECT_EQ(read("<?xml version='1.0' encoding='klingon'?><a>Küche</a>"), "Küche");
}

TEST_F(HostileXml, with_broken_utf8_gives_whole_characters)
{
  for (const auto* text : {"<a>x\xED\xA0\x80</a>", "<a>x\xC0\xBC</a>", "<a>x\xF8\x88\x80\x80\x80</a>", "<a n='x\xC3'/>"})
    EXPECT_TRUE(base::isValidUtf8(read(text))) << text;
}

TEST_F(HostileXml, of_a_million_nested_elements_is_nothing) { EXPECT_FALSE(loaded(nested(1'000'000))); }

TEST_F(HostileXml, of_a_million_nested_elements_that_are_never_closed_is_nothing)
{
  EXPECT_FALSE(loaded(repeated("<t>", 1'000'000)));
}

TEST_F(HostileXml, may_be_nested_to_the_limit_and_no_deeper)
{
  EXPECT_TRUE(loaded(nested(kMaxDepth)));
  EXPECT_FALSE(loaded(nested(kMaxDepth + 1)));
}

TEST_F(HostileXml, of_a_million_elements_beside_each_other_is_read)
{
  const auto root = loaded("<r>" + repeated("<t/>", 1'000'000) + "</r>");

  ASSERT_TRUE(root);
  EXPECT_EQ(root->children.size(), 1'000'000u);
}

TEST_F(HostileXml, with_a_deep_tree_of_long_texts_is_read_in_time)
{
  constexpr std::size_t kDepth = 400;
  const auto text = repeated("0123456789", 100);
  std::string bytes;
  for (std::size_t i = 0; i < kDepth; ++i)
    bytes += "<t>" + text;
  const auto root = loaded(bytes + repeated("</t>", kDepth));

  ASSERT_TRUE(root);
  EXPECT_EQ(root->textContent().size(), kDepth * text.size());
}

TEST_F(HostileXml, with_a_long_text_deep_inside_takes_memory_by_the_files_length)
{
  constexpr long kReasonableKb = 300'000;
  constexpr std::size_t kDepth = 490, kTextLength = 2'000'000;
  const auto bytes = repeated("<t>", kDepth) + std::string(kTextLength, 'x') + repeated("</t>", kDepth);
  const long before = peakKb();

  loaded(bytes);

  EXPECT_LT(peakKb() - before, kReasonableKb);
}

TEST_F(HostileXml, with_entities_that_grow_without_bounds_never_expands_them)
{
  std::string bytes = "<?xml version='1.0'?><!DOCTYPE r [<!ENTITY e0 'lachen'>";
  for (int i = 1; i < 12; ++i) {
    const auto earlier = "&e" + std::to_string(i - 1) + ";";
    bytes += "<!ENTITY e" + std::to_string(i) + " '" + repeated(earlier, 10) + "'>";
  }
  EXPECT_THAT(read(bytes + "]><r>&e11;</r>"), Not(HasSubstr("lachen")));
}

TEST_F(HostileXml, with_a_long_entity_many_times_never_expands_it)
{
  const auto declaration = "<!DOCTYPE r [<!ENTITY e '" + repeated("lachen", 20'000) + "'>]>";

  EXPECT_THAT(read(declaration + "<r>" + repeated("&e;", 20'000) + "</r>"), Not(HasSubstr("lachen")));
}

TEST_F(HostileXml, with_an_entity_of_its_own_never_expands_it)
{
  EXPECT_THAT(read("<!DOCTYPE r [<!ENTITY e 'lachen'>]><r n='&e;'>&e;</r>"), Not(HasSubstr("lachen")));
}

TEST_F(HostileXml, with_entities_in_a_circle_never_expands_them)
{
  EXPECT_LT(read("<!DOCTYPE r [<!ENTITY a '&b;'><!ENTITY b '&a;'>]><r>&a;</r>").size(), 100u);
}

TEST_F(HostileXml, never_reads_other_files)
{
  directory.write("geheim.txt", "geheim");
  const auto path = (directory.native() / "geheim.txt").string();

  for (const std::string& declaration :
       {"<!ENTITY e SYSTEM 'file://" + path + "'>", std::string("<!ENTITY e SYSTEM 'geheim.txt'>"),
        "<!ENTITY % p SYSTEM 'file://" + path + "'> %p;"})
    EXPECT_THAT(read("<!DOCTYPE r [" + declaration + "]><r>&e;</r>"), Not(HasSubstr("geheim"))) << declaration;
}

TEST_F(HostileXml, larger_than_any_layout_is_nothing)
{
  directory.write("a.xml", "<a>");
  std::filesystem::resize_file(directory.native() / "a.xml", 70ull << 20);

  EXPECT_FALSE(loadXml(directory.file("a.xml")));
}

} // namespace
} // namespace mrd::xml
