#include "platform/dao/database_copy.h"

#include "base/errors.h"
#include "platform/dao/database_file.h"
#include "platform/files/path.h"
#include "platform/files/succession.h"

#include <array>

namespace mrd::dao {
namespace {

constexpr int kPagesOfPiece = 256, kAllPages = -1;
constexpr std::array<std::string_view, 3> kCompanionEndings{"-journal", "-wal", "-shm"};

/// Until the copy has its name nobody needs it: nothing waits for the disk, and nothing has to be undone.
constexpr const char* kUnsafeButFast = "PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF; PRAGMA cache_size = -16384;";
/// A database with a write-ahead log would want one also where it is copied to.
constexpr const char* kOneFile = "PRAGMA journal_mode = DELETE;";

} // namespace

struct DatabaseCopy::State {
  std::unique_ptr<Connection> source, target;
  std::unique_ptr<PageCopy> pages;
};

DatabaseCopy::DatabaseCopy(std::string_view source, std::string_view target) : state_(std::make_unique<State>())
{
  const auto from = files::nativePath(source), to = files::nativePath(target);
  state_->source = openFile(from, from.native(), true);
  state_->target = std::make_unique<Connection>(to, to.native(), Access::Create);
  state_->target->run(kUnsafeButFast);
  state_->pages = std::make_unique<PageCopy>(*state_->source, *state_->target);
}

DatabaseCopy::~DatabaseCopy() = default;

bool DatabaseCopy::copyPiece() { return copy(kPagesOfPiece); }

void DatabaseCopy::copyRest()
{
  while (!copy(kAllPages)) {
  }
}

bool DatabaseCopy::copy(int pages)
{
  if (!state_->pages)
    return true;
  if (!state_->pages->step(pages))
    return false;
  state_->pages.reset();
  state_->source.reset();
  state_->target->run(kOneFile);
  state_->target.reset();
  return true;
}

bool isSound(std::string_view path)
{
  const auto native = files::nativePath(path);
  try {
    const auto connection = openFile(native, native.native(), true);
    auto check = connection->prepare("PRAGMA quick_check(1)");
    return check.step() && check.bytes(0) == "ok";
  } catch (const base::Error& error) {
    if (error.kind() == base::ErrorNumber::NotADatabase)
      return false;
    throw;
  }
}

std::vector<std::string> companionsOf(std::string_view path)
{
  std::vector<std::string> out;
  for (const auto ending : kCompanionEndings)
    out.push_back(std::string(path).append(ending));
  return out;
}

void mergeCompanions(std::string_view path)
{
  const auto native = files::nativePath(path);
  openFile(native, native.native(), false)->run(kOneFile);
}

void removeCompanions(std::string_view path)
{
  for (const auto& companion : companionsOf(path))
    files::removeLeftOver(companion);
}

} // namespace mrd::dao
