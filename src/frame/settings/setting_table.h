#pragma once
// Which key of the settings table belongs to which field: the one list that loading, saving and showing walk.

#include "frame/paths/paths.h"
#include "frame/settings/fields.h"
#include "platform/ui/ui.h"

#include <span>
#include <string>
#include <string_view>

namespace mrd::settings {

/// What loading a value can touch.
struct Loading {
  Fields& fields;
  const paths::ProgramFiles& program;
  ui::Ui& ui;
};

/// How a field takes a stored text and gives one.
struct Form {
  void (*load)(Loading& loading, const std::string& value);
  std::string (*stored)(const Fields& fields);
};

struct Setting {
  std::string_view key;
  Form form;
  /// What happens to the fields when the project lacks the key; most fields stay as they are.
  void (*whenMissing)(Fields& fields) = nullptr;
  /// Null and the empty text are passed over like a missing key.
  bool emptyIsSkipped = false;
  /// Done after the field has taken its value or kept it.
  void (*afterwards)(Fields& fields) = nullptr;
};

/// All keys with a field, in the order in which they are loaded.
std::span<const Setting> settingTable();
/// The setting of a key, whatever its case; null for a key without a field.
const Setting* findSetting(std::string_view key);

/// A key as a project's settings are saved.
struct SavedKey {
  std::string_view key;
  /// Every project's template holds these rows, so that they are changed and never added.
  bool editOnly;
};
/// The keys in the order in which they are saved.
std::span<const SavedKey> savingOrder();

} // namespace mrd::settings
