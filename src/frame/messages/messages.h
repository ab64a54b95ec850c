#pragma once
// Numbered messages and captions in the user's language, from the language database.

#include "base/errors.h"
#include "frame/messages/translations.h"
#include "frame/paths/paths.h"
#include "platform/dao/database.h"
#include "platform/ui/ui.h"
#include "platform/ui/window_controls.h"

#include <optional>
#include <string>
#include <string_view>

namespace mrd::messages {

/// The open language database (`dbLanguage`), its path (`LangFile`) and the current language (`Sprache`, "GER" or "ENG").
class Language {
public:
  Language(const paths::ProgramFiles& program, ui::Ui& ui);

  const std::string& Sprache() const { return Sprache_; }
  void setSprache(std::string_view code) { Sprache_ = code; }

  /// Language start without a window: finds and opens the language database and remembers its place in the INI file.
  void Sprachstart();
  /// The same, then Setlanguage on the window.
  void Sprachstart(ui::WindowControls& Fenster);
  /// Applies the current language to one window.
  void Setlanguage(ui::WindowControls& Fenster);
  /// The two entries of the language menu.
  void eng_Click(ui::WindowControls& mainWindow);
  void GER_Click(ui::WindowControls& mainWindow);

  /// Shows a numbered message, with a value at position "L", "R" or "Z" (left, behind the second piece, between the pieces), and
  /// returns the button; None when not even the language database can be read.
  ui::Button GetMsg(int MsgNo, std::string_view Wert = {}, std::string_view Position = {});
  /// The same in a given language.
  ui::Button GetMsgIn(int MsgNo, std::string_view Sprache, std::string_view Wert, std::string_view Position);
  /// The text of a numbered message with its value, for a window that shows it in a line of its own; the value alone where the
  /// database lacks the message.
  std::string textOf(int MsgNo, std::string_view Wert, std::string_view Position);

  /// What a screen shows in place of one of the system's own German texts ("Fertig!"): its form in the current language, where
  /// the language database has one; else the text itself. Never throws.
  std::string shownText(std::string_view text);

  /// Closes the language database.
  void close();

  ui::Ui& ui() { return ui_; }

private:
  void openLanguageDatabase();
  void changeLanguage(ui::WindowControls& mainWindow, std::string_view code, std::string_view other);
  void showCaptionFailure(const base::Error& error);

  const paths::ProgramFiles& program_;
  ui::Ui& ui_;
  std::string Sprache_ = "GER";
  std::string LangFile_;
  std::optional<dao::Database> dbLanguage_;
  /// Of the language that was asked for last; made when it is needed.
  std::optional<Translations> translations_;
};

} // namespace mrd::messages
