#include "generator/templates/built_in_trees.h"

#include "generator/site_run.h"
#include "generator/templates/tree_tables.h"

#include <gmock/gmock.h>

namespace mrd::templates {
namespace {

using generator::lines;

int flagsOf(std::string_view letters)
{
  int flags = 0;
  for (const auto& [letter, flag] : {std::pair{'M', M}, std::pair{'A', A}, std::pair{'S', S}})
    if (letters.find(letter) != letters.npos)
      flags |= flag;
  return flags;
}

class BuiltInTree : public testing::TestWithParam<const char*> {};

TEST_P(BuiltInTree, holds_node_by_node_what_sites_were_made_with)
{
  const auto tree = builtInTree(GetParam());
  const auto expected = expectedTree(GetParam());

  ASSERT_EQ(tree.size(), expected.size());
  for (std::size_t i = 0; i < tree.size(); ++i) {
    SCOPED_TRACE(expected[i].name);
    EXPECT_EQ(tree[i].depth, expected[i].depth);
    EXPECT_EQ(tree[i].TemplateName, expected[i].name);
    EXPECT_EQ(tree[i].flags, flagsOf(expected[i].flags));
    EXPECT_EQ(tree[i].Code, lines(expected[i].code));
    EXPECT_EQ(tree[i].CodeActive, lines(expected[i].codeActive));
  }
}

TEST_P(BuiltInTree, never_skips_a_depth)
{
  int depth = 0;
  for (const auto& node : builtInTree(GetParam())) {
    EXPECT_GE(node.depth, 1) << node.TemplateName;
    EXPECT_LE(node.depth, depth + 1) << node.TemplateName;
    depth = node.depth;
  }
}

TEST_P(BuiltInTree, holds_one_strip_starter_and_one_empty_banner)
{
  int banners = 0, starters = 0;
  for (const auto& node : builtInTree(GetParam())) {
    starters += node.TemplateName == kStartnavName;
    if (node.TemplateName == "mrdBanner") {
      ++banners;
      EXPECT_EQ(node.Code, "");
    }
  }
  EXPECT_EQ(banners, 1);
  EXPECT_EQ(starters, 1);
}

INSTANTIATE_TEST_SUITE_P(Layouts, BuiltInTree, testing::Values("tabnavigation", "einfachetabelle", "sparta"),
                         [](const auto& layout) { return std::string(layout.param); });

TEST(BuiltInTrees, are_three)
{
  EXPECT_EQ(builtInTree("tabnavigation").size(), 36u);
  EXPECT_EQ(builtInTree("einfachetabelle").size(), 12u);
  EXPECT_EQ(builtInTree("sparta").size(), 18u);
  for (const auto* name : {"", "navigationlinks", "Tabnavigation", "sparta.xml"})
    EXPECT_TRUE(builtInTree(name).empty()) << name;
}

TEST(BuiltInTrees, keep_their_misspelt_tags)
{
  EXPECT_TRUE(builtInTree("sparta").front().Code.starts_with("<hmtl>"));
  EXPECT_TRUE(builtInTree("sparta").back().Code.ends_with("</hmtl>"));
  EXPECT_TRUE(builtInTree("einfachetabelle").front().Code.starts_with("<hmtl>"));
  EXPECT_TRUE(kStartnav.ends_with("</SCRIPT >\r\n"));
}

TEST(BuiltInTrees, name_all_classes_of_the_stylesheet)
{
  const auto css = support::resourceText("web/mrddefault.css");
  for (const auto* name : {"tab1", "tab1aktiv", "tab1L", "tab1r", "tab1or", "tab1om", "tab1omaktiv", "tab1oraktiv", "tdl", "tdr",
                           "tdeckeo", "tdro", "tdul", "tdu", "tdur", "nav3", "nav3aktiv", "nav4", "nav4aktiv"})
    EXPECT_THAT(css, testing::ContainsRegex("\\." + std::string(name) + "[^A-Za-z0-9_-]")) << name;
}

} // namespace
} // namespace mrd::templates
