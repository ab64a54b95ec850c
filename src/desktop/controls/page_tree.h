#pragma once

#include <QTimer>
#include <QTreeWidget>

#include <functional>
#include <optional>
#include <string>

namespace mrd::desktop {

/// The tree of pages as a widget. It tells the mouse as the owner understands it: buttons and nodes under the cursor, by key. A
/// drag stays inside the tree, so that it needs neither the system's clipboard nor another program.
class PageTree : public QTreeWidget {
public:
  /// Key of the node under the cursor; nothing outside of nodes.
  using Hit = std::optional<std::string>;

  struct Events {
    /// The left button went down on a node's picture or text, or beside all nodes; or a key has chosen another node.
    std::function<void(const Hit&)> down = [](const Hit&) {};
    /// The mouse moves with the left button held.
    std::function<void(const Hit&)> move = [](const Hit&) {};
    /// Something is dragged over this point of the tree, in pixels. Comes again and again while the mouse stands still.
    std::function<void(const Hit&, QPoint)> over = [](const Hit&, QPoint) {};
    std::function<void(const Hit&)> drop = [](const Hit&) {};
    std::function<void()> cancelled = [] {};
    /// A node has been opened by the user.
    std::function<void(const std::string&)> opened = [](const std::string&) {};
    /// Whether the key for undoing belongs to the tree, and what it does then.
    std::function<bool()> canUndo = [] { return false; };
    std::function<void()> undo = [] {};
  };

  explicit PageTree(QWidget* parent = nullptr);

  void setEvents(Events events) { events_ = std::move(events); }

  static std::string keyOf(const QTreeWidgetItem& item);
  /// Makes the node with this key.
  static QTreeWidgetItem* newItem(const std::string& key, const QString& label, const QIcon& picture);

  void beginDrag();
  bool isDragging() const { return dragging_; }
  /// The node that would take what is dragged; null for none.
  void setDropMark(QTreeWidgetItem* item);
  /// Nodes are about to go: nothing may point at them.
  void forgetItems();
  /// Changes that are not the user's tell nothing.
  void setQuiet(bool quiet) { quiet_ = quiet; }

protected:
  bool event(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void drawRow(QPainter* painter, const QStyleOptionViewItem& options, const QModelIndex& index) const override;

private:
  Hit hit(QPoint point) const;
  void endDrag();
  void tellOver();

  Events events_;
  QTreeWidgetItem* dropMark_ = nullptr;
  QTimer overAgain_;
  QPoint dragPoint_;
  bool dragging_ = false, pressed_ = false, quiet_ = false;
};

} // namespace mrd::desktop
