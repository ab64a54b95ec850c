// Publishing: the run that sends the site.

#include "base/format.h"
#include "base/number_text.h"
#include "publish/publishing.h"
#include "publish/words.h"

#include <algorithm>
#include <utility>

namespace mrd::publish {
namespace {

constexpr int kMessageUploadFinished = 31;
constexpr std::string_view kPicturesQuery = "SELECT * FROM Dateien WHERE ([dateityp-id]=2) and (übertragen=TRUE)";

} // namespace

void Publishing::cbftp_Click()
{
  click([this] {
    channel.Abbruch = false;
    isRunComplete = false;
    // What an earlier run came to says nothing of this one, which may fail before its first file.
    files.assign({});
    channel.withRetries([this] { upload(); }, [this](const base::Error& error) { uploadFailed(error); });
    channel.hideProgress();
    ui_.pointer(ui::Pointer::Default);
  });
}

void Publishing::upload()
{
  channel.showProgress(channel.ProgressBar1.value);
  command("CD /" + directory_, directoryFailure_);
  if (kind_.looksAtFailures && !directoryFailure_.empty())
    raiseFailure(directoryFailure_);
  channel.showState("FTP: HTML-Dateien werden übertragen!");
  planRun();
  sendPages();
  command("CD pix", directoryFailure_);
  sendPictures();
  endUpload();
}

std::vector<RunFile> Publishing::dueFiles(std::string_view query, project::Dateityp type)
{
  std::vector<RunFile> due;
  for (auto rows = db_.openRecordset(query); !rows.eof(); rows.moveNext()) {
    const auto name = rows.value("dateiname").text() + "." + rows.value("erweiterung").text();
    due.push_back({rows.value("pfad").text() + name, name, type});
  }
  return due;
}

/// The user sees from the start what is to be sent, and afterwards also what the run did not come to.
void Publishing::planRun()
{
  auto planned = dueFiles(kind_.pagesQuery, project::Dateityp::Page);
  for (auto& picture : dueFiles(kPicturesQuery, project::Dateityp::Picture))
    planned.push_back(std::move(picture));
  files.assign(std::move(planned));
}

/// Without files of the type the bar keeps the maximum that it has.
void Publishing::setMaximum(project::Dateityp type)
{
  const auto count =
      std::count_if(files.all().begin(), files.all().end(), [&](const RunFile& file) { return file.type == type; });
  if (count > 0)
    channel.ProgressBar1.maximum = static_cast<std::size_t>(count);
}

void Publishing::sendPages()
{
  setMaximum(project::Dateityp::Page);
  std::size_t counter = 0;
  for (std::size_t i = 0; i < files.size() && !(kind_.pagesEndAtAbbruch && channel.Abbruch); ++i) {
    if (files[i].type != project::Dateityp::Page)
      continue;
    channel.showProgress(++counter);
    send(i);
    showSent(i, kind_.looksAtFailures);
  }
}

/// Here nothing ends the loop, and the line says the same of every file; what became of it stands in `files`.
void Publishing::sendPictures()
{
  setMaximum(project::Dateityp::Picture);
  std::size_t counter = 0;
  for (std::size_t i = 0; i < files.size(); ++i) {
    if (files[i].type != project::Dateityp::Picture)
      continue;
    channel.showProgress(++counter);
    send(i);
    showSent(i, false);
  }
}

void Publishing::showSent(std::size_t index, bool tellsFailure)
{
  const bool isFine = !tellsFailure || fileFailure_.empty();
  channel.showState(isFine ? base::format("FTP: {}  erfolgreich übertragen.", files[index].name) : "Problem : " + fileFailure_);
}

void Publishing::send(std::size_t index)
{
  const auto& client = channel.Inet1;
  const auto file = files[index];
  try {
    command("PUT \"" + file.path + "\" " + file.name, fileFailure_);
  } catch (const Stopped&) {
    files.settle(index, RunFile::Fate::Failed, std::string(textOf(Words::Stopped, Sprache())));
    throw;
  }
  if (!fileFailure_.empty())
    files.settle(index, RunFile::Fate::Failed,
                 channel.failure.empty() ? std::string(textOf(Words::Failure, Sprache())) + fileFailure_ : channel.failure);
  else if (!isAnswered())
    files.settle(index, RunFile::Fate::Failed, client.ResponseInfo());
  else if (channel.Abbruch)
    files.settle(index, RunFile::Fate::Failed, std::string(textOf(Words::NotWaitedFor, Sprache())));
  else
    files.settle(index, RunFile::Fate::Done);
}

void Publishing::endUpload()
{
  isRunComplete = true;
  channel.ftpSammelfehler = connectFailure_ + directoryFailure_ + fileFailure_;
  channel.hideProgress();
  channel.showState("Fertig!");
  if (kind_.looksAtFailures && !channel.ftpSammelfehler.empty())
    ui_.messageBox({"Hinweis: Probleme bei der FTP Übertragung:\r\n" + channel.ftpSammelfehler, ""});
  else if (environment_.language.GetMsg(kMessageUploadFinished) == ui::Button::Yes)
    connectAndCompare();
}

void Publishing::uploadFailed(const base::Error& error)
{
  if (!kind_.looksAtFailures) {
    actionFailed(error, base::numberText(error.number()));
    return;
  }
  explain(reasonOf(error));
  ui_.messageBox({"Fehler bei der FTPÜbertragung: " + error.description(), ""});
  channel.showState(error.description());
}

void Publishing::sendFailedAgain()
{
  click([this] {
    const auto unsent =
        std::count_if(files.all().begin(), files.all().end(), [](const RunFile& file) { return file.isUnsent(); });
    channel.ProgressBar1.maximum = static_cast<std::size_t>(unsent);
    std::size_t counter = 0;
    for (const auto type : {project::Dateityp::Page, project::Dateityp::Picture})
      sendUnsent(type, counter);
    channel.hideProgress();
    channel.showState("Fertig!");
  });
}

void Publishing::sendUnsent(project::Dateityp type, std::size_t& counter)
{
  const auto isDue = [&](const RunFile& file) { return file.type == type && file.isUnsent(); };
  if (std::none_of(files.all().begin(), files.all().end(), isDue))
    return;
  command("CD /" + directory_, directoryFailure_);
  if (type == project::Dateityp::Picture)
    command("CD pix", directoryFailure_);
  for (std::size_t i = 0; i < files.size(); ++i) {
    if (!isDue(files[i]))
      continue;
    channel.showProgress(++counter);
    send(i);
    showSent(i, true);
  }
}

} // namespace mrd::publish
