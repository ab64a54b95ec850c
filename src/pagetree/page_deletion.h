#pragma once
// Deleting a page with all below it, and closing the gap that it leaves among its siblings.

#include "frame/messages/messages.h"
#include "pagetree/id_table.h"
#include "platform/dao/database.h"

#include <string>
#include <string_view>

namespace mrd::pagetree {

class PageDeletion {
public:
  PageDeletion(dao::Database& db, messages::Language& language) : db_(db), language_(language) {}

  /// Asks, deletes the page of the tree key and renumbers, in one transaction. True when pages were deleted; the caller then
  /// shows the homepage. A refusal or a failure, which is shown, leaves the table as it was.
  bool DelPage(std::string_view key);

private:
  bool askAndDelete(std::string_view id);
  void ReorgPagesAfterDel(std::string_view deletedId, bool& Erfolg);
  static void ReorgUnderPagesAfterDel(IdTable& pages, std::string_view AltID, std::string_view NeuID);

  dao::Database& db_;
  messages::Language& language_;
};

} // namespace mrd::pagetree
