#include "editor/insert_table.h"

#include "base/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

namespace mrd::editor {
namespace {

constexpr int kMessageNoNumber = 43, kMessageRefused = 44;

/// A number above 0, rounded to what rows and columns can be, even where that is 0; nothing for any other text.
std::optional<int> countOf(const std::string& text)
{
  constexpr double kMost = std::numeric_limits<int>::max();
  const std::string digits = base::replaceAll(base::trim(text), ",", ".");
  double number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  const bool isNumber = error == std::errc() && end == digits.data() + digits.size() && std::isfinite(number);
  return isNumber && number > 0 ? std::optional(static_cast<int>(std::min(std::nearbyint(number), kMost))) : std::nullopt;
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
