#include "base/format.h"
#include "base/text.h"
#include "pictures/file_scan.h"
#include "platform/files/path.h"

#include <algorithm>
#include <cctype>

namespace mrd::pictures {
namespace {

constexpr int kMessageNoNumber = 30, kMessageNotConverted = 126;
/// As many as a message box shows without leaving the screen.
constexpr std::size_t kFailuresTold = 12;

bool isNumber(std::string_view text)
{
  const auto trimmed = base::trim(text);
  return !trimmed.empty() && trimmed.find_first_not_of("+-.,0123456789") == std::string::npos &&
         std::ranges::any_of(trimmed, [](unsigned char c) { return std::isdigit(c) != 0; });
}

} // namespace

// --- the options

void FrmFileScan::CheckOriginalbilder_Click()
{
  bildpartnerEnabled = popupEnabled = CheckBildpartner = CheckPopupfenster = CheckOriginalbilder;
}

void FrmFileScan::CheckBildpartner_Click() { CheckOriginalbilder = CheckOriginalbilder || CheckBildpartner; }

void FrmFileScan::CheckPopupfenster_Click() { CheckOriginalbilder = CheckOriginalbilder || CheckPopupfenster; }

void FrmFileScan::Opdieseseite_Click() { Opdieseseite = tableEnabled = true; }

void FrmFileScan::OpjedesBildeineSeite_Click() { Opdieseseite = tableEnabled = false; }

void FrmFileScan::opnichtkonvertieren_Click()
{
  opkonvertieren = false;
  bildpartnerEnabled = popupEnabled = true;
}

void FrmFileScan::tbtabspalten_Change()
{
  if (!isNumber(tbtabspalten))
    tbtabspalten = "0";
}

void FrmFileScan::tbpixel_LostFocus()
{
  if (!isNumber(tbpixel))
    parts_.insertion.language.GetMsg(kMessageNoNumber);
}

void FrmFileScan::Slider1_Scroll() { sliderToolTip = base::format("Kompressionsfaktor {}%", Slider1); }

// --- the last button

InsertionOutcome FrmFileScan::cbeinfügen_Click()
{
  InsertionOutcome outcome;
  // The lists must stay what they are while pictures are worked on.
  if (isBusy())
    return outcome;
  if (opkonvertieren && !isNumber(tbpixel)) {
    parts_.insertion.language.GetMsg(kMessageNoNumber);
    return outcome;
  }
  hooks_.alone([&] {
    inserting_ = true;
    try {
      insert(outcome);
    } catch (...) {
      inserting_ = false;
      throw;
    }
    inserting_ = false;
  });
  if (!outcome.begun)
    return outcome;
  tellFailures(outcome);
  hooks_.unloadViewer();
  saveOptions();
  unload();
  return outcome;
}

void FrmFileScan::insert(InsertionOutcome& outcome)
{
  ChosenPictures chosen{tbshare, {}, lblnode};
  for (const auto& entry : Listpix)
    chosen.Listpix.push_back(entry.text);
  const auto show = [&] {
    for (std::size_t i = 0; i < Listpix.size(); ++i)
      Listpix[i].text = chosen.Listpix[i];
    lblnode = chosen.lblnode;
    LabelNeu = chosen.LabelNeu;
    Labelalt = chosen.Labelalt;
    window.refresh();
  };
  outcome = PictureInsertion(parts_.insertion, *this).run(chosen, show);
  if (outcome.begun)
    hooks_.inserted();
}

/// The entries say it too, but the window is about to close.
void FrmFileScan::tellFailures(const InsertionOutcome& outcome)
{
  if (outcome.failed.empty())
    return;
  std::string lines;
  for (std::size_t i = 0; i < std::min(outcome.failed.size(), kFailuresTold); ++i) {
    const auto& [path, reason] = outcome.failed[i];
    const auto name = files::nativePath(path).native();
    lines += (base::contains(reason, name) ? reason : base::format("{}: {}", name, reason)) + std::string(base::kCrLf);
  }
  if (outcome.failed.size() > kFailuresTold)
    lines += base::format("... ({})", outcome.failed.size());
  parts_.insertion.language.GetMsg(kMessageNotConverted, lines, "R");
}

void FrmFileScan::cbschließen_Click()
{
  if (inserting_)
    return;
  stopped_ = true;
  storeDirectory();
  unload();
}

void FrmFileScan::unload()
{
  loaded_ = false;
  window.unload();
}

} // namespace mrd::pictures
