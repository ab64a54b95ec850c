#pragma once
// The two tab controls: page, source and settings on the right, tree and head of the site on the left.

#include "mainform/help.h"
#include "mainform/page_desk.h"

#include <functional>
#include <string_view>

namespace mrd::mainform {

/// Pages of `tabHtml`.
enum class HtmlTab : int { Editor = 0, Source = 1, Page = 2, Layout = 3, Export = 4, Other = 5 };
/// Pages of `TabTree`.
enum class TreeTab : int { Tree = 0, Head = 1 };

class EditorTabs {
public:
  struct Parts {
    ProjectFrame& project;
    PageDesk& pages;
    MainScreen& screen;
    Help& help;
  };
  EditorTabs(const Parts& parts, std::function<void()> farbenaktualisieren);

  /// The pages on top. A window sets the number and calls the procedure with the one before.
  int tabHtml = 0, TabTree = 0;

  /// Carries the text between page and source.
  void tabHtml_Click(int PreviousTab);
  /// Saves, and puts the head of the site or the page into the editor. A save that fails leaves the tab where it was.
  void TabTree_Click(int PreviousTab);

  /// Makes the page the tab on top, with what was typed in its source; false while that cannot be.
  bool showEditor();
  /// Makes the tree the tab on top; false when what the editor holds has to stay there.
  bool showTree();
  /// The head of the site in the editor in place of a page.
  void showHead();
  /// The fields of the page have been set from elsewhere.
  void showPage() { parts_.screen.refresh(Shown::Page); }
  /// A file outside the project has come or gone: the states of the tabs follow.
  void showKind();

private:
  void turn(int PreviousTab);
  void leaveEditor();
  void leaveSource();
  void backToTree();
  void waitForSurface();
  messages::Language& language() { return parts_.project.program().language; }

  const Parts parts_;
  const std::function<void()> farbenaktualisieren_;
};

/// The help page of a page of `tabHtml`.
std::string_view helpPageOf(int tab);

} // namespace mrd::mainform
