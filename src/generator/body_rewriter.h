#pragma once
// A page's body on its way to the output: parsed, its pictures and links rewritten, written again.

#include "generator/picture_links.h"
#include "platform/dao/byte_store.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::generator {

/// What a page's body is made from.
struct BodySource {
  std::string html, script;
  LinkAddresses addresses;
};

/// A picture whose reference is settled when its page is written. Texts are output bytes.
struct OpenReference {
  PictureUse picture;
  /// What stands in the page where the picture is not to be had.
  std::string written;
  /// Where in the body's bytes the reference goes; nowhere for a picture that did not come through into the body.
  std::size_t at = std::string::npos;
};

/// A body as it goes out, and what the run has to do for it.
struct RewrittenBody {
  /// Inner HTML of the body, in output bytes.
  std::string bytes;
  FoundPictures found;
  /// In the order of the page.
  std::vector<OpenReference> open;
};

/// Works on values alone: can run on any thread.
RewrittenBody rewriteBody(const BodySource& source);

/// Rewritten bodies of earlier runs in a side file of the project, found by the content of their source. Never a reason to fail:
/// without the file every body is rewritten.
class BodyCache {
public:
  /// `path` in the system's form.
  explicit BodyCache(std::string_view path) : store_(path) {}

  static dao::ContentHash keyOf(const BodySource& source);
  std::optional<RewrittenBody> get(const dao::ContentHash& key);
  void put(const dao::ContentHash& key, const RewrittenBody& body);
  /// Writes the file; bodies that this run did not meet are forgotten if it met all pages.
  void flush(bool metAllPages) { store_.flush(metAllPages); }

private:
  dao::ByteStore store_;
};

} // namespace mrd::generator
