#include "cli/page_desk.h"

#include "pagetree/page_id.h"

namespace mrd::cli {

PageDesk::PageDesk(mainform::Program& program, dao::Database& db)
    : language_(program.language), active_(db, tree_, program.ui),
      store_({db, program.language, program.clock, surface_, tree_, active_}, fields_, {})
{
  pagetree::fillTree(tree_, db);
}

bool PageDesk::hasPage(const std::string& id)
{
  if (tree_.hasNode(pagetree::keyOf(id)))
    return true;
  language_.GetMsg(kMessagePageMissing, id, "R");
  return false;
}

std::optional<std::string> PageDesk::addChild(const std::string& parentId)
{
  active_.LastActivePage = pagetree::keyOf(parentId);
  return store_.AddNewPage() ? std::optional(pagetree::idOf(active_.LastActivePage)) : std::nullopt;
}

std::string PageDesk::headingOf(const std::string& id) const { return tree_.label(pagetree::keyOf(id)); }

void PageDesk::open(const std::string& id)
{
  active_.LastActivePage = pagetree::keyOf(id);
  active_.WriteLastActivePage();
}

void PageDesk::load(const std::string& id) { store_.LoadPage(pagetree::keyOf(id)); }

bool PageDesk::save(const std::string& id)
{
  active_.PageDirty = true;
  return store_.SavePage(id) && !active_.PageDirty;
}

} // namespace mrd::cli
