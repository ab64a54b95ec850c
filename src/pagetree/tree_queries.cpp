#include "pagetree/tree_queries.h"

#include "base/text.h"
#include "frame/failures/failures.h"
#include "pagetree/page_id.h"

namespace mrd::pagetree {
namespace {

dao::Value subtreePattern(std::string_view id) { return {std::string(id) + "*"}; }

int idLength(std::string_view id) { return static_cast<int>(base::length(id)); }

} // namespace

std::string TreeQueries::CheckChildren(std::string_view id)
{
  auto below = db_.openRecordset("SELECT * FROM Seite Where (Seite.ID Like ?) and (len(seite.id)>?) ORDER BY ID;",
                                 {subtreePattern(id), dao::Value(idLength(id))});
  return below.eof() ? std::string(kNoChildren) : below.value("seitentyp-id").text();
}

int TreeQueries::ChildrenCount(std::string_view id, bool NurDirekteKinder)
{
  auto pages = NurDirekteKinder
                   ? db_.openRecordset("SELECT * FROM Seite Where Seite.ID Like ? And Len(Seite.ID) = Len(?) + 2 ORDER BY ID;",
                                       {subtreePattern(id), dao::Value(id)})
                   : db_.openRecordset("SELECT * FROM Seite Where Seite.ID Like ? ORDER BY ID;", {subtreePattern(id)});
  return static_cast<int>(pages.recordCount());
}

int TreeQueries::ChildrenLen(std::string_view id)
{
  auto pages = db_.openRecordset("SELECT * FROM Seite Where Seite.ID Like ? ORDER BY len(ID);", {subtreePattern(id)});
  if (pages.eof())
    return 0;
  pages.moveLast();
  return idLength(pages.value("id").text());
}

int TreeQueries::PrüfeMaxAnzahlEinträge(const MoveRequest& move)
{
  int entries = 0;
  failures::withPlainHandler(ui_, "PrüfeMaxAnzahlEinträge", [&] {
    const std::string& target = move.MoveTargetID;
    const bool isInnerLeaf = CheckChildren(target) == kNoChildren && idLength(target) != 2;
    entries = ChildrenCount(move.MoveSourceID, false) +
              (isInnerLeaf ? ChildrenCount(parentOf(target), true) : ChildrenCount(target, false));
  });
  return entries;
}

int TreeQueries::PrüfeÜberschreitungDerEbenen(const MoveRequest& move)
{
  int depth = 0;
  failures::withPlainHandler(ui_, "PrüfeÜberschreitungDerEbenen", [&] {
    const int sourceLevel = idLength(move.MoveSourceID) / 2;
    const int height = ChildrenLen(move.MoveSourceID) / 2 - sourceLevel;
    const int targetLevel = idLength(move.MoveTargetID) / 2;
    switch (move.MoveOption) {
    case MoveOption::Before:
    case MoveOption::Behind:
      depth = targetLevel + height;
      break;
    case MoveOption::Under:
      depth = targetLevel + 1 + height;
      break;
    }
  });
  return depth;
}

} // namespace mrd::pagetree
