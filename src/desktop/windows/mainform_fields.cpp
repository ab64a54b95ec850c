#include "desktop/windows/mainform_fields.h"

#include "desktop/seams/qt_controls.h"
#include "desktop/seams/shown_text.h"
#include "desktop/windows/bound_fields.h"
#include "desktop/windows/mainform_window.ui.h"
#include "mainform/menu_table.h"

#include <QSignalBlocker>

#include <algorithm>
#include <array>

namespace mrd::desktop {

using mainform::Shown;

MainformFields::MainformFields(Ui::Mainform& ui, mainform::Mainform& form, const QtControls& controls, QWidget& window)
    : parts_{ui, form, controls, window}, labels_(parts_), previews_(parts_), settings_(parts_, previews_, labels_), page_(parts_)
{
  QObject::connect(ui.FontCombo, &QComboBox::activated, &window, [&form](int index) { form.tools().FontCombo_Click(index); });
  QObject::connect(ui.FontSizeCombo, &QComboBox::activated, &window,
                   [&form](int index) { form.tools().FontSizeCombo_Click(index); });
}

void MainformFields::show(Shown what)
{
  const Showing showing(parts_);
  switch (what) {
  case Shown::Page:
    page_.show();
    return showCaption();
  case Shown::Settings:
    settings_.show();
    return previews_.show();
  case Shown::Colours:
    return previews_.show();
  case Shown::Tabs:
    return showTabs();
  case Shown::Tools:
    return showTools();
  case Shown::Menus:
    return showMenus();
  case Shown::Caption:
    return showCaption();
  }
}

void MainformFields::showCaption()
{
  parts_.window.setWindowTitle(shown(parts_.language().shownText(parts_.form.pages().fields.caption)));
}

void MainformFields::showTabs()
{
  // The form object knows of the change already.
  const QSignalBlocker quietTree(parts_.ui.TabTree), quietHtml(parts_.ui.tabHtml);
  parts_.ui.TabTree->setCurrentIndex(parts_.form.tabs().TabTree);
  parts_.ui.tabHtml->setCurrentIndex(parts_.form.tabs().tabHtml);
}

void MainformFields::showTools()
{
  const auto& tools = parts_.form.tools();
  const auto keys = mainform::EditorTools::keys();
  for (std::size_t i = 0; i < keys.size(); ++i) {
    auto& action = dynamic_cast<QAction&>(parts_.controls.object(keys[i]));
    action.setEnabled(tools.Toolbar1[i].enabled);
    action.setChecked(tools.Toolbar1[i].pressed);
  }
  showList(*parts_.ui.FontCombo, tools.FontCombo);
  showList(*parts_.ui.FontSizeCombo, tools.FontSizeCombo);
  constexpr int kFormatEntries = 16;
  for (int i = 0; i < kFormatEntries; ++i) {
    auto& entry = dynamic_cast<QAction&>(parts_.controls.object("FormatSub", i));
    const auto number = static_cast<std::size_t>(i);
    entry.setVisible(number < tools.FormatSub.size());
    if (number < tools.FormatSub.size())
      entry.setText(shown(tools.FormatSub[number]));
  }
  for (const int view : {0, 1})
    dynamic_cast<QAction&>(parts_.controls.object("ViewSub", view)).setChecked(tools.ViewSubChecked(view));
}

void MainformFields::showMenus()
{
  constexpr std::array<std::string_view, 4> kChanging{"editsub", "FormatSub", "TableSub", "D2DSub"};
  for (const auto& entry : mainform::menuEntries()) {
    if (std::ranges::find(kChanging, entry.name) == kChanging.end() || entry.caption == "-" || !entry.index)
      continue;
    auto& action = dynamic_cast<QAction&>(parts_.controls.object(entry.name, entry.index));
    const auto state = parts_.form.editor().state(entry.name, *entry.index);
    action.setEnabled(state.enabled);
    action.setCheckable(state.checked || action.isCheckable());
    action.setChecked(state.checked);
  }
  parts_.ui.mnuSeitenZurueck->setText(shown(parts_.form.treeUndoCaption()));
  parts_.ui.mnuSeitenZurueck->setEnabled(parts_.form.pages().treeChange() != pagetree::TreeUndo::Change::None);
  if (!parts_.form.editor().positionCaption().empty())
    parts_.ui.D2DSub_0->setText(shown(parts_.form.editor().positionCaption()));
}

} // namespace mrd::desktop
