// Any bytes are an INI file: a value that is written is read again, and no other value changes by it.

#include "fuzz_file.h"
#include "platform/files/ini_file.h"

using namespace mrd;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  static const fuzz::InputFile file("mirandel.INI");
  file.write(data, size);
  files::IniFile ini(file.path());
  const auto other = ini.value("Settings", "Sprache");

  ini.setValue("LastFile", "File1", "\\home\\anna\\m\u00f6we.mdb");

  fuzz::require(ini.value("lastfile", "FILE1") == "\\home\\anna\\m\u00f6we.mdb");
  fuzz::require(ini.value("Settings", "Sprache") == other);
  return 0;
}
