#pragma once

#include "base/clock.h"
#include "frame/project/backups.h"

#include <string>

namespace mrd::project {

/// Puts a backup in the place of the project, in one step, and keeps the state that was there as a backup of its own: whole, or
/// byte by byte where it is damaged. Returns the name of that, the empty text where there was no project file.
///
/// The project must not be open in this process. Throws base::Error, and all is as it was: DatabaseLocked when another program
/// has the project open, NotADatabase for a backup that is damaged.
std::string restore(const Backups& backups, const Backup& backup, const base::Clock& clock);

} // namespace mrd::project
