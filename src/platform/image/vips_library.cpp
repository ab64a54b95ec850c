#include "platform/image/vips_library.h"

#include "base/errors.h"
#include "base/format.h"

#include <vips/vips8>

#include <algorithm>
#include <string>

namespace mrd::image {
namespace {

using base::Error;
using base::ErrorNumber;

/// Started by the first picture and for the whole process, as the library has it.
class Library {
public:
  Library()
  {
    if (VIPS_INIT("mirandel") != 0)
      throw Error(ErrorNumber::InvalidPicture, vips_error_buffer());
    // A few pictures at a time are worked on, and a window wants to stay alive beside them.
    constexpr int kThreads = 4;
    vips_concurrency_set(std::min(kThreads, vips_concurrency_get()));
    // A cached operation would show a file as it was before it was replaced under the same name.
    vips_cache_set_max(0);
    // What the library thinks of a damaged picture is no output of this program.
    g_log_set_handler(
        "VIPS", static_cast<GLogLevelFlags>(G_LOG_LEVEL_WARNING | G_LOG_LEVEL_INFO | G_LOG_LEVEL_DEBUG),
        [](const gchar*, GLogLevelFlags, const gchar*, gpointer) {}, nullptr);
  }
  ~Library() { vips_shutdown(); }
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;
};

void startLibrary() { static const Library library; }

/// The library's last words, on one line, and its buffer emptied for the next.
std::string lastWords()
{
  gchar* const buffer = vips_error_buffer_copy();
  std::string words = buffer;
  g_free(buffer);
  words.erase(words.find_last_not_of(" \r\n") + 1);
  std::replace(words.begin(), words.end(), '\n', ' ');
  return words.empty() ? "Das Bild ist nicht lesbar." : words;
}

} // namespace

void withLibrary(std::string_view subject, const std::function<void()>& work)
{
  startLibrary();
  vips_error_clear();
  try {
    work();
  } catch (const vips::VError&) {
    throw Error(ErrorNumber::InvalidPicture, base::format("{}: {}", subject, lastWords()));
  }
}

void forgetFailure() { vips_error_clear(); }

} // namespace mrd::image
