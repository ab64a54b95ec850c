#pragma once

#include <QDialog>
#include <QStringList>

namespace mrd::desktop {

/// What went wrong in a piece of work that went on: a line for each thing, in a list that scrolls and can be copied.
class WarningBox : public QDialog {
public:
  WarningBox(const QString& text, const QStringList& lines, QWidget* owner);
};

} // namespace mrd::desktop
