#pragma once

#include "mainform/mainform.h"

#include <QMultiHash>
#include <QObject>

class QComboBox;
class QFrame;
class QWidget;

namespace Ui {
class Mainform;
}

namespace mrd::desktop {

class QtControls;

/// The main window's fields: shows the form objects' values in them, and takes over what the user changes there.
class MainformFields : public QObject {
public:
  MainformFields(Ui::Mainform& ui, mainform::Mainform& form, const QtControls& controls, QWidget& window);

  void show(mainform::Shown what);
  /// The box around the previews is there while one of them is.
  void showPreviewBox();

protected:
  /// The previews keep their share of the width.
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  class Showing;

  void connectSettings();
  void connectLists();
  void connectColours();
  void connectPage();

  void showPage();
  void showSettings();
  void showColours();
  void showTabs();
  void showTools();
  void showMenus();
  void showCaption();
  void showLabels();
  void showRadius();
  /// The head picture of the edition for telephones as it will be drawn.
  void showBand();
  void showHeadPicture();
  void fitPreviews();
  void nameControls();

  Ui::Mainform& ui_;
  messages::Language& language() { return form_.program().language; }

  mainform::Mainform& form_;
  const QtControls& controls_;
  QWidget& window_;
  /// Parts of the previews by the control whose colour they have.
  QMultiHash<QString, QFrame*> lookalikes_;
  /// While values are shown, their changes are not the user's.
  int showing_ = 0;
};

} // namespace mrd::desktop
