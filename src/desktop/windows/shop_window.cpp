#include "desktop/windows/shop_window.h"

#include "desktop/seams/qt_controls.h"
#include "desktop/seams/shown_text.h"
#include "desktop/windows/shop_window.ui.h"

#include <QCloseEvent>
#include <QSignalBlocker>

#include <array>

namespace mrd::desktop {
namespace {

using shop::DataAction;
using shop::frmmrdshop;
using Window = Ui::frmmrdshop;

constexpr std::array<QLineEdit * Window::*, shop::kArticleColumns> kBoxes{
    &Window::txtFields_0, &Window::txtFields_1, &Window::txtFields_2, &Window::txtFields_3, &Window::txtFields_4};

struct Move {
  QPushButton* Window::*button;
  DataAction action;
};
constexpr std::array kMoves{
    Move{&Window::DataFirst, DataAction::MoveFirst},
    Move{&Window::DataPrevious, DataAction::MovePrevious},
    Move{&Window::DataNext, DataAction::MoveNext},
    Move{&Window::DataLast, DataAction::MoveLast},
};

struct Command {
  QPushButton* Window::*button;
  void (*click)(frmmrdshop& form);
};
constexpr std::array kCommands{
    Command{&Window::cmdAdd, [](frmmrdshop& form) { form.cmdAdd_Click(); }},
    Command{&Window::cmdDelete, [](frmmrdshop& form) { form.cmdDelete_Click(); }},
    Command{&Window::cmdRefresh, [](frmmrdshop& form) { form.cmdRefresh_Click(); }},
    Command{&Window::cmdUpdate, [](frmmrdshop& form) { form.cmdUpdate_Click(); }},
    Command{&Window::cmdClose, [](frmmrdshop& form) { form.cmdClose_Click(); }},
    Command{&Window::cbNimmÜberschrift, [](frmmrdshop& form) { form.cbNimmÜberschrift_Click(); }},
    Command{&Window::cbnimmenglisch, [](frmmrdshop& form) { form.cbnimmenglisch_Click(); }},
    Command{&Window::cbArtikelEinfügen, [](frmmrdshop& form) { form.cbArtikelEinfügen_Click(); }},
    Command{&Window::CbWarenkorbeinfügen, [](frmmrdshop& form) { form.CbWarenkorbeinfügen_Click(); }},
    Command{&Window::cbaktualisieren, [](frmmrdshop& form) { form.cbaktualisieren_Click(); }},
};

struct Option {
  QRadioButton* Window::*first;
  QRadioButton* Window::*second;
  bool frmmrdshop::*field;
};
constexpr std::array kOptions{
    Option{&Window::OptionStückzahl, &Window::OptionEinStück, &frmmrdshop::OptionStückzahl},
    Option{&Window::OptionSpracheDeutsch, &Window::OptionSpracheEnglisch, &frmmrdshop::OptionSpracheDeutsch},
    Option{&Window::OptionWahrenkorb, &Window::OptionArtikelDirekt, &frmmrdshop::OptionWahrenkorb},
    Option{&Window::OptionWaehrungEuro, &Window::OptionWaehrngDollar, &frmmrdshop::OptionWaehrungEuro},
};

struct Line {
  QLineEdit* Window::*box;
  std::string frmmrdshop::*field;
};
constexpr std::array kLines{
    Line{&Window::TBShopID, &frmmrdshop::TBShopID},
    Line{&Window::tbwakodeu, &frmmrdshop::tbwakodeu},
    Line{&Window::tbwakoeng, &frmmrdshop::tbwakoeng},
};

void showText(QLineEdit& box, const std::string& text)
{
  const QSignalBlocker quiet(box);
  if (box.text() != shown(text))
    box.setText(shown(text));
}

} // namespace

FrmShopWindow::FrmShopWindow(frmmrdshop& form, messages::Language& language, QWidget* parent)
    : QDialog(parent), form_(form), language_(language), ui_(std::make_unique<Ui::frmmrdshop>())
{
  ui_->setupUi(this);
  setAttribute(Qt::WA_DeleteOnClose);
  form_.window.refresh = [this] { refresh(); };
  form_.window.unload = [this] {
    unloading_ = true;
    close();
  };
  form_.window.setFocus = [this](std::string_view name, std::optional<int> index) { control(name, index).setFocus(); };
  form_.window.selectText = [this](std::string_view name, std::optional<int> index) {
    dynamic_cast<QLineEdit&>(control(name, index)).selectAll();
  };
  connectArticles();
  connectOptions();
  QtControls controls(*this, "frmmrdshop");
  form_.Form_Load(controls);
  nameControls();
}

FrmShopWindow::~FrmShopWindow() = default;

QWidget& FrmShopWindow::control(std::string_view name, std::optional<int> index) const
{
  return index ? *(ui_.get()->*kBoxes.at(static_cast<std::size_t>(*index))) : *findChild<QWidget*>(shown(name));
}

void FrmShopWindow::connectArticles()
{
  for (std::size_t i = 0; i < kBoxes.size(); ++i)
    connect(ui_.get()->*kBoxes[i], &QLineEdit::textChanged, this,
            [this, i](const QString& text) { form_.txtFields[i] = text.toStdString(); });
  for (const auto& [button, action] : kMoves)
    connect(ui_.get()->*button, &QPushButton::clicked, this, [this, action = action] { form_.Data1_Click(action); });
  for (const auto& [button, click] : kCommands)
    connect(ui_.get()->*button, &QPushButton::clicked, this, [this, click = click] { click(form_); });
}

void FrmShopWindow::connectOptions()
{
  for (const auto& [first, second, field] : kOptions)
    connect(ui_.get()->*first, &QRadioButton::toggled, this, [this, field = field](bool checked) { form_.*field = checked; });
  for (const auto& [box, field] : kLines)
    connect(ui_.get()->*box, &QLineEdit::textChanged, this,
            [this, field = field](const QString& text) { form_.*field = text.toStdString(); });
  connect(ui_->lblPartner, &QLabel::linkActivated, this, [this] { form_.lblPartner_Click(); });
}

void FrmShopWindow::nameControls()
{
  ui_->tbwakodeu->setAccessibleName(ui_->FrmSprache->title() + ": " + ui_->OptionSpracheDeutsch->text());
  ui_->tbwakoeng->setAccessibleName(ui_->FrmSprache->title() + ": " + ui_->OptionSpracheEnglisch->text());
  for (const auto& [button, action] : kMoves)
    (ui_.get()->*button)->setAccessibleName((ui_.get()->*button)->toolTip());
  ui_->lblPartner->setText(QStringLiteral("<a href=\"#\">%1</a>").arg(ui_->lblPartner->text().toHtmlEscaped()));
}

void FrmShopWindow::refresh()
{
  for (std::size_t i = 0; i < kBoxes.size(); ++i)
    showText(*(ui_.get()->*kBoxes[i]), form_.txtFields[i]);
  for (const auto& [box, field] : kLines)
    showText(*(ui_.get()->*box), form_.*field);
  for (const auto& [first, second, field] : kOptions)
    (ui_.get()->*(form_.*field ? first : second))->setChecked(true);
  ui_->Data1->setText(shown(language_.shownText(form_.Data1.caption)));
}

void FrmShopWindow::closeEvent(QCloseEvent* event)
{
  if (closed_)
    return;
  if (!unloading_ && !form_.Form_QueryUnload()) {
    event->ignore();
    return;
  }
  closed_ = true;
  form_.Form_Unload();
  event->accept();
}

} // namespace mrd::desktop
