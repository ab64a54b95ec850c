#pragma once

#include "frame/messages/messages.h"
#include "shop/shop_form.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmmrdshop;
}

namespace mrd::desktop {

/// Stays above the main window while the user goes on in it, and is gone when it is closed.
class FrmShopWindow : public QDialog {
public:
  FrmShopWindow(shop::frmmrdshop& form, messages::Language& language, QWidget* parent = nullptr);
  ~FrmShopWindow() override;

  /// As the close box does.
  void reject() override { close(); }

protected:
  void closeEvent(QCloseEvent* event) override;

private:
  void connectArticles();
  void connectOptions();
  void nameControls();
  void refresh();
  QWidget& control(std::string_view name, std::optional<int> index) const;

  shop::frmmrdshop& form_;
  messages::Language& language_;
  std::unique_ptr<Ui::frmmrdshop> ui_;
  /// The form object has closed the window, and asks nothing more.
  bool unloading_ = false;
  bool closed_ = false;
};

} // namespace mrd::desktop
