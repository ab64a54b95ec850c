#pragma once
// What the operations on files share: failures in the platform's numbers, descriptors. For the sources of this folder only.

#include <cerrno>
#include <filesystem>
#include <utility>

namespace mrd::files {

/// Throws the platform's number for what the operating system said about a path.
[[noreturn]] void fail(int code, const std::filesystem::path& native);

/// Calls an operation again for as long as a signal cut it short.
template <class Operation>
auto uninterrupted(Operation operation)
{
  for (;;) {
    const auto result = operation();
    if (result >= 0 || errno != EINTR)
      return result;
  }
}

/// Closed when it goes out of scope; negative for none.
class Descriptor {
public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor();
  Descriptor(Descriptor&& other) noexcept : number_(other.release()) {}
  Descriptor& operator=(Descriptor&&) = delete;

  int get() const { return number_; }
  int release() { return std::exchange(number_, -1); }

private:
  int number_;
};

/// Opening must not wait for somebody at the other end of a pipe, which a page's reference may name.
int openFile(const std::filesystem::path& native, int flags);

/// Locks an open file for as long as it is open, alone or beside others who share it. False when another program of ours keeps it
/// from that; a file system without locks gives the file to whoever comes.
bool lockFile(int descriptor, bool shared = false);

/// Whether the name still leads to the open file: one that was locked before may have been renamed or removed since.
bool isStillNamed(int descriptor, const std::filesystem::path& native);

/// Makes a rename durable. File systems that cannot sync a directory keep it in their own way.
void syncDirectoryOf(const std::filesystem::path& native);

} // namespace mrd::files
