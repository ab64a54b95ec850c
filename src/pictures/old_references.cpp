#include "pictures/old_references.h"

#include "base/errors.h"
#include "base/format.h"
#include "base/text.h"
#include "frame/paths/paths.h"
#include "frame/settings/stored_settings.h"
#include "pictures/picture_references.h"
#include "platform/dao/schema.h"
#include "platform/files/files.h"
#include "platform/files/path.h"

#include <map>
#include <optional>
#include <set>
#include <utility>

namespace mrd::pictures {
namespace {

using paths::datei_vorhanden;

constexpr std::string_view kHead = "KopfHTML", kImodeHead = "imodekopfgif";

std::string lastName(std::string_view path) { return std::string(path.substr(path.rfind('\\') + 1)); }

bool isInPix(std::string_view path)
{
  const auto name = path.rfind('\\');
  return name != std::string_view::npos && base::lower(path.substr(0, name)).ends_with("\\pix");
}

/// A path behind "file://". What would end the value, or mean something else in it, is escaped.
std::string referenceTo(std::string_view path, bool endsAtBlank)
{
  std::string out = "file://";
  for (const char c : path) {
    const bool isSpecial = std::string_view("%#?'\"&<>`").find(c) != std::string_view::npos || (c == ' ' && endsAtBlank);
    out += isSpecial ? base::format("%{:02X}", static_cast<unsigned char>(c)) : std::string(1, c);
  }
  return out;
}

bool holdTheSame(std::string_view a, std::string_view b)
{
  return files::fileSize(a) == files::fileSize(b) && files::readFile(a) == files::readFile(b);
}

/// One pass over a project's references. Without a folder nothing is copied and nothing written.
class Pass {
public:
  Pass(dao::Database& db, std::string_view exportPath, const PictureFolder* folder)
      : db_(db), exportPath_(exportPath), folder_(folder)
  {
  }

  TurnedReferences run()
  {
    pages();
    settings::StoredSettings stored(db_);
    if (const auto head = stored.value(kHead))
      if (const auto turned = turnedText(*head, std::string(kHead)))
        stored.set(kHead, *turned);
    if (const auto picture = stored.value(kImodeHead))
      imodeHead(stored, *picture);
    return std::move(result_);
  }

private:
  void pages()
  {
    auto rows = db_.openRecordset("SELECT * FROM Seite ORDER BY ID");
    const bool hasScript = dao::findName(rows.columns(), "script") != rows.columns().size();
    for (; !rows.eof(); rows.moveNext()) {
      const auto id = rows.value("id").text();
      const auto html = turnedText(rows.value("html").text(), id);
      const auto script = hasScript ? turnedText(rows.value("script").text(), id) : std::nullopt;
      if (!html && !script)
        continue;
      rows.edit();
      if (html)
        rows.set("html", *html);
      if (script)
        rows.set("script", *script);
      rows.update();
    }
  }

  void imodeHead(settings::StoredSettings& stored, const std::string& picture)
  {
    const auto path = base::trim(picture);
    if (!isAbsolutePath(path) || datei_vorhanden(path))
      return;
    const auto& name = nameInPix(path);
    if (name.empty()) {
      result_.missing.push_back({std::string(kImodeHead), path});
      return;
    }
    if (folder_)
      stored.set(kImodeHead, exportPath_ + "pix\\" + name);
    ++result_.turned;
  }

  /// Nothing when there is nothing to change.
  std::optional<std::string> turnedText(std::string_view text, const std::string& place)
  {
    std::string out;
    std::size_t done = 0;
    for (const auto& reference : pictureReferences(text)) {
      const auto turned = turnedReference(reference, place);
      if (!turned)
        continue;
      out.append(text.substr(done, reference.begin - done)).append(*turned);
      done = reference.end;
      ++result_.turned;
    }
    if (done == 0 || !folder_)
      return std::nullopt;
    return out.append(text.substr(done));
  }

  std::optional<std::string> turnedReference(const PictureReference& reference, const std::string& place)
  {
    const bool isAbsolute = isAbsolutePath(reference.path);
    const auto path = isAbsolute ? reference.path : exportPath_ + reference.path;
    if (datei_vorhanden(path) || (!isAbsolute && datei_vorhanden(exportPath_ + "pix\\" + reference.path)))
      return std::nullopt;
    const auto& name = nameInPix(path);
    if (name.empty()) {
      if (told_.emplace(place, reference.written).second)
        result_.missing.push_back({place, reference.written});
      return std::nullopt;
    }
    return referenceTo(exportPath_ + "pix/" + name, reference.endsAtBlank);
  }

  /// The file's name in `pix` that an old path stands for now; empty when there is none.
  const std::string& nameInPix(const std::string& path)
  {
    auto [known, isNew] = names_.try_emplace(path);
    if (isNew)
      known->second = findName(path);
    return known->second;
  }

  std::string findName(const std::string& path)
  {
    // All pictures of a site lie in its `pix`: whoever brought the whole directory along has them there.
    const auto inPix = base::lower(lastName(path));
    if (isInPix(path) && datei_vorhanden(exportPath_ + "pix\\" + inPix))
      return inPix;
    const auto source = folder_ ? folder_->find(path) : std::nullopt;
    if (!source)
      return {};
    try {
      return bringIntoPix(*source);
    } catch (const base::Error& error) {
      result_.failed.push_back(error.description());
      return {};
    }
  }

  /// A picture of that name and another content keeps its place: the new one gets a number.
  std::string bringIntoPix(const std::string& source)
  {
    const auto plain = base::lower(lastName(source));
    const auto dot = std::min(plain.rfind('.'), plain.size());
    for (int number = 1;; ++number) {
      const auto name = number == 1 ? plain : base::format("{}_{}{}", plain.substr(0, dot), number, plain.substr(dot));
      const auto target = exportPath_ + "pix\\" + name;
      if (datei_vorhanden(target)) {
        if (!holdTheSame(source, target))
          continue;
      } else {
        files::copyFile(source, target);
        ++result_.copied;
      }
      return name;
    }
  }

  dao::Database& db_;
  const std::string exportPath_;
  const PictureFolder* folder_;
  std::map<std::string, std::string> names_;
  std::set<std::pair<std::string, std::string>> told_;
  TurnedReferences result_;
};

} // namespace

bool needPictureFolder(dao::Database& db, std::string_view exportPath)
{
  return !Pass(db, exportPath, nullptr).run().missing.empty();
}

TurnedReferences turnOldReferences(dao::Database& db, std::string_view exportPath, const PictureFolder& folder)
{
  dao::Transaction transaction(db);
  auto out = Pass(db, exportPath, &folder).run();
  transaction.commit();
  return out;
}

} // namespace mrd::pictures
