#include "desktop/seams/warning_box.h"

#include "base/product.h"
#include "desktop/seams/shown_text.h"

#include <QGridLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyle>

#include <algorithm>

namespace mrd::desktop {
namespace {

constexpr QSize kListSize(480, 96);
/// More lines than these scroll.
constexpr int kMostLines = 12;

/// As high as its lines, within reason: a long path takes two.
int heightFor(const QPlainTextEdit& list, qsizetype lines)
{
  constexpr int kFramePx = 16;
  const int shownLines = static_cast<int>(std::min<qsizetype>(2 * lines, kMostLines));
  return std::max(kListSize.height(), shownLines * list.fontMetrics().lineSpacing() + kFramePx);
}

} // namespace

WarningBox::WarningBox(const QString& text, const QStringList& lines, QWidget* owner) : QDialog(owner)
{
  setObjectName("WarningBox");
  setWindowTitle(shown(base::kProductName));
  auto* const icon = new QLabel(this);
  const int side = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
  icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, this).pixmap(side));
  auto* const label = new QLabel(text, this);
  label->setObjectName("LabelWarnings");
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  auto* const list = new QPlainTextEdit(lines.join('\n'), this);
  list->setObjectName("ListWarnings");
  list->setReadOnly(true);
  list->setTabChangesFocus(true);
  list->setAccessibleName(text);
  list->setMinimumSize(kListSize.width(), heightFor(*list, lines.size()));
  auto* const ok = new QPushButton("&OK", this);
  ok->setObjectName("cbok");
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);
  auto* const grid = new QGridLayout(this);
  grid->addWidget(icon, 0, 0, Qt::AlignTop);
  grid->addWidget(label, 0, 1);
  grid->addWidget(list, 1, 0, 1, 2);
  grid->addWidget(ok, 2, 0, 1, 2, Qt::AlignRight);
  grid->setColumnStretch(1, 1);
  ok->setFocus();
}

} // namespace mrd::desktop
