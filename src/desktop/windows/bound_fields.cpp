#include "desktop/windows/bound_fields.h"

#include <QSignalBlocker>

namespace mrd::desktop {

void showLine(QLineEdit& widget, const QString& text)
{
  if (widget.text() == text)
    return;
  widget.setText(text);
  widget.setCursorPosition(0);
}

void showList(QComboBox& widget, const settings::ComboBox& box)
{
  const QSignalBlocker quiet(widget);
  bool same = static_cast<std::size_t>(widget.count()) == box.entries.size();
  for (int i = 0; same && i < widget.count(); ++i)
    same = widget.itemText(i) == shown(box.entries[static_cast<std::size_t>(i)]);
  if (!same) {
    widget.clear();
    for (const auto& entry : box.entries)
      widget.addItem(shown(entry));
  }
  widget.setCurrentIndex(box.ListIndex < widget.count() ? box.ListIndex : -1);
  if (!widget.isEditable())
    widget.setPlaceholderText(shown(box.Text));
  else if (widget.currentText() != shown(box.Text))
    widget.setEditText(shown(box.Text));
}

} // namespace mrd::desktop
