#pragma once
// In what the publishing halves of the two dialogs differ.

#include "frame/settings/fields.h"

#include <string>
#include <string_view>

namespace mrd::publish {

struct DialogKind {
  /// The field with the directory on the server.
  std::string settings::Fields::*directory;
  /// What is asked when a command takes longer than a minute.
  std::string_view stallQuestion;
  /// Agreeing cancels the command at the client, and refusing allows it another minute.
  bool stallAnswerReachesClient;
  /// There is the display of the seconds, and a click on it gives up waiting.
  bool hasSecondsDisplay;
  /// Giving up to wait at a page, by that click or at the question, leaves out the pages behind it.
  bool pagesEndAtAbbruch;
  /// A command that did not start is an error of the click, and its text is shown.
  bool looksAtFailures;
  std::string_view pagesQuery;
};

/// The website.
inline constexpr DialogKind kHtmlExport{
    &settings::Fields::tbftpverzeichnis,
    "Der aktuelle FTP-Vorgang dauert schon länger als 60 Sekunden. Soll jetzt er abgebrochen werden?",
    true,
    true,
    true,
    true,
    "SELECT * FROM Dateien WHERE [dateityp-id]=1 "};

/// The edition for telephones.
inline constexpr DialogKind kImode{
    &settings::Fields::tbftpverzeichnisimode,
    "Das Übertragen dieser Datei dauert schon länger als 60 Sekunden. Soll jetzt mit der nächsten fortgefahren werden?",
    false,
    false,
    false,
    false,
    "SELECT * FROM Dateien WHERE [dateityp-id]=1"};

} // namespace mrd::publish
