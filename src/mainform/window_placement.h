#pragma once
// Where the main window stands, kept among the user's settings, and the bounds of its parts.

#include "mainform/main_screen.h"
#include "platform/files/user_settings.h"

namespace mrd::mainform {

inline constexpr std::string_view kSettingsSection = "Settings";
inline constexpr int kLeastWindowWidth = 3000;
inline constexpr int kLeastTreeWidth = 2400;
inline constexpr int kLeastEditorWidth = 1500;

/// The stored placement; what is missing or no number takes its default.
Placement readPlacement(const files::UserSettings& settings);
void writePlacement(files::UserSettings& settings, const Placement& placement);

/// Left edge of the splitter so that tree and editor stay usable; all in twips.
int clampedSplitter(int left, int innerWidth);

} // namespace mrd::mainform
