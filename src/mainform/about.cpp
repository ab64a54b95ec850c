#include "mainform/about.h"

#include "base/product.h"

namespace mrd::mainform {
namespace {

constexpr int kMessageNoSystemInformation = 28;

std::string version() { return "Version " + std::string(base::kVersion); }

} // namespace

FrmStartbild::FrmStartbild() : labelversion(version()) {}

frmAbout::frmAbout(messages::Language& language, ui::Shell& shell)
    : caption("Info zu " + std::string(base::kProductName)), lblVersion(version()), language_(language), shell_(shell)
{
}

void frmAbout::Form_Load(ui::WindowControls& controls)
{
  language_.Setlanguage(controls);
  window.refresh();
}

void frmAbout::StartSysInfo()
{
  if (!shell_.openSystemInformation())
    language_.GetMsg(kMessageNoSystemInformation);
}

} // namespace mrd::mainform
