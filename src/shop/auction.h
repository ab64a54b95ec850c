#pragma once
// The three buttons of pages that are written for the description field of an auction.

#include "frame/messages/messages.h"
#include "frame/settings/fields.h"
#include "pagetree/page_store.h"
#include "platform/ui/clipboard.h"
#include "platform/ui/shell.h"
#include "platform/ui/tree_control.h"

#include <functional>
#include <string>
#include <string_view>

namespace mrd::shop {

class AuctionHelper {
public:
  struct Parts {
    messages::Language& language;
    ui::TreeControl& TreeView1;
    ui::Clipboard& clipboard;
    ui::Shell& shell;
    /// File name, script and item number of the page.
    pagetree::PageFields& page;
    /// Export path.
    const settings::Fields& settings;
  };
  AuctionHelper(const Parts& parts, std::function<void()> tbScript_Change);

  /// Puts the generated page's style and body on the clipboard: message 46, or 47 when the page has not been generated.
  void cbEbayHTMLkopieren_Click();
  /// Replaces the page's script by a tag that sends visitors on to the auction.
  void CbEbayMetatag_Click();
  /// Opens the auction site's list of categories.
  void cbebaykategorien_Click();

private:
  std::string generatedFile() const;

  const Parts parts_;
  const std::function<void()> tbScript_Change_;
};

/// The lines of a page from the first with "<STYLE" to the one with "</BODY", without those with "</HEAD".
std::string styleAndBody(std::string_view page);

} // namespace mrd::shop
