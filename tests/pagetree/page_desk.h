#pragma once
// A page store at work on a temporary project: every part of the main window that it needs, with what it did to them written
// down.

#include "editor/document_surface.h"
#include "pagetree/page_id.h"
#include "pagetree/page_store.h"
#include "pagetree/plain_tree.h"
#include "support/test_program.h"

#include <string>
#include <vector>

namespace mrd::pagetree {

/// A clock that stands still.
struct FixedClock : base::Clock {
  base::DateTime moment{2003, 4, 17, 9, 5, 6};
  base::DateTime now() const override { return moment; }
};

/// The screenless surface with a cursor that a test can put into the heading, and a document that takes its time to load.
struct ObservedSurface : editor::DocumentSurface {
  std::optional<std::string> headingAroundCursor;
  mutable int busyFor = 0;
  int focused = 0, selectionsCleared = 0;

  std::optional<std::string> textAroundCursor(std::string_view id) const override
  {
    return headingAroundCursor ? headingAroundCursor : DocumentSurface::textAroundCursor(id);
  }
  bool busy() const override { return busyFor > 0 && busyFor-- > 0; }
  void clearSelection() override { ++selectionsCleared; }
  void setFocus() override { ++focused; }
};

struct PageDesk {
  explicit PageDesk(std::initializer_list<support::Page> pages) : project(pages) { fillTree(tree, project.db()); }

  PageWindowHooks hooks()
  {
    return {[this] { calls.emplace_back("farbenaktualisieren"); }, [this] { calls.emplace_back("WriteExpandedNodes"); },
            [this] {
              calls.emplace_back("ZeigeStruktur");
              fillTree(tree, project.db());
            }};
  }

  std::string text(std::string_view id, std::string_view column) { return project.column(id, column).text(); }

  support::TemporaryProject project;
  support::TestProgram program;
  FixedClock clock;
  ObservedSurface surface;
  PlainTree tree;
  ActivePage active{project.db(), tree, program.ui};
  PageFields fields;
  /// What the store asked of the window, in order.
  std::vector<std::string> calls;
  PageStore store{{project.db(), program.language, clock, surface, tree, active}, fields, hooks()};
};

} // namespace mrd::pagetree
