#include "desktop/seams/qt_ui.h"

#include "desktop/seams/shown_text.h"
#include "desktop/seams/warning_box.h"
#include "platform/files/path.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QInputDialog>
#include <QLibraryInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QTranslator>

#include <algorithm>
#include <array>
#include <utility>

namespace mrd::desktop {
namespace {

using ui::Button;

struct BoxButton {
  Button button;
  QMessageBox::ButtonRole role;
  const char* german;
  const char* english;
};
constexpr std::array kButtons{
    BoxButton{Button::Ok, QMessageBox::AcceptRole, "&OK", "&OK"},
    BoxButton{Button::Cancel, QMessageBox::RejectRole, "&Abbrechen", "&Cancel"},
    BoxButton{Button::Abort, QMessageBox::RejectRole, "&Abbrechen", "&Abort"},
    BoxButton{Button::Retry, QMessageBox::AcceptRole, "&Wiederholen", "&Retry"},
    BoxButton{Button::Ignore, QMessageBox::DestructiveRole, "&Ignorieren", "&Ignore"},
    BoxButton{Button::Yes, QMessageBox::YesRole, "&Ja", "&Yes"},
    BoxButton{Button::No, QMessageBox::NoRole, "&Nein", "&No"},
};

/// The buttons of a box by its style, the refusing one last.
constexpr std::array<std::array<Button, 3>, 6> kBoxes{{
    {Button::Ok},
    {Button::Ok, Button::Cancel},
    {Button::Retry, Button::Ignore, Button::Abort},
    {Button::Yes, Button::No, Button::Cancel},
    {Button::Yes, Button::No},
    {Button::Retry, Button::Cancel},
}};

QMessageBox::Icon iconOf(int style)
{
  switch (ui::box::icon(style)) {
  case ui::box::kCritical:
    return QMessageBox::Critical;
  case ui::box::kQuestion:
    return QMessageBox::Question;
  case ui::box::kExclamation:
    return QMessageBox::Warning;
  case ui::box::kInformation:
    return QMessageBox::Information;
  default:
    return QMessageBox::NoIcon;
  }
}

/// A run that pumps at each of its pages always finds something; so many times nothing in a row is a wait.
constexpr int kEmptyPumps = 10;
constexpr int kWaitMilliseconds = 2;

/// Boxes belong to the window that the user looks at.
QWidget* owner()
{
  QWidget* const dialog = QApplication::activeModalWidget();
  return dialog ? dialog : QApplication::activeWindow();
}

const BoxButton& boxButton(Button button)
{
  for (const auto& entry : kButtons)
    if (entry.button == button)
      return entry;
  return kButtons.front();
}

/// "Text|*.a;*.b|Other|*.c" as the toolkit takes it: one entry for each pair.
QStringList nameFilters(const std::string& filter)
{
  const QStringList parts = shown(filter).split('|');
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
    filters << QStringLiteral("%1 (%2)").arg(parts[i], QString(parts[i + 1]).replace(';', ' '));
  return filters;
}

std::optional<std::string> chosenFile(const ui::FileDialog& request, QFileDialog::AcceptMode mode, QFileDialog::FileMode kind)
{
  QFileDialog dialog(owner(), shown(request.title));
  dialog.setAcceptMode(mode);
  dialog.setFileMode(kind);
  dialog.setNameFilters(nameFilters(request.filter));
  if (!request.directory.empty())
    dialog.setDirectory(shown(files::nativePath(request.directory).string()));
  if (!request.fileName.empty())
    dialog.selectFile(shown(request.fileName));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
    return std::nullopt;
  return files::systemPath(dialog.selectedFiles().constFirst().toStdString());
}

} // namespace

QtUi::QtUi() = default;

QtUi::~QtUi() = default;

std::string QtUi::inLanguage(std::string_view text) const { return language_ ? language_->shownText(text) : std::string(text); }

QString QtUi::translated(std::string_view text) const { return shown(inLanguage(text)); }

ui::FileDialog QtUi::translated(const ui::FileDialog& dialog) const
{
  return {inLanguage(dialog.title), inLanguage(dialog.filter), dialog.directory, dialog.fileName};
}

void QtUi::speak()
{
  if (!isGerman()) {
    german_.reset();
    return;
  }
  if (german_)
    return;
  german_ = std::make_unique<QTranslator>();
  if (german_->load("qtbase_de", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(german_.get());
}

ui::Button QtUi::messageBox(const ui::MessageBox& message)
{
  QMessageBox box(owner());
  box.setWindowTitle(translated(message.title));
  box.setTextFormat(Qt::PlainText);
  box.setText(translated(message.text));
  box.setIcon(iconOf(message.style));
  const auto style = static_cast<std::size_t>(ui::box::buttons(message.style));
  const auto& buttons = kBoxes[style < kBoxes.size() ? style : 0];
  const bool german = isGerman();
  std::array<QAbstractButton*, 3> shownButtons{};
  Button refusing = Button::Ok;
  for (std::size_t i = 0; i < buttons.size() && buttons[i] != Button::None; ++i) {
    const BoxButton& entry = boxButton(buttons[i]);
    shownButtons[i] = box.addButton(QString::fromUtf8(german ? entry.german : entry.english), entry.role);
    shownButtons[i]->setObjectName(QStringLiteral("button_%1").arg(static_cast<int>(entry.button)));
    refusing = entry.button;
    box.setEscapeButton(shownButtons[i]);
  }
  box.setDefaultButton(qobject_cast<QPushButton*>(shownButtons[0]));
  box.exec();
  for (std::size_t i = 0; i < buttons.size(); ++i)
    if (shownButtons[i] && box.clickedButton() == shownButtons[i])
      return buttons[i];
  return refusing;
}

std::optional<std::string> QtUi::inputBox(std::string_view prompt, std::string_view title, std::string_view proposal)
{
  speak();
  bool accepted = false;
  const QString text =
      QInputDialog::getText(owner(), translated(title), translated(prompt), QLineEdit::Normal, shown(proposal), &accepted);
  return accepted ? std::optional(text.toStdString()) : std::nullopt;
}

std::optional<std::string> QtUi::openFileDialog(const ui::FileDialog& dialog)
{
  speak();
  return chosenFile(translated(dialog), QFileDialog::AcceptOpen,
                    dialog.fileName.empty() ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
}

std::optional<std::string> QtUi::saveFileDialog(const ui::FileDialog& dialog)
{
  speak();
  return chosenFile(translated(dialog), QFileDialog::AcceptSave, QFileDialog::AnyFile);
}

std::optional<std::string> QtUi::folderDialog(std::string_view title)
{
  speak();
  const QString directory = QFileDialog::getExistingDirectory(owner(), translated(title));
  return directory.isEmpty() ? std::nullopt : std::optional(files::systemPath(directory.toStdString()));
}

std::optional<int> QtUi::colourDialog(int colour)
{
  speak();
  const QColor start(colour & 0xff, (colour >> 8) & 0xff, (colour >> 16) & 0xff);
  const QColor chosen = QColorDialog::getColor(start, owner());
  if (!chosen.isValid())
    return std::nullopt;
  return chosen.red() | chosen.green() << 8 | chosen.blue() << 16;
}

void QtUi::warning(std::string_view text)
{
  if (std::ranges::find(warnings_, text) == warnings_.end())
    warnings_.emplace_back(text);
}

void QtUi::tellWarnings()
{
  constexpr int kMessageWarnings = 182;
  // Taken first: the box lets events run, and these can bring work with warnings of its own.
  const auto warnings = std::exchange(warnings_, {});
  if (warnings.empty())
    return;
  QStringList lines;
  for (const auto& warning : warnings)
    lines << translated(warning);
  hideSplash();
  WarningBox(shown(language_ ? language_->textOf(kMessageWarnings, "", "") : ""), lines, owner()).exec();
}

void QtUi::status(ui::StatusPlace place, std::string_view text)
{
  if (display_)
    display_->showStatus(place, inLanguage(text));
}

void QtUi::progress(std::size_t value, std::size_t maximum)
{
  if (display_)
    display_->showProgress(value, maximum);
}

void QtUi::hideProgress()
{
  if (display_)
    display_->hideProgress();
}

void QtUi::pointer(ui::Pointer shape)
{
  QApplication::restoreOverrideCursor();
  if (shape == ui::Pointer::Wait)
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

bool QtUi::pumpEvents()
{
  QAbstractEventDispatcher& events = *QAbstractEventDispatcher::instance();
  if (events.processEvents(QEventLoop::AllEvents)) {
    emptyPumps_ = 0;
    return false;
  }
  // Who asks again and again, and finds nothing, waits for another process, which needs the processor more than we do.
  if (++emptyPumps_ < kEmptyPumps)
    return false;
  QTimer wake;
  wake.start(kWaitMilliseconds);
  events.processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
  return false;
}

void QtUi::hideSplash()
{
  if (splash_)
    splash_->hide();
}

} // namespace mrd::desktop
