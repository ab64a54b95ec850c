#include "desktop/looks/system_theme.h"

#include "desktop/looks/theme_listener.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusReply>
#include <QGuiApplication>

#include <optional>
#include <utility>

namespace mrd::desktop {
namespace {

constexpr auto kService = "org.freedesktop.portal.Desktop";
constexpr auto kPath = "/org/freedesktop/portal/desktop";
constexpr auto kInterface = "org.freedesktop.portal.Settings";
constexpr auto kAppearance = "org.freedesktop.appearance";
constexpr auto kColourScheme = "color-scheme";
constexpr uint kPrefersDark = 1, kPrefersLight = 2;
/// A desktop without that service must not hold the start up.
constexpr int kAnswerMilliseconds = 200;
constexpr int kHalfLight = 128;

std::optional<Theme> themeOf(uint scheme)
{
  if (scheme == kPrefersDark)
    return Theme::Dark;
  return scheme == kPrefersLight ? std::optional(Theme::Light) : std::nullopt;
}

Theme themeOfPalette()
{
  return QGuiApplication::palette().window().color().lightness() < kHalfLight ? Theme::Dark : Theme::Light;
}

std::optional<Theme> askedTheme()
{
  const QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected())
    return std::nullopt;
  QDBusMessage question = QDBusMessage::createMethodCall(kService, kPath, kInterface, "Read");
  question << kAppearance << kColourScheme;
  const QDBusReply<QDBusVariant> answer = bus.call(question, QDBus::Block, kAnswerMilliseconds);
  if (!answer.isValid())
    return std::nullopt;
  // The service wraps the number twice.
  QVariant value = answer.value().variant();
  if (value.canConvert<QDBusVariant>())
    value = value.value<QDBusVariant>().variant();
  return themeOf(value.toUInt());
}

} // namespace

Theme systemTheme()
{
  const auto asked = askedTheme();
  return asked ? *asked : themeOfPalette();
}

ThemeListener::ThemeListener(QObject& owner, std::function<void(Theme)> changed) : QObject(&owner), changed_(std::move(changed))
{
  QDBusConnection::sessionBus().connect(kService, kPath, kInterface, "SettingChanged", this,
                                        SLOT(settingChanged(QString, QString, QDBusVariant)));
}

void ThemeListener::settingChanged(const QString& space, const QString& key, const QDBusVariant& value)
{
  if (space == kAppearance && key == kColourScheme)
    changed_(themeOf(value.variant().toUInt()).value_or(Theme::Light));
}

void onSystemThemeChange(QObject& owner, std::function<void(Theme)> changed) { new ThemeListener(owner, std::move(changed)); }

} // namespace mrd::desktop
