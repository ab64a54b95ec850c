#pragma once

#include "desktop/looks/theme.h"

#include <QDBusVariant>
#include <QObject>

#include <functional>

namespace mrd::desktop {

/// Hears from the desktop's settings service that the user has chosen light or dark; lives as long as its owner.
class ThemeListener : public QObject {
  Q_OBJECT
public:
  ThemeListener(QObject& owner, std::function<void(Theme)> changed);

private slots:
  void settingChanged(const QString& space, const QString& key, const QDBusVariant& value);

private:
  std::function<void(Theme)> changed_;
};

} // namespace mrd::desktop
