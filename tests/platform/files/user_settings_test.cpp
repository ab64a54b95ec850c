#include "platform/files/user_settings.h"

#include "base/errors.h"
#include "platform/files/scratch.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>

namespace mrd::files {
namespace {

/// A variable of the environment, put back at the end.
class Variable {
public:
  Variable(const char* name, const std::optional<std::string>& value) : name_(name)
  {
    if (const char* before = std::getenv(name))
      before_ = before;
    set(value);
  }
  ~Variable() { set(before_); }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

private:
  void set(const std::optional<std::string>& value) const
  {
    if (value)
      ::setenv(name_, value->c_str(), 1);
    else
      ::unsetenv(name_);
  }

  const char* name_;
  std::optional<std::string> before_;
};

TEST(UserSettings, answers_with_the_fallback_until_a_value_is_set)
{
  const Scratch scratch;
  UserSettings settings(scratch.native("tief/unten/settings.ini").string());
  EXPECT_EQ(settings.value("Settings", "MainLeft", "1000"), "1000");

  settings.setValue("Settings", "MainLeft", "250");

  EXPECT_EQ(settings.value("settings", "mainleft", "1000"), "250");
  EXPECT_EQ(scratch.read("tief/unten/settings.ini"), "[Settings]\r\nMainLeft=250\r\n");
}

TEST(UserSettings, keeps_an_empty_value)
{
  const Scratch scratch;
  UserSettings settings(scratch.native("settings.ini").string());
  settings.setValue("Settings", "pix_share", "");

  EXPECT_EQ(settings.value("Settings", "pix_share", "C:\\"), "");
}

TEST(UserSettings, lie_in_the_users_configuration)
{
  const Scratch scratch;
  const Variable config("XDG_CONFIG_HOME", scratch.native("config").string());

  UserSettings().setValue("Settings", "Assistent", "nein");

  EXPECT_EQ(scratch.read("config/mirandel/settings.ini"), "[Settings]\r\nAssistent=nein\r\n");
}

TEST(UserSettings, lie_below_the_home_directory_where_no_other_is_named)
{
  const Scratch scratch;
  const Variable home("HOME", scratch.native("anna").string());
  for (const auto& value : {std::optional<std::string>(), std::optional<std::string>("relativ")}) {
    const Variable config("XDG_CONFIG_HOME", value);
    UserSettings().setValue("Settings", "Assistent", value.value_or("nein"));
    EXPECT_EQ(scratch.read("anna/.config/mirandel/settings.ini"), "[Settings]\r\nAssistent=" + value.value_or("nein") + "\r\n");
  }
}

TEST(UserSettings, report_a_place_that_cannot_be_written)
{
  const Scratch scratch;
  scratch.write("datei", "x");

  EXPECT_THROW(UserSettings(scratch.native("datei/settings.ini").string()).setValue("a", "b", "c"), base::Error);
}

TEST(UserDataDirectory, follows_the_environment)
{
  const Variable home("HOME", "/home/anna");
  {
    const Variable data("XDG_DATA_HOME", "/daten/");
    EXPECT_EQ(userDataDirectory(), "\\daten\\mirandel");
  }
  const Variable data("XDG_DATA_HOME", std::nullopt);
  EXPECT_EQ(userDataDirectory(), "\\home\\anna\\.local\\share\\mirandel");
}

} // namespace
} // namespace mrd::files
