#pragma once
// The system's own German texts in another language, by rows of the language database.

#include "platform/dao/database.h"

#include <string>
#include <string_view>
#include <vector>

namespace mrd::messages {

/// The system has lines of status, questions and short notes in German, whatever the language: procedures compare them and
/// scripts read them. Only where a text goes on a screen it takes the form that the rows of the window "Texte" have for it. There
/// `{}` stands for what differs from one text to the next.
class Translations {
public:
  /// Reads the rows. Throws base::Error.
  Translations(dao::Database& dbLanguage, std::string_view Sprache);

  const std::string& Sprache() const { return Sprache_; }
  /// A text that no row is about comes back as it is. Blanks around a text and the kind of its line ends make no difference.
  std::string text(std::string_view german) const;

private:
  /// A text cut at the places of what differs.
  using Pieces = std::vector<std::string>;
  struct Row {
    Pieces german, translated;
  };

  std::string Sprache_;
  std::vector<Row> rows_;
};

} // namespace mrd::messages
