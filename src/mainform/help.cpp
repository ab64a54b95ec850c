#include "mainform/help.h"

namespace mrd::mainform {
namespace {

constexpr std::string_view kStartPage = "index.htm";
constexpr std::string_view kScanWindow = "FrmFileScan", kScanPage = "bildereinfuegen.htm";
constexpr int kMessageNoHelp = 45;

} // namespace

void Help::HilfeAnzeigen(std::string_view name)
{
  const std::string directory = program_.file(language_.Sprache() == "ENG" ? "\\help\\" : "\\hilfe\\");
  const std::string_view file = name.empty() || page.empty() ? kStartPage : name == kScanWindow ? kScanPage : page;
  for (const auto candidate : {file, kStartPage})
    if (const std::string path = directory + std::string(candidate); paths::datei_vorhanden(path)) {
      shell_.open(path);
      return;
    }
  language_.GetMsg(kMessageNoHelp);
}

} // namespace mrd::mainform
