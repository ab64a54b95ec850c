#include "pagetree/page_deletion.h"

#include "base/text.h"
#include "frame/failures/failures.h"
#include "pagetree/page_id.h"

namespace mrd::pagetree {
namespace {

constexpr int kMessageRootStays = 21, kMessageDeletePage = 22, kMessageDeleteTree = 23;

dao::Parameters subtreePattern(std::string_view id) { return {dao::Value(std::string(id) + "*")}; }

} // namespace

bool PageDeletion::DelPage(std::string_view key)
{
  bool deleted = false;
  failures::withStandardHandler(language_, "DelPage", [&] {
    dao::Transaction transaction(db_);
    if (isRoot(key)) {
      language_.GetMsg(kMessageRootStays);
      return;
    }
    const std::string id = idOf(key);
    bool Erfolg = false;
    if (askAndDelete(id))
      ReorgPagesAfterDel(id, Erfolg);
    if (!Erfolg)
      return;
    transaction.commit();
    deleted = true;
  });
  return deleted;
}

bool PageDeletion::askAndDelete(std::string_view id)
{
  const std::size_t count =
      db_.openRecordset("SELECT * FROM Seite Where Seite.ID like ? ORDER BY ID;", subtreePattern(id)).recordCount();
  if (count == 0)
    return false;
  if (language_.GetMsg(count == 1 ? kMessageDeletePage : kMessageDeleteTree) != ui::Button::Yes)
    return false;
  db_.execute("DELETE * FROM Seite Where Seite.ID like ?", subtreePattern(id));
  return true;
}

void PageDeletion::ReorgPagesAfterDel(std::string_view deletedId, bool& Erfolg)
{
  Erfolg = failures::withStandardHandler(language_, "ReorgPagesAfterDel", [&] {
    IdTable pages(db_);
    const auto rows = pages.level(base::length(deletedId));
    const auto renumber = [&pages](std::size_t row, const std::string& NeuID) {
      ReorgUnderPagesAfterDel(pages, pages.ids()[row], NeuID);
      pages.setId(row, NeuID);
    };
    std::string Frei(deletedId);
    const std::string parent = parentOf(deletedId);
    if (rows.size() == 1) {
      // The level's only page takes the first place of this parent, even if it stood under another.
      renumber(rows.front(), parent + formatNumber(1));
    } else {
      for (const std::size_t row : rows) {
        const std::string Aktuell = base::trim(pages.ids()[row]);
        if (base::compareText(Aktuell, Frei) < 0)
          continue;
        if (base::compareText(parentOf(Aktuell), parent) > 0)
          break;
        renumber(row, Frei);
        Frei = Aktuell;
      }
    }
    if (pages.hasNewDuplicates())
      throw base::Error(base::ErrorNumber::InvalidCall, "Eine Seitennummer ist schon vergeben.");
    pages.write();
  });
}

void PageDeletion::ReorgUnderPagesAfterDel(IdTable& pages, std::string_view AltID, std::string_view NeuID)
{
  pages.movePagesBelow(std::string(AltID), NeuID);
}

} // namespace mrd::pagetree
