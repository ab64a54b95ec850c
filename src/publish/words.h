#pragma once
// What publishing says beside the texts of the dialogs, in the user's language.

#include <string>
#include <string_view>

namespace mrd::publish {

enum class Words {
  Waiting,
  Sent,
  NotSent,
  Deleted,
  NotDeleted,
  Stopped,
  NotWaitedFor,
  Failure,
  StoppedState,
  Summary,
  Orphan,
};

/// The words in a language ("GER" or "ENG").
std::string_view textOf(Words words, std::string_view Sprache);

} // namespace mrd::publish
