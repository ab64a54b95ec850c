#include "frame/messages/caption_rows.h"

#include "base/stored_text.h"
#include "base/text.h"

#include <array>
#include <optional>
#include <string>

namespace mrd::messages {
namespace {

struct CaptionRow {
  std::string type, control;
  std::optional<int> index;
  std::string caption, toolTip;
  std::optional<bool> enabled, visible;

  ui::ControlTexts texts() const { return {caption, toolTip, enabled, visible}; }
};

/// Nothing for an empty column: the control then stays as it is.
std::optional<bool> state(const std::string& text) { return text.empty() ? std::nullopt : std::optional(base::yesNo(text)); }

CaptionRow readRow(const dao::Recordset& row)
{
  const auto field = [&](std::string_view column) { return base::trim(row.value(column).text()); };
  const auto index = field("Index");
  return {
      field("ControlType"),          field("controlname"), index.empty() ? std::nullopt : std::optional(base::wholeNumber(index)),
      field("CaptionText"),          field("ToolTipText"), state(field("controlenabled")),
      state(field("controlvisible"))};
}

void applyControl(const CaptionRow& row, ui::WindowControls& Fenster)
{
  auto texts = row.texts();
  if (base::upper(row.type) == "MENU")
    texts.toolTip.reset(); // menu entries have none
  if (row.control == "TextBox" || (row.control == "HTMLText" && !row.index)) {
    texts.caption.reset();
    Fenster.setText(row.control, row.index, row.caption);
  }
  Fenster.setControl(row.control, row.index, texts);
}

void applyToolbarButton(const CaptionRow& row, ui::WindowControls& Fenster)
{
  const auto toolbar = base::upper(row.control);
  auto texts = row.texts();
  if (toolbar == "TOOLBAR1")
    texts.caption.reset(); // its buttons show icons alone
  else if (toolbar != "TOOLBAR2" && toolbar != "TOOLBAR3")
    return;
  Fenster.setToolbarButton(row.control, row.index.value_or(0), texts);
}

void applyForm(const CaptionRow& row, ui::WindowControls& Fenster)
{
  const ui::ControlTexts texts{row.caption, {}, row.enabled, {}};
  if (row.index)
    Fenster.setControl(row.control, row.index, texts);
  else
    Fenster.setWindow(texts);
}

void applyFrame(const CaptionRow& row, ui::WindowControls& Fenster) { Fenster.setControl(row.control, {}, row.texts()); }

/// Writes captions of tab pages. A page is written by making it current, so that the page that was current before is kept and put
/// back when the walk leaves the control.
class TabPages {
public:
  explicit TabPages(ui::WindowControls& Fenster) : Fenster_(Fenster) {}

  void apply(const CaptionRow& row)
  {
    if (row.control != control_) {
      finish();
      keptPage_ = Fenster_.currentTab(row.control);
      control_ = row.control;
    }
    Fenster_.setCurrentTab(control_, row.index.value_or(0));
    Fenster_.setCurrentTabTexts(control_, row.texts());
  }

  void finish()
  {
    if (!control_.empty())
      Fenster_.setCurrentTab(control_, keptPage_);
    control_.clear();
  }

private:
  ui::WindowControls& Fenster_;
  std::string control_;
  int keptPage_ = 0;
};

struct TypeRule {
  std::string_view type;
  void (*apply)(const CaptionRow&, ui::WindowControls&);
};

constexpr std::array kTypeRules{
    TypeRule{"TextBox", applyControl}, TypeRule{"Menu", applyControl},         TypeRule{"Label", applyControl},
    TypeRule{"Button", applyControl},  TypeRule{"OptionButton", applyControl}, TypeRule{"Toolbar", applyToolbarButton},
    TypeRule{"Form", applyForm},       TypeRule{"Frame", applyFrame},          TypeRule{"CheckBox", applyFrame},
};

const TypeRule* ruleOf(std::string_view type)
{
  const auto name = base::upper(type) == "MENU" ? "Menu" : type;
  for (const auto& rule : kTypeRules)
    if (rule.type == name)
      return &rule;
  return nullptr;
}

template <class Apply>
void forEachRow(dao::Recordset rows, const std::function<void(const base::Error&)>& onMissingControl, Apply&& apply)
{
  for (; !rows.eof(); rows.moveNext()) {
    try {
      apply(readRow(rows));
    } catch (const base::Error& error) {
      if (error.kind() != base::ErrorNumber::ControlNotFound)
        throw;
      onMissingControl(error);
    }
  }
}

} // namespace

void applyCaptions(dao::Database& dbLanguage, std::string_view Sprache, ui::WindowControls& Fenster,
                   const std::function<void(const base::Error&)>& onMissingControl)
{
  const auto Name = Fenster.name();
  auto types = dbLanguage.openSnapshot("SELECT distinct tbl_Language.ControlType FROM tbl_Language WHERE FormName = ?;", {Name});
  for (; !types.eof(); types.moveNext()) {
    const auto type = base::trim(types.value("ControlType").text());
    const auto rows = [&](const std::string& order) {
      return dbLanguage.openSnapshot("Select * from tbl_Language Where (FormName = ?) And (ControlType = ?) And (Language = ?)" +
                                         order,
                                     {Name, type, Sprache});
    };
    if (type == "Tab") {
      TabPages pages(Fenster);
      forEachRow(rows(" order by [Index] desc;"), onMissingControl, [&](const CaptionRow& row) { pages.apply(row); });
      pages.finish();
    } else if (const auto* rule = ruleOf(type)) {
      forEachRow(rows(""), onMissingControl, [&](const CaptionRow& row) { rule->apply(row, Fenster); });
    }
  }
}

} // namespace mrd::messages
