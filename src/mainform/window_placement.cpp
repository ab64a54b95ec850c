#include "mainform/window_placement.h"

#include "base/text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

namespace mrd::mainform {
namespace {

struct StoredMeasure {
  std::string_view key;
  int Placement::*field;
};

constexpr std::array kMeasures{
    StoredMeasure{"MainLeft", &Placement::MainLeft},
    StoredMeasure{"MainTop", &Placement::MainTop},
    StoredMeasure{"MainWidth", &Placement::MainWidth},
    StoredMeasure{"MainHeight", &Placement::MainHeight},
    StoredMeasure{"picSplitterLeft", &Placement::picSplitterLeft},
};

/// No screen reaches that far; a damaged value must not take the window where nobody finds it.
constexpr double kFarthest = 200000;

} // namespace

Placement readPlacement(const files::UserSettings& settings)
{
  Placement placement;
  for (const auto& [key, field] : kMeasures) {
    const auto stored = settings.value(kSettingsSection, key, std::to_string(placement.*field));
    if (const double value = base::numericValue(stored); std::abs(value) <= kFarthest && !base::trim(stored).empty())
      placement.*field = static_cast<int>(value);
  }
  return placement;
}

void writePlacement(files::UserSettings& settings, const Placement& placement)
{
  for (const auto& [key, field] : kMeasures)
    settings.setValue(kSettingsSection, key, std::to_string(placement.*field));
}

int clampedSplitter(int left, int innerWidth)
{
  // In a window that is too narrow for both the tree keeps its width.
  return std::max(std::min(left, innerWidth - kLeastEditorWidth), kLeastTreeWidth);
}

} // namespace mrd::mainform
