// Publishing: deleting what is selected, and one more file.

#include "base/number_text.h"
#include "base/text.h"
#include "frame/paths/paths.h"
#include "publish/publishing.h"

#include <set>
#include <utility>

namespace mrd::publish {
namespace {

constexpr int kMessageNothingSelected = 32, kMessageReallyDelete = 33;
constexpr std::size_t kStepsOfExtraFile = 3;

} // namespace

Publishing::ShownList Publishing::shownList()
{
  if (tabFTP == 0)
    return {ListFTPpix, kPictureTypes};
  return {ListFTPHTML, kPageTypes};
}

void Publishing::goToShown(const ShownList& shown)
{
  command("CD /" + directory_, directoryFailure_);
  if (shown.types.project == project::Dateityp::Picture)
    command("CD pix", directoryFailure_);
}

void Publishing::cbftplöschen_Click()
{
  click([this] {
    const auto shown = shownList();
    if (shown.list.selectedCount() == 0) {
      environment_.language.GetMsg(kMessageNothingSelected);
      return;
    }
    if (environment_.language.GetMsg(kMessageReallyDelete) == ui::Button::No)
      return;
    channel.withRetries([&] { deleteSelected(shown); },
                        [this](const base::Error& error) {
                          actionFailed(error, base::numberText(error.number()));
                          channel.hideProgress();
                        });
  });
}

/// Only what the user agreed to is deleted, also when he selects and deselects while it goes on.
void Publishing::deleteSelected(const ShownList& shown)
{
  auto& entries = shown.list.entries;
  channel.ProgressBar1.maximum = shown.list.selectedCount();
  channel.showProgress(0);
  channel.showState("FTP: Dateien werden gelöscht!");
  std::vector<std::size_t> agreed;
  std::vector<RunFile> planned;
  for (std::size_t i = 0; i < entries.size(); ++i)
    if (entries[i].isSelected) {
      agreed.push_back(i);
      planned.push_back({"", entries[i].text, shown.types.project, RunFile::Deed::Delete});
    }
  files.assign(std::move(planned));
  channel.pump();
  auto rows = db_.openRecordset("SELECT * FROM Dateien");
  goToShown(shown);
  std::set<std::size_t> commanded;
  for (std::size_t counter = 0; counter < agreed.size(); ++counter)
    if (entries[agreed[counter]].isSelected) {
      commanded.insert(agreed[counter]);
      channel.showProgress(commanded.size());
      deleteFile(counter, rows);
    }
  std::size_t position = 0;
  std::erase_if(entries, [&](const ListBox::Entry&) { return commanded.contains(position++); });
  listsChanged();
  channel.showState("Fertig!");
  channel.hideProgress();
}

void Publishing::deleteFile(std::size_t index, dao::Recordset& rows)
{
  const auto file = files[index];
  command("DELETE " + file.name, fileFailure_);
  const auto problem = channel.failure.empty() ? channel.Inet1.ResponseInfo() : channel.failure;
  files.settle(index, isDone(fileFailure_) ? RunFile::Fate::Done : RunFile::Fate::Failed, problem);
  markAsDue(file.name, file.type, rows);
}

void Publishing::cbzusätzlichftp_Click()
{
  click([this] {
    const auto shown = shownList();
    channel.withRetries([&] { sendExtraFile(shown); },
                        [this](const base::Error& error) {
                          actionFailed(error, "");
                          channel.hideProgress();
                        });
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
  files.assign({{file, name, shown.types.project}});
  send(0);
  shown.list.entries.push_back({name, false});
  listsChanged();
  channel.showProgress(kStepsOfExtraFile);
  channel.pump();
  channel.showState("Fertig!");
  channel.hideProgress();
}

} // namespace mrd::publish
