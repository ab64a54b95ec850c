#include "mainform/site_colours.h"

#include "base/format.h"
#include "base/text.h"

#include <array>
#include <charconv>

namespace mrd::mainform {
namespace {

using settings::Fields;

constexpr std::array kColourFields{
    ColourField{1, "tbText", &Fields::tbText},
    ColourField{2, "tbmenütext", &Fields::tbmenütext},
    ColourField{3, "Tbtabelle", &Fields::Tbtabelle},
    ColourField{4, "tbRahmeninaktiv", &Fields::tbRahmeninaktiv},
    ColourField{5, "tbhintergrund", &Fields::tbhintergrund},
    ColourField{6, "tbhintergrundaussen", &Fields::tbhintergrundaussen},
    ColourField{7, "tbmenü", &Fields::tbmenü},
    ColourField{8, "tbHyperlink", &Fields::tbHyperlink},
};

constexpr auto kBack = ColourUse::Back, kFore = ColourUse::Fore;

constexpr std::array kColouredControls{
    ColouredControl{"frmhintergrund", {}, kBack, &Fields::tbhintergrundaussen},
    ColouredControl{"frmVorschauTablaschen", {}, kBack, &Fields::tbhintergrundaussen},
    ColouredControl{"FrmVorschauOhneAlles", {}, kBack, &Fields::tbhintergrundaussen},
    ColouredControl{"FrmVorschaubenutzerdefiniert", {}, kBack, &Fields::tbhintergrundaussen},
    ColouredControl{"lblhinterinnen", {}, kBack, &Fields::tbhintergrund},
    ColouredControl{"Lbltab1", 0, kBack, &Fields::Tbtabelle},
    ColouredControl{"Lbltab1", 1, kBack, &Fields::Tbtabelle},
    ColouredControl{"Lbltab1", 2, kBack, &Fields::Tbtabelle},
    ColouredControl{"Lbltab1", 3, kBack, &Fields::Tbtabelle},
    ColouredControl{"Lbltab1", 4, kBack, &Fields::Tbtabelle},
    ColouredControl{"Lblmenü", 0, kBack, &Fields::Tbtabelle},
    ColouredControl{"lbltext", 0, kFore, &Fields::tbText},
    ColouredControl{"lbltext", 1, kFore, &Fields::tbText},
    ColouredControl{"lbltext", 2, kFore, &Fields::tbText},
    ColouredControl{"lbltext", 3, kFore, &Fields::tbText},
    ColouredControl{"Lblmenü", 1, kFore, &Fields::tbmenü},
    ColouredControl{"Lblmenü", 2, kFore, &Fields::tbmenü},
    ColouredControl{"Lblmenü", 3, kFore, &Fields::tbmenü},
    ColouredControl{"Lblmenü", 4, kFore, &Fields::tbmenü},
    ColouredControl{"Lblmenütext", 0, kFore, &Fields::tbmenütext},
    ColouredControl{"Lblmenütext", 1, kFore, &Fields::tbmenütext},
    ColouredControl{"Lblmenütext", 2, kFore, &Fields::tbmenütext},
    ColouredControl{"Lblmenütext", 3, kFore, &Fields::tbmenütext},
    ColouredControl{"Lblmenütext", 4, kBack, &Fields::tbRahmeninaktiv},
    ColouredControl{"LblTabInaktiv", 0, kBack, &Fields::tbRahmeninaktiv},
    ColouredControl{"LblTabInaktiv", 1, kBack, &Fields::tbRahmeninaktiv},
    ColouredControl{"LblTabInaktiv", 2, kBack, &Fields::tbRahmeninaktiv},
    ColouredControl{"LblHyperlink", 0, kFore, &Fields::tbHyperlink},
    ColouredControl{"LblHyperlink", 1, kFore, &Fields::tbHyperlink},
    ColouredControl{"LblHyperlink", 2, kFore, &Fields::tbHyperlink},
    ColouredControl{"Labelfarbe", 1, kBack, &Fields::tbText},
    ColouredControl{"Labelfarbe", 2, kBack, &Fields::tbmenütext},
    ColouredControl{"Labelfarbe", 3, kBack, &Fields::Tbtabelle},
    ColouredControl{"Labelfarbe", 4, kBack, &Fields::tbRahmeninaktiv},
    ColouredControl{"Labelfarbe", 5, kBack, &Fields::tbhintergrund},
    ColouredControl{"Labelfarbe", 6, kBack, &Fields::tbhintergrundaussen},
    ColouredControl{"Labelfarbe", 7, kBack, &Fields::tbmenü},
    ColouredControl{"Labelfarbe", 8, kBack, &Fields::tbHyperlink},
};

constexpr int kTurnsPerPicture = 4000;
constexpr std::array<std::string_view, 6> kSpinner{"HTML wird geladen",    "HTML wird geladen ·", "HTML wird geladen --",
                                                   "HTML wird geladen \\", "HTML wird geladen |", "HTML wird geladen /"};

/// A value of a style rule: what would end the rule or begin another is left out, for a project may come from a stranger.
std::string ruleValue(std::string_view text)
{
  std::string value;
  for (const char c : text)
    if (std::string_view("{};<>\"\\@").find(c) == std::string_view::npos)
      value += c;
  return value;
}

/// The rules of the site's own style block, so that a page is edited as it will look.
std::string styleRules(const Fields& fields)
{
  const std::string font = ruleValue(fields.tbschriftart), link = ruleValue(settings::cssColour(fields.tbHyperlink));
  std::string rules;
  for (const auto* const element : {"div", "p", "td"})
    rules += base::format("{0} {{FONT-SIZE: 10pt}}\r\n{0} {{FONT-FAMILY: {1}; }}\r\n", element, font);
  rules += base::format("h3 {{FONT-FAMILY: {}; }}\r\n", font);
  struct LinkState {
    std::string_view selector, decoration;
  };
  for (const auto& [selector, decoration] :
       {LinkState{"A:link", ""}, LinkState{"A:visited", ";   TEXT-DECORATION: none;"},
        LinkState{"A:active", ";   TEXT-DECORATION: none;"}, LinkState{"A:hover", ";   TEXT-DECORATION: underline;"}})
    rules += base::format("{} {{font-family: {}; color : {}{}}}\r\n", selector, font, link, decoration);
  return rules;
}

} // namespace

std::span<const ColourField> colourFields() { return kColourFields; }

std::span<const ColouredControl> colouredControls() { return kColouredControls; }

int screenColour(std::string_view text)
{
  const std::string digits = settings::html_zu_farbe(base::trim(text)).substr(2);
  int colour = 0;
  const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), colour, 16);
  return failure == std::errc() && end == digits.data() + digits.size() && colour >= 0 ? colour : 0;
}

std::string colourText(int colour) { return "#" + settings::farbe_zu_html(colour); }

void SiteColours::farbenaktualisieren()
{
  const Fields& fields = parts_.fields;
  parts_.screen.refresh(Shown::Colours);
  waitForSurface();
  const bool isHead = parts_.document.kind == DocumentKind::Head;
  parts_.DHTMLEdit1.setDocumentColours(settings::cssColour(isHead ? fields.Tbtabelle : fields.tbhintergrund),
                                       settings::cssColour(isHead ? fields.tbmenütext : fields.tbText));
  parts_.DHTMLEdit1.setStyleRules(styleRules(fields));
  waitForSurface();
}

void SiteColours::waitForSurface()
{
  // Events run while this waits, and one of them may recolour: there is one wait at a time.
  if (waiting_ || !parts_.DHTMLEdit1.busy())
    return;
  waiting_ = true;
  parts_.ui.status(ui::StatusPlace::Panel2, kSpinner.front());
  for (std::size_t turn = 1; parts_.DHTMLEdit1.busy(); ++turn) {
    parts_.ui.pumpEvents();
    if (turn % kTurnsPerPicture == 0)
      parts_.ui.status(ui::StatusPlace::Panel2, kSpinner[turn / kTurnsPerPicture % kSpinner.size()]);
  }
  parts_.ui.status(ui::StatusPlace::Panel2, "");
  waiting_ = false;
}

} // namespace mrd::mainform
