#include "platform/jetreader/output.h"

#include <cstdio>
#include <cstdlib>

namespace mrd::jetreader {
namespace {

constexpr int kMostNotes = 1000;

void write(const void* bytes, std::size_t count)
{
  if (std::fwrite(bytes, 1, count, stdout) != count)
    std::_Exit(1); // nobody listens
}

} // namespace

void put(dao::wire::Record record) { write(&record, 1); }
void put(dao::wire::Field field) { write(&field, 1); }

void putNumber(std::uint64_t number, int bytes)
{
  for (int i = 0; i < bytes; ++i, number >>= 8) {
    const auto byte = static_cast<unsigned char>(number);
    write(&byte, 1);
  }
}

void putText(std::string_view text)
{
  putNumber(text.size(), 4);
  write(text.data(), text.size());
}

void leaveOut(std::string_view what)
{
  static int notes = 0;
  if (++notes > kMostNotes)
    return;
  put(dao::wire::Record::LeftOut);
  putText(what);
}

} // namespace mrd::jetreader
