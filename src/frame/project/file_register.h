#pragma once
// The table of all files that the project knows: what a run wrote or copied, and what the server lists.

#include "frame/messages/messages.h"
#include "platform/dao/database.h"

#include <memory>
#include <string>
#include <string_view>

namespace mrd::project {

/// Values of the column `dateityp-id`.
enum class Dateityp : int { Page = 1, Picture = 2, ServerPage = 4, ServerPicture = 5 };

/// The one way in which a file enters the table `Dateien`. Knows the table's rows from its construction on, so that an entry
/// costs one look-up in memory; nobody else may change the table meanwhile.
class FileRegister {
public:
  FileRegister(dao::Database& db, messages::Language& language);
  ~FileRegister();

  /// Removes what earlier runs entered (the page and picture rows).
  void clearRunFiles();
  /// Enters the file under its directory, name and extension in lower case, as due for transfer. A file that is not on disk is
  /// reported and not entered; a file that is entered already stays as it is. Has the standard failure handler.
  void dateiindatenbank(std::string_view pfad, Dateityp dateityp);

private:
  struct State;
  std::unique_ptr<State> state_;
};

} // namespace mrd::project
