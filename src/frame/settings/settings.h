#pragma once
// Moving the settings between a project's table and the fields.

#include "frame/paths/paths.h"
#include "frame/settings/fields.h"
#include "platform/dao/database.h"
#include "platform/ui/ui.h"

#include <optional>
#include <string>
#include <string_view>

namespace mrd::settings {

/// Fills the fields from an open project. A key that the project lacks leaves its field as it was, so that fields outlive a
/// change of the project. A layout that is not among the entries is told to the user. The field of `exceptKey` is left as it is.
/// Throws base::Error; the fields of the keys behind the failure are left as they were.
void einstellungenladen(dao::Database& db, Fields& fields, const paths::ProgramFiles& program, ui::Ui& ui,
                        std::string_view exceptKey = {});

/// Writes all fields back. Throws base::Error where one of the rows that every project has is missing; what was written before
/// stays written.
void cbeinstellungen_Click(dao::Database& db, const Fields& fields);

/// A key's value as it is stored; where the row is missing, what the field shows at the program's start (the menu colour for the
/// link colour). Nothing for a key that has neither row nor field.
std::optional<std::string> settingValue(dao::Database& db, std::string_view key);

} // namespace mrd::settings
