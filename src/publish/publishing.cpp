#include "publish/publishing.h"

#include "base/format.h"
#include "base/number_text.h"
#include "platform/ftp/address.h"
#include "publish/words.h"

namespace mrd::publish {
namespace {

constexpr int kMessageStillFails = 34, kMessageRefused = 35, kMessageNoConnection = 36;
constexpr int kOwnError = 99;
constexpr std::size_t kStepsOfConnecting = 6;

} // namespace

Publishing::Publishing(const DialogKind& kind, const PublishingEnvironment& environment, dao::Database& db)
    : channel(kind, environment.client, environment.language.ui(), environment.timer), kind_(kind), environment_(environment),
      db_(db), ui_(environment.language.ui())
{
}

void Publishing::click(const std::function<void()>& work)
{
  if (isRunning_)
    return;
  struct Run {
    explicit Run(bool& flag) : isRunning(flag) { isRunning = true; }
    ~Run() { isRunning = false; }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;
    bool& isRunning;
  };
  {
    const Run run(isRunning_);
    channel.begin();
    channel.Inet1.Sprache = Sprache();
    explanation.clear();
    reported_.clear();
    try {
      work();
    } catch (const Stopped&) {
      channel.hideProgress();
      channel.showState(textOf(Words::StoppedState, Sprache()));
      ui_.pointer(ui::Pointer::Default);
    }
  }
  channel.changed();
}

void Publishing::stop()
{
  if (isRunning_)
    channel.stop();
}

void Publishing::command(const std::string& Befehl, std::string& Fehler)
{
  channel.ExecuteSynchron(channel.ftpURL, Befehl, Fehler);
}

bool Publishing::isAnswered() { return channel.Inet1.ResponseCode() == ftp::code::kNone; }

void Publishing::raiseFailure(const std::string& Fehler) { throw ftp::clientError(kOwnError, Fehler); }

/// Whether the server did what it was told, and was waited for.
bool Publishing::isDone(const std::string& Fehler) { return Fehler.empty() && isAnswered() && !channel.Abbruch; }

/// Beside a text that tells a number: the same thing in words, unless a message has said it already.
void Publishing::explain(const std::string& text)
{
  if (!text.empty() && text != reported_ && text != explanation)
    ui_.remark(text);
  explanation = text;
}

std::string Publishing::reasonOf(const base::Error& error)
{
  if (!channel.failure.empty())
    return channel.failure;
  if (!isAnswered())
    return channel.Inet1.ResponseInfo();
  return error.number() == kOwnError ? "" : error.description();
}

void Publishing::actionFailed(const base::Error& error, const std::string& value)
{
  explain(reasonOf(error));
  environment_.language.GetMsg(kMessageStillFails, value, value.empty() ? "" : "R");
}

void Publishing::reportProblem()
{
  const auto& client = channel.Inet1;
  reported_ = client.ResponseInfo();
  environment_.language.GetMsg(kMessageRefused, base::format("{}: {}", client.ResponseCode(), reported_), "R");
}

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
  click([this] { connectAndCompare(); });
}

void Publishing::connectAndCompare()
{
  isConnected = false;
  readFields();
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
    raiseFailure(Fehler);
  const auto entry = enterDirectory(Fehler);
  if (entry == Entry::Ended)
    return;
  if (!kind_.looksAtFailures || Fehler.empty()) {
    const bool hasPages = readHtmlDirectory(Fehler);
    const bool hasPictures = readPictureDirectory(Fehler);
    isConnected = entry == Entry::Reached && hasPages && hasPictures;
  }
  showConnected(Fehler);
}

/// Behind the first change to the directory: makes it where the server says that it is not there.
Publishing::Entry Publishing::enterDirectory(std::string& Fehler)
{
  if (isAnswered())
    return isDone(Fehler) ? Entry::Reached : Entry::Missed;
  if (channel.Inet1.ResponseCode() != ftp::code::kRefused) {
    reportProblem();
    return Entry::Missed;
  }
  command("mkdir " + directory_, Fehler);
  if (kind_.looksAtFailures && !Fehler.empty())
    return Entry::Missed;
  if (!isAnswered()) {
    reportProblem();
    const auto& client = channel.Inet1;
    channel.showState(base::format("Probleme bei FTP-Verbindung:\r\n{}: {}", client.ResponseCode(), client.ResponseInfo()));
    return Entry::Ended;
  }
  command("cd " + directory_, Fehler);
  if ((!kind_.looksAtFailures || Fehler.empty()) && !isAnswered())
    reportProblem();
  return isDone(Fehler) ? Entry::Reached : Entry::Missed;
}

/// True when the listing is all of it. The texts of the dialog say nothing of one that is lacking.
bool Publishing::list(std::string& Fehler)
{
  command("dir", Fehler);
  const bool isListed = isDone(Fehler);
  if (!isListed)
    explain(Fehler.empty() ? channel.Inet1.ResponseInfo() : channel.failure);
  channel.readChunks();
  return isListed;
}

bool Publishing::readHtmlDirectory(std::string& Fehler)
{
  channel.showState("FTP: HTML-Verzeichnis wird eingelesen");
  const bool isListed = list(Fehler);
  channel.showProgress(2);
  createlist(channel.ftpListe, kPageTypes, ListFTPHTML, db_, environment_.language);
  listsChanged();
  return isListed;
}

bool Publishing::readPictureDirectory(std::string& Fehler)
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
  const bool isEntered = isDone(Fehler);
  channel.pump();
  // The reply to the change of directory is read and forgotten.
  channel.readChunks();
  channel.showProgress(4);
  const bool isListed = list(Fehler);
  channel.showProgress(5);
  createlist(channel.ftpListe, kPictureTypes, ListFTPpix, db_, environment_.language);
  listsChanged();
  return isEntered && isListed;
}

void Publishing::showConnected(const std::string& Fehler)
{
  const bool isFine = !kind_.looksAtFailures || Fehler.empty();
  channel.showState(isFine ? "FTP: Verbindung hergestellt!" : "Problem : " + Fehler);
  if (!Fehler.empty())
    explain(channel.failure);
}

void Publishing::connectFailed(const base::Error& error)
{
  explain(reasonOf(error));
  const auto number = base::numberText(error.number());
  channel.showState(number);
  environment_.language.GetMsg(kMessageNoConnection, number, "Z");
}

} // namespace mrd::publish
