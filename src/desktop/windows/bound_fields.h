#pragma once
// Fields of a window that show a text of a form object, and give back what the user types.

#include "desktop/seams/shown_text.h"
#include "frame/settings/fields.h"

#include <QComboBox>
#include <QLineEdit>

#include <functional>
#include <string>

namespace mrd::desktop {

inline void showText(QLineEdit& line, const std::string& text)
{
  if (line.text() != shown(text))
    line.setText(shown(text));
}

/// Long texts are read from their beginning.
void showLine(QLineEdit& widget, const QString& text);
/// Entries, choice and text of a list; a text that is no entry is shown all the same.
void showList(QComboBox& widget, const settings::ComboBox& box);

/// What the user types goes into the text, and then `changed` runs.
inline void bindText(
    QLineEdit& line, std::string& text, std::function<void()> changed = [] {})
{
  showText(line, text);
  QObject::connect(&line, &QLineEdit::textEdited, &line, [&text, changed = std::move(changed)](const QString& typed) {
    text = typed.toStdString();
    changed();
  });
}

} // namespace mrd::desktop
