#include "platform/ftp/explanations.h"

#include "platform/ftp/client.h"

#include <algorithm>
#include <array>

namespace mrd::ftp {
namespace {

struct Entry {
  Words words;
  std::string_view german, english;
  /// The number of a client that they explain.
  int code = code::kNone;
};

constexpr std::array kEntries{
    Entry{Words::HostNotFound, "Der Server „{}“ wurde nicht gefunden.", "The server \"{}\" was not found.", code::kHostNotFound},
    Entry{Words::CannotConnect, "Der Server „{}“ nimmt keine Verbindung an.", "The server \"{}\" takes no connection.",
          code::kCannotConnect},
    Entry{Words::TimedOut, "Der Server „{}“ antwortet nicht.", "The server \"{}\" does not answer.", code::kTimedOut},
    Entry{Words::LoginDenied, "Der Server „{}“ lehnt die Anmeldung ab: Benutzer oder Passwort stimmen nicht.",
          "The server \"{}\" refuses the login: user or password is wrong.", code::kLoginDenied},
    Entry{Words::NotTrusted, "Die Echtheit des Servers „{}“ ist nicht bestätigt.",
          "Nothing proves that the server \"{}\" is the right one.", code::kNotTrusted},
    Entry{
        Words::NoEncryption,
        "Mit dem Server „{}“ kommt keine verschlüsselte Verbindung zustande. Wer ihm sein Passwort unverschlüsselt senden will, "
        "schreibt ftp:// vor seinen Namen.",
        "There is no encrypted connection with the server \"{}\". To send it the password in clear, write ftp:// in front of "
        "its name.",
        code::kNoEncryption},
    Entry{Words::Cancelled, "Der Vorgang wurde abgebrochen.", "It was stopped.", code::kCancelled},
    Entry{Words::ConnectionLost, "Die Verbindung zum Server „{}“ ist abgerissen.",
          "The connection to the server \"{}\" was lost.", code::kConnectionLost},
    Entry{Words::TooLong, "Das Verzeichnis auf dem Server „{}“ hört nicht auf: mehr als 64 MB werden nicht gelesen.",
          "The directory on the server \"{}\" does not end: no more than 64 MB are read.", code::kTooLong},
    Entry{Words::SizeUnknown, "„{}“: Der Server bestätigt die Größe der Datei nicht.",
          "\"{}\": the server does not confirm the size of the file."},
    Entry{Words::CutOff, "„{}“: Auf dem Server sind {} von {} Bytes angekommen.",
          "\"{}\": {} of {} bytes have arrived on the server."},
    Entry{Words::DirectoryNotReached, "„{}“: Das Verzeichnis auf dem Server wurde nicht erreicht.",
          "\"{}\": the directory on the server was not reached."},
    Entry{Words::FileUnreadable, "Die Datei „{}“ kann nicht gelesen werden.", "The file \"{}\" cannot be read."},
    Entry{Words::FileMissing, "Die Datei „{}“ wurde nicht gefunden.", "The file \"{}\" was not found."},
    Entry{Words::InvalidCommand, "Der FTP-Befehl „{}“ ist ungültig.", "The FTP command \"{}\" is invalid."},
    Entry{Words::InvalidAddress, "Die Adresse des FTP-Servers ist ungültig.", "The address of the FTP server is invalid."},
    Entry{Words::StillExecuting, "Der letzte FTP-Befehl läuft noch.", "The last FTP command is still running."},
};

/// Nothing in a value is taken for a place of the next one.
std::string filled(std::string_view text, std::initializer_list<std::string> values)
{
  constexpr std::string_view kPlace = "{}";
  std::string out;
  for (const auto& value : values) {
    const auto at = text.find(kPlace);
    if (at == std::string_view::npos)
      break;
    out += std::string(text.substr(0, at)) + value;
    text.remove_prefix(at + kPlace.size());
  }
  return out + std::string(text);
}

} // namespace

std::string textOf(Words words, std::string_view Sprache, std::initializer_list<std::string> values)
{
  const auto* const entry = std::find_if(kEntries.begin(), kEntries.end(), [&](const Entry& e) { return e.words == words; });
  return filled(Sprache == "ENG" ? entry->english : entry->german, values);
}

std::optional<Words> wordsFor(int code)
{
  const auto* const entry =
      std::find_if(kEntries.begin(), kEntries.end(), [&](const Entry& e) { return code != code::kNone && e.code == code; });
  return entry == kEntries.end() ? std::nullopt : std::optional(entry->words);
}

} // namespace mrd::ftp
