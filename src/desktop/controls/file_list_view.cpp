#include "desktop/controls/file_list_view.h"

#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QTimer>
#include <QUrl>

namespace mrd::desktop {
namespace {

QStringList localFiles(const QMimeData& data)
{
  QStringList files;
  for (const QUrl& url : data.urls())
    if (url.isLocalFile())
      files << url.toLocalFile();
  return files;
}

bool isWelcome(const QMimeData& data) { return !localFiles(data).isEmpty() || data.hasText(); }

} // namespace

FileListView::FileListView(QWidget* parent) : QListView(parent)
{
  setSelectionMode(ExtendedSelection);
  setUniformItemSizes(true);
  setVerticalScrollMode(ScrollPerPixel);
  setEditTriggers(NoEditTriggers);
}

void FileListView::setEvents(Events events, Qt::Key moveKey)
{
  events_ = std::move(events);
  moveKey_ = moveKey;
  setAcceptDrops(static_cast<bool>(events_.filesDropped));
}

void FileListView::setModel(QAbstractItemModel* model)
{
  QListView::setModel(model);
  // A click on the row that has the keyboard already changes no current row, and a key press is no click.
  connect(this, &QListView::clicked, this, &FileListView::tellClick);
  connect(selectionModel(), &QItemSelectionModel::currentChanged, this, &FileListView::tellClick);
}

void FileListView::setKeyboardRow(int row)
{
  quiet_ = true;
  selectionModel()->setCurrentIndex(model()->index(row, 0), QItemSelectionModel::NoUpdate);
  quiet_ = false;
}

void FileListView::tellClick(const QModelIndex& index)
{
  if (quiet_ || !index.isValid())
    return;
  const bool isUnderWay = clickedRow_ >= 0;
  clickedRow_ = index.row();
  if (!isUnderWay)
    QTimer::singleShot(0, this, [this] { events_.clicked(std::exchange(clickedRow_, -1)); });
}

void FileListView::keyPressEvent(QKeyEvent* event)
{
  if (event->key() == moveKey_ && event->modifiers() == Qt::NoModifier)
    return events_.moved();
  QListView::keyPressEvent(event);
}

void FileListView::mouseDoubleClickEvent(QMouseEvent* event)
{
  QListView::mouseDoubleClickEvent(event);
  if (moveKey_ == Qt::Key_Space && event->button() == Qt::LeftButton)
    events_.moved();
}

void FileListView::dragEnterEvent(QDragEnterEvent* event)
{
  if (isWelcome(*event->mimeData()))
    event->acceptProposedAction();
}

void FileListView::dragMoveEvent(QDragMoveEvent* event)
{
  if (isWelcome(*event->mimeData()))
    event->acceptProposedAction();
}

void FileListView::dropEvent(QDropEvent* event)
{
  const QMimeData& dragged = *event->mimeData();
  // The files stay where they are, whatever the other program proposes.
  event->setDropAction(Qt::CopyAction);
  event->accept();
  if (const QStringList files = localFiles(dragged); !files.isEmpty())
    events_.filesDropped(files);
  else
    events_.textDropped(dragged.text());
}

} // namespace mrd::desktop
