#include "publish/words.h"

#include <algorithm>
#include <array>

namespace mrd::publish {
namespace {

struct Entry {
  Words words;
  std::string_view german, english;
};

constexpr std::array kEntries{
    Entry{Words::Waiting, "noch offen", "waiting"},
    Entry{Words::Sent, "übertragen", "sent"},
    Entry{Words::NotSent, "nicht übertragen", "not sent"},
    Entry{Words::Deleted, "gelöscht", "deleted"},
    Entry{Words::NotDeleted, "nicht gelöscht", "not deleted"},
    Entry{Words::Stopped, "Die Übertragung wurde abgebrochen.", "The transfer was stopped."},
    Entry{Words::NotWaitedFor, "Auf das Ende der Übertragung wurde nicht gewartet.",
          "The end of the transfer was not waited for."},
    Entry{Words::Failure, "Fehler", "Error"},
    Entry{Words::StoppedState, "FTP: abgebrochen", "FTP: stopped"},
    Entry{Words::Summary, "Übertragen: {}. Schon auf dem Server: {}. Ohne Seite: {}. Gelöscht: {}. Fehlgeschlagen: {}.",
          "Sent: {}. On the server already: {}. Without a page: {}. Deleted: {}. Failed: {}."},
    Entry{Words::Orphan, "ohne Seite", "without a page"},
};

} // namespace

std::string_view textOf(Words words, std::string_view Sprache)
{
  const auto* const entry = std::find_if(kEntries.begin(), kEntries.end(), [&](const Entry& e) { return e.words == words; });
  return Sprache == "ENG" ? entry->english : entry->german;
}

} // namespace mrd::publish
