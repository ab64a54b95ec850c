#include "platform/dao/byte_store.h"

#include "base/errors.h"
#include "base/format.h"
#include "platform/dao/engine.h"
#include "platform/files/path.h"

#include <xxhash.h>

#include <bit>
#include <exception>
#include <filesystem>
#include <system_error>
#include <unordered_set>

namespace mrd::dao {
namespace {

namespace fs = std::filesystem;

/// Changes with the form of the file: one of another form is begun anew.
constexpr std::int64_t kForm = 1;

/// The file may be lost at any time, so nothing waits for the disk, nor for another program that has the file in use.
constexpr const char* kSettings = "PRAGMA busy_timeout = 0; PRAGMA page_size = 16384;"
                                  "PRAGMA journal_mode = MEMORY; PRAGMA synchronous = OFF; PRAGMA cache_size = -16384;"
                                  "PRAGMA mmap_size = 33554432;";

/// Bodies are appended in the order in which they come; only the small index is written out of order.
constexpr const char* kTables = "CREATE TABLE entry (id INTEGER PRIMARY KEY, high INTEGER, low INTEGER, checkHigh INTEGER, "
                                "checkLow INTEGER, bytes BLOB);"
                                "CREATE UNIQUE INDEX entryKey ON entry (high, low);";

/// From the first use to the next flush, so that no entry costs a lock of its own.
constexpr const char* kBegin = "BEGIN EXCLUSIVE";

std::int64_t stored(std::uint64_t half) { return std::bit_cast<std::int64_t>(half); }

/// Hash of an entry's bytes under its key, so that bytes that damage brought under a wrong key do not pass.
ContentHash checkOf(const ContentHash& key, std::string_view bytes)
{
  const auto hash = XXH3_128bits_withSeed(bytes.data(), bytes.size(), key.high ^ std::rotl(key.low, 1));
  return {hash.high64, hash.low64};
}

struct FreeState {
  void operator()(XXH3_state_t* state) const { XXH3_freeState(state); }
};

} // namespace

ContentHash contentHash(std::span<const std::string_view> pieces)
{
  const std::unique_ptr<XXH3_state_t, FreeState> state(XXH3_createState());
  if (state == nullptr)
    throw std::bad_alloc();
  XXH3_128bits_reset(state.get());
  for (const auto piece : pieces) {
    const std::uint64_t size = piece.size();
    XXH3_128bits_update(state.get(), &size, sizeof size);
    XXH3_128bits_update(state.get(), piece.data(), piece.size());
  }
  const auto hash = XXH3_128bits_digest(state.get());
  return {hash.high64, hash.low64};
}

struct ByteStore::State {
  explicit State(std::string_view systemPath) : path(systemPath) {}

  void open();
  void beginAnew() noexcept;
  void giveUp() noexcept;
  void settle(const base::Error& error) noexcept;
  std::optional<std::string> find(const ContentHash& key);
  void insert(const ContentHash& key, std::string_view bytes);
  void commit(bool forgetUnused);
  void forget();
  /// Runs `work` inside a transaction; failures settle themselves.
  template <class Work>
  void attempt(Work work) noexcept;

  std::string path;
  fs::path native;
  std::unique_ptr<Connection> connection;
  Statement select, replace;
  /// Entries that were read or put since opening.
  std::unordered_set<std::int64_t> used;
};

void ByteStore::State::open()
{
  if (path.empty())
    throw base::Error(base::ErrorNumber::FileNotFound, "Der Speicher hat keinen Ort.");
  native = files::nativePath(path);
  connection = std::make_unique<Connection>(native, path, Access::Create);
  connection->distrustFile();
  connection->run(kSettings);
  connection->run(kBegin);
  if (connection->number("SELECT count(*) FROM sqlite_master") == 0) {
    connection->run(kTables);
    connection->run(base::format("PRAGMA user_version = {}", kForm).c_str());
  }
  if (connection->number("PRAGMA user_version") != kForm)
    throw base::Error(base::ErrorNumber::NotADatabase, "Der Speicher hat eine andere Form.");
  select = connection->prepare("SELECT id, checkHigh, checkLow, bytes FROM entry WHERE high = ?1 AND low = ?2", true);
  replace = connection->prepare(
      "INSERT OR REPLACE INTO entry (high, low, checkHigh, checkLow, bytes) VALUES (?1, ?2, ?3, ?4, ?5)", true);
}

/// Whoever asks goes on without stored entries, only slower.
void ByteStore::State::giveUp() noexcept
{
  select = {};
  replace = {};
  connection.reset();
  used.clear();
}

void ByteStore::State::beginAnew() noexcept
{
  giveUp();
  try {
    std::error_code ignored;
    if (fs::is_regular_file(native, ignored))
      fs::remove(native, ignored);
    open();
  } catch (const std::exception&) {
    // What stands in the way cannot be removed.
    giveUp();
  }
}

/// A damaged file is begun anew; without one that can be used the store has no entries from then on.
void ByteStore::State::settle(const base::Error& error) noexcept
{
  // A statement that cannot be prepared means tables of another form.
  if (error.kind() == base::ErrorNumber::NotADatabase || error.kind() == base::ErrorNumber::SyntaxError)
    beginAnew();
  else
    giveUp();
}

template <class Work>
void ByteStore::State::attempt(Work work) noexcept
{
  if (!connection)
    return;
  try {
    if (!connection->inTransaction())
      connection->run(kBegin);
    work();
  } catch (const base::Error& error) {
    settle(error);
  } catch (const std::exception&) {
    // Out of memory: this one entry is done without.
  }
}

std::optional<std::string> ByteStore::State::find(const ContentHash& key)
{
  select.bind(1, stored(key.high));
  select.bind(2, stored(key.low));
  std::optional<std::string> out;
  bool sound = true;
  if (select.step()) {
    const auto bytes = select.bytes(3);
    const ContentHash check = checkOf(key, bytes);
    sound = select.integer(1) == stored(check.high) && select.integer(2) == stored(check.low);
    if (sound) {
      out = std::string(bytes);
      used.insert(select.integer(0));
    }
  }
  select.reset();
  if (!sound)
    throw base::Error(base::ErrorNumber::NotADatabase, "Der Speicher ist beschädigt.");
  return out;
}

void ByteStore::State::insert(const ContentHash& key, std::string_view bytes)
{
  const ContentHash check = checkOf(key, bytes);
  replace.bind(1, stored(key.high));
  replace.bind(2, stored(key.low));
  replace.bind(3, stored(check.high));
  replace.bind(4, stored(check.low));
  replace.bindBytes(5, bytes);
  replace.run();
  used.insert(connection->lastRowId());
}

void ByteStore::State::forget()
{
  std::vector<std::int64_t> unused;
  Statement all = connection->prepare("SELECT id FROM entry");
  while (all.step())
    if (!used.contains(all.integer(0)))
      unused.push_back(all.integer(0));
  Statement remove = connection->prepare("DELETE FROM entry WHERE id = ?1");
  for (const auto id : unused) {
    remove.bind(1, id);
    remove.run();
  }
}

void ByteStore::State::commit(bool forgetUnused)
{
  if (forgetUnused)
    forget();
  connection->run("COMMIT");
}

ByteStore::ByteStore(std::string_view path) : state_(std::make_unique<State>(path))
{
  try {
    state_->open();
  } catch (const base::Error& error) {
    state_->settle(error);
  } catch (const std::exception&) {
    // A path that the file system cannot take.
    state_->giveUp();
  }
}

ByteStore::~ByteStore() { flush(false); }

std::optional<std::string> ByteStore::get(const ContentHash& key)
{
  std::optional<std::string> out;
  state_->attempt([&] { out = state_->find(key); });
  return out;
}

void ByteStore::put(const ContentHash& key, std::string_view bytes)
{
  state_->attempt([&] { state_->insert(key, bytes); });
}

void ByteStore::flush(bool forgetUnused)
{
  state_->attempt([&] { state_->commit(forgetUnused); });
}

} // namespace mrd::dao
