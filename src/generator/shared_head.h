#pragma once
// The head that all pages of a site share, as its author wrote it: parsed and rewritten once for each base address.

#include "frame/settings/fields.h"
#include "generator/body_rewriter.h"

#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace mrd::generator {

class SharedHead {
public:
  /// `row` holds the placeholder of the head, `html` is the head before any rewriting. `fields.tbbasisurl` gets a "/" at its end
  /// when the head has a link to a picture.
  SharedHead(settings::Fields& fields, std::string row, std::string html, std::string exportpfad)
      : fields_(fields), row_(std::move(row)), html_(std::move(html)), exportpfad_(std::move(exportpfad))
  {
  }

  /// The row in output bytes and the pictures in it.
  const RewrittenBody& forPagesWith(std::string_view basislink);

private:
  RewrittenBody rewrite(std::string_view basislink) const;

  settings::Fields& fields_;
  const std::string row_, html_, exportpfad_;
  std::map<std::pair<std::string, std::string>, RewrittenBody> known_;
};

} // namespace mrd::generator
