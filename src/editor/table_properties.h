#pragma once

#include "editor/cls_tag.h"
#include "frame/messages/messages.h"
#include "platform/ui/editing_surface.h"
#include "platform/ui/form_window.h"
#include "platform/ui/window_controls.h"

#include <functional>
#include <initializer_list>
#include <string>

namespace mrd::editor {

/// The attributes of the table, row and cell around the cursor.
class FrmTabelleneigenschaften {
public:
  /// `pageChanged` is told whenever something is written.
  FrmTabelleneigenschaften(messages::Language& language, ui::EditingSurface& DHTMLEdit1, std::function<void()> pageChanged);
  FrmTabelleneigenschaften(const FrmTabelleneigenschaften&) = delete;
  FrmTabelleneigenschaften& operator=(const FrmTabelleneigenschaften&) = delete;

  // The controls.
  std::string tb_tr_valign, tb_tr_bgcolor, tb_tr_bgcolor2;
  std::string tb_table_width, tb_table_bgcolor, tb_table_border, tb_table_cellpadding, tb_table_cellspacing;
  std::string tb_td_align, tb_td_width, tb_td_bgcolor, tb_td_colspan;
  ui::FormWindow window;

  void Form_Load(ui::WindowControls& controls);
  /// Fills the boxes from the nearest cell, row and table around the element.
  void EigenschaftenErmitteln(const ui::PageElement& element);
  bool hasCell() const { return cell_.Element().has_value(); }
  bool hasRow() const { return row_.Element().has_value(); }
  bool hasTable() const { return table_.Element().has_value(); }

  void cb_td_ok_Click() { write({&cell_}); }
  void cb_tr_ok_Click() { write({&row_}); }
  void tb_table_ok_Click() { write({&table_}); }
  /// All three, and closes.
  void cbok_Click();
  void cbschließen_Click() { window.unload(); }
  /// The colour of a box: 0 of the cell, 1 of the row, 2 of the table, 3 the second of the rows.
  void cbfarbe_Click(int index);
  /// Gives the rows beside the row their colours in turn.
  void cb_tr_Farbwechsel_Click();

private:
  void write(std::initializer_list<clsTag*> tags);

  messages::Language& language_;
  ui::EditingSurface& surface_;
  const std::function<void()> pageChanged_;
  clsTag cell_, row_, table_;
};

} // namespace mrd::editor
