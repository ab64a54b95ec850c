#include "desktop/windows/page_controls.h"

#include "desktop/seams/shown_text.h"
#include "desktop/windows/bound_fields.h"
#include "desktop/windows/mainform_window.ui.h"

#include <array>

namespace mrd::desktop {
namespace {

using Window = Ui::Mainform;

constexpr std::array kPageTypes{&Window::opseitentyp_1, &Window::opseitentyp_2, &Window::opseitentyp_3, &Window::opseitentyp_4};
constexpr int kAuctionPage = 4;

} // namespace

PageControls::PageControls(MainformParts& parts) : parts_(parts)
{
  auto& page = parts_.form.pages();
  connect(parts_.ui.tbdateiname, &QLineEdit::textChanged, this, [this, &page](const QString& text) {
    if (parts_.showing)
      return;
    page.fields.tbdateiname = text.toStdString();
    page.tbdateiname_Change();
  });
  connect(parts_.ui.tbScript, &SourceText::textChanged, this, [this, &page] {
    if (parts_.showing)
      return;
    page.fields.tbScript = parts_.ui.tbScript->source();
    page.tbScript_Change();
  });
  connect(parts_.ui.tbhtml, &SourceText::textChanged, this, [this, &page] {
    if (parts_.showing)
      return;
    page.fields.tbhtml = parts_.ui.tbhtml->source();
    page.tbhtml_Change();
  });
  connect(parts_.ui.TBEbayArtikelnummer, &QLineEdit::textChanged, this, [this, &page](const QString& text) {
    if (!parts_.showing)
      page.fields.TBEbayArtikelnummer = text.toStdString();
  });
  connect(parts_.ui.cbEbayHTMLkopieren, &QPushButton::clicked, this, [this] { parts_.form.cbEbayHTMLkopieren_Click(); });
  connect(parts_.ui.CbEbayMetatag, &QPushButton::clicked, this, [this] { parts_.form.CbEbayMetatag_Click(); });
  connect(parts_.ui.cbebaykategorien, &QPushButton::clicked, this, [this] { parts_.form.cbebaykategorien_Click(); });
  for (std::size_t i = 0; i < kPageTypes.size(); ++i)
    connect(parts_.ui.*kPageTypes[i], &QRadioButton::clicked, this, [this, &page, i] {
      page.fields.opseitentyp = static_cast<int>(i) + 1;
      page.opseitentyp_Click(page.fields.opseitentyp);
      parts_.ui.FrmEbay->setVisible(page.fields.opseitentyp == kAuctionPage);
    });
}

void PageControls::show()
{
  const auto& page = parts_.form.pages().fields;
  showLine(*parts_.ui.tbdateiname, shown(page.tbdateiname));
  showLine(*parts_.ui.TBEbayArtikelnummer, shown(page.TBEbayArtikelnummer));
  parts_.ui.tbScript->setSource(page.tbScript);
  parts_.ui.tbhtml->setSource(page.tbhtml);
  if (page.opseitentyp >= 1 && page.opseitentyp <= static_cast<int>(kPageTypes.size()))
    (parts_.ui.*kPageTypes[static_cast<std::size_t>(page.opseitentyp - 1)])->setChecked(true);
  parts_.ui.FrmEbay->setVisible(page.opseitentyp == kAuctionPage);
}

} // namespace mrd::desktop
