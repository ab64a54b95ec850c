#include "platform/dao/jet_file.h"

#include "platform/dao/jet_process.h"
#include "platform/dao/jet_records.h"
#include "platform/files/installation.h"
#include "platform/files/path.h"

#include <fstream>
#include <system_error>

namespace mrd::dao {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSignature{"\0\1\0\0Standard Jet DB\0", 20};
constexpr const char* kReader = "mrd-jet-reader";

} // namespace

bool isJetFile(std::string_view path)
{
  const fs::path native = files::nativePath(path);
  std::error_code failure;
  if (!fs::is_regular_file(native, failure))
    return false;
  std::string start(kSignature.size(), '\0');
  std::ifstream file(native, std::ios::binary);
  file.read(start.data(), static_cast<std::streamsize>(start.size()));
  // The byte behind the signature's end tells version 3 from 4; the later ones have another signature.
  return file.gcount() == static_cast<std::streamsize>(start.size()) && start.substr(0, 19) == kSignature.substr(0, 19);
}

JetReading installedJetReading() { return {files::helperProgram(kReader)}; }

void readJetFile(std::string_view path, const JetReading& reading, JetSink& sink)
{
  JetProcess process(files::nativePath(path), reading);
  readJetRecords(process, sink);
}

} // namespace mrd::dao
