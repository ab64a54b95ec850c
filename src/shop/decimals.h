#pragma once
// Numbers as the owner of a shop types and reads them.

#include <optional>
#include <string>
#include <string_view>

namespace mrd::shop {

/// Reads and writes numbers as the user of a language types them.
class Decimals {
public:
  /// By the language of the program: a comma in German ("GER"), a point otherwise.
  explicit Decimals(std::string_view Sprache) : sign_(Sprache == "GER" ? ',' : '.') {}

  /// The number that a text is, nothing when it is none. Comma and point both are read as the decimal sign, except where they
  /// can only group thousands: "1.234,50" and, in German, "1.234".
  std::optional<double> read(std::string_view text) const;
  /// At most 15 digits, as many as a price can be trusted for ("0,3" and not "0,30000000000000004").
  std::string text(double number) const;

private:
  char sign_;
};

/// Two decimals behind a point, halves away from zero, as scripts on pages read a price ("12.50").
std::string priceText(double price);

} // namespace mrd::shop
