#pragma once

#include "frame/messages/messages.h"
#include "publish/publishing.h"

#include <QObject>

class QLabel;
class QListWidget;
class QPushButton;
class QTabWidget;
class QTreeWidget;
class QTreeWidgetItem;

namespace mrd::desktop {

/// The publishing half of an export dialog in the controls of its names: what every such window shows in the same way.
class PublishingView : public QObject {
public:
  /// The window has the controls, and outlives this.
  PublishingView(QWidget& window, publish::Publishing& publishing, messages::Language& language);
  ~PublishingView() override;

  /// Shows status, seconds and buttons; the lists are shown when they change.
  void refresh();

private:
  void showLists();
  void showList(QListWidget& list, const publish::ListBox& entries);
  void takeSelection(QListWidget& list, publish::ListBox& entries);
  void showFiles();
  void showFile(std::size_t index);
  void fill(QTreeWidgetItem& item, const publish::RunFile& file) const;

  publish::Publishing& publishing_;
  messages::Language& language_;
  QTabWidget& tabFTP_;
  QListWidget &ListFTPpix_, &ListFTPHTML_;
  QTreeWidget& ListLauf_;
  QLabel &LabelLauf_, &Labelftpverzeichnis_, &labelSeite_, &LabelErklärung_;
  QPushButton& cberneut_;
  /// Only in the dialog that has it.
  QPushButton* labelSekunden_;
};

} // namespace mrd::desktop
