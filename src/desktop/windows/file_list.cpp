#include "desktop/windows/file_list.h"

#include "desktop/looks/icons.h"
#include "desktop/seams/shown_text.h"
#include "pictures/objekt_anzeigen.h"

#include <QItemSelection>
#include <QPainter>
#include <QPixmap>
#include <QScrollBar>

#include <algorithm>

namespace mrd::desktop {
namespace {

/// A small picture in the middle of the place that all of them have.
QIcon centred(const QImage& picture)
{
  QPixmap place(kThumbnailSize);
  place.fill(Qt::transparent);
  QPainter painter(&place);
  painter.drawImage((place.width() - picture.width()) / 2, (place.height() - picture.height()) / 2, picture);
  return place;
}

/// One of the program's own pictures in the same place.
QIcon centred(const QIcon& icon)
{
  constexpr int kSide = 24;
  return centred(icon.pixmap(kSide, kSide, QIcon::Disabled).toImage());
}

} // namespace

FileList::FileList(pictures::FrmFileScan& form, messages::Language& language, pictures::ListBox& box, ThumbnailMaker& thumbnails,
                   FileListView& view)
    : form_(form), language_(language), box_(box), thumbnails_(thumbnails), view_(view)
{
  paletteChanged();
  view_.setModel(this);
  view_.setIconSize(kThumbnailSize);
  connect(view_.selectionModel(), &QItemSelectionModel::selectionChanged, this, &FileList::keepSelection);
}

int FileList::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : shown_; }

QVariant FileList::data(const QModelIndex& index, int role) const
{
  const auto row = static_cast<std::size_t>(index.row());
  if (row >= box_.size())
    return {};
  const auto& entry = box_[row];
  switch (role) {
  case Qt::DisplayRole:
  case Qt::ToolTipRole:
    return shownPath("\\" + language_.shownText(entry.text)).mid(1);
  case Qt::DecorationRole:
    return picture(entry);
  default:
    return {};
  }
}

QIcon FileList::picture(const pictures::ListEntry& entry) const
{
  const auto path = form_.pathOf(entry);
  if (!pictures::isPictureName(path))
    return other_;
  const auto& thumbnail = thumbnails_.find(path);
  return thumbnail.state == ThumbnailMaker::State::Made ? centred(thumbnail.picture) : picture_;
}

void FileList::refresh()
{
  const int row = view_.currentIndex().row(), position = view_.verticalScrollBar()->value();
  beginResetModel();
  shown_ = static_cast<int>(box_.size());
  endResetModel();
  select();
  if (row >= 0 && shown_ > 0)
    view_.setKeyboardRow(std::min(row, shown_ - 1));
  view_.verticalScrollBar()->setValue(position);
}

void FileList::grow()
{
  const int now = static_cast<int>(box_.size());
  // A new scan starts with nothing.
  if (now < shown_)
    return refresh();
  if (now == shown_)
    return;
  beginInsertRows({}, shown_, now - 1);
  shown_ = now;
  endInsertRows();
}

void FileList::picturesChanged() { view_.viewport()->update(); }

void FileList::paletteChanged()
{
  picture_ = centred(icon("picture-one"));
  other_ = centred(icon("page"));
  picturesChanged();
}

void FileList::select()
{
  QItemSelection selection;
  for (int row = 0; row < shown_; ++row) {
    if (!box_[static_cast<std::size_t>(row)].selected)
      continue;
    int last = row;
    while (last + 1 < shown_ && box_[static_cast<std::size_t>(last + 1)].selected)
      ++last;
    selection.select(index(row), index(last));
    row = last;
  }
  selecting_ = true;
  view_.selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
  selecting_ = false;
}

void FileList::keepSelection(const QItemSelection& selected, const QItemSelection& deselected)
{
  if (selecting_)
    return;
  const auto mark = [this](const QItemSelection& selection, bool isSelected) {
    for (const auto& range : selection)
      for (int row = range.top(); row <= range.bottom() && static_cast<std::size_t>(row) < box_.size(); ++row)
        box_[static_cast<std::size_t>(row)].selected = isSelected;
  };
  mark(deselected, false);
  mark(selected, true);
}

} // namespace mrd::desktop
