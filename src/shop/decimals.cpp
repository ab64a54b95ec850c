#include "shop/decimals.h"

#include "base/format.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace mrd::shop {
namespace {

constexpr std::string_view kDigits = "0123456789";
constexpr std::size_t kGroup = 3;

bool isDigits(std::string_view text) { return text.find_first_not_of(kDigits) == std::string_view::npos; }

/// Whether the separator only groups thousands: "1.234.567".
bool isGrouped(std::string_view whole, char separator)
{
  const auto first = whole.find(separator);
  if (first == 0 || first > kGroup || whole.front() == '0')
    return false;
  for (auto rest = whole.substr(first); !rest.empty(); rest.remove_prefix(kGroup + 1))
    if (rest.front() != separator || rest.size() < kGroup + 1 || !isDigits(rest.substr(1, kGroup)))
      return false;
  return isDigits(whole.substr(0, first));
}

/// The decimal sign of a text that has separators; nothing when they all group.
std::optional<char> decimalSign(std::string_view digits, char usual)
{
  const char other = usual == ',' ? '.' : ',';
  const auto lastUsual = digits.rfind(usual), lastOther = digits.rfind(other);
  if (lastUsual != std::string_view::npos && lastOther != std::string_view::npos)
    return lastUsual > lastOther ? usual : other;
  const char only = lastUsual != std::string_view::npos ? usual : other;
  const bool isSingle = std::ranges::count(digits, only) == 1;
  if ((only == usual && isSingle) || !isGrouped(digits, only))
    return only;
  return std::nullopt;
}

/// Digits with at most one point; nothing for what is no number.
std::optional<std::string> plainDigits(std::string_view digits, char usual)
{
  if (digits.find_first_of(",.") == std::string_view::npos)
    return std::string(digits);
  const auto sign = decimalSign(digits, usual);
  const auto at = sign ? digits.rfind(*sign) : digits.size();
  const std::string_view whole = digits.substr(0, at), rest = digits.substr(std::min(at + 1, digits.size()));
  if (const auto separator = whole.find_first_of(",.");
      separator != std::string_view::npos && ((sign && whole[separator] == *sign) || !isGrouped(whole, whole[separator])))
    return std::nullopt;
  std::string plain(whole);
  std::erase_if(plain, [](char character) { return character == ',' || character == '.'; });
  return plain + "." + std::string(rest);
}

} // namespace

std::optional<double> Decimals::read(std::string_view text) const
{
  std::string number = base::trim(text);
  const bool isNegative = number.starts_with('-');
  if (isNegative || number.starts_with('+'))
    number.erase(0, 1);
  const auto end = std::min(number.find_first_of("eE"), number.size());
  const auto plain = plainDigits(std::string_view(number).substr(0, end), sign_);
  if (!plain || plain->find_first_of(kDigits) == std::string::npos)
    return std::nullopt;
  const std::string all = *plain + number.substr(end);
  if (all.starts_with('-'))
    return std::nullopt;
  double value = 0;
  const auto result = std::from_chars(all.data(), all.data() + all.size(), value);
  if (result.ec != std::errc() || result.ptr != all.data() + all.size() || !std::isfinite(value))
    return std::nullopt;
  return isNegative ? -value : value;
}

std::string Decimals::text(double number) const
{
  std::string text = base::format("{:.15g}", number);
  std::ranges::replace(text, '.', sign_);
  return text;
}

std::string priceText(double price)
{
  // Beyond these a double has no cents that could be rounded.
  constexpr double kMostExact = 1e12;
  if (std::abs(price) >= kMostExact)
    return base::format("{:.2f}", price);
  // The price as it reads, and not as it is stored: 8.35 times 1.5 is 12.525 and becomes 12.53.
  const std::string cents = base::format("{:.15g}", price * 100);
  double read = 0;
  std::from_chars(cents.data(), cents.data() + cents.size(), read);
  return base::format("{:.2f}", std::round(read) / 100);
}

} // namespace mrd::shop
