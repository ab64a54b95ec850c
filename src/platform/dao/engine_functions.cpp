#include "platform/dao/engine_functions.h"

#include "base/text.h"
#include "platform/dao/expression.h"
#include "platform/dao/like_pattern.h"

#include <sqlite3.h>

#include <array>
#include <charconv>
#include <cstdint>
#include <new>
#include <string>
#include <string_view>

namespace mrd::dao {
namespace {

std::string_view textOf(sqlite3_value* value)
{
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return text == nullptr ? std::string_view() : std::string_view(text, static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

void giveText(sqlite3_context* context, std::string_view text)
{
  sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

bool isNull(sqlite3_value* value) { return sqlite3_value_type(value) == SQLITE_NULL; }

std::string_view withoutTrailingBlanks(const void* data, int size)
{
  const std::string_view text(static_cast<const char*>(data), static_cast<std::size_t>(size));
  const auto last = text.find_last_not_of(' ');
  return text.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

unsigned char lowerAscii(unsigned char c) { return c >= 'A' && c <= 'Z' ? static_cast<unsigned char>(c + 32) : c; }

/// The order of base::compareText. Nearly all that is compared is ASCII and is settled here byte by byte.
int compareTexts(void*, int sizeA, const void* dataA, int sizeB, const void* dataB)
{
  const std::string_view a = withoutTrailingBlanks(dataA, sizeA);
  const std::string_view b = withoutTrailingBlanks(dataB, sizeB);
  for (std::size_t at = 0;; ++at) {
    if (at == a.size() || at == b.size())
      return static_cast<int>(a.size() > at) - static_cast<int>(b.size() > at);
    const auto x = static_cast<unsigned char>(a[at]);
    const auto y = static_cast<unsigned char>(b[at]);
    if ((x | y) >= 0x80)
      return base::compareText(a.substr(at), b.substr(at));
    const int difference = static_cast<int>(lowerAscii(x)) - static_cast<int>(lowerAscii(y));
    if (difference != 0)
      return difference;
  }
}

/// mrd_like(text, pattern). A pattern that is the same for all rows is made ready once.
void like(sqlite3_context* context, int, sqlite3_value** arguments)
{
  if (isNull(arguments[0]) || isNull(arguments[1]))
    return;
  const auto* ready = static_cast<const LikePattern*>(sqlite3_get_auxdata(context, 1));
  if (ready != nullptr) {
    sqlite3_result_int(context, ready->matches(textOf(arguments[0])) ? 1 : 0);
    return;
  }
  auto* made = new LikePattern(textOf(arguments[1]));
  sqlite3_result_int(context, made->matches(textOf(arguments[0])) ? 1 : 0);
  sqlite3_set_auxdata(context, 1, made, [](void* pattern) { delete static_cast<LikePattern*>(pattern); });
}

/// mrd_number(value): the number that all of a text is; Null for any other text.
void number(sqlite3_context* context, int, sqlite3_value** arguments)
{
  const int type = sqlite3_value_type(arguments[0]);
  if (type == SQLITE_INTEGER || type == SQLITE_FLOAT) {
    sqlite3_result_value(context, arguments[0]);
    return;
  }
  const std::string text = base::trim(textOf(arguments[0]));
  const char* last = text.data() + text.size();
  std::int64_t integer = 0;
  if (const auto whole = std::from_chars(text.data(), last, integer); whole.ec == std::errc() && whole.ptr == last) {
    sqlite3_result_int64(context, integer);
    return;
  }
  double real = 0;
  const auto result = std::from_chars(text.data(), last, real, std::chars_format::fixed);
  const bool finite = real - real == 0;
  if (result.ec == std::errc() && result.ptr == last && finite)
    sqlite3_result_double(context, real);
}

void val(sqlite3_context* context, int, sqlite3_value** arguments)
{
  if (!isNull(arguments[0]))
    sqlite3_result_double(context, base::numericValue(textOf(arguments[0])));
}

void upper(sqlite3_context* context, int, sqlite3_value** arguments)
{
  if (!isNull(arguments[0]))
    giveText(context, base::upper(textOf(arguments[0])));
}

void lower(sqlite3_context* context, int, sqlite3_value** arguments)
{
  if (!isNull(arguments[0]))
    giveText(context, base::lower(textOf(arguments[0])));
}

void right(sqlite3_context* context, int, sqlite3_value** arguments)
{
  const auto count = sqlite3_value_int64(arguments[1]);
  if (!isNull(arguments[0]) && !isNull(arguments[1]))
    giveText(context, base::right(textOf(arguments[0]), count < 0 ? 0 : static_cast<std::size_t>(count)));
}

struct Function {
  const char* name;
  int arguments;
  void (*run)(sqlite3_context*, int, sqlite3_value**);
};

constexpr std::array kFunctions{
    Function{"mrd_like", 2, like},   Function{"mrd_number", 1, number}, Function{"mrd_val", 1, val},
    Function{"mrd_upper", 1, upper}, Function{"mrd_lower", 1, lower},   Function{"mrd_right", 2, right},
};

/// An exception must not cross the engine: the only one here is the lack of memory.
template <std::size_t index>
void guarded(sqlite3_context* context, int count, sqlite3_value** arguments)
{
  try {
    kFunctions[index].run(context, count, arguments);
  } catch (const std::bad_alloc&) {
    sqlite3_result_error_nomem(context);
  }
}

template <std::size_t... indices>
int registerAll(sqlite3* connection, std::index_sequence<indices...>)
{
  // Only statements of the program may call them, nothing that stands in a file's schema.
  constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY;
  int code = SQLITE_OK;
  ((code |= sqlite3_create_function_v2(connection, kFunctions[indices].name, kFunctions[indices].arguments, kFlags, nullptr,
                                       guarded<indices>, nullptr, nullptr, nullptr)),
   ...);
  return code;
}

} // namespace

void registerFunctions(sqlite3* connection)
{
  int code = registerAll(connection, std::make_index_sequence<kFunctions.size()>());
  code |= sqlite3_create_collation_v2(connection, kTextCollation.data(), SQLITE_UTF8, nullptr, compareTexts, nullptr);
  if (code != SQLITE_OK)
    throw std::bad_alloc();
}

} // namespace mrd::dao
