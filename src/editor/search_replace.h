#pragma once

#include "frame/messages/messages.h"
#include "platform/ui/form_window.h"
#include "platform/ui/source_field.h"
#include "platform/ui/window_controls.h"

#include <functional>
#include <optional>
#include <string>

namespace mrd::editor {

/// Finds and replaces text in the HTML source.
class FormSuchenErsetzen {
public:
  /// What stands on top in the main window.
  enum class Top { Editor, Source, Other };
  struct Hooks {
    std::function<Top()> top = [] { return Top::Source; };
    /// The editing surface looks for a text itself, and asks for it.
    std::function<void()> findInEditor = [] {};
    std::function<void()> pageChanged = [] {};
  };
  FormSuchenErsetzen(messages::Language& language, ui::SourceField& tbhtml, Hooks hooks)
      : language_(language), tbhtml_(tbhtml), hooks_(std::move(hooks))
  {
  }

  // The controls.
  std::string tbsuchen, tbersetzen;
  ui::FormWindow window;

  void Form_Load(ui::WindowControls& controls);
  /// The text to look for has been changed: the places where it stands are marked.
  void tbsuchen_Change();
  /// Selects the next place behind the selection, once more from the top where there is none; message 27 where there is none at
  /// all.
  void cbsuchen_Click();
  /// Replaces the selection if it is the text that is looked for, then goes on to the next place.
  void cbersetzen_Click();
  void cbschließen_Click();

private:
  std::optional<ui::TextRange> next() const;

  messages::Language& language_;
  ui::SourceField& tbhtml_;
  const Hooks hooks_;
};

} // namespace mrd::editor
