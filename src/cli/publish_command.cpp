#include "base/format.h"
#include "cli/commands.h"
#include "cli/json.h"
#include "cli/session.h"
#include "frame/settings/export_path.h"
#include "mainform/project_frame.h"
#include "platform/files/files.h"
#include "platform/files/user_settings.h"
#include "platform/ftp/curl_client.h"
#include "publish/publishing.h"
#include "publish/remembered_servers.h"
#include "publish/words.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iostream>
#include <memory>

namespace mrd::cli {
namespace {

struct PublishArguments {
  std::string file;
  bool imode = false, connectOnly = false, deleteOrphans = false;
};

/// What a run came to.
struct Summary {
  std::size_t sent = 0, kept = 0;
  std::vector<publish::RunFile> failed;
  std::vector<std::string> orphans, deleted, notDeleted;
  /// Whether the server was read at all, and again behind the run where it was; whether the run came to its end.
  bool wasRead = false, isConnected = false, isRunComplete = false;

  ExitStatus status() const
  {
    return isConnected && isRunComplete && failed.empty() && notDeleted.empty() ? ExitStatus::Done : ExitStatus::Failed;
  }
};

constexpr int kMessageNothingGenerated = 120, kMessageNotRead = 181;
constexpr int kTabPictures = 0, kTabPages = 1;

/// A run over a part of the pages enters that part only. What lies in the export directory belongs to the site all the same. And
/// a symbolic link was put there by hand, perhaps to a directory with more than this site: only a user may select it.
void deselectNoOrphans(publish::ListBox& list, const std::string& directory, const ftp::Client& client)
{
  for (auto& entry : list.entries)
    entry.isSelected = entry.isSelected && !files::fileExists(directory + entry.text) && !client.isLink(entry.text);
}

void addSelected(std::vector<std::string>& names, const publish::ListBox& list, const std::string& prefix)
{
  for (const auto& entry : list.entries)
    if (entry.isSelected)
      names.push_back(prefix + entry.text);
}

void deleteOrphans(publish::Publishing& dialog, Summary& summary)
{
  for (const int tab : {kTabPages, kTabPictures}) {
    auto& list = tab == kTabPages ? dialog.ListFTPHTML : dialog.ListFTPpix;
    const std::string prefix = tab == kTabPages ? "" : "pix/";
    std::vector<std::string> selected;
    addSelected(selected, list, prefix);
    if (selected.empty())
      continue;
    dialog.tabFTP = tab;
    dialog.files.assign({});
    dialog.cbftplöschen_Click();
    std::vector<std::string> deleted;
    for (const auto& file : dialog.files.all())
      if (file.isConfirmed())
        deleted.push_back(file.shownName());
    // The rest was not: the question was refused, the server was out of reach, or it would not.
    for (const auto& name : selected)
      (std::find(deleted.begin(), deleted.end(), name) != deleted.end() ? summary.deleted : summary.notDeleted).push_back(name);
  }
}

std::size_t count(dao::Database& db, std::string_view condition)
{
  return db.openSnapshot("SELECT dateiname FROM Dateien WHERE " + std::string(condition)).recordCount();
}

void print(const Summary& summary, const std::string& Sprache)
{
  const auto words = [&](publish::Words which) { return publish::textOf(which, Sprache); };
  printLine(base::format(fmt::runtime(words(publish::Words::Summary)), summary.sent, summary.kept, summary.orphans.size(),
                         summary.deleted.size(), summary.failed.size() + summary.notDeleted.size()));
  for (const auto& name : summary.orphans)
    printLine(base::format("{}: {}", words(publish::Words::Orphan), name));
  for (const auto& file : summary.failed)
    std::cerr << base::format("{}: {}{}{}\n", words(publish::Words::NotSent), file.shownName(), file.problem.empty() ? "" : ": ",
                              file.problem);
  for (const auto& name : summary.notDeleted)
    std::cerr << base::format("{}: {}\n", words(publish::Words::NotDeleted), name);
}

std::string jsonList(const std::vector<std::string>& names)
{
  std::string text;
  for (const auto& name : names)
    text += (text.empty() ? "" : ", ") + jsonText(name);
  return "[" + text + "]";
}

void printJson(const Summary& summary)
{
  std::string failed;
  for (const auto& file : summary.failed)
    failed += base::format("{}{{\"name\": {}, \"problem\": {}}}", failed.empty() ? "" : ", ", jsonText(file.shownName()),
                           jsonText(file.problem));
  printLine(base::format("{{\"sent\": {}, \"kept\": {}, \"failed\": [{}], \"orphans\": {}, \"deleted\": {}, \"notDeleted\": {}}}",
                         summary.sent, summary.kept, failed, jsonList(summary.orphans), jsonList(summary.deleted),
                         jsonList(summary.notDeleted)));
}

/// What is due goes to the server.
void send(publish::Publishing& dialog, Summary& summary)
{
  dialog.cbftp_Click();
  summary.isRunComplete = dialog.isRunComplete;
  for (const auto& file : dialog.files.all())
    if (file.isConfirmed())
      ++summary.sent;
    else
      summary.failed.push_back(file);
}

Summary publishSite(publish::Publishing& dialog, dao::Database& db, const std::string& directory,
                    const PublishArguments& arguments)
{
  Summary summary;
  dialog.cbftpverbindung_Click();
  summary.wasRead = summary.isConnected = dialog.isConnected;
  if (!summary.wasRead)
    return summary;
  // Counted now: where the server is read again behind the run it has the pictures of the run too.
  summary.kept = count(db, "([dateityp-id]=2) and (übertragen=FALSE)");
  summary.isRunComplete = arguments.connectOnly;
  if (!arguments.connectOnly)
    send(dialog, summary);
  summary.isConnected = dialog.isConnected;
  // A list that lacks an answer may be that of another directory: nothing is judged by it.
  if (!summary.isConnected)
    return summary;
  deselectNoOrphans(dialog.ListFTPHTML, directory, dialog.channel.Inet1);
  deselectNoOrphans(dialog.ListFTPpix, directory + "pix\\", dialog.channel.Inet1);
  addSelected(summary.orphans, dialog.ListFTPHTML, "");
  addSelected(summary.orphans, dialog.ListFTPpix, "pix/");
  if (arguments.deleteOrphans)
    deleteOrphans(dialog, summary);
  return summary;
}

ExitStatus publish(Session& session, const PublishArguments& arguments)
{
  mainform::ProjectFrame mainform(session.program());
  mainform.ladebenutzerlayouts();
  if (!mainform.openProject(Session::path(arguments.file)) || !mainform.loadSettings())
    return ExitStatus::Failed;
  if (count(mainform.db(), "[dateityp-id]=1") == 0) {
    session.program().language.GetMsg(kMessageNothingGenerated);
    return ExitStatus::Failed;
  }
  files::UserSettings settings;
  publish::RememberedServers servers(settings, session.program().language, publish::OnChange::Refuse);
  ftp::CurlClient client([&](const ftp::ServerIdentity& identity) { return servers.trusts(identity); },
                         [&](const std::string& server) { return servers.isKnown(server); });
  const publish::SystemTimer timer;
  publish::Publishing dialog(arguments.imode ? publish::kImode : publish::kHtmlExport,
                             {mainform.program().language, mainform.fields(), client, timer}, mainform.db());
  const auto directory = settings::withClosingSeparator(mainform.fields().tbpfadexport) + (arguments.imode ? "imode\\" : "");
  const auto summary = publishSite(dialog, mainform.db(), directory, arguments);
  if (!summary.isConnected)
    session.program().language.GetMsg(kMessageNotRead);
  if (summary.wasRead)
    session.json ? printJson(summary) : print(summary, dialog.Sprache());
  return summary.status();
}

} // namespace

void addPublish(CLI::App& app, Session& session)
{
  auto* const command = app.add_subcommand("publish", "Puts the site on its server");
  const auto arguments = std::make_shared<PublishArguments>();
  command->add_option("FILE", arguments->file)->required();
  command->add_flag("--imode", arguments->imode, "The edition for telephones");
  auto* const connectOnly =
      command->add_flag("--connect-only", arguments->connectOnly, "Only compare what the server has with the project");
  command->add_flag("--delete-orphans", arguments->deleteOrphans, "Delete what belongs to no page; needs --yes")
      ->excludes(connectOnly);
  command->callback([&session, arguments] { session.run([&] { return publish(session, *arguments); }); });
}

} // namespace mrd::cli
