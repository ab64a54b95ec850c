#include "frame/messages/messages.h"

#include "base/errors.h"
#include "base/format.h"
#include "base/stored_text.h"
#include "base/text.h"
#include "frame/messages/caption_rows.h"

namespace mrd::messages {
namespace {

using base::Error;
using base::ErrorNumber;
using base::kCrLf;

/// What a row of the message table says.
struct StoredMessage {
  std::string prompt1, prompt2, prompt3;
  std::string title;
  std::string helpFile;
  int helpContext = 0;
  int style = 0;
};

std::string field(const dao::Recordset& row, std::string_view column) { return base::trim(row.value(column).text()); }

std::optional<StoredMessage> findMessage(dao::Database& db, int MsgNo, std::string_view Sprache)
{
  const auto row = db.openRecordset("SELECT * FROM Messages WHERE [MsgNo]=? AND [MsgLang]=? AND [MsgActive]= yes;",
                                    {MsgNo, base::trim(Sprache)});
  if (row.eof())
    return std::nullopt;
  return StoredMessage{field(row, "MsgPrompt1"),
                       field(row, "MsgPrompt2"),
                       field(row, "MsgPrompt3"),
                       field(row, "MsgTitle"),
                       field(row, "MsgHelpFile"),
                       static_cast<int>(row.value("MsgContext").integer()),
                       base::wholeNumber(field(row, "MsgCButtons"))};
}

/// The pieces with a value between them. A value without a place is not shown, and neither are the pieces behind the first.
std::string composeText(const StoredMessage& message, std::string_view value, std::string_view Position)
{
  const auto& [prompt1, prompt2, prompt3, title, helpFile, helpContext, style] = message;
  if (value.empty())
    return base::trim(base::format("{} {} {}", prompt1, prompt2, prompt3));
  const auto Wert = base::trim(value);
  const auto place = base::upper(Position);
  if (place == "L")
    return base::trim(base::format("{} {} {} {}", Wert, prompt1, prompt2, prompt3));
  if (place == "R")
    return base::trim(base::format("{} {}{} {}", prompt1, prompt2, Wert, prompt3));
  if (place == "Z")
    return base::trim(base::format("{} {} {} {}", prompt1, Wert, prompt2, prompt3));
  return prompt1;
}

/// What stands in the box when a message is not there. German and the other languages exchange text and title.
ui::MessageBox missingMessage(int MsgNo, std::string_view Sprache, std::string_view Wert)
{
  const auto details = base::format("{}GetMsg: Nr.{} Spr.{} Wert:{}", kCrLf, MsgNo, Sprache, Wert);
  if (Sprache == "GER")
    return {"Fehler im Fehlerbehandlungsmodul!", "Fehlerbehandlungsmodul" + details, ui::box::kOk, MsgNo};
  return {"Error in errorhandler!" + details, "Errorhandler", ui::box::kOk, MsgNo};
}

} // namespace

Language::Language(const paths::ProgramFiles& program, ui::Ui& ui) : program_(program), ui_(ui) {}

void Language::Sprachstart()
{
  try {
    openLanguageDatabase();
  } catch (const Error& error) {
    ui_.hideSplash();
    ui_.messageBox(
        {base::format(" Fehler: {} {} ist aufgetreten!", error.number(), error.description()), "", ui::box::kCritical});
    close();
  }
}

void Language::openLanguageDatabase()
{
  LangFile_ = base::trim(paths::LeseIni("LastFile", "LangFile", program_.iniFile()));
  if (!paths::datei_vorhanden(LangFile_))
    LangFile_ = program_.file("\\language.mdb");
  if (!paths::datei_vorhanden(LangFile_)) {
    ui_.hideSplash();
    ui_.messageBox(
        {base::format("Language Database konnte nicht gefunden werden. {}Bitte wenden Sie sich an den Support.", kCrLf), "",
         ui::box::kCritical});
    close();
    return;
  }
  // A directory that cannot be written costs the note of the place, not the language.
  paths::SchreibeIni("LastFile", "LangFile", LangFile_, program_.iniFile());
  close();
  dbLanguage_ = dao::Database::open(LangFile_, dao::OpenMode::ReadOnly);
}

void Language::Sprachstart(ui::WindowControls& Fenster)
{
  Sprachstart();
  if (dbLanguage_)
    Setlanguage(Fenster);
}

void Language::Setlanguage(ui::WindowControls& Fenster)
{
  try {
    if (!dbLanguage_)
      throw Error(ErrorNumber::ObjectNotSet, "language.mdb ist nicht geöffnet");
    applyCaptions(*dbLanguage_, Sprache_, Fenster, [this](const Error& missing) { showCaptionFailure(missing); });
  } catch (const Error& error) {
    showCaptionFailure(error);
  }
}

void Language::showCaptionFailure(const Error& error)
{
  ui_.hideSplash();
  ui_.messageBox({base::format("Fehler beim Laden der Spracheinstellungen.{0}Setlanguage: {1} {2}{0}{0}"
                               "Bitte besorgen Sie sich eine aktuelle language.mdb !",
                               kCrLf, error.number(), error.description()),
                  "", ui::box::kOk});
}

void Language::eng_Click(ui::WindowControls& mainWindow) { changeLanguage(mainWindow, "ENG", "GER"); }

void Language::GER_Click(ui::WindowControls& mainWindow) { changeLanguage(mainWindow, "GER", "ENG"); }

void Language::changeLanguage(ui::WindowControls& mainWindow, std::string_view code, std::string_view other)
{
  Sprache_ = code;
  mainWindow.setMenuChecked(code, true);
  mainWindow.setMenuChecked(other, false);
  paths::SchreibeIni("Language", "Lang", base::trim(Sprache_), program_.iniFile());
  Setlanguage(mainWindow);
}

ui::Button Language::GetMsg(int MsgNo, std::string_view Wert, std::string_view Position)
{
  return GetMsgIn(MsgNo, Sprache_, Wert, Position);
}

ui::Button Language::GetMsgIn(int MsgNo, std::string_view Sprache, std::string_view Wert, std::string_view Position)
{
  try {
    if (!dbLanguage_)
      throw Error(ErrorNumber::ObjectNotSet, "language.mdb ist nicht geöffnet");
    const auto message = findMessage(*dbLanguage_, MsgNo, Sprache);
    if (!message) {
      ui_.hideSplash();
      return ui_.messageBox(missingMessage(MsgNo, Sprache, Wert));
    }
    ui_.pumpEvents();
    ui_.hideSplash();
    ui_.pumpEvents();
    return ui_.messageBox(
        {composeText(*message, Wert, Position), message->title, message->style, MsgNo, message->helpFile, message->helpContext});
  } catch (const Error&) {
    // The caller's own failure may be on its way to the user just now: what can be said is said without the language database.
    ui_.hideSplash();
    ui_.messageBox({base::format("Achtung! GetMsg: Nr.{} Spr.{} Wert:{}", MsgNo, Sprache, Wert), "", ui::box::kOk, MsgNo});
    return ui::Button::None;
  }
}

std::string Language::textOf(int MsgNo, std::string_view Wert, std::string_view Position)
{
  const auto message = dbLanguage_ ? findMessage(*dbLanguage_, MsgNo, Sprache_) : std::nullopt;
  return message ? composeText(*message, Wert, Position) : std::string(Wert);
}

std::string Language::shownText(std::string_view text)
{
  if (Sprache_ == "GER" || !dbLanguage_)
    return std::string(text);
  try {
    if (!translations_ || translations_->Sprache() != Sprache_)
      translations_.emplace(*dbLanguage_, Sprache_);
    return translations_->text(text);
  } catch (const Error&) {
    // A damaged language database costs the translation, not what is to be said.
    return std::string(text);
  }
}

void Language::close()
{
  translations_.reset();
  dbLanguage_.reset();
}

} // namespace mrd::messages
