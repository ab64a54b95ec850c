#pragma once

#include "desktop/controls/file_list_view.h"
#include "desktop/controls/thumbnail_maker.h"
#include "frame/messages/messages.h"
#include "pictures/file_scan.h"

#include <QAbstractListModel>
#include <QIcon>

#include <functional>

namespace mrd::desktop {

/// One of the two lists of the scan window: the form object's entries with small pictures beside their names, and the selection
/// of the view.
class FileList : public QAbstractListModel {
public:
  /// `box` is a list of `form`.
  FileList(pictures::FrmFileScan& form, messages::Language& language, pictures::ListBox& box, ThumbnailMaker& thumbnails,
           FileListView& view);

  /// The entries are other ones; the user stays at the place where he was.
  void refresh();
  /// The view follows the form object, which a button may have told to select all.
  void select();
  /// There are more of them, behind those that were there.
  void grow();
  /// Small pictures have arrived.
  void picturesChanged();
  /// The program's own small pictures are to be drawn anew.
  void paletteChanged();

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

private:
  void keepSelection(const QItemSelection& selected, const QItemSelection& deselected);
  QIcon picture(const pictures::ListEntry& entry) const;

  pictures::FrmFileScan& form_;
  messages::Language& language_;
  pictures::ListBox& box_;
  ThumbnailMaker& thumbnails_;
  FileListView& view_;
  QIcon picture_, other_;
  int shown_ = 0;
  bool selecting_ = false;
};

/// Size of the small pictures.
inline constexpr QSize kThumbnailSize{64, 48};

} // namespace mrd::desktop
