#include "pagetree/page_move.h"

#include "base/text.h"
#include "frame/failures/failures.h"
#include "pagetree/page_id.h"

#include <algorithm>
#include <vector>

namespace mrd::pagetree {
namespace {

constexpr int kMessageTooMuch = 39, kMessageBelowItself = 40, kMessageBeforeHomepage = 41;
constexpr int kTarget = 1, kSource = 2;
constexpr std::string_view kBeforeHomepage = "-01";
/// Keeps the rows on the move apart from those that are renumbered around them.
constexpr std::string_view kMoveFlag = "M";
const std::string kLogLine(75, '-');

/// The id with its number raised by `step`; empty where that leaves two digits.
std::string neighbour(std::string_view id, int step)
{
  const int number = numberOf(id) + step;
  return number < 0 || number > kMaxChildren ? std::string() : parentOf(id) + formatNumber(number);
}

} // namespace

void frmMove1::Form_Load(ui::WindowControls& controls)
{
  language_.Setlanguage(controls);
  Form_Load();
}

void frmMove1::Form_Load()
{
  failures::withStandardHandler(language_, "Form_Load", [&] {
    lblMove[0].tag = move_.MoveSourceID;
    lblMove[1].tag = move_.MoveTargetID;
    optMove_Click(MoveOption::Behind);
  });
}

void frmMove1::optMove_Click(MoveOption Index)
{
  failures::withStandardHandler(language_, "optMove_Click", [&] {
    move_.MoveOption = Index;
    if (Index == MoveOption::Before)
      move_.MoveTargetID = parentOf(move_.MoveTargetID) + formatNumber(numberOf(move_.MoveTargetID) - 1);
    lblMove[1].tag = move_.MoveTargetID;
    window.refresh();
  });
}

void frmMove1::btnCancel_Click()
{
  MoveAusgefuehrt = false;
  if (tree_)
    tree_->setDropHighlight(std::nullopt);
  window.unload();
}

bool frmMove1::refuse(int message, bool forgetTarget)
{
  language_.GetMsg(message);
  if (forgetTarget)
    lblMove[1].tag = move_.MoveTargetID = kRootId;
  MoveAusgefuehrt = false;
  return false;
}

bool frmMove1::isAllowed()
{
  const std::string& source = move_.MoveSourceID;
  const std::string& target = move_.MoveTargetID;
  TreeQueries queries(db_, language_.ui());
  constexpr int kTooDeep = static_cast<int>(kMaxLevels) + 1;
  if (queries.PrüfeMaxAnzahlEinträge(move_) > kMaxChildren)
    return refuse(kMessageTooMuch, false);
  if (source.size() < target.size() && target.starts_with(source))
    return refuse(kMessageBelowItself, true);
  if (queries.PrüfeÜberschreitungDerEbenen(move_) >= kTooDeep)
    return refuse(kMessageTooMuch, false);
  if (target == kBeforeHomepage)
    return refuse(kMessageBeforeHomepage, true);
  return true;
}

void frmMove1::btnMove_Click()
{
  failures::withStandardHandler(language_, "btnMove_Click", [&] {
    if (!isAllowed())
      return;
    const ui::StillTree still(tree_);
    const ui::WaitPointer wait(language_.ui());
    MovePage();
  });
  window.unload();
}

void frmMove1::MovePage()
{
  const bool done = failures::withStandardHandler(language_, "MovePage", [&] {
    failures::WriteLogFile(kLogLine);
    failures::WriteLogFile("MovePage: " + move_.MoveSourceID + " " + move_.MoveTargetID);
    // A page that is put below another has no steps: the tree stays as it is. So it does when source and target are one.
    if (move_.MoveOption == MoveOption::Under || move_.MoveSourceID == move_.MoveTargetID)
      return;
    dao::Transaction transaction(db_);
    IdTable pages(db_);
    if (!workOut(pages)) {
      refuse(kMessageTooMuch, false);
      return;
    }
    pages.write();
    transaction.commit();
    failures::WriteLogFile(kLogLine);
  });
  MoveAusgefuehrt = MoveAusgefuehrt && done;
}

bool frmMove1::workOut(IdTable& pages) const
{
  if (std::ranges::find(pages.ids(), move_.MoveSourceID) == pages.ids().end())
    return true;
  const std::string arrival = neighbour(move_.MoveTargetID, 1);
  if (arrival.empty())
    return false;
  const std::string flagged = std::string(kMoveFlag) + arrival;
  failures::WriteLogFile("Setze Move Flag:  " + flagged);
  std::vector<std::size_t> onTheMove;
  for (std::size_t row = 0; row < pages.ids().size(); ++row) {
    if (!pages.ids()[row].starts_with(move_.MoveSourceID))
      continue;
    onTheMove.push_back(row);
    if (pages.ids()[row] == move_.MoveSourceID)
      pages.setId(row, flagged);
  }
  MovePageUnderM(pages, flagged);

  // By row, not by flag: a row with a flag from elsewhere keeps it.
  const auto takeFlagOff = [&] {
    for (const std::size_t row : onTheMove) {
      const std::string old = pages.ids()[row], arrived = old.substr(kMoveFlag.size());
      failures::WriteLogFile("Entferne Move Flag:  " + old + " --> " + arrived);
      pages.setId(row, arrived);
    }
  };
  bool fits = true;
  if (base::compareText(move_.MoveSourceID, move_.MoveTargetID) < 0) {
    failures::WriteLogFile("Kopiere von oben nach unten");
    fits = ReorgZielPos(pages, kTarget);
    takeFlagOff();
    fits = fits && ReorgZielPos(pages, kSource);
  } else {
    failures::WriteLogFile("Kopiere von unten nach oben");
    fits = ReorgZielPos(pages, kSource) && ReorgZielPos(pages, kTarget);
    takeFlagOff();
  }
  return fits && !pages.hasNewDuplicates();
}

void frmMove1::MovePageUnderM(IdTable& pages, const std::string& arrival) const
{
  failures::WriteLogFile("MovePageUnderM: ");
  pages.movePagesBelow(move_.MoveSourceID, arrival);
}

bool frmMove1::ReorgZielPos(IdTable& pages, int Modus) const
{
  const std::string& fixed = Modus == kTarget ? move_.MoveTargetID : move_.MoveSourceID;
  const int step = Modus == kTarget ? 1 : -1;
  const std::string parent = parentOf(fixed);
  auto rows = pages.level(base::length(fixed));
  // Room is made from the last page on, a gap is closed from its end on: so no number is taken when it is written.
  if (Modus == kTarget) {
    failures::WriteLogFile("ReorgZielPos:  Ziel , Recordcount:" + std::to_string(rows.size()));
    std::reverse(rows.begin(), rows.end());
  } else {
    failures::WriteLogFile("ReorgZielPos:  Quelle ");
  }
  std::string moved, movedTo;
  for (const std::size_t row : rows) {
    const std::string old = pages.ids()[row];
    if (parentOf(old) != parent || numberOf(old) <= numberOf(fixed) || old.starts_with(kMoveFlag))
      continue;
    // Rows that share an id by a fault of old share their new one too, and take the pages below them along once.
    const bool isTwin = old == moved;
    const std::string next = isTwin ? movedTo : neighbour(old, step);
    if (next.empty())
      return false;
    failures::WriteLogFile("ReorgZielPos: " + old + " --> " + next);
    pages.setId(row, next);
    if (!isTwin)
      pages.movePagesBelow(old, next);
    moved = old, movedTo = next;
  }
  return true;
}

std::string findMovedPage(dao::Database& db, std::string_view heading)
{
  // "?" stands for any character: an apostrophe would end the text.
  const std::string pattern = base::replaceAll(heading, "'", "?");
  const auto found = db.openRecordset("SELECT * FROM Seite WHERE Überschrift LIKE ?", {dao::Value(pattern)});
  return found.eof() ? std::string(kRootId) : found.value("id").text();
}

} // namespace mrd::pagetree
