#include "desktop/windows/window_pictures.h"

#include "desktop/windows/desk.h"

#include <QDir>
#include <QWidget>

#include <gtest/gtest.h>

namespace mrd::desktop {

std::string nameOf(const Look& look) { return std::string(look.language) + (look.theme == Theme::Light ? "-light" : "-dark"); }

void save(QWidget& window, const Look& look, const std::string& name)
{
  const QString folder = QStringLiteral(MRD_PICTURES);
  ASSERT_TRUE(QDir().mkpath(folder));
  constexpr int kPaintMilliseconds = 120, kSmallest = 0;
  letPass(kPaintMilliseconds);
  ASSERT_TRUE(window.grab().save(folder + QString::fromStdString("/" + name + "-" + nameOf(look) + ".png"), "PNG", kSmallest));
}

} // namespace mrd::desktop
