#include "generator/body_rewriter.h"

#include "base/text.h"
#include "base/windows1252.h"

#include <array>
#include <cstdint>
#include <cstring>

namespace mrd::generator {
namespace {

/// Changes with every change of what a rewritten body looks like, so that old side files are not taken for new ones.
constexpr std::string_view kCacheFormat = "bodies 3";

/// The directory as a reference, in which some signs would mean something else.
std::string referenceOf(std::string_view directory)
{
  std::string reference = "file://" + base::replaceAll(directory, "%", "%25");
  reference = base::replaceAll(reference, "#", "%23");
  return base::replaceAll(reference, "?", "%3F");
}

std::string documentText(const BodySource& source)
{
  std::string text;
  text.reserve(source.html.size() + source.script.size() + source.addresses.exportpfad.size() + 100);
  text.append("<html><head><title>generator</title><base href=\"");
  text.append(html::escapeAttribute(referenceOf(source.addresses.exportpfad))).append("\">");
  text.append(source.script).append("</head><body>").append(source.html).append("</body></html>");
  return text;
}

void appendNumber(std::string& out, std::uint64_t number) { out.append(reinterpret_cast<const char*>(&number), sizeof number); }

void appendText(std::string& out, std::string_view text)
{
  appendNumber(out, text.size());
  out.append(text);
}

/// Reads what appendNumber and appendText wrote; a cut off record reads as zeros and empty texts.
class RecordReader {
public:
  explicit RecordReader(std::string_view record) : rest_(record) {}

  std::uint64_t number()
  {
    std::uint64_t value = 0;
    const std::string_view bytes = take(sizeof value);
    std::memcpy(&value, bytes.data(), bytes.size());
    return value;
  }
  std::string_view text() { return take(number()); }
  std::string_view rest() const { return rest_; }

private:
  std::string_view take(std::uint64_t count)
  {
    const std::string_view piece = rest_.substr(0, count);
    rest_.remove_prefix(piece.size());
    return piece;
  }
  std::string_view rest_;
};

void appendUse(std::string& out, const PictureUse& use)
{
  appendText(out, use.verzeichnis);
  appendText(out, use.name);
  appendText(out, use.erweiterung);
  appendNumber(out, use.enter);
}

PictureUse readUse(RecordReader& reader)
{
  PictureUse use;
  use.verzeichnis = reader.text();
  use.name = reader.text();
  use.erweiterung = reader.text();
  use.enter = reader.number() != 0;
  return use;
}

} // namespace

RewrittenBody rewriteBody(const BodySource& source)
{
  auto document = html::Document::fromText(documentText(source));
  RewrittenBody body;
  body.found = findebilder(document, source.addresses);
  body.bytes = base::toWindows1252(document.body().innerHtml());
  return body;
}

dao::ContentHash BodyCache::keyOf(const BodySource& source)
{
  const auto& addresses = source.addresses;
  const std::array<std::string_view, 6> pieces{kCacheFormat,         source.html,         source.script,
                                               addresses.exportpfad, addresses.basislink, addresses.tbbasisurl};
  return dao::contentHash(pieces);
}

std::optional<RewrittenBody> BodyCache::get(const dao::ContentHash& key)
{
  const auto record = store_.get(key);
  if (!record)
    return std::nullopt;
  RecordReader reader(*record);
  RewrittenBody body;
  body.found.slashAppended = reader.number() != 0;
  body.found.dependsOnMissingSlash = reader.number() != 0;
  body.found.uses.resize(reader.number());
  for (auto& use : body.found.uses)
    use = readUse(reader);
  body.open.resize(reader.number());
  for (auto& reference : body.open) {
    reference.picture = readUse(reader);
    reference.written = reader.text();
    reference.at = reader.number();
  }
  body.bytes = reader.rest();
  return body;
}

void BodyCache::put(const dao::ContentHash& key, const RewrittenBody& body)
{
  std::string record;
  record.reserve(body.bytes.size() + 256 * (1 + body.found.uses.size()));
  appendNumber(record, body.found.slashAppended);
  appendNumber(record, body.found.dependsOnMissingSlash);
  appendNumber(record, body.found.uses.size());
  for (const auto& use : body.found.uses)
    appendUse(record, use);
  appendNumber(record, body.open.size());
  for (const auto& reference : body.open) {
    appendUse(record, reference.picture);
    appendText(record, reference.written);
    appendNumber(record, reference.at);
  }
  record += body.bytes;
  store_.put(key, record);
}

} // namespace mrd::generator
