#include "pagetree/active_page.h"

#include "base/text.h"
#include "frame/failures/failures.h"
#include "pagetree/page_id.h"

namespace mrd::pagetree {
namespace {

constexpr std::string_view kRowOfActivePage = "Einstellung = 'LastActivePage'";

} // namespace

void ActivePage::WriteLastActivePage()
{
  failures::withPlainHandler(ui_, "WriteLastActivePage", [&] {
    auto settings = db_.openRecordset("Select * from Einstellungen");
    settings.findFirst(kRowOfActivePage);
    if (settings.noMatch())
      return;
    settings.edit();
    settings.set("Wert", LastActivePage.empty() ? std::string(kRootId) : idOf(LastActivePage));
    settings.update();
  });
}

void ActivePage::SetLastActivePage()
{
  failures::withPlainHandler(ui_, "SetLastActivePage", [&] {
    std::string id(kRootId);
    auto settings = db_.openRecordset("Select * from Einstellungen");
    settings.findFirst(kRowOfActivePage);
    if (settings.noMatch()) {
      settings.addNew();
      settings.set("Einstellung", "LastActivePage");
      settings.set("Wert", kRootId);
      settings.update();
    } else {
      id = base::trim(settings.value("Wert").text());
    }
    ui_.pumpEvents();
    const std::string key = keyOf(id);
    try {
      tree_.select(key);
      LastActivePage = key;
    } catch (const base::Error& error) {
      // A stored page that no longer exists must not stop the opening of its project.
      failures::WriteLogFile("SetLastActivePage: Error=" + error.description());
    }
  });
}

} // namespace mrd::pagetree
