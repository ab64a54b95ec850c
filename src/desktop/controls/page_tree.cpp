#include "desktop/controls/page_tree.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace mrd::desktop {
namespace {

constexpr int kKeyRole = Qt::UserRole;
/// While the mouse stands still at an edge, the tree goes on scrolling in steps of this length.
constexpr int kOverAgainMilliseconds = 60;

} // namespace

PageTree::PageTree(QWidget* parent) : QTreeWidget(parent)
{
  setColumnCount(1);
  setHeaderHidden(true);
  setUniformRowHeights(true);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setIconSize({18, 18});
  setIndentation(18);
  header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  header()->setStretchLastSection(false);
  overAgain_.setInterval(kOverAgainMilliseconds);
  connect(&overAgain_, &QTimer::timeout, this, [this] { tellOver(); });
  connect(this, &QTreeWidget::itemExpanded, this, [this](QTreeWidgetItem* item) {
    if (!quiet_)
      events_.opened(keyOf(*item));
  });
}

std::string PageTree::keyOf(const QTreeWidgetItem& item) { return item.data(0, kKeyRole).toString().toStdString(); }

QTreeWidgetItem* PageTree::newItem(const std::string& key, const QString& label, const QIcon& picture)
{
  auto* const item = new QTreeWidgetItem;
  item->setData(0, kKeyRole, QString::fromStdString(key));
  item->setText(0, label);
  item->setToolTip(0, label);
  item->setIcon(0, picture);
  return item;
}

void PageTree::beginDrag()
{
  dragging_ = true;
  setCursor(Qt::DragMoveCursor);
  overAgain_.start();
}

void PageTree::setDropMark(QTreeWidgetItem* item)
{
  dropMark_ = item;
  viewport()->update();
}

void PageTree::forgetItems() { dropMark_ = nullptr; }

void PageTree::resizeEvent(QResizeEvent* event)
{
  // The mark of the selection reaches from edge to edge, and longer labels can still be scrolled to.
  header()->setMinimumSectionSize(viewport()->width());
  QTreeWidget::resizeEvent(event);
}

void PageTree::mousePressEvent(QMouseEvent* event)
{
  const QPoint point = event->position().toPoint();
  const QTreeWidgetItem* const item = itemAt(point);
  const bool onBranch = item && point.x() < visualItemRect(item).left();
  const Hit key = hit(point);
  // First the widget's own work: what the owner does may rebuild the whole tree.
  QTreeWidget::mousePressEvent(event);
  if (event->button() != Qt::LeftButton || onBranch)
    return;
  pressed_ = true;
  events_.down(key);
}

void PageTree::mouseMoveEvent(QMouseEvent* event)
{
  if (!(event->buttons() & Qt::LeftButton))
    return QTreeWidget::mouseMoveEvent(event);
  dragPoint_ = event->position().toPoint();
  if (dragging_)
    tellOver();
  else if (pressed_)
    events_.move(hit(dragPoint_));
}

void PageTree::mouseReleaseEvent(QMouseEvent* event)
{
  pressed_ = false;
  if (!dragging_)
    return QTreeWidget::mouseReleaseEvent(event);
  const QPoint point = event->position().toPoint();
  endDrag();
  if (viewport()->rect().contains(point))
    events_.drop(hit(point));
  else
    events_.cancelled();
}

bool PageTree::event(QEvent* event)
{
  // Elsewhere the key belongs to the page's text.
  if (event->type() == QEvent::ShortcutOverride && dynamic_cast<QKeyEvent&>(*event).matches(QKeySequence::Undo) &&
      events_.canUndo()) {
    event->accept();
    return true;
  }
  return QTreeWidget::event(event);
}

void PageTree::keyPressEvent(QKeyEvent* event)
{
  if (event->matches(QKeySequence::Undo))
    return events_.undo();
  if (dragging_ && event->key() == Qt::Key_Escape) {
    endDrag();
    return events_.cancelled();
  }
  const QTreeWidgetItem* const before = currentItem();
  QTreeWidget::keyPressEvent(event);
  const QTreeWidgetItem* const now = currentItem();
  const bool chosen = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (now && (now != before || chosen))
    events_.down(keyOf(*now));
}

void PageTree::drawRow(QPainter* painter, const QStyleOptionViewItem& options, const QModelIndex& index) const
{
  QTreeWidget::drawRow(painter, options, index);
  if (!dropMark_ || itemFromIndex(index) != dropMark_)
    return;
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(QPen(palette().color(QPalette::Highlight), 1.5));
  QColor fill = palette().color(QPalette::Highlight);
  fill.setAlpha(40);
  painter->setBrush(fill);
  painter->drawRoundedRect(QRectF(options.rect).adjusted(1, 1, -2, -2), 4, 4);
  painter->restore();
}

PageTree::Hit PageTree::hit(QPoint point) const
{
  const QTreeWidgetItem* const item = itemAt(point);
  return item ? Hit(keyOf(*item)) : Hit();
}

void PageTree::endDrag()
{
  dragging_ = false;
  overAgain_.stop();
  unsetCursor();
  setDropMark(nullptr);
}

void PageTree::tellOver() { events_.over(hit(dragPoint_), dragPoint_); }

} // namespace mrd::desktop
