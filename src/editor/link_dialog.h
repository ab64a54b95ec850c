#pragma once

#include "frame/messages/messages.h"
#include "platform/ui/editing_surface.h"
#include "platform/ui/form_window.h"
#include "platform/ui/window_controls.h"

#include <optional>
#include <string>
#include <vector>

namespace mrd::editor {

/// A page of the project that a link can lead to.
struct LinkTarget {
  std::string id, heading;
  /// The file that the page is generated into, or its address.
  std::string href;
};

/// Asks where a link leads: an address, or a page of the project.
class FrmVerweis {
public:
  FrmVerweis(messages::Language& language, const ui::LinkValues& present, std::vector<LinkTarget> pages);

  // The controls.
  std::string tbadresse;
  bool Checkneuesfenster = false;
  /// The pages, deeper ones indented, and the chosen one; -1 for none.
  std::vector<std::string> Listseiten;
  int listIndex = -1;
  ui::FormWindow window;
  /// What was chosen, a link without a reference to take it away; nothing until the user has agreed.
  std::optional<ui::LinkValues> answer;

  void Form_Load(ui::WindowControls& controls);
  /// There is a link that can be taken away.
  bool hasLink() const { return !present_.href.empty(); }
  void Listseiten_Click(int index);
  /// The page whose address stands in the field is the chosen one.
  void tbadresse_Change();
  /// Stays open without an address.
  void cbok_Click();
  void cbentfernen_Click();
  void cbabbrechen_Click() { window.unload(); }

private:
  messages::Language& language_;
  const ui::LinkValues present_;
  const std::vector<LinkTarget> pages_;
};

} // namespace mrd::editor
