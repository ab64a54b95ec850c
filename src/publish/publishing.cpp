#include "publish/publishing.h"

#include "base/format.h"
#include "base/text.h"
#include "frame/paths/paths.h"
#include "platform/ftp/address.h"

#include <algorithm>

namespace mrd::publish {
namespace {

constexpr int kMessageUploadFinished = 31, kMessageRefused = 35, kMessageNoConnection = 36, kMessageStillFails = 34;
constexpr int kMessageNothingSelected = 32, kMessageReallyDelete = 33;
constexpr int kOwnError = 99;
constexpr std::size_t kStepsOfConnecting = 6, kStepsOfExtraFile = 3;

[[noreturn]] void raise(const std::string& Fehler) { throw ftp::clientError(kOwnError, Fehler); }

} // namespace

Publishing::Publishing(const DialogKind& kind, const PublishingEnvironment& environment, dao::Database& db)
    : channel(kind, environment.client, environment.language.ui(), environment.timer), kind_(kind), environment_(environment),
      db_(db), ui_(environment.language.ui())
{
}

void Publishing::command(const std::string& Befehl, std::string& Fehler)
{
  channel.ExecuteSynchron(channel.ftpURL, Befehl, Fehler);
}

bool Publishing::isAnswered() { return channel.Inet1.ResponseCode() == ftp::code::kNone; }

void Publishing::reportProblem()
{
  const auto& client = channel.Inet1;
  environment_.language.GetMsg(kMessageRefused, base::format("{}: {}", client.ResponseCode(), client.ResponseInfo()), "R");
}

// Connecting

void Publishing::readFields()
{
  const auto& fields = environment_.fields;
  user_ = fields.tbftpuser;
  password_ = fields.tbftppasswort;
  server_ = fields.tbFTPServer;
  directory_ = fields.*kind_.directory;
  if (user_.empty())
    user_ = ui_.inputBox("Bitte geben Sie den Benutzer für die FTP-Verbindung an:", "Mirandel: FTP-User", "").value_or("");
  if (password_.empty())
    password_ =
        ui_.inputBox("Bitte geben Sie das Passwort für die FTP-Verbindung an:\r\n\r\n(Hinweis: Das PW wird hier in Klartext "
                     "angezeigt.)",
                     "Mirandel: FTP-Passwort", "")
            .value_or("");
}

void Publishing::cbftpverbindung_Click()
{
  readFields();
  isConnected = false;
  ui_.pointer(ui::Pointer::Wait);
  channel.ProgressBar1.maximum = kStepsOfConnecting;
  channel.showProgress(1);
  channel.Abbruch = false;
  channel.withRetries(
      [this] {
        connectFailure_.clear();
        connect(connectFailure_);
      },
      [this](const base::Error& error) { connectFailed(error); });
  channel.hideProgress();
  ui_.pointer(ui::Pointer::Default);
}

void Publishing::connect(std::string& Fehler)
{
  // What follows counts from the directory of the login, wherever an earlier click has led.
  channel.Inet1.backToLogin();
  channel.ftpURL = ftp::addressOf(server_, user_, password_);
  channel.showState("FTP: Verbindung wird hergestellt");
  Labelftpverzeichnis = server_ + directory_;
  command("cd " + directory_, Fehler);
  if (kind_.looksAtFailures && !Fehler.empty())
    raise(Fehler);
  if (!isAnswered() && !enterDirectory(Fehler))
    return;
  if (!kind_.looksAtFailures || Fehler.empty()) {
    readHtmlDirectory(Fehler);
    readPictureDirectory(Fehler);
  }
  showConnected(Fehler);
}

/// After the directory was not entered: makes it where the server says that it is not there. False when the click has ended.
bool Publishing::enterDirectory(std::string& Fehler)
{
  if (channel.Inet1.ResponseCode() != ftp::code::kRefused) {
    reportProblem();
    return true;
  }
  command("mkdir " + directory_, Fehler);
  if (kind_.looksAtFailures && !Fehler.empty())
    return true;
  if (!isAnswered()) {
    reportProblem();
    const auto& client = channel.Inet1;
    channel.showState(base::format("Probleme bei FTP-Verbindung:\r\n{}: {}", client.ResponseCode(), client.ResponseInfo()));
    return false;
  }
  command("cd " + directory_, Fehler);
  if ((!kind_.looksAtFailures || Fehler.empty()) && !isAnswered())
    reportProblem();
  return true;
}

void Publishing::readHtmlDirectory(std::string& Fehler)
{
  channel.showState("FTP: HTML-Verzeichnis wird eingelesen");
  command("dir", Fehler);
  channel.readChunks();
  channel.showProgress(2);
  createlist(channel.ftpListe, kPageTypes, ListFTPHTML, db_, environment_.language);
}

void Publishing::readPictureDirectory(std::string& Fehler)
{
  channel.showState("FTP: Bildverzeichnis wird eingelesen");
  channel.showProgress(3);
  Labelftpverzeichnis = server_ + "/" + directory_ + "/pix/";
  command("cd pix", Fehler);
  if (!isAnswered()) {
    command("mkdir pix", Fehler);
    if (!isAnswered())
      reportProblem();
    command("cd pix", Fehler);
    if (!isAnswered())
      reportProblem();
  }
  channel.pump();
  // The reply to the change of directory is read and forgotten.
  channel.readChunks();
  channel.showProgress(4);
  command("dir", Fehler);
  channel.readChunks();
  channel.showProgress(5);
  isConnected = Fehler.empty() && isAnswered();
  createlist(channel.ftpListe, kPictureTypes, ListFTPpix, db_, environment_.language);
}

void Publishing::showConnected(const std::string& Fehler)
{
  const bool isFine = !kind_.looksAtFailures || Fehler.empty();
  channel.showState(isFine ? "FTP: Verbindung hergestellt!" : "Problem : " + Fehler);
}

void Publishing::connectFailed(const base::Error& error)
{
  // The number alone tells a reader of the command line little.
  if (!isAnswered())
    ui_.warning(channel.Inet1.ResponseInfo());
  const auto number = numberText(error.number());
  channel.showState(number);
  environment_.language.GetMsg(kMessageNoConnection, number, "Z");
}

// Sending

void Publishing::cbftp_Click()
{
  channel.Abbruch = false;
  channel.withRetries([this] { upload(); }, [this](const base::Error& error) { uploadFailed(error); });
  channel.hideProgress();
  ui_.pointer(ui::Pointer::Default);
}

void Publishing::upload()
{
  files.clear();
  RunFailures failures;
  channel.showProgress(channel.ProgressBar1.value);
  command("CD /" + directory_, failures.directory);
  if (kind_.looksAtFailures && !failures.directory.empty())
    raise(failures.directory);
  channel.showState("FTP: HTML-Dateien werden übertragen!");
  sendPages(failures);
  command("CD pix", failures.directory);
  sendPictures(failures);
  endUpload(failures);
}

void Publishing::sendPages(RunFailures& failures)
{
  auto rows = db_.openRecordset(kind_.pagesQuery);
  if (!rows.eof()) {
    rows.moveLast();
    rows.moveFirst();
    channel.ProgressBar1.maximum = rows.recordCount();
  }
  for (std::size_t counter = 1; !rows.eof() && !(kind_.hasSecondsDisplay && channel.Abbruch); ++counter, rows.moveNext()) {
    channel.showProgress(counter);
    sendFile(rows, project::Dateityp::Page, failures.file);
    const bool isFine = !kind_.looksAtFailures || failures.file.empty();
    channel.showState(isFine ? base::format("FTP: {}  erfolgreich übertragen.", files.back().name)
                             : "Problem : " + failures.file);
  }
}

/// Here nothing ends the loop, and the line says the same of every file; what became of it stands in `files`.
void Publishing::sendPictures(RunFailures& failures)
{
  auto rows = db_.openRecordset("SELECT * FROM Dateien WHERE ([dateityp-id]=2) and (übertragen=TRUE)");
  if (!rows.eof()) {
    rows.moveLast();
    rows.moveFirst();
    channel.ProgressBar1.maximum = rows.recordCount();
  }
  for (std::size_t counter = 1; !rows.eof(); ++counter, rows.moveNext()) {
    channel.showProgress(counter);
    sendFile(rows, project::Dateityp::Picture, failures.file);
    channel.showState(base::format("FTP: {}  erfolgreich übertragen.", files.back().name));
  }
}

void Publishing::sendFile(const dao::Recordset& rows, project::Dateityp type, std::string& Fehler)
{
  files.push_back({rows.value("pfad").text(), rows.value("dateiname").text() + "." + rows.value("erweiterung").text(), type});
  sendFile(files.back(), Fehler);
}

void Publishing::sendFile(SentFile& file, std::string& Fehler)
{
  const auto& client = channel.Inet1;
  command("PUT \"" + file.pfad + file.name + "\" " + file.name, Fehler);
  const bool isGivenUp = channel.Abbruch && client.ResponseCode() == ftp::code::kNone;
  file.isConfirmed = Fehler.empty() && !isGivenUp && client.ResponseCode() == ftp::code::kNone;
  if (!Fehler.empty())
    file.problem = client.ResponseInfo().empty() ? "Fehler" + Fehler : client.ResponseInfo();
  else
    file.problem = isGivenUp ? "Auf das Ende der Übertragung wurde nicht gewartet." : client.ResponseInfo();
}

void Publishing::endUpload(const RunFailures& failures)
{
  channel.ftpSammelfehler = connectFailure_ + failures.directory + failures.file;
  channel.hideProgress();
  channel.showState("Fertig!");
  if (kind_.looksAtFailures && !channel.ftpSammelfehler.empty()) {
    ui_.messageBox({"Hinweis: Probleme bei der FTP Übertragung:\r\n" + channel.ftpSammelfehler, ""});
    return;
  }
  if (environment_.language.GetMsg(kMessageUploadFinished) != ui::Button::Yes)
    return;
  // Reading again has a count of attempts of its own.
  const auto attempts = channel.Versuch;
  cbftpverbindung_Click();
  channel.Versuch = attempts;
}

void Publishing::uploadFailed(const base::Error& error)
{
  if (!kind_.looksAtFailures) {
    actionFailed(numberText(error.number()));
    return;
  }
  ui_.messageBox({"Fehler bei der FTPÜbertragung: " + error.description(), ""});
  channel.showState(error.description());
}

void Publishing::sendFailedAgain()
{
  std::string Fehler;
  for (const auto type : {project::Dateityp::Page, project::Dateityp::Picture}) {
    const auto isDue = [&](const SentFile& file) { return file.type == type && !file.isConfirmed; };
    if (std::none_of(files.begin(), files.end(), isDue))
      continue;
    command("CD /" + directory_, Fehler);
    if (type == project::Dateityp::Picture)
      command("CD pix", Fehler);
    for (auto& file : files)
      if (isDue(file))
        sendFile(file, Fehler);
  }
}

// Deleting, and one more file

Publishing::ShownList Publishing::shownList()
{
  if (tabFTP == 0)
    return {ListFTPpix, kPictureTypes};
  return {ListFTPHTML, kPageTypes};
}

void Publishing::goToShown(const ShownList& shown)
{
  std::string Fehler;
  command("CD /" + directory_, Fehler);
  if (shown.types.project == project::Dateityp::Picture)
    command("CD pix", Fehler);
}

void Publishing::actionFailed(const std::string& value)
{
  environment_.language.GetMsg(kMessageStillFails, value, value.empty() ? "" : "R");
}

void Publishing::cbftplöschen_Click()
{
  const auto shown = shownList();
  if (shown.list.selectedCount() == 0) {
    environment_.language.GetMsg(kMessageNothingSelected);
    return;
  }
  if (environment_.language.GetMsg(kMessageReallyDelete) == ui::Button::No)
    return;
  channel.withRetries([&] { deleteSelected(shown); },
                      [this](const base::Error& error) {
                        actionFailed(numberText(error.number()));
                        channel.hideProgress();
                      });
}

void Publishing::deleteSelected(const ShownList& shown)
{
  channel.ProgressBar1.maximum = shown.list.selectedCount();
  channel.showProgress(0);
  channel.showState("FTP: Dateien werden gelöscht!");
  channel.pump();
  auto rows = db_.openRecordset("SELECT * FROM Dateien");
  goToShown(shown);
  notDeleted.clear();
  std::size_t counter = 0;
  for (const auto& entry : shown.list.entries) {
    if (!entry.isSelected)
      continue;
    channel.showProgress(++counter);
    std::string Fehler;
    command("DELETE " + entry.text, Fehler);
    if (!Fehler.empty() || !isAnswered())
      notDeleted.push_back(entry.text);
    markAsDue(entry.text, shown.types.project, rows);
  }
  std::erase_if(shown.list.entries, [](const ListBox::Entry& entry) { return entry.isSelected; });
  channel.showState("Fertig!");
  channel.hideProgress();
}

void Publishing::cbzusätzlichftp_Click()
{
  const auto shown = shownList();
  channel.withRetries([&] { sendExtraFile(shown); },
                      [this](const base::Error&) {
                        actionFailed("");
                        channel.hideProgress();
                      });
}

void Publishing::sendExtraFile(const ShownList& shown)
{
  const auto file = ui_.openFileDialog({"Zusätzliche Datei übertragen", "*.*|*.*"}).value_or("");
  if (file.empty())
    return;
  channel.ProgressBar1.maximum = kStepsOfExtraFile;
  channel.showProgress(1);
  channel.pump();
  goToShown(shown);
  channel.showProgress(2);
  const auto parts = paths::teile_dateipfad(file);
  const auto name = base::lower(parts.name) + "." + base::lower(parts.erweiterung);
  std::string Fehler;
  command("PUT \"" + file + "\" " + name, Fehler);
  shown.list.entries.push_back({name, false});
  channel.showProgress(kStepsOfExtraFile);
  channel.pump();
  channel.showState("Fertig!");
  channel.hideProgress();
}

} // namespace mrd::publish
