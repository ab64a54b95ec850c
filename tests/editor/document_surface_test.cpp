#include "editor/document_surface.h"

#include <gtest/gtest.h>

namespace mrd::editor {
namespace {

TEST(DocumentSurface, begins_with_an_empty_body_and_is_never_busy)
{
  const DocumentSurface surface;

  EXPECT_EQ(surface.bodyInnerHtml(), "");
  EXPECT_FALSE(surface.busy());
}

TEST(DocumentSurface, shows_the_body_of_a_whole_document)
{
  DocumentSurface surface;

  surface.setDocumentHtml("<html><head><title>T</title></head><body><p>Text</p></body></html>");

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Text</p>");
}

TEST(DocumentSurface, shows_a_body_that_comes_without_a_document_around_it)
{
  DocumentSurface surface;

  surface.setDocumentHtml("<h3 id=ueberschrift>Haus</h3>\n<p>Text");

  EXPECT_EQ(surface.bodyInnerHtml(), "<h3 id=\"ueberschrift\">Haus</h3>\r\n<p>Text</p>");
}

TEST(DocumentSurface, forgets_all_with_a_new_document)
{
  DocumentSurface surface;
  surface.setDocumentHtml("<p id=\"ueberschrift\">Text</p>");

  surface.newDocument();

  EXPECT_EQ(surface.bodyInnerHtml(), "");
  EXPECT_EQ(surface.textOfElement("ueberschrift"), std::nullopt);
}

TEST(DocumentSurface, finds_the_text_of_the_first_element_with_an_id)
{
  DocumentSurface surface;
  surface.setBodyInnerHtml("<div><p id=\"ueberschrift\">Haus <b>am Meer</b></p></div><p id=\"ueberschrift\">zwei</p>");

  EXPECT_EQ(surface.textOfElement("ueberschrift"), "Haus am Meer");
  EXPECT_EQ(surface.textOfElement("Ueberschrift"), std::nullopt);
}

TEST(DocumentSurface, has_its_cursor_in_the_body_and_in_no_heading)
{
  DocumentSurface surface;
  surface.setBodyInnerHtml("<p id=\"ueberschrift\">Haus</p>");

  surface.clearSelection();

  EXPECT_EQ(surface.textAroundCursor("ueberschrift"), std::nullopt);
}

TEST(DocumentSurface, runs_no_script_of_a_page)
{
  DocumentSurface surface;

  surface.setDocumentHtml("<p>Text</p><script>document.body.innerHTML = 'weg'</script>");

  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Text</p><script>document.body.innerHTML = 'weg'</script>");
}

} // namespace
} // namespace mrd::editor
