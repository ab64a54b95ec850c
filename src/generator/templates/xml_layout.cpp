#include "generator/templates/xml_layout.h"

#include "base/text.h"
#include "platform/files/files.h"

namespace mrd::templates {
namespace {

constexpr std::string_view kReserved = "_layouts.xml";

bool isTrue(const xml::Element& element, std::string_view attribute)
{
  return base::lower(element.attribute(attribute)) == "true";
}

std::unique_ptr<Template> nodeOf(const xml::Element& element)
{
  auto node = std::make_unique<Template>();
  node->TemplateName = element.attribute("name");
  node->isMenuitem = isTrue(element, "ismenuitem");
  node->isActiveMenuitem = isTrue(element, "isactivemenuitem");
  node->isShowChildren = isTrue(element, "showchildren");
  Nodeoutput(*node, element.children);
  return node;
}

/// The first element named `root` in reading order; the document element as a rule.
const xml::Element* findRoot(const xml::Element& element)
{
  if (element.name == "root")
    return &element;
  for (const auto& child : element.children)
    if (const auto* const found = findRoot(child))
      return found;
  return nullptr;
}

} // namespace

bool LadeAusDatei(Template& node, std::string_view datei)
{
  const auto document = xml::loadXml(datei);
  if (document)
    Nodeoutput(node, {*document});
  return document.has_value();
}

void Nodeoutput(Template& node, const std::vector<xml::Element>& nodes)
{
  for (const auto& element : nodes) {
    if (element.name == "code")
      node.Code = element.textContent();
    else if (element.name == "codeactive")
      node.CodeActive = element.textContent();
    if (!element.hasChildNodes)
      continue;
    if (element.name == "root")
      Nodeoutput(node, element.children);
    else if (element.name == "template")
      node.Children.Add(nodeOf(element));
  }
}

LayoutFolder readLayoutFolder(std::string_view directory)
{
  LayoutFolder folder;
  for (const auto& file : files::fileNames(directory)) {
    if (!base::lower(file).ends_with(".xml"))
      continue;
    folder.hasFiles = true;
    if (file == kReserved)
      continue;
    const auto document = xml::loadXml(std::string(directory) + "\\" + file);
    if (!document)
      folder.malformed.push_back(file);
    else if (const xml::Element* const root = findRoot(*document); root && root->attributes.contains("name"))
      folder.layouts.push_back({std::string(root->attribute("name")), file});
  }
  return folder;
}

} // namespace mrd::templates
