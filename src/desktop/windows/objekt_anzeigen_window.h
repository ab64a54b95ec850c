#pragma once

#include "frame/messages/messages.h"
#include "pictures/objekt_anzeigen.h"

#include <QDialog>
#include <QTimer>

#include <memory>

namespace Ui {
class formobjektanzeigen;
}

namespace mrd::desktop {

class PictureCanvas;

/// The viewer; it stands beside the others and leaves them the keyboard when it comes up.
class ObjektAnzeigenWindow : public QDialog {
public:
  ObjektAnzeigenWindow(pictures::formobjektanzeigen& form, messages::Language& language, QWidget* parent = nullptr);
  ~ObjektAnzeigenWindow() override;

protected:
  void resizeEvent(QResizeEvent* event) override;

private:
  void refresh();
  image::Size room() const;

  pictures::formobjektanzeigen& form_;
  messages::Language& language_;
  std::unique_ptr<Ui::formobjektanzeigen> ui_;
  PictureCanvas* LEAD1_;
  QString firstTitle_;
  /// The picture is read anew when the user has let go of the frame.
  QTimer resized_;
};

} // namespace mrd::desktop
