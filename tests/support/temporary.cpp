#include "support/temporary.h"

#include "platform/files/path.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace mrd::support {
namespace {

std::string readNative(const std::filesystem::path& path)
{
  std::ifstream in(path, std::ios::binary);
  if (!in)
    throw std::runtime_error("cannot read " + path.string());
  return {std::istreambuf_iterator<char>(in), {}};
}

/// The parts of a relative path may be parted by either separator.
std::filesystem::path nativeRelative(std::string relative)
{
  for (auto& c : relative)
    c = c == '\\' ? '/' : c;
  return relative.substr(relative.starts_with('/') ? 1 : 0);
}

} // namespace

std::string resourceText(const std::string& relative)
{
  return readNative(std::filesystem::path(MRD_SOURCE_DIR) / "resources" / relative);
}

TemporaryDirectory::TemporaryDirectory()
{
  auto pattern = (std::filesystem::temp_directory_path() / "mirandel-test-XXXXXX").string();
  if (!mkdtemp(pattern.data()))
    throw std::runtime_error("cannot make " + pattern);
  path_ = pattern;
}

TemporaryDirectory::~TemporaryDirectory()
{
  std::error_code ignored; // a directory that a test made unwritable costs only space
  std::filesystem::remove_all(path_, ignored);
}

std::string TemporaryDirectory::path() const { return files::systemPath(path_); }

std::string TemporaryDirectory::file(std::string_view name) const
{
  auto whole = path();
  if (!name.starts_with('\\'))
    whole += '\\';
  return whole.append(name);
}

void TemporaryDirectory::write(const std::string& relative, std::string_view bytes) const
{
  const auto target = path_ / nativeRelative(relative);
  std::filesystem::create_directories(target.parent_path());
  std::ofstream out(target, std::ios::binary);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!out.flush())
    throw std::runtime_error("cannot write " + target.string());
}

std::string TemporaryDirectory::read(const std::string& relative) const { return readNative(path_ / nativeRelative(relative)); }

} // namespace mrd::support
