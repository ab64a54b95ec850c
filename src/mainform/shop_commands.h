#pragma once
// What the main window does for the shop's dialog, and the three buttons of pages for auctions.

#include "mainform/editor_tabs.h"
#include "mainform/page_desk.h"
#include "mainform/project_frame.h"
#include "platform/ui/clipboard.h"
#include "platform/ui/shell.h"
#include "shop/auction.h"
#include "shop/shop_form.h"

#include <memory>

namespace mrd::mainform {

class ShopCommands {
public:
  struct Parts {
    ProjectFrame& project;
    PageDesk& pages;
    EditorTabs& tabs;
    MainScreen& screen;
    Dialogs& dialogs;
    ui::Shell& shell;
    ui::Clipboard& clipboard;
  };
  explicit ShopCommands(const Parts& parts);
  ShopCommands(const ShopCommands&) = delete;
  ShopCommands& operator=(const ShopCommands&) = delete;

  // Each throws base::Error; whoever gives the command has the handler.

  /// Shows the shop's dialog beside the page. Message 24 without a project.
  void mnuShop_Click();
  shop::AuctionHelper& auction() { return auction_; }

  /// What the dialog asks before its project, or the program, is left. False when the user wants to stay.
  bool leave() { return !shop_ || shop_->Form_QueryUnload(); }
  /// Closes the dialog; it belongs to the project that is open.
  void close();

private:
  shop::ShopHooks shopHooks();
  bool showPage();
  void scriptChanged();

  const Parts parts_;
  shop::AuctionHelper auction_;
  /// There once it has been opened.
  std::unique_ptr<shop::frmmrdshop> shop_;
};

} // namespace mrd::mainform
