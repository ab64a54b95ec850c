#pragma once

#include "frame/messages/messages.h"
#include "pictures/bildkonvertierer.h"

#include <QWidget>

#include <memory>

namespace Ui {
class frmBildkonvertierer;
}

namespace mrd::desktop {

/// The small window that is there while pictures are worked on. The other windows wait for it, so that nothing they show is
/// changed under the work.
class BildkonvertiererWindow : public QWidget {
public:
  BildkonvertiererWindow(pictures::frmBildkonvertierer& form, messages::Language& language, QWidget* parent = nullptr);
  ~BildkonvertiererWindow() override;

protected:
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

private:
  void refresh();

  pictures::frmBildkonvertierer& form_;
  std::unique_ptr<Ui::frmBildkonvertierer> ui_;
};

} // namespace mrd::desktop
