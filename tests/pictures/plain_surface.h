#pragma once

#include "editor/document_surface.h"

#include <string>
#include <string_view>

namespace mrd::pictures {

/// A surface that keeps what is written into it as it was written.
struct PlainSurface : editor::DocumentSurface {
  std::string bodyInnerHtml() const override { return body; }
  void setBodyInnerHtml(std::string_view html) override { body = html; }
  std::string body = "<p>da</p>";
};

} // namespace mrd::pictures
