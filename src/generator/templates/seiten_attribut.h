#pragma once
// Placeholders with their values, in the order in which they are replaced.

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::templates {

/// One placeholder, brackets included, and the text that replaces it.
struct SeitenAttribut {
  std::string Platzhalter, Wert;

  /// Kept as it has always been: it gives the empty text, and nothing calls it.
  std::string ersetze(const std::string&) const { return {}; }
};

/// An ordered list of placeholders, some of which can be found by a key.
class SeitenAttribute {
public:
  const SeitenAttribut& Add(std::string_view Platzhalter, std::string_view Wert, std::string_view sKey = {});
  /// By position, from 1, or by key. Throws base::Error (SubscriptOutOfRange) for what is not there.
  const SeitenAttribut& Item(std::size_t position) const;
  const SeitenAttribut& Item(std::string_view sKey) const;
  std::size_t Count() const { return records_.size(); }
  void Remove(std::size_t position);
  void Remove(std::string_view sKey);

  /// In insertion order.
  auto begin() const { return records_.begin(); }
  auto end() const { return records_.end(); }

private:
  std::size_t positionOf(std::string_view sKey) const;

  std::vector<SeitenAttribut> records_;
  std::map<std::string, std::size_t, std::less<>> keys_;
};

/// All records but those of `except` replaced, each in one pass over the text.
void replaceAttributes(std::string& text, const SeitenAttribute& attributes, std::string_view except = {});

} // namespace mrd::templates
