#include "shop/auction.h"

#include "base/errors.h"
#include "base/format.h"
#include "base/product.h"
#include "base/text.h"
#include "base/windows1252.h"
#include "frame/paths/page_file.h"
#include "frame/paths/paths.h"
#include "platform/files/files.h"

#include <utility>

namespace mrd::shop {
namespace {

constexpr int kMessageCopied = 46, kMessageNotGenerated = 47;

/// Takes the first line off a text; its end is not part of it.
std::string_view takeLine(std::string_view& text)
{
  const auto end = std::min(text.find_first_of("\r\n"), text.size());
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end);
  if (text.starts_with(base::kCrLf))
    text.remove_prefix(base::kCrLf.size());
  else if (!text.empty())
    text.remove_prefix(1);
  return line;
}

} // namespace

AuctionHelper::AuctionHelper(const Parts& parts, std::function<void()> tbScript_Change)
    : parts_(parts), tbScript_Change_(std::move(tbScript_Change))
{
}

std::string styleAndBody(std::string_view page)
{
  std::string Text;
  bool copying = false;
  while (!page.empty()) {
    const std::string_view line = takeLine(page);
    if (base::contains(line, "<STYLE"))
      copying = true;
    if (copying && !base::contains(line, "</HEAD"))
      Text += std::string(line) + std::string(base::kCrLf);
    if (base::contains(line, "</BODY"))
      copying = false;
  }
  return Text;
}

std::string AuctionHelper::generatedFile() const
{
  const auto key = parts_.TreeView1.selected();
  if (!key)
    throw base::Error(base::ErrorNumber::ObjectNotSet, "Es ist keine Seite ausgewählt");
  return paths::fileOfPattern(paths::writtenPattern(parts_.page.tbdateiname), key->substr(1));
}

void AuctionHelper::cbEbayHTMLkopieren_Click()
{
  const std::string path = parts_.settings.tbpfadexport + generatedFile();
  if (!paths::datei_vorhanden(path)) {
    parts_.language.GetMsg(kMessageNotGenerated);
    return;
  }
  const std::string Text = styleAndBody(base::fromWindows1252(files::readFile(path)));
  parts_.clipboard.clear();
  parts_.clipboard.setText(Text);
  parts_.language.GetMsg(kMessageCopied);
}

void AuctionHelper::CbEbayMetatag_Click()
{
  parts_.page.tbScript = base::format("<meta http-equiv='refresh' content='0; URL={}/ws/eBayISAPI.dll?ViewItem&item={}'>",
                                      base::kAuctionItemServer, parts_.page.TBEbayArtikelnummer);
  tbScript_Change_();
}

void AuctionHelper::cbebaykategorien_Click() { parts_.shell.openAddress(base::kAuctionListings); }

} // namespace mrd::shop
