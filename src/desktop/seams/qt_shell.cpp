#include "desktop/seams/qt_shell.h"

#include "desktop/seams/shown_text.h"
#include "platform/files/path.h"

#include <QDesktopServices>
#include <QMimeDatabase>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include <array>

namespace mrd::desktop {
namespace {

struct Tool {
  const char* program;
  const char* argument;
};
/// The desktops' own tools that describe the computer, the first one found counts.
constexpr std::array kInformationTools{Tool{"kinfocenter", nullptr},      Tool{"gnome-control-center", "info-overview"},
                                       Tool{"cinnamon-settings", "info"}, Tool{"mate-about", nullptr},
                                       Tool{"hardinfo", nullptr},         Tool{"xfce4-about", nullptr}};

} // namespace

void QtShell::open(std::string_view path)
{
  QDesktopServices::openUrl(QUrl::fromLocalFile(shown(files::nativePath(path).string())));
}

std::optional<std::string> QtShell::programFor(std::string_view path)
{
  // The desktop's own answer: every desktop keeps its list of programs in another place.
  const QString type = QMimeDatabase().mimeTypeForFile(shown(files::nativePath(path).string())).name();
  QProcess query;
  query.start("xdg-mime", {"query", "default", type});
  constexpr int kPatienceMilliseconds = 3000;
  if (!query.waitForFinished(kPatienceMilliseconds))
    return std::nullopt;
  QString program = QString::fromUtf8(query.readAllStandardOutput()).trimmed();
  program.remove(".desktop");
  return program.isEmpty() ? std::nullopt : std::optional(program.toStdString());
}

void QtShell::openAddress(std::string_view address) { QDesktopServices::openUrl(QUrl(shown(address))); }

bool QtShell::openSystemInformation()
{
  for (const auto& tool : kInformationTools) {
    const QString program = QStandardPaths::findExecutable(tool.program);
    if (!program.isEmpty())
      return QProcess::startDetached(program, tool.argument ? QStringList(tool.argument) : QStringList());
  }
  return false;
}

} // namespace mrd::desktop
