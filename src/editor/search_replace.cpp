#include "editor/search_replace.h"

#include "base/text.h"

namespace mrd::editor {
namespace {

constexpr int kMessageNotHere = 10, kMessageNotFound = 27;

} // namespace

void FormSuchenErsetzen::Form_Load(ui::WindowControls& controls)
{
  language_.Setlanguage(controls);
  window.refresh();
  tbsuchen_Change();
}

void FormSuchenErsetzen::tbsuchen_Change() { tbhtml_.markAll(tbsuchen); }

void FormSuchenErsetzen::cbsuchen_Click()
{
  switch (hooks_.top()) {
  case Top::Editor:
    hooks_.findInEditor();
    return;
  case Top::Other:
    language_.GetMsg(kMessageNotHere);
    return;
  case Top::Source:
    break;
  }
  if (const auto place = next()) {
    tbhtml_.select(*place);
    tbhtml_.setFocus();
  } else {
    language_.GetMsg(kMessageNotFound);
  }
}

std::optional<ui::TextRange> FormSuchenErsetzen::next() const
{
  if (tbsuchen.empty())
    return std::nullopt;
  const auto place = tbhtml_.find(tbsuchen, tbhtml_.selection().end());
  return place ? place : tbhtml_.find(tbsuchen, 0);
}

void FormSuchenErsetzen::cbersetzen_Click()
{
  // With nothing to look for, nothing selected equals it: the replacement is inserted at the cursor.
  const bool isMatch = base::lower(tbhtml_.selectedText()) == base::lower(tbsuchen);
  if (hooks_.top() == Top::Source && isMatch) {
    tbhtml_.replaceSelection(tbersetzen);
    hooks_.pageChanged();
  }
  cbsuchen_Click();
}

void FormSuchenErsetzen::cbschließen_Click()
{
  tbhtml_.markAll({});
  window.unload();
}

} // namespace mrd::editor
