#include "pagetree/active_page.h"

#include "base/text.h"
#include "frame/failures/failures.h"
#include "frame/settings/stored_settings.h"
#include "pagetree/page_id.h"

namespace mrd::pagetree {
namespace {

constexpr std::string_view kKey = "LastActivePage";

} // namespace

void ActivePage::WriteLastActivePage()
{
  failures::withPlainHandler(ui_, "WriteLastActivePage", [&] {
    settings::StoredSettings stored(db_);
    if (stored.value(kKey))
      stored.edit(kKey, LastActivePage.empty() ? std::string(kRootId) : idOf(LastActivePage));
  });
}

void ActivePage::SetLastActivePage()
{
  failures::withPlainHandler(ui_, "SetLastActivePage", [&] {
    settings::StoredSettings stored(db_);
    const auto id = stored.value(kKey);
    if (!id)
      stored.set(kKey, kRootId);
    ui_.pumpEvents();
    const std::string key = keyOf(base::trim(id.value_or(std::string(kRootId))));
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
