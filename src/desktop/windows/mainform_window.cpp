#include "desktop/windows/mainform_window.h"

#include "desktop/looks/icons.h"
#include "desktop/seams/shown_text.h"
#include "desktop/windows/mainform_window.ui.h"
#include "desktop/windows/pictures.h"
#include "mainform/draft_keeper.h"
#include "mainform/menu_table.h"
#include "mainform/window_placement.h"
#include "platform/ui/twips.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QLabel>
#include <QMenu>
#include <QProgressBar>
#include <QSignalBlocker>

namespace mrd::desktop {
namespace {

constexpr int kMillisecondsPerSecond = 1000;
constexpr int kLeftButton = 1;
constexpr QMargins kPanelMargins{8, 2, 8, 2};

int twips(int pixels) { return pixels * ui::kTwipsPerPixel; }

} // namespace

MainformWindow::MainformWindow(mainform::Program& program, QtUi& userInterface, files::UserSettings& userSettings,
                               std::unique_ptr<WebEditingSurface> surface)
    : userInterface_(userInterface), userSettings_(userSettings), ui_(std::make_unique<Ui::Mainform>()),
      surface_(place(std::move(surface))), tree_(*ui_->TreeView1), screen_(*this), dialogs_(*this)
{
  showPictures(*this);
  setWindowIcon(programIcon());
  ui_->imgSplitter->setStretchFactor(0, 0);
  ui_->imgSplitter->setStretchFactor(1, 1);
  addStatusPanels();
  userInterface_.setDisplay(this);
  form_ = std::make_unique<mainform::Mainform>(
      program, mainform::Mainform::Seams{screen_, dialogs_, surface_, *ui_->tbhtml, tree_, shell_, userSettings_, clipboard_});
  fields_ = std::make_unique<MainformFields>(*ui_, *form_, screen_.controls(), *this);
  connectMenus();
  connectToolbars();
  connectTree();
  connectTabs();
  connectKeys();
  connect(&timer_, &QTimer::timeout, this, [this] { form_->Timer(); });
}

MainformWindow::~MainformWindow()
{
  dialogs_.closeAll();
  userInterface_.setDisplay(nullptr);
}

WebEditingSurface& MainformWindow::place(std::unique_ptr<WebEditingSurface> surface)
{
  ui_->setupUi(this);
  surface->setObjectName("DHTMLEdit1");
  ui_->picEditor->layout()->addWidget(surface.get());
  return *surface.release();
}

bool MainformWindow::start(std::string_view projectFile)
{
  // The page's process has come up while this window was made, and waits for answers.
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  form_->Form_Load(projectFile);
  if (!closed_)
    timer_.start(mainform::DraftKeeper::kIntervalSeconds * kMillisecondsPerSecond);
  return !closed_;
}

void MainformWindow::addStatusPanels()
{
  panel1_ = new QLabel(this);
  panel2_ = new QLabel(this);
  running_ = new QLabel(this);
  for (QLabel* const panel : {panel1_, panel2_, running_})
    panel->setContentsMargins(kPanelMargins);
  progress_ = new QProgressBar(this);
  progress_->setMaximumSize(160, 14);
  progress_->setTextVisible(false);
  progress_->hide();
  ui_->StatusBar1->addWidget(panel1_);
  ui_->StatusBar1->addWidget(running_, 1);
  ui_->StatusBar1->addPermanentWidget(progress_);
  ui_->StatusBar1->addPermanentWidget(panel2_);
}

void MainformWindow::connectMenus()
{
  for (const auto* const name : {"Edit", "Format", "Table", "D2D"})
    connectMenu(dynamic_cast<QMenu&>(screen_.controls().object(name)));
  for (const auto& entry : mainform::menuEntries()) {
    if (entry.menu.empty() || entry.caption == "-")
      continue;
    auto* const action = dynamic_cast<QAction*>(&screen_.controls().object(entry.name, entry.index));
    if (!action)
      continue;
    action->setEnabled(entry.works);
    connect(action, &QAction::triggered, this,
            [this, name = entry.name, index = entry.index] { form_->menu_Click(name, index); });
  }
}

/// The states that the selection gives to entries hold while their menu is open: keys find every command.
void MainformWindow::connectMenu(QMenu& menu)
{
  connect(&menu, &QMenu::aboutToShow, this, [this, &menu] { form_->menuOpens(menu.objectName().toStdString()); });
  connect(&menu, &QMenu::aboutToHide, this, [this, name = menu.objectName().toStdString()] {
    for (const auto& entry : mainform::menuEntries())
      if (entry.menu == name && entry.works && entry.caption != "-")
        if (auto* const action = qobject_cast<QAction*>(&screen_.controls().object(entry.name, entry.index)))
          action->setEnabled(true);
  });
}

void MainformWindow::connectToolbars()
{
  for (const auto& button : mainform::toolButtons()) {
    auto& action = dynamic_cast<QAction&>(screen_.controls().object(button.key));
    if (button.toolbar == "Toolbar1")
      connect(&action, &QAction::triggered, this, [this, key = button.key] { form_->Toolbar1_ButtonClick(key); });
    else if (button.toolbar == "Toolbar3")
      connect(&action, &QAction::triggered, this, [this, key = button.key] { form_->Toolbar3_ButtonClick(key); });
    else
      connect(&action, &QAction::triggered, this, [this, key = button.key] { form_->Toolbar2_ButtonClick(key); });
    action.setEnabled(button.works);
  }
}

void MainformWindow::connectTree()
{
  PageTree::Events events;
  events.down = [this](const PageTree::Hit& hit) { form_->treeMouse().TreeView1_MouseDown(hit); };
  events.move = [this](const PageTree::Hit& hit) { form_->treeMouse().TreeView1_MouseMove(kLeftButton, hit); };
  events.over = [this](const PageTree::Hit& hit, QPoint point) {
    form_->treeMouse().TreeView1_DragOver(hit, twips(point.x()), twips(point.y()));
  };
  events.drop = [this](const PageTree::Hit& hit) { form_->treeMouse().TreeView1_DragDrop(hit); };
  events.cancelled = [this] { form_->treeMouse().dragCancelled(); };
  events.opened = [this](const std::string& key) { tree_.opened(key); };
  events.canUndo = [this] { return form_->pages().treeChange() != pagetree::TreeUndo::Change::None; };
  events.undo = [this] { form_->mnuSeitenZurueck_Click(); };
  ui_->TreeView1->setEvents(std::move(events));
}

void MainformWindow::connectTabs()
{
  connect(ui_->tabHtml, &QTabWidget::currentChanged, this, [this](int page) {
    const int previous = form_->tabs().tabHtml;
    form_->tabs().tabHtml = page;
    form_->tabs().tabHtml_Click(previous);
  });
  connect(ui_->TabTree, &QTabWidget::currentChanged, this, [this](int page) {
    const int previous = form_->tabs().TabTree;
    form_->tabs().TabTree = page;
    form_->tabs().TabTree_Click(previous);
  });
  connect(ui_->imgSplitter, &QSplitter::splitterMoved, this, [this](int left, int) { placeSplitter(left); });
  // The button that saves the settings stands below the pages that hold them.
  constexpr int kFirstSettingsPage = 3;
  const auto showBar = [this](int page) { ui_->FrmSpeichern->setVisible(page >= kFirstSettingsPage); };
  connect(ui_->tabHtml, &QTabWidget::currentChanged, this, showBar);
  showBar(ui_->tabHtml->currentIndex());
}

void MainformWindow::connectKeys()
{
  // Deletes the page only where the key cannot mean a letter.
  auto* const remove = new QAction(ui_->TreeView1);
  remove->setShortcut(QKeySequence::Delete);
  remove->setShortcutContext(Qt::WidgetShortcut);
  connect(remove, &QAction::triggered, ui_->SeiteSub_1, &QAction::trigger);
  ui_->TreeView1->addAction(remove);
  ui_->seitespeichern->setShortcut(QKeySequence::Save);
  auto* const again = new QAction(this);
  again->setObjectName("findNext");
  again->setShortcut(QKeySequence::FindNext);
  connect(again, &QAction::triggered, this, [this] { form_->findNext(); });
  addAction(again);
}

void MainformWindow::placeSplitter(int leftPx)
{
  const int left = form_->SizeControls(twips(leftPx)) / ui::kTwipsPerPixel;
  const QSignalBlocker quiet(ui_->imgSplitter);
  ui_->imgSplitter->setSizes({left, std::max(0, ui_->imgSplitter->width() - left - ui_->imgSplitter->handleWidth())});
}

void MainformWindow::showFirst()
{
  started_ = true;
  // A user who has never placed the window gets room for his page.
  if (userSettings_.value(mainform::kSettingsSection, "MainWidth", "").empty())
    showMaximized();
  else
    QMainWindow::show();
}

void MainformWindow::unloadWithoutQuestion()
{
  unloading_ = true;
  close();
}

void MainformWindow::closeEvent(QCloseEvent* event)
{
  if (closed_)
    return;
  if (!unloading_ && !form_->Form_QueryUnload()) {
    event->ignore();
    return;
  }
  // Whatever the closing of other windows brings: this is done once.
  closed_ = true;
  timer_.stop();
  form_->Form_Unload();
  event->accept();
}

void MainformWindow::resizeEvent(QResizeEvent* event)
{
  QMainWindow::resizeEvent(event);
  if (form_ && started_ && !isMinimized())
    form_->Form_Resize(twips(width()));
}

void MainformWindow::changeEvent(QEvent* event)
{
  QMainWindow::changeEvent(event);
  // The preview's colours are the site's; a new palette of the program must not take their place.
  if (event->type() == QEvent::PaletteChange && fields_)
    fields_->show(mainform::Shown::Colours);
}

void MainformWindow::showStatus(ui::StatusPlace place, std::string_view text)
{
  QLabel* const panel = place == ui::StatusPlace::Panel1 ? panel1_ : place == ui::StatusPlace::Panel2 ? panel2_ : running_;
  panel->setText(shown(text));
}

void MainformWindow::showProgress(std::size_t value, std::size_t maximum)
{
  progress_->setMaximum(static_cast<int>(maximum));
  progress_->setValue(static_cast<int>(value));
  progress_->show();
}

void MainformWindow::hideProgress() { progress_->hide(); }

} // namespace mrd::desktop
