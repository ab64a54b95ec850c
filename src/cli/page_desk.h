#pragma once
// A project's pages as the main window works on them, over a surface and a tree that nobody sees.

#include "editor/document_surface.h"
#include "mainform/program.h"
#include "pagetree/page_store.h"
#include "pagetree/plain_tree.h"

#include <optional>
#include <string>

namespace mrd::cli {

class PageDesk {
public:
  static constexpr int kMessagePageMissing = 102;

  PageDesk(mainform::Program& program, dao::Database& db);

  /// Shows message 102 for a page that the project lacks.
  bool hasPage(const std::string& id);
  /// Opens a new child of the page; nothing when it is refused.
  std::optional<std::string> addChild(const std::string& parentId);
  std::string headingOf(const std::string& id) const;
  /// The page that is open after its tree has changed.
  void open(const std::string& id);
  void load(const std::string& id);
  /// False when the page could not be stored, which is shown.
  bool save(const std::string& id);

  editor::DocumentSurface& surface() { return surface_; }
  pagetree::PlainTree& tree() { return tree_; }
  pagetree::ActivePage& active() { return active_; }
  pagetree::PageFields& fields() { return fields_; }
  pagetree::PageStore& store() { return store_; }

private:
  messages::Language& language_;
  editor::DocumentSurface surface_;
  pagetree::PlainTree tree_;
  pagetree::ActivePage active_;
  pagetree::PageFields fields_;
  pagetree::PageStore store_;
};

} // namespace mrd::cli
