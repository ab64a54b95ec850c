#include "desktop/windows/tabelleneigenschaften_window.h"

#include "desktop/seams/qt_controls.h"
#include "desktop/windows/bound_fields.h"
#include "desktop/windows/tabelleneigenschaften_window.ui.h"

#include <array>

namespace mrd::desktop {
namespace {

using Form = editor::FrmTabelleneigenschaften;
using Window = Ui::FrmTabelleneigenschaften;

struct Line {
  QLineEdit* Window::*line;
  std::string Form::*field;
};
constexpr std::array kLines{
    Line{&Window::tb_td_width, &Form::tb_td_width},
    Line{&Window::tb_td_bgcolor, &Form::tb_td_bgcolor},
    Line{&Window::tb_td_colspan, &Form::tb_td_colspan},
    Line{&Window::tb_tr_bgcolor, &Form::tb_tr_bgcolor},
    Line{&Window::tb_tr_bgcolor2, &Form::tb_tr_bgcolor2},
    Line{&Window::tb_table_width, &Form::tb_table_width},
    Line{&Window::tb_table_bgcolor, &Form::tb_table_bgcolor},
    Line{&Window::tb_table_border, &Form::tb_table_border},
    Line{&Window::tb_table_cellpadding, &Form::tb_table_cellpadding},
    Line{&Window::tb_table_cellspacing, &Form::tb_table_cellspacing},
};

struct List {
  QComboBox* Window::*list;
  std::string Form::*field;
};
constexpr std::array kLists{List{&Window::tb_td_align, &Form::tb_td_align}, List{&Window::tb_tr_valign, &Form::tb_tr_valign}};

} // namespace

TabelleneigenschaftenWindow::TabelleneigenschaftenWindow(editor::FrmTabelleneigenschaften& form, QWidget* parent)
    : QDialog(parent), form_(form), ui_(std::make_unique<Ui::FrmTabelleneigenschaften>())
{
  ui_->setupUi(this);
  QtControls controls(*this, "FrmTabelleneigenschaften");
  form_.window.unload = [this] { accept(); };
  form_.window.refresh = [this] { refresh(); };
  form_.Form_Load(controls);
  bind();
  ui_->frmZelle->setEnabled(form_.hasCell());
  ui_->frmZeile->setEnabled(form_.hasRow());
  ui_->frmTabelle->setEnabled(form_.hasTable());
}

TabelleneigenschaftenWindow::~TabelleneigenschaftenWindow() { form_.window = {}; }

void TabelleneigenschaftenWindow::bind()
{
  for (const auto& [line, field] : kLines)
    bindText(*(ui_.get()->*line), form_.*field);
  for (const auto& [list, field] : kLists)
    connect(ui_.get()->*list, &QComboBox::editTextChanged, this,
            [this, field = field](const QString& text) { form_.*field = text.toStdString(); });
  const std::array colours{ui_->cbfarbe_0, ui_->cbfarbe_1, ui_->cbfarbe_2, ui_->cbfarbe_3};
  const std::array boxes{ui_->lbl_td_bgcolor, ui_->lbl_tr_bgcolor, ui_->lbl_table_bgcolor, ui_->lbl_tr_bgcolor2};
  for (std::size_t i = 0; i < colours.size(); ++i) {
    colours[i]->setAccessibleName(boxes[i]->text().remove('&').remove(':'));
    connect(colours[i], &QToolButton::clicked, this, [this, i] { form_.cbfarbe_Click(static_cast<int>(i)); });
  }
  connect(ui_->cb_td_ok, &QPushButton::clicked, this, [this] { form_.cb_td_ok_Click(); });
  connect(ui_->cb_tr_ok, &QPushButton::clicked, this, [this] { form_.cb_tr_ok_Click(); });
  connect(ui_->tb_table_ok, &QPushButton::clicked, this, [this] { form_.tb_table_ok_Click(); });
  connect(ui_->cb_tr_Farbwechsel, &QPushButton::clicked, this, [this] { form_.cb_tr_Farbwechsel_Click(); });
  connect(ui_->cbok, &QPushButton::clicked, this, [this] { form_.cbok_Click(); });
  connect(ui_->cbschließen, &QPushButton::clicked, this, [this] { form_.cbschließen_Click(); });
}

void TabelleneigenschaftenWindow::refresh()
{
  for (const auto& [line, field] : kLines)
    showText(*(ui_.get()->*line), form_.*field);
  for (const auto& [list, field] : kLists)
    (ui_.get()->*list)->setEditText(shown(form_.*field));
}

} // namespace mrd::desktop
