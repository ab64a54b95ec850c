#pragma once

#include <QListView>
#include <QStringList>

#include <functional>

namespace mrd::desktop {

/// A list of files from which several are chosen; takes files and texts that are dragged from other programs, where that is
/// wanted.
class FileListView : public QListView {
public:
  struct Events {
    /// The row that was clicked or reached by the keyboard, once for each.
    std::function<void(int row)> clicked = [](int) {};
    /// The key that moves the selected files to the other list, or a double click.
    std::function<void()> moved = [] {};
    /// Native paths; text a file a line.
    std::function<void(const QStringList& files)> filesDropped;
    std::function<void(const QString& text)> textDropped;
  };

  explicit FileListView(QWidget* parent = nullptr);

  /// Which key moves: the space key or the Delete key.
  void setEvents(Events events, Qt::Key moveKey);
  void setModel(QAbstractItemModel* model) override;
  /// The row that the keyboard goes on from, without a click on it.
  void setKeyboardRow(int row);

protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;

private:
  void tellClick(const QModelIndex& index);

  Events events_;
  Qt::Key moveKey_ = Qt::Key_Space;
  int clickedRow_ = -1;
  bool quiet_ = false;
};

} // namespace mrd::desktop
