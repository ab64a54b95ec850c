#pragma once

#include "mainform/draft.h"
#include "mainform/editor_tabs.h"
#include "mainform/page_desk.h"

#include <memory>

namespace mrd::mainform {

/// Keeps a draft of the dirty page, and offers it when a project is opened that a crash has left one for. The page itself changes
/// only by SavePage. Programs that have the same project open leave each other's drafts alone.
class DraftKeeper {
public:
  /// How often a window calls Timer, in seconds.
  static constexpr int kIntervalSeconds = 3;

  DraftKeeper(ProjectFrame& project, PageDesk& pages, EditorTabs& tabs) : project_(project), pages_(pages), tabs_(tabs) {}

  /// Writes the draft if the page has changed since the last one.
  void Timer();
  /// Offers what is left of the last sessions (message 114) and puts it into the editor on Yes; No throws it away, and any other
  /// answer leaves it for the next time.
  void offer();
  /// The page has been saved, or its changes were given up.
  void forget();

private:
  Draft present() const;
  void restore(const Draft& draft);
  /// Opens the draft's page, or makes it anew where the table lacks it.
  void openPage(const Draft& draft);

  ProjectFrame& project_;
  PageDesk& pages_;
  EditorTabs& tabs_;
  /// The file of this program's draft, while there is one.
  std::unique_ptr<DraftFile> file_;
  unsigned long draftedChanges_ = 0;
  bool writing_ = false;
};

} // namespace mrd::mainform
