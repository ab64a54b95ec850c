#pragma once

#include "editor/search_replace.h"

#include <QDialog>

#include <memory>

namespace Ui {
class FormSuchenErsetzen;
}

namespace mrd::desktop {

/// The dialog of search and replace, which stays beside the page.
class SuchenErsetzenWindow : public QDialog {
public:
  explicit SuchenErsetzenWindow(editor::FormSuchenErsetzen& form, QWidget* parent = nullptr);
  ~SuchenErsetzenWindow() override;

  void reject() override;

private:
  editor::FormSuchenErsetzen& form_;
  std::unique_ptr<Ui::FormSuchenErsetzen> ui_;
};

} // namespace mrd::desktop
