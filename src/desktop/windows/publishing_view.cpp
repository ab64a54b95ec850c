#include "desktop/windows/publishing_view.h"

#include "desktop/seams/shown_text.h"

#include <QApplication>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QStyle>
#include <QTabWidget>
#include <QTreeWidget>

namespace mrd::desktop {
namespace {

enum Column { Name, Fate };

template <class Widget>
Widget& find(const QWidget& window, const char* name)
{
  return *window.findChild<Widget*>(QString::fromUtf8(name));
}

/// What comes and goes leaves the rest where it is.
void keepPlace(QWidget& widget)
{
  auto policy = widget.sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget.setSizePolicy(policy);
}

/// In as few ranges as it has: looking thousands of single ones through takes seconds.
QItemSelection selectionOf(const QListWidget& list, const publish::ListBox& entries)
{
  QItemSelection selection;
  const auto& all = entries.entries;
  for (std::size_t first = 0; first < all.size(); ++first) {
    if (!all[first].isSelected)
      continue;
    std::size_t last = first;
    while (last + 1 < all.size() && all[last + 1].isSelected)
      ++last;
    const auto at = [&](std::size_t row) { return list.model()->index(static_cast<int>(row), 0); };
    selection.select(at(first), at(last));
    first = last;
  }
  return selection;
}

} // namespace

PublishingView::PublishingView(QWidget& window, publish::Publishing& publishing, messages::Language& language)
    : publishing_(publishing), language_(language), tabFTP_(find<QTabWidget>(window, "tabFTP")),
      ListFTPpix_(find<QListWidget>(window, "ListFTPpix")), ListFTPHTML_(find<QListWidget>(window, "ListFTPHTML")),
      ListLauf_(find<QTreeWidget>(window, "ListLauf")), LabelLauf_(find<QLabel>(window, "LabelLauf")),
      Labelftpverzeichnis_(find<QLabel>(window, "Labelftpverzeichnis")), labelSeite_(find<QLabel>(window, "labelSeite")),
      LabelErklärung_(find<QLabel>(window, "LabelErklärung")), cberneut_(find<QPushButton>(window, "cberneut")),
      labelSekunden_(window.findChild<QPushButton*>("labelSekunden"))
{
  ListLauf_.header()->setSectionResizeMode(Name, QHeaderView::ResizeToContents);
  // Measured at the rows in sight: a run can have thousands.
  ListLauf_.header()->setResizeContentsPrecision(0);
  tabFTP_.setCurrentIndex(publishing_.tabFTP);
  connect(&tabFTP_, &QTabWidget::currentChanged, this, [this](int page) { publishing_.tabFTP = page; });
  connect(&ListFTPpix_, &QListWidget::itemSelectionChanged, this, [this] { takeSelection(ListFTPpix_, publishing_.ListFTPpix); });
  connect(&ListFTPHTML_, &QListWidget::itemSelectionChanged, this,
          [this] { takeSelection(ListFTPHTML_, publishing_.ListFTPHTML); });
  publishing_.listsChanged = [this] { showLists(); };
  publishing_.files.replaced = [this] { showFiles(); };
  publishing_.files.changed = [this](std::size_t index) { showFile(index); };
  // Servers have a word in these.
  for (auto* const label : {&labelSeite_, &LabelErklärung_, &Labelftpverzeichnis_, &LabelLauf_})
    label->setTextFormat(Qt::PlainText);
  keepPlace(find<QProgressBar>(window, "ProgressBar1"));
  if (labelSekunden_)
    keepPlace(*labelSekunden_);
}

PublishingView::~PublishingView()
{
  publishing_.listsChanged = [] {};
  publishing_.files.replaced = [] {};
  publishing_.files.changed = [](std::size_t) {};
}

void PublishingView::refresh()
{
  const auto& channel = publishing_.channel;
  Labelftpverzeichnis_.setText(shown(publishing_.Labelftpverzeichnis));
  labelSeite_.setToolTip(shown(language_.shownText(channel.labelSeite.toolTip)));
  LabelErklärung_.setText(shown(publishing_.explanation));
  LabelErklärung_.setVisible(!publishing_.explanation.empty());
  cberneut_.setEnabled(!publishing_.isRunning() && publishing_.files.hasUnsent());
  if (!labelSekunden_)
    return;
  labelSekunden_->setText(shown(language_.shownText(channel.labelSekunden.caption)));
  labelSekunden_->setVisible(channel.labelSekunden.isVisible);
}

void PublishingView::showLists()
{
  showList(ListFTPpix_, publishing_.ListFTPpix);
  showList(ListFTPHTML_, publishing_.ListFTPHTML);
}

void PublishingView::showList(QListWidget& list, const publish::ListBox& entries)
{
  const QSignalBlocker quiet(list);
  list.clear();
  QStringList texts;
  for (const auto& entry : entries.entries)
    texts << shown(entry.text);
  list.addItems(texts);
  list.selectionModel()->select(selectionOf(list, entries), QItemSelectionModel::ClearAndSelect);
}

void PublishingView::takeSelection(QListWidget& list, publish::ListBox& entries)
{
  for (auto& entry : entries.entries)
    entry.isSelected = false;
  for (const auto& index : list.selectionModel()->selectedIndexes())
    if (const auto row = static_cast<std::size_t>(index.row()); row < entries.entries.size())
      entries.entries[row].isSelected = true;
}

void PublishingView::fill(QTreeWidgetItem& item, const publish::RunFile& file) const
{
  const auto text = publish::fateText(file, publishing_.Sprache());
  item.setText(Name, shown(file.shownName()));
  item.setText(Fate, shown(text));
  item.setToolTip(Fate, shownToolTip(text));
  // Not by the words alone: one refused file among a thousand is to be seen.
  item.setIcon(Name,
               file.fate == publish::RunFile::Fate::Failed ? qApp->style()->standardIcon(QStyle::SP_MessageBoxWarning) : QIcon());
}

void PublishingView::showFiles()
{
  ListLauf_.clear();
  QList<QTreeWidgetItem*> items;
  for (const auto& file : publishing_.files.all()) {
    items << new QTreeWidgetItem;
    fill(*items.back(), file);
  }
  ListLauf_.addTopLevelItems(items);
  LabelLauf_.setText(shown(publishing_.files.summary(publishing_.Sprache())));
}

void PublishingView::showFile(std::size_t index)
{
  auto* const item = ListLauf_.topLevelItem(static_cast<int>(index));
  if (!item)
    return;
  fill(*item, publishing_.files[index]);
  ListLauf_.scrollToItem(item);
  LabelLauf_.setText(shown(publishing_.files.summary(publishing_.Sprache())));
}

} // namespace mrd::desktop
