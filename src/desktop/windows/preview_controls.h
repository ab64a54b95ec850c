#pragma once

#include "desktop/windows/mainform_parts.h"

#include <QMultiHash>
#include <QObject>

class QEvent;
class QFrame;

namespace mrd::desktop {

/// The main window's controls that show how the site will look: swatches, previews, the sample of a corner, and the head of the
/// edition for telephones.
class PreviewControls : public QObject {
public:
  explicit PreviewControls(MainformParts& parts);

  /// The colours of all of them, and the framed swatch.
  void show();
  /// The sample of a corner, and the band.
  void showRadius();
  /// The head picture of the edition for telephones as it will be drawn.
  void showBand();
  /// The box around the previews is there while one of them is.
  void showPreviewBox();

protected:
  /// The previews keep their share of the width.
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void connectColours();
  void fitPreviews();

  MainformParts& parts_;
  /// Parts of the previews by the control whose colour they have.
  QMultiHash<QString, QFrame*> lookalikes_;
};

} // namespace mrd::desktop
