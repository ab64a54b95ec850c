#pragma once
// One page at a time: from the table into the editing surface and the page fields, and back.

#include "base/clock.h"
#include "frame/messages/messages.h"
#include "pagetree/active_page.h"
#include "platform/dao/database.h"
#include "platform/ui/editing_surface.h"
#include "platform/ui/tree_control.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace mrd::pagetree {

/// The fields of a page in the main window, under the names of its controls.
struct PageFields {
  /// The source text beside the editing surface.
  std::string tbhtml;
  std::string tbdateiname, tbScript, TBEbayArtikelnummer;
  /// The chosen page type, 1 to 4.
  int opseitentyp = 1;
  /// Caption of the window.
  std::string caption;
  /// First panel of the status bar.
  std::string statusPanel;
  /// What the editor shows: the site's head in place of a page, the source tab on top.
  bool headOnTop = false, sourceOnTop = false;
};

/// What the window does for the page store.
struct PageWindowHooks {
  /// Recolours the editing surface from the settings.
  std::function<void()> farbenaktualisieren = [] {};
  /// Stores which nodes are open, and rebuilds the tree from the table.
  std::function<void()> WriteExpandedNodes = [] {}, ZeigeStruktur = [] {};
};

class PageStore {
public:
  struct Parts {
    dao::Database& db;
    messages::Language& language;
    const base::Clock& clock;
    ui::EditingSurface& DHTMLEdit1;
    ui::TreeControl& TreeView1;
    ActivePage& active;
  };

  PageStore(const Parts& parts, PageFields& fields, PageWindowHooks hooks)
      : parts_(parts), fields_(fields), hooks_(std::move(hooks))
  {
  }

  /// Opens the page of the tree node with the key `node`; `Schluessel`, when not empty, is the id to take in its place. The page
  /// may have no row yet.
  void LoadPage(std::string_view node, std::string_view Schluessel = {});
  /// Stores the page with the key or id; nothing for an empty one. Has the standard failure handler; false when it failed.
  bool SavePage(std::string_view Schluessel);
  /// Makes a child of the current page, in the tree and the editor; the table gets it with the next SavePage. False when refused.
  bool AddNewPage();

private:
  void showStoredPage(dao::Recordset& row, std::string_view label);
  void showNewPage(std::string_view label);
  void startDocument(std::string_view labelledStart);
  void waitForDocument();
  void keepActive(const std::string& key);
  void save(std::string_view id);
  void saveHead();
  std::string heading() const;
  std::string nextChildKey(std::string_view parentKey);

  Parts parts_;
  PageFields& fields_;
  PageWindowHooks hooks_;
};

/// The heading element in front of a body that has none.
std::string withHeading(std::string_view html, std::string_view label);

} // namespace mrd::pagetree
