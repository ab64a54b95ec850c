#pragma once

#include "frame/messages/messages.h"
#include "frame/project/backups.h"
#include "platform/ui/form_window.h"
#include "platform/ui/window_controls.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::mainform {

/// Asks which backup of a project is to take its place.
class FrmSicherung {
public:
  FrmSicherung(messages::Language& language, std::string_view DbName);

  // The controls.

  /// Date and number of pages of each, the newest first, and the chosen one.
  std::vector<std::string> Listsicherungen;
  int listIndex = 0;
  ui::FormWindow window;
  /// Name of the backup, when the user has agreed.
  std::optional<std::string> answer;

  bool isEmpty() const { return backups_.empty(); }
  void Form_Load(ui::WindowControls& controls);
  void Listsicherungen_Click(int index);
  /// Asks, message 164.
  void cbzurueckholen_Click();
  void cbabbrechen_Click() { window.unload(); }

private:
  messages::Language& language_;
  const std::vector<project::Backup> backups_;
};

} // namespace mrd::mainform
