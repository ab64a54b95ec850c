#include "mainform/export_commands.h"

#include "base/text.h"
#include "pagetree/page_id.h"
#include "platform/ftp/curl_client.h"
#include "publish/remembered_servers.h"
#include "publish/timer.h"

#include <string>
#include <string_view>

namespace mrd::mainform {
namespace {

constexpr int kMessageChoosePage = 2;
constexpr std::string_view kPanelPrefix = "ID:@";

} // namespace

bool ExportCommands::isReady() { return parts_.project.requireOpen() && parts_.pages.leave(); }

generator::ExportEnvironment ExportCommands::environment()
{
  auto& program = parts_.project.program();
  return {program.files, program.language, parts_.project.fields(), program.clock, parts_.shell};
}

template <class Dialog>
void ExportCommands::showExport()
{
  if (!isReady())
    return;
  auto& language = parts_.project.program().language;
  publish::RememberedServers servers(parts_.userSettings, language, publish::OnChange::Ask);
  ftp::CurlClient client([&](const ftp::ServerIdentity& identity) { return servers.trusts(identity); },
                         [&](const std::string& server) { return servers.isKnown(server); });
  const publish::SystemTimer timer;
  Dialog dialog(environment(), {language, parts_.project.fields(), client, timer});
  parts_.project.finishBackup();
  dialog.DbName = parts_.project.DbName();
  parts_.dialogs.showModal(dialog);
}

void ExportCommands::html() { showExport<publish::frmHTMLExport>(); }

void ExportCommands::cbimode_Click() { showExport<imode::frmimode>(); }

void ExportCommands::seitenvorschau()
{
  if (!isReady())
    return;
  auto& pages = parts_.pages;
  const std::string id = base::replaceAll(pages.fields.statusPanel, kPanelPrefix, "");
  if (pages.LastActivePage().empty() || !pagetree::isPageId(id)) {
    parts_.project.program().language.GetMsg(kMessageChoosePage);
    return;
  }
  generator::frmHTMLExport dialog(environment());
  dialog.selection.Lblseitenvorschauid = id;
  parts_.project.finishBackup();
  // Events run while the page is generated, and no second run may begin then.
  pages.whileBusy([&] {
    if (dialog.Form_Load(parts_.project.DbName()))
      dialog.cbHTML_Click();
  });
}

} // namespace mrd::mainform
