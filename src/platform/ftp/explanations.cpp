#include "platform/ftp/explanations.h"

#include "base/text.h"
#include "platform/ftp/client.h"

#include <algorithm>
#include <array>

namespace mrd::ftp {
namespace {

struct Words {
  int code;
  std::string_view text;
};

constexpr std::array kWords{
    Words{code::kHostNotFound, "Der Server „{}“ wurde nicht gefunden."},
    Words{code::kCannotConnect, "Der Server „{}“ nimmt keine Verbindung an."},
    Words{code::kTimedOut, "Der Server „{}“ antwortet nicht."},
    Words{code::kLoginDenied, "Der Server „{}“ lehnt die Anmeldung ab: Benutzer oder Passwort stimmen nicht."},
    Words{code::kNotTrusted, "Die Echtheit des Servers „{}“ ist nicht bestätigt."},
    Words{code::kNoEncryption, "Mit dem Server „{}“ kommt keine verschlüsselte Verbindung zustande."},
    Words{code::kCancelled, "Der Vorgang wurde abgebrochen."},
    Words{code::kTooLong, "Das Verzeichnis auf dem Server „{}“ hört nicht auf: mehr als 64 MB werden nicht gelesen."},
    Words{code::kConnectionLost, "Die Verbindung zum Server „{}“ ist abgerissen."},
};

} // namespace

std::string wordsFor(int code, std::string_view host)
{
  const auto* const words = std::find_if(kWords.begin(), kWords.end(), [&](const Words& w) { return w.code == code; });
  return words == kWords.end() ? "" : base::replaceAll(words->text, "{}", host);
}

} // namespace mrd::ftp
