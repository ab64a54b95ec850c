#include "mainform/shop_commands.h"

namespace mrd::mainform {
namespace {

constexpr int kMessageChoosePage = 2;

} // namespace

ShopCommands::ShopCommands(const Parts& parts)
    : parts_(parts), auction_({parts.project.program().language, parts.pages.tree(), parts.clipboard, parts.shell,
                               parts.pages.fields, parts.project.fields()},
                              [this] { scriptChanged(); })
{
}

void ShopCommands::mnuShop_Click()
{
  if (!parts_.project.requireOpen())
    return;
  if (!shop_ || !shop_->isOpen())
    shop_ = std::make_unique<shop::frmmrdshop>(shop::frmmrdshop::Parts{parts_.project.db(), parts_.project.program().language,
                                                                       parts_.pages.surface(), parts_.shell, parts_.pages.fields},
                                               shopHooks());
  parts_.dialogs.show(*shop_);
}

shop::ShopHooks ShopCommands::shopHooks()
{
  return {[this] { return showPage(); }, [this] { parts_.pages.changed(); }, [this] { scriptChanged(); }};
}

bool ShopCommands::showPage()
{
  if (parts_.pages.isBusy())
    return false;
  if (parts_.pages.LastActivePage().empty() || parts_.pages.document.kind != DocumentKind::Page) {
    parts_.project.program().language.GetMsg(kMessageChoosePage);
    return false;
  }
  return parts_.tabs.showEditor();
}

void ShopCommands::scriptChanged()
{
  parts_.pages.tbScript_Change();
  parts_.screen.refresh(Shown::Page);
}

void ShopCommands::close()
{
  if (shop_ && shop_->isOpen())
    shop_->window.unload();
  shop_.reset();
}

} // namespace mrd::mainform
