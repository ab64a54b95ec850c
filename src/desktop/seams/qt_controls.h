#pragma once

#include "platform/ui/window_controls.h"

#include <QHash>
#include <QString>

#include <map>
#include <string>

class QAction;
class QObject;
class QTabWidget;
class QWidget;

namespace mrd::desktop {

/// A window's controls by the names of their objects; an element of a control array is named by the array, "_" and its number.
/// All controls are there when this is made.
class QtControls : public ui::WindowControls {
public:
  /// `name` is the window's name in the language tables.
  QtControls(QWidget& window, std::string name);

  std::string name() const override { return name_; }
  void setWindow(const ui::ControlTexts& texts) override;
  void setControl(std::string_view control, std::optional<int> index, const ui::ControlTexts& texts) override;
  void setText(std::string_view control, std::optional<int> index, std::string_view text) override;
  void setToolbarButton(std::string_view toolbar, int button, const ui::ControlTexts& texts) override;
  /// The page that texts go to. Pages are reached without being shown: what the user looks at stays.
  int currentTab(std::string_view control) const override;
  void setCurrentTab(std::string_view control, int page) override;
  void setCurrentTabTexts(std::string_view control, const ui::ControlTexts& texts) override;
  void setMenuChecked(std::string_view menu, bool checked) override;

  /// Throws base::Error (ControlNotFound).
  QObject& object(std::string_view control, std::optional<int> index = {}) const;

private:
  QTabWidget& tabs(std::string_view control) const;

  QWidget& window_;
  std::string name_;
  QHash<QString, QObject*> objects_;
  /// Names without regard to case, as language tables may write them.
  QHash<QString, QObject*> lowered_;
  std::map<std::string, int, std::less<>> pages_;
};

} // namespace mrd::desktop
