#include "desktop/seams/qt_controls.h"

#include "base/errors.h"
#include "desktop/seams/shown_text.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>

namespace mrd::desktop {
namespace {

[[noreturn]] void throwMissing(const QString& name)
{
  throw base::Error(base::ErrorNumber::ControlNotFound, "Steuerelement nicht gefunden: " + name.toStdString());
}

/// A text that a language gives is nothing that the user typed.
void setQuietly(QLineEdit& line, const QString& text)
{
  const QSignalBlocker quiet(line);
  line.setText(text);
}

void setCaption(QObject& object, const QString& caption)
{
  if (auto* const label = qobject_cast<QLabel*>(&object))
    label->setText(caption);
  else if (auto* const button = qobject_cast<QAbstractButton*>(&object)) {
    button->setText(caption);
    // A button that shows a picture alone is known by its caption.
    if (qobject_cast<QToolButton*>(button))
      button->setAccessibleName(caption);
  } else if (auto* const list = qobject_cast<QComboBox*>(&object))
    list->setAccessibleName(caption);
  else if (auto* const box = qobject_cast<QGroupBox*>(&object))
    box->setTitle(caption);
  else if (auto* const menu = qobject_cast<QMenu*>(&object))
    menu->setTitle(caption);
  else if (auto* const action = qobject_cast<QAction*>(&object))
    action->setText(caption);
  else if (auto* const line = qobject_cast<QLineEdit*>(&object))
    setQuietly(*line, caption);
  else if (auto* const bar = qobject_cast<QToolBar*>(&object))
    bar->setWindowTitle(caption);
}

/// The same three properties of what is no widget and what is one.
template <class Object>
void setStates(Object& object, const ui::ControlTexts& texts)
{
  if (texts.toolTip)
    object.setToolTip(shown(*texts.toolTip));
  if (texts.enabled)
    object.setEnabled(*texts.enabled);
  if (texts.visible)
    object.setVisible(*texts.visible);
}

void apply(QObject& object, const ui::ControlTexts& texts)
{
  if (texts.caption)
    setCaption(object, shown(*texts.caption));
  if (auto* const menu = qobject_cast<QMenu*>(&object))
    setStates(*menu->menuAction(), texts);
  else if (auto* const action = qobject_cast<QAction*>(&object))
    setStates(*action, texts);
  else if (auto* const widget = qobject_cast<QWidget*>(&object))
    setStates(*widget, texts);
}

} // namespace

QtControls::QtControls(QWidget& window, std::string name) : window_(window), name_(std::move(name))
{
  const auto all = window.findChildren<QObject*>();
  for (QObject* const object : all) {
    const QString known = object->objectName();
    if (known.isEmpty())
      continue;
    // Of two with one name, as a widget and its layout may be, the first is the control.
    if (!objects_.contains(known))
      objects_.insert(known, object);
    if (!lowered_.contains(known.toLower()))
      lowered_.insert(known.toLower(), object);
  }
}

QObject& QtControls::object(std::string_view control, std::optional<int> index) const
{
  QString name = shown(control);
  if (index)
    name += QStringLiteral("_%1").arg(*index);
  QObject* const found = objects_.value(name, lowered_.value(name.toLower()));
  if (!found)
    throwMissing(name);
  return *found;
}

void QtControls::setWindow(const ui::ControlTexts& texts)
{
  if (texts.caption)
    window_.setWindowTitle(shown(*texts.caption));
  if (texts.enabled)
    window_.setEnabled(*texts.enabled);
}

void QtControls::setControl(std::string_view control, std::optional<int> index, const ui::ControlTexts& texts)
{
  apply(object(control, index), texts);
}

void QtControls::setText(std::string_view control, std::optional<int> index, std::string_view text)
{
  QObject& target = object(control, index);
  if (auto* const line = qobject_cast<QLineEdit*>(&target)) {
    setQuietly(*line, shown(text));
  } else if (auto* const field = qobject_cast<QPlainTextEdit*>(&target)) {
    const QSignalBlocker quiet(field);
    field->setPlainText(shown(text));
  }
}

void QtControls::setToolbarButton(std::string_view toolbar, int button, const ui::ControlTexts& texts)
{
  const auto bar = qobject_cast<QToolBar*>(&object(toolbar));
  int number = 0;
  for (QAction* const action : bar ? bar->actions() : QList<QAction*>())
    if (!action->isSeparator() && ++number == button) {
      // A button that shows a picture alone is read aloud by its tool tip.
      if (!texts.caption && texts.toolTip)
        action->setText(shown(*texts.toolTip));
      return apply(*action, texts);
    }
  throwMissing(QStringLiteral("%1.Buttons(%2)").arg(shown(toolbar)).arg(button));
}

QTabWidget& QtControls::tabs(std::string_view control) const
{
  auto* const found = qobject_cast<QTabWidget*>(&object(control));
  if (!found)
    throwMissing(shown(control));
  return *found;
}

int QtControls::currentTab(std::string_view control) const
{
  const auto page = pages_.find(control);
  return page != pages_.end() ? page->second : tabs(control).currentIndex();
}

void QtControls::setCurrentTab(std::string_view control, int page)
{
  if (tabs(control).currentIndex() == page)
    pages_.erase(std::string(control));
  else
    pages_[std::string(control)] = page;
}

void QtControls::setCurrentTabTexts(std::string_view control, const ui::ControlTexts& texts)
{
  QTabWidget& tab = tabs(control);
  const int page = currentTab(control);
  if (texts.caption)
    tab.setTabText(page, shown(*texts.caption));
  if (texts.toolTip)
    tab.setTabToolTip(page, shown(*texts.toolTip));
  if (texts.enabled)
    tab.setTabEnabled(page, *texts.enabled);
  if (texts.visible)
    tab.setTabVisible(page, *texts.visible);
}

void QtControls::setMenuChecked(std::string_view menu, bool checked)
{
  if (auto* const action = qobject_cast<QAction*>(&object(menu)))
    action->setChecked(checked);
}

} // namespace mrd::desktop
