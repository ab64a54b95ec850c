#include "imode/imode.h"

#include "frame/failures/failures.h"
#include "frame/settings/export_path.h"
#include "imode/imode_run.h"
#include "imode/viewer.h"

namespace mrd::imode {

generator::RunOutcome ImodeExport::cbHTML_Click()
{
  return runInto(environment_.fields.tbpfadexport, {"imode", "imode\\pix"}, [this] {
    const auto run = job(exportpfad() + "imode\\");
    const auto outcome = ImodeRun(run).run();
    startdatei_ = outcome.startdatei;
    return outcome;
  });
}

void ImodeExport::cbvorschau_Click()
{
  failures::withStandardHandler(environment_.language, "cbvorschau_Click", [this] {
    const std::string site = settings::withClosingSeparator(environment_.fields.tbpfadexport);
    environment_.shell.open(pointViewerAt(environment_.program, site, startdatei_));
  });
}

} // namespace mrd::imode
