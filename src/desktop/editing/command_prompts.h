#pragma once
// Commands that ask the user before they change the document.

#include "platform/ui/editing_surface.h"

#include <string_view>

namespace mrd::desktop {

class EditedDocument;

/// Shows the dialogs with what the selection has, and runs the commands with what the user has chosen there.
class CommandPrompts {
public:
  explicit CommandPrompts(EditedDocument& document) : document_(document) {}

  ui::SurfacePrompts prompts;

  // False where nothing was changed, also because the user cancelled.

  /// A command that asks nothing runs as it is, with `given`.
  bool run(int command, std::string_view given);
  /// Name and size in one step.
  bool chooseFont();

private:
  bool askForLink();
  bool askForPicture();

  EditedDocument& document_;
};

} // namespace mrd::desktop
