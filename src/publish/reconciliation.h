#pragma once
// The server's listings beside the table of files: what need not be sent, and what belongs to no page.

#include "frame/messages/messages.h"
#include "frame/project/file_register.h"
#include "platform/dao/database.h"
#include "publish/controls.h"

#include <string_view>

namespace mrd::publish {

/// Which rows of the table belong to a list: the project's and the server's.
struct ListTypes {
  project::Dateityp project, server;
};

inline constexpr ListTypes kPageTypes{project::Dateityp::Page, project::Dateityp::ServerPage};
inline constexpr ListTypes kPictureTypes{project::Dateityp::Picture, project::Dateityp::ServerPicture};

/// Puts a listing into its list: files that no row owns are selected. Rows of the server's type are made anew, and a picture that
/// the server has is no longer due. Each failure of the database is told, and the rest goes on; a line whose search fails is left
/// alone.
void createlist(std::string_view Liste, const ListTypes& types, ListBox& list, dao::Database& db, messages::Language& language);

/// Marks the first row that owns the name as due again, if there is one.
void markAsDue(std::string_view name, project::Dateityp type, dao::Recordset& rows);

} // namespace mrd::publish
