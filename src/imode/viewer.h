#pragma once
// The telephone on the screen: a fixed page of the program directory, and the script beside it that tells what it shows.

#include "frame/paths/paths.h"

#include <string>
#include <string_view>

namespace mrd::imode {

/// The script's only line. `exportpfad` has a separator at its end; `startdatei` is a file of the edition, none before a first
/// run.
std::string viewerScript(std::string_view exportpfad, std::string_view startdatei);

/// Writes the script anew and gives the path of the page. Throws base::Error.
std::string pointViewerAt(const paths::ProgramFiles& program, std::string_view exportpfad, std::string_view startdatei);

} // namespace mrd::imode
