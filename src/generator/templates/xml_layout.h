#pragma once
// Layouts that users write: an XML file with the same tree as the built-in ones.

#include "generator/templates/template.h"
#include "platform/xml/xml_document.h"

#include <string>
#include <string_view>
#include <vector>

namespace mrd::templates {

/// Walks a layout file into the node. A file that is missing or not well-formed leaves the node as it was; false then.
bool LadeAusDatei(Template& node, std::string_view datei);

/// Walks an element's child elements into the node.
void Nodeoutput(Template& node, const std::vector<xml::Element>& nodes);

/// A layout file of the program directory.
struct UserLayout {
  std::string name, file;
};

/// What a directory (in the system's form, without a separator at its end) holds of layouts, sorted by file name. "_layouts.xml"
/// and files without a `root` element are none.
struct LayoutFolder {
  /// Any XML file lies there, be it a layout or not.
  bool hasFiles = false;
  std::vector<UserLayout> layouts;
  /// Names of files that are not well-formed.
  std::vector<std::string> malformed;
};
LayoutFolder readLayoutFolder(std::string_view directory);

} // namespace mrd::templates
