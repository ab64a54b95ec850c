#include "frame/settings/settings.h"

#include "base/text.h"
#include "frame/settings/setting_table.h"
#include "frame/settings/stored_settings.h"

namespace mrd::settings {
namespace {

void loadSetting(const Setting& setting, const StoredSettings& stored, Loading& loading)
{
  const auto value = stored.value(setting.key);
  const bool skipped = value && setting.emptyIsSkipped && base::trim(*value).empty();
  if (value && !skipped)
    setting.form.load(loading, *value);
  else if (!value && setting.whenMissing)
    setting.whenMissing(loading.fields);
  if (setting.afterwards)
    setting.afterwards(loading.fields);
}

void saveFields(StoredSettings stored, const Fields& fields)
{
  for (const auto& saved : savingOrder()) {
    const auto value = findSetting(saved.key)->form.stored(fields);
    if (saved.editOnly)
      stored.edit(saved.key, value);
    else
      stored.set(saved.key, value);
  }
}

} // namespace

void einstellungenladen(dao::Database& db, Fields& fields, const paths::ProgramFiles& program, ui::Ui& ui,
                        std::string_view exceptKey)
{
  const StoredSettings stored(db);
  Loading loading{fields, program, ui};
  for (const auto& setting : settingTable())
    if (setting.key != exceptKey)
      loadSetting(setting, stored, loading);
}

void cbeinstellungen_Click(dao::Database& db, const Fields& fields)
{
  // One transaction spares a synced write for each key; a failure still keeps the keys ahead of it.
  dao::Transaction transaction(db);
  try {
    saveFields(StoredSettings(db), fields);
  } catch (...) {
    transaction.commit();
    throw;
  }
  transaction.commit();
}

std::optional<std::string> settingValue(dao::Database& db, std::string_view key)
{
  const StoredSettings stored(db);
  if (auto value = stored.value(key))
    return value;
  const auto* setting = findSetting(key);
  if (!setting)
    return std::nullopt;
  if (setting->key == "Hyperlink")
    return settingValue(db, "Menüaktivfarbe");
  return setting->form.stored(Fields{});
}

} // namespace mrd::settings
