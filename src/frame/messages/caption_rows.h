#pragma once
// The rows of the caption table, applied to the controls of a window.

#include "base/errors.h"
#include "platform/dao/database.h"
#include "platform/ui/window_controls.h"

#include <functional>
#include <string_view>

namespace mrd::messages {

/// Sets what `tbl_Language` says about the window in the given language. A row whose control the window lacks goes to
/// `onMissingControl`, and the walk goes on behind it; every other failure is thrown.
void applyCaptions(dao::Database& dbLanguage, std::string_view Sprache, ui::WindowControls& Fenster,
                   const std::function<void(const base::Error&)>& onMissingControl);

} // namespace mrd::messages
