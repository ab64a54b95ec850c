#include "generator/built_in_run.h"

#include "base/format.h"
#include "base/product.h"
#include "pictures/corners.h"

namespace mrd::generator {
namespace {

/// The quality factor counts from 2, the best.
constexpr int kCornerQuality = 2;
constexpr RowRunDifferences kDifferences{
    {"changingdate DESC, ID", true, "Fertig! Es wurden # Seiten generiert.", true}, ".cache", rewriteBody, true, false};

} // namespace

BuiltInRun::BuiltInRun(const RunJob& job)
    : RowRun(job, kDifferences), sharedHead_(fields_, htmldefs(fields_)[kSharedHead], job.head, job.exportpfad)
{
}

void BuiltInRun::bringSiteFiles()
{
  if (fields_.CheckRundeEcke)
    makeCorners();
  siteFiles_.bringBanner();
  siteFiles_.bringScripts();
}

void BuiltInRun::makeCorners()
{
  for (const auto& corner : pictures::kCorners) {
    const std::string path = pathOf("pix\\" + std::string(corner.fileName));
    pictures::drawCorner(corner, fields_).saveJpeg(path, kCornerQuality);
    register_.dateiindatenbank(path, project::Dateityp::Picture);
  }
}

RowLayout BuiltInRun::layout() const { return navigationlinks(fields_); }

BodySource BuiltInRun::bodySource(const RunPage& page, const LinkAddresses& addresses) const
{
  return {page.html.value_or(""), page.script.value_or(""), addresses};
}

void BuiltInRun::bringPopupPage()
{
  if (!siteFiles_.bringPopupPage())
    ui_.messageBox({base::format("Sie benötigen die Datei popupbild.htm. Bitte kontaktieren Sie {} .", base::kSupportMail),
                    std::string(base::kProductName)});
}

void BuiltInRun::appendSharedHead(std::string& out, std::string_view basislink)
{
  const RewrittenBody& head = sharedHead_.forPagesWith(basislink);
  bring(head.found);
  out += head.bytes;
}

std::string_view BuiltInRun::bringBody(const RewrittenBody& body)
{
  bring(body.found);
  return body.bytes;
}

} // namespace mrd::generator
