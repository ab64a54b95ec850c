#include "generator/templates/xml_layout.h"

#include "support/temporary.h"

#include <gmock/gmock.h>

namespace mrd::templates {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A layout file's tree.
struct LayoutFile {
  support::TemporaryDirectory directory;
  Template node;
  bool loaded = false;

  explicit LayoutFile(std::string_view bytes)
  {
    directory.write("a.xml", bytes);
    loaded = LadeAusDatei(node, directory.file("a.xml"));
  }
};

/// "depth name flags code|codeactive", a line a node.
void describe(const Template& node, int depth, std::vector<std::string>& out)
{
  for (const auto& child : node.Children) {
    const auto flags =
        std::string(child->isMenuitem ? "M" : "") + (child->isActiveMenuitem ? "A" : "") + (child->isShowChildren ? "S" : "");
    out.push_back(std::to_string(depth) + " " + child->TemplateName + " " + flags + " " + child->Code + "|" + child->CodeActive);
    describe(*child, depth + 1, out);
  }
}

std::vector<std::string> tree(std::string_view bytes)
{
  const LayoutFile file(bytes);
  EXPECT_TRUE(file.loaded);
  std::vector<std::string> out;
  describe(file.node, 1, out);
  return out;
}

TEST(LayoutFile, becomes_a_tree)
{
  EXPECT_THAT(tree("<root name='L'>"
                   "<template name='kopf'><code>A</code></template>"
                   "<template name='m1' ismenuitem='true' isactivemenuitem='true' "
                   "showchildren='true'><code>B</code><codeactive>C</codeactive>"
                   "<template name='m2' ismenuitem='true'><code>D</code></template></template>"
                   "</root>"),
              ElementsAre("1 kopf  A|", "1 m1 MAS B|C", "2 m2 M D|"));
}

TEST(LayoutFile, takes_true_in_any_case_and_nothing_else_for_true)
{
  EXPECT_THAT(tree("<root><template ismenuitem='TRUE' isactivemenuitem='True' showchildren='tRuE'><code>x</code></template>"
                   "<template ismenuitem='1' isactivemenuitem='yes' showchildren=''><code>x</code></template>"
                   "<template ismenuitem=' true' isactivemenuitem='wahr' showchildren='false'><code>x</code></template></root>"),
              ElementsAre("1  MAS x|", "1   x|", "1   x|"));
}

TEST(LayoutFile, knows_attributes_in_lower_case_and_no_others)
{
  EXPECT_THAT(tree("<root><template Name='a' isMenuItem='true' class='x' key='k'><code>x</code></template></root>"),
              ElementsAre("1   x|"));
}

TEST(LayoutFile, skips_templates_without_content)
{
  EXPECT_THAT(tree("<root><template name='a'/><template name='b'></template><template name='c'>  \n </template>"
                   "<template name='d'><code/></template></root>"),
              ElementsAre("1 d  |"));
}

TEST(LayoutFile, takes_a_template_with_a_comment_alone)
{
  EXPECT_THAT(tree("<root><template name='a' ismenuitem='true'><!-- walks a level --></template></root>"),
              ElementsAre("1 a M |"));
}

TEST(LayoutFile, ignores_other_elements)
{
  EXPECT_THAT(tree("<root><info>x</info><Template name='a'><code>x</code></Template>text"
                   "<template name='b'><note>y</note><Code>z</Code><code>x</code></template></root>"),
              ElementsAre("1 b  x|"));
}

TEST(LayoutFile, sets_the_roots_own_code)
{
  const LayoutFile file("<root name='L'><code>A</code><codeactive>B</codeactive></root>");

  EXPECT_EQ(file.node.Code, "A");
  EXPECT_EQ(file.node.CodeActive, "B");
  EXPECT_FALSE(file.node.hasChildren());
  EXPECT_EQ(file.node.TemplateName, "");
}

TEST(LayoutFile, counts_the_last_of_several_codes)
{
  EXPECT_THAT(tree("<root><template><code>A</code><code>B</code></template><template><code>A</code><code/></template></root>"),
              ElementsAre("1   B|", "1   |"));
}

TEST(LayoutFile, takes_html_as_character_data_or_escaped)
{
  EXPECT_THAT(tree("<root><template><code><![CDATA[<a href='[mrd:ID]'>&amp;</a>]]></code>"
                   "<codeactive>&lt;b&gt;[mrd:Überschrift] &amp;nbsp;&lt;/b&gt;</codeactive></template></root>"),
              ElementsAre("1   <a href='[mrd:ID]'>&amp;</a>|<b>[mrd:Überschrift] &nbsp;</b>"));
}

TEST(LayoutFile, keeps_blanks_and_writes_line_ends_as_cr_lf)
{
  EXPECT_THAT(tree("<root><template><code>\n  x\n  <![CDATA[ y\n]]></code></template></root>"),
              ElementsAre("1   \r\n  x\r\n   y\r\n|"));
}

TEST(LayoutFile, loses_the_tags_of_html_that_is_neither)
{
  EXPECT_THAT(tree("<root><template><code>1<b>2</b>3</code></template></root>"), ElementsAre("1   123|"));
}

TEST(LayoutFile, with_another_document_element_gives_nothing)
{
  EXPECT_THAT(tree("<layout><template><code>x</code></template></layout>"), IsEmpty());
}

TEST(LayoutFile, opens_a_root_within_a_template)
{
  EXPECT_THAT(
      tree("<root><template name='a'><root><code>x</code><template name='b'><code>y</code></template></root></template></root>"),
      ElementsAre("1 a  x|", "2 b  y|"));
}

TEST(LayoutFile, that_is_not_well_formed_leaves_the_node)
{
  const support::TemporaryDirectory directory;
  directory.write("a.xml", "<root><code>neu</code><template><code>x</code></template>");
  Template node;
  node.Code = "alt";

  EXPECT_FALSE(LadeAusDatei(node, directory.file("a.xml")));
  EXPECT_FALSE(LadeAusDatei(node, directory.file("fehlt.xml")));

  EXPECT_EQ(node.Code, "alt");
  EXPECT_FALSE(node.hasChildren());
}

TEST(LayoutFile, adds_to_the_children_that_are_there)
{
  const support::TemporaryDirectory directory;
  directory.write("a.xml", "<root><template name='a'><code>x</code></template></root>");
  Template node;

  LadeAusDatei(node, directory.file("a.xml"));
  LadeAusDatei(node, directory.file("a.xml"));

  EXPECT_EQ(node.Children.Count(), 2u);
}

struct Folder : testing::Test {
  support::TemporaryDirectory directory;

  LayoutFolder read() const { return readLayoutFolder(directory.path()); }
  std::vector<std::string> layouts() const
  {
    std::vector<std::string> out;
    for (const auto& layout : read().layouts)
      out.push_back(layout.name + " (" + layout.file + ")");
    return out;
  }
};

TEST_F(Folder, lists_layouts_by_their_file_names)
{
  directory.write("b.xml", "<root name='Zweites'/>");
  directory.write("a.xml", "<root name='Erstes'/>");

  EXPECT_TRUE(read().hasFiles);
  EXPECT_THAT(layouts(), ElementsAre("Erstes (a.xml)", "Zweites (b.xml)"));
}

TEST_F(Folder, lists_layouts_of_the_same_name)
{
  directory.write("a.xml", "<root name='Gleich'/>");
  directory.write("b.xml", "<root name='Gleich'/>");

  EXPECT_THAT(layouts(), ElementsAre("Gleich (a.xml)", "Gleich (b.xml)"));
}

TEST_F(Folder, never_lists_the_reserved_file)
{
  directory.write("_layouts.xml", "<root name='Liste'/>");

  EXPECT_TRUE(read().hasFiles);
  EXPECT_THAT(layouts(), IsEmpty());
}

TEST_F(Folder, skips_files_without_a_root)
{
  directory.write("a.xml", "<layout name='A'/>");
  directory.write("b.xml", "<Root name='B'/>");
  directory.write("c.xml", "<root name='C'/>");

  EXPECT_THAT(layouts(), ElementsAre("C (c.xml)"));
  EXPECT_THAT(read().malformed, IsEmpty());
}

TEST_F(Folder, skips_a_root_without_a_name)
{
  directory.write("a.xml", "<root><code>x</code></root>");

  EXPECT_THAT(layouts(), IsEmpty());
}

TEST_F(Folder, names_files_that_are_not_well_formed)
{
  directory.write("a.xml", "<root name='A'>");
  directory.write("b.xml", "");
  directory.write("c.xml", "<root name='C'/>");

  EXPECT_THAT(layouts(), ElementsAre("C (c.xml)"));
  EXPECT_THAT(read().malformed, ElementsAre("a.xml", "b.xml"));
}

TEST_F(Folder, looks_at_xml_files_alone)
{
  directory.write("a.txt", "<root name='A'/>");
  directory.write("axml", "<root name='A'/>");
  directory.write("pix/a.gif", "gif");
  directory.write("d.xml/inside.xml", "<root name='A'/>");

  EXPECT_FALSE(read().hasFiles);
  EXPECT_THAT(layouts(), IsEmpty());
}

TEST_F(Folder, takes_the_extension_in_any_case)
{
  directory.write("A.XML", "<root name='A'/>");

  EXPECT_THAT(layouts(), ElementsAre("A (A.XML)"));
}

TEST_F(Folder, that_is_missing_or_empty_has_nothing)
{
  EXPECT_FALSE(read().hasFiles);
  EXPECT_FALSE(readLayoutFolder(directory.file("nirgends")).hasFiles);
}

} // namespace
} // namespace mrd::templates
