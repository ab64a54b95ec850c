#include "editor/insert_table.h"

#include "base/text.h"

#include <charconv>
#include <optional>

namespace mrd::editor {
namespace {

constexpr int kMessageNoNumber = 43, kMessageRefused = 44;

/// A whole number above 0; nothing for any other text.
std::optional<int> countOf(const std::string& text)
{
  const std::string number = base::trim(text);
  int count = 0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), count);
  const bool isWhole = error == std::errc() && end == number.data() + number.size();
  return isWhole && count > 0 ? std::optional(count) : std::nullopt;
}

} // namespace

InsertTableDlg::InsertTableDlg(messages::Language& language, ui::EditingSurface& DHTMLEdit1, std::function<void()> pageChanged)
    : language_(language), surface_(DHTMLEdit1), pageChanged_(std::move(pageChanged))
{
  const ui::NewTable proposed;
  Rows = std::to_string(proposed.rows);
  Cols = std::to_string(proposed.columns);
  TableAttrs = proposed.tableAttributes;
  CellAttrs = proposed.cellAttributes;
  TableCaption = proposed.caption;
}

void InsertTableDlg::Form_Load(ui::WindowControls& controls)
{
  language_.Setlanguage(controls);
  window.refresh();
}

void InsertTableDlg::OkCmd_Click()
{
  const auto rows = countOf(Rows), columns = countOf(Cols);
  if (!rows || !columns) {
    language_.GetMsg(kMessageNoNumber);
    return;
  }
  if (surface_.insertTable({*rows, *columns, TableAttrs, CellAttrs, TableCaption}))
    pageChanged_();
  else
    language_.GetMsg(kMessageRefused);
  window.unload();
}

} // namespace mrd::editor
