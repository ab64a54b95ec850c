#include "imode/head_frame.h"

#include "base/errors.h"
#include "imode/band.h"

namespace mrd::imode {
namespace {

constexpr std::string_view kNoFile = "Bitte Datei auswählen.";

} // namespace

void HeadFrame::cbimodegifladen_Click()
{
  try {
    const auto chosen = ui_.openFileDialog({"i-mode Titelbild auswählen", "gif-Bilder|*.gif"});
    fields_.Lblimodegif = chosen.value_or(std::string(kNoFile));
    fields_.picImodeKopf = chosen.value_or("");
  } catch (const base::Error& error) {
    ui_.messageBox({"Fehler in cbimodegifladen : " + error.description(), ""});
  }
}

void HeadFrame::imodelogo()
{
  try {
    LEADimode = drawBand(fields_);
  } catch (const base::Error&) {
    // A computer without fonts still has a main window; the run that needs the band tells why it has none.
    LEADimode.reset();
  }
}

} // namespace mrd::imode
