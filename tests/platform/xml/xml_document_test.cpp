#include "platform/xml/xml_document.h"

#include "support/temporary.h"

#include <gmock/gmock.h>

namespace mrd::xml {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

std::optional<Element> loaded(std::string_view bytes)
{
  const support::TemporaryDirectory directory;
  directory.write("a.xml", bytes);
  return loadXml(directory.file("a.xml"));
}

/// The document element; an empty one, with a failure, where the bytes are no document.
Element element(std::string_view bytes)
{
  auto root = loaded(bytes);
  EXPECT_TRUE(root.has_value()) << bytes;
  return root.value_or(Element{});
}

std::string textOf(std::string_view bytes) { return element(bytes).textContent(); }

/// ASCII and Latin-1 characters, each in two bytes.
std::string utf16(std::u16string_view text, bool bigEndian)
{
  std::string bytes;
  for (const auto unit : text) {
    const auto low = static_cast<char>(unit & 0xff), high = static_cast<char>(unit >> 8);
    bytes += bigEndian ? high : low;
    bytes += bigEndian ? low : high;
  }
  return bytes;
}

TEST(Xml, gives_elements_with_their_attributes_in_their_order)
{
  const auto root = element("<root name='A' x=\"1\"><b/><a><c/></a><b/></root>");

  EXPECT_EQ(root.name, "root");
  EXPECT_THAT(root.attributes, ElementsAre(Pair("name", "A"), Pair("x", "1")));
  ASSERT_EQ(root.children.size(), 3u);
  EXPECT_EQ(root.children[0].name, "b");
  EXPECT_EQ(root.children[1].name, "a");
  EXPECT_EQ(root.children[1].children.at(0).name, "c");
  EXPECT_EQ(root.children[2].name, "b");
}

TEST(Xml, has_no_text_for_an_attribute_that_is_missing)
{
  const auto root = element("<root name='A'/>");

  EXPECT_EQ(root.attribute("name"), "A");
  EXPECT_EQ(root.attribute("Name"), "");
  EXPECT_EQ(root.attribute("other"), "");
}

TEST(Xml, tells_upper_from_lower_case)
{
  const auto root = element("<Root NAME='A' name='b'/>");

  EXPECT_EQ(root.name, "Root");
  EXPECT_EQ(root.attribute("name"), "b");
}

TEST(Xml, is_read_as_utf8_without_a_declaration) { EXPECT_EQ(textOf("<a>Übersicht ♥ 😀</a>"), "Übersicht ♥ 😀"); }

TEST(Xml, is_read_as_utf8_with_a_byte_order_mark) { EXPECT_EQ(textOf("\xEF\xBB\xBF<a>Küche</a>"), "Küche"); }

TEST(Xml, is_read_as_utf8_with_a_declaration)
{
  EXPECT_EQ(textOf("<?xml version='1.0' encoding='UTF-8'?>\n<a>Küche</a>"), "Küche");
}

TEST(Xml, is_read_as_utf16_in_both_byte_orders)
{
  constexpr std::u16string_view kText = u"\xFEFF<?xml version='1.0' encoding='UTF-16'?><a n='\u00DC'>K\u00FCche \u2665</a>";

  for (const bool bigEndian : {false, true}) {
    const auto root = element(utf16(kText, bigEndian));
    EXPECT_EQ(root.textContent(), "Küche ♥");
    EXPECT_EQ(root.attribute("n"), "Ü");
  }
}

TEST(Xml, is_read_as_latin1_with_a_declaration)
{
  EXPECT_EQ(textOf("<?xml version='1.0' encoding='ISO-8859-1'?><a>K\xFC"
                   "che</a>"),
            "Küche");
  EXPECT_EQ(textOf("<?xml version='1.0' encoding='iso-8859-1'?><a>K\xFC"
                   "che</a>"),
            "Küche");
}

TEST(Xml, is_read_as_windows1252_with_a_declaration)
{
  EXPECT_EQ(textOf("<?xml version='1.0' encoding='windows-1252'?><a>5 \x80 \x84K\xFC"
                   "che\x93</a>"),
            "5 € „Küche“");
}

TEST(Xml, that_is_no_utf8_is_read_as_windows1252_without_a_declaration)
{
  EXPECT_EQ(textOf("<a>5 \x80 K\xFC"
                   "che</a>"),
            "5 € Küche");
}

TEST(Xml, keeps_character_data_as_it_stands)
{
  EXPECT_EQ(textOf("<a><![CDATA[<b>&amp; \"x\" 'y' </b>]]></a>"), "<b>&amp; \"x\" 'y' </b>");
  EXPECT_EQ(textOf("<a><![CDATA[x]]]]><![CDATA[>y]]></a>"), "x]]>y");
}

TEST(Xml, resolves_escaped_text)
{
  EXPECT_EQ(textOf("<a>&lt;b&gt; &amp;amp; &quot;&apos; &#228; &#xE4; &#9829;</a>"), "<b> &amp; \"' ä ä ♥");
  EXPECT_EQ(element("<a n='&lt;&quot;&apos;&gt;'/>").attribute("n"), "<\"'>");
}

TEST(Xml, joins_escaped_text_and_character_data) { EXPECT_EQ(textOf("<a>x &lt; <![CDATA[<y>]]> z</a>"), "x < <y> z"); }

TEST(Xml, has_the_text_of_all_elements_inside) { EXPECT_EQ(textOf("<a>1<b>2<c>3</c></b>4<d/>5</a>"), "12345"); }

TEST(Xml, leaves_comments_and_instructions_out_of_the_text)
{
  const auto root = element("<?xml-stylesheet href='x'?><!-- v --><a>1<!-- <b/> -->2<?php echo ?>3</a><!-- n -->");

  EXPECT_EQ(root.textContent(), "123");
  EXPECT_THAT(root.children, IsEmpty());
}

TEST(Xml, keeps_blanks_and_tabs_around_text)
{
  EXPECT_EQ(textOf("<a>  x \t y  </a>"), "  x \t y  ");
  EXPECT_EQ(textOf("<a><![CDATA[  x ]]></a>"), "  x ");
}

TEST(Xml, writes_every_line_end_as_cr_lf)
{
  EXPECT_EQ(textOf("<a>1\n2\r\n3\r4</a>"), "1\r\n2\r\n3\r\n4");
  EXPECT_EQ(textOf("<a><![CDATA[1\n2\r\n3\r4\n\n]]></a>"), "1\r\n2\r\n3\r\n4\r\n\r\n");
}

TEST(Xml, has_no_child_nodes_where_nothing_or_blank_text_stands)
{
  EXPECT_FALSE(element("<a/>").hasChildNodes);
  EXPECT_FALSE(element("<a></a>").hasChildNodes);
  EXPECT_FALSE(element("<a>  \r\n\t </a>").hasChildNodes);
}

TEST(Xml, has_child_nodes_where_an_element_text_or_a_comment_stands)
{
  EXPECT_TRUE(element("<a><b/></a>").hasChildNodes);
  EXPECT_TRUE(element("<a> x </a>").hasChildNodes);
  EXPECT_TRUE(element("<a><![CDATA[x]]></a>").hasChildNodes);
  EXPECT_TRUE(element("<a><!-- x --></a>").hasChildNodes);
}

TEST(Xml, of_a_missing_file_is_nothing)
{
  const support::TemporaryDirectory directory;

  EXPECT_FALSE(loadXml(directory.file("a.xml")));
  EXPECT_FALSE(loadXml(directory.file("nirgends\\a.xml")));
  EXPECT_FALSE(loadXml(directory.path()));
  EXPECT_FALSE(loadXml(""));
}

TEST(Xml, is_found_whatever_the_case_of_its_path)
{
  const support::TemporaryDirectory directory;
  directory.write("Mein.XML", "<a/>");

  EXPECT_TRUE(loadXml(directory.file("mein.xml")));
}

} // namespace
} // namespace mrd::xml
