#include "frame/settings/setting_table.h"

#include <gmock/gmock.h>

#include <set>

namespace mrd::settings {
namespace {

TEST(SettingTable, is_loaded_and_saved_with_the_same_keys)
{
  std::set<std::string_view> loaded, saved;
  for (const auto& setting : settingTable())
    loaded.insert(setting.key);
  for (const auto& key : savingOrder())
    saved.insert(key.key);

  EXPECT_EQ(loaded.size(), 35u);
  EXPECT_EQ(saved, loaded);
}

TEST(SettingTable, saves_seven_keys_first_that_it_never_adds)
{
  for (std::size_t at = 0; at < savingOrder().size(); ++at)
    EXPECT_EQ(savingOrder()[at].editOnly, at < 7) << savingOrder()[at].key;
}

TEST(SettingTable, finds_a_key_whatever_its_case)
{
  ASSERT_NE(findSetting("MENÜBREITE"), nullptr);
  EXPECT_EQ(findSetting("MENÜBREITE")->key, "menübreite");
  EXPECT_EQ(findSetting("KopfHTML"), nullptr);
}

TEST(SettingTable, knows_the_defaults)
{
  const Fields fields;
  const auto shown = [&](std::string_view key) { return findSetting(key)->form.stored(fields); };

  EXPECT_EQ(shown("Exportpfad"), "c:\\programme\\Mirandel\\exportpfad\\");
  EXPECT_EQ(shown("Tabellenfarbe"), "#0080FF");
  EXPECT_EQ(shown("rundeEcke"), "False");
  EXPECT_EQ(shown("grundlayout"), "Navigation linke Seite");
  EXPECT_EQ(shown("blättern"), "0");
  EXPECT_EQ(shown("imodekopftyp"), "3");
  EXPECT_EQ(shown("imodekopfgif"), "max. 120 Pixel Breite");
}

} // namespace
} // namespace mrd::settings
