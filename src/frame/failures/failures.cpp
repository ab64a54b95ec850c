#include "frame/failures/failures.h"

#include "base/format.h"

namespace mrd::failures {
namespace {

constexpr int kGeneralFailure = 1;

} // namespace

void showStandardFailure(messages::Language& language, const base::Error& error, std::string_view procedure)
{
  language.GetMsg(kGeneralFailure, base::format("{} ({}) in Modul {}", error.description(), error.number(), procedure), "R");
}

void showPlainFailure(ui::Ui& ui, const base::Error& error, std::string_view procedure)
{
  ui.messageBox({base::format("Fehler {} in Modul {}.", error.description(), procedure), "", ui::box::kOk});
}

void WriteLogFile(std::string_view) {}

} // namespace mrd::failures
