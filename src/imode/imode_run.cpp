#include "imode/imode_run.h"

#include "base/format.h"
#include "base/text.h"
#include "base/windows1252.h"
#include "frame/paths/paths.h"
#include "frame/project/file_register.h"
#include "imode/band.h"
#include "imode/body.h"
#include "imode/row_table.h"
#include "pictures/gif.h"
#include "platform/files/files.h"
#include "platform/html/document.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace mrd::imode {
namespace {

constexpr generator::RowRunDifferences kDifferences{{"ID", false, "Fertig!", false}, ".imode.cache", rewriteBody, false, true};

std::string centredPicture(std::string_view name) { return base::format("<div align=center><img src='pix/{}'></div>\r\n", name); }

/// A text that goes into the bytes of a body, and where.
using Insertion = std::pair<std::size_t, std::string>;

void putIn(std::string& out, std::string_view bytes, std::vector<Insertion> insertions)
{
  // Cells may have come out in another order than the pictures were brought.
  std::ranges::stable_sort(insertions, {}, &Insertion::first);
  out.clear();
  std::size_t copied = 0;
  for (const auto& [at, text] : insertions) {
    out.append(bytes.substr(copied, at - copied)).append(text);
    copied = at;
  }
  out.append(bytes.substr(copied));
}

} // namespace

ImodeRun::ImodeRun(const generator::RunJob& job) : RowRun(job, kDifferences), pictures_(fields_, workers(), ui_) {}

generator::RowLayout ImodeRun::layout() const { return imode::layout(); }

generator::BodySource ImodeRun::bodySource(const generator::RunPage& page, const generator::LinkAddresses&) const
{
  return {page.html.value_or(""), "", {}};
}

void ImodeRun::appendSharedHead(std::string& out, std::string_view)
{
  std::string text;
  switch (fields_.Opimmodekopf) {
  case settings::OpImodeKopf::Logo:
    text = logo();
    break;
  case settings::OpImodeKopf::Text:
    text = base::format("<div align=center>{}</div><br>", base::trim(fields_.tbimodekopftext));
    break;
  case settings::OpImodeKopf::Gif:
    text = chosenPicture();
    break;
  case settings::OpImodeKopf::None:
    break;
  }
  base::appendWindows1252(out, text.append(base::kCrLf));
}

std::string ImodeRun::logo()
{
  constexpr std::string_view kName = "imodelogo.gif";
  if (!logoSaved_) {
    pictures::GIF::SaveGIF(drawBand(fields_), pathInPix(kName));
    register_.dateiindatenbank(pathInPix(kName), project::Dateityp::Picture);
    logoSaved_ = true;
  }
  return centredPicture(kName);
}

std::string ImodeRun::chosenPicture()
{
  const std::string& path = fields_.Lblimodegif;
  const auto parts = paths::teile_dateipfad(path);
  const std::string name = parts.name + "." + parts.erweiterung;
  register_.dateiindatenbank(path, project::Dateityp::Picture);
  if (!paths::datei_vorhanden(pathInPix(name)))
    files::copyFile(path, pathInPix(name));
  return centredPicture(name);
}

void ImodeRun::prepareFor(const generator::RewrittenBody& body)
{
  for (const auto& open : body.open)
    pictures_.begin(generator::sourcePath(open.picture, job_.exportpfad));
}

std::string_view ImodeRun::bringBody(const generator::RewrittenBody& body)
{
  prepareFor(body);
  std::vector<Insertion> insertions;
  for (const auto& open : body.open) {
    std::string reference = referenceTo(open);
    if (open.at <= body.bytes.size())
      insertions.emplace_back(open.at, std::move(reference));
  }
  putIn(body_, body.bytes, std::move(insertions));
  return body_;
}

std::string ImodeRun::referenceTo(const generator::OpenReference& open)
{
  const auto name = pictures_.nameOf(generator::sourcePath(open.picture, job_.exportpfad));
  if (!name)
    return open.written;
  register_.dateiindatenbank(pathInPix(*name), project::Dateityp::Picture);
  return base::toWindows1252(html::escapeAttribute("pix/" + base::lower(*name)));
}

} // namespace mrd::imode
