#include "shop/shop_form.h"

#include "base/format.h"
#include "base/product.h"
#include "base/text.h"
#include "frame/failures/failures.h"
#include "frame/settings/stored_settings.h"
#include "platform/html/document.h"

#include <array>
#include <cmath>

namespace mrd::shop {
namespace {

constexpr std::string_view kForm = "form";
constexpr int kMessageNoArticle = 141;
/// The rate at which a price in euro becomes one in dollars.
constexpr double kDollarsPerEuro = 1.5;
/// An article without a price still has one.
constexpr double kLeastPrice = 1;

struct OptionSetting {
  std::string_view key;
  bool frmmrdshop::*first;
};
struct TextSetting {
  std::string_view key;
  std::string frmmrdshop::*box;
};
constexpr TextSetting kShopId{"ShopID", &frmmrdshop::TBShopID};
constexpr std::array kOptions{
    OptionSetting{"ShopStückzahl", &frmmrdshop::OptionStückzahl},
    OptionSetting{"ShopDeutsch", &frmmrdshop::OptionSpracheDeutsch},
    OptionSetting{"Shopwako", &frmmrdshop::OptionWahrenkorb},
};
constexpr std::array kBasketPages{
    TextSetting{"ShopWakoDeu", &frmmrdshop::tbwakodeu},
    TextSetting{"ShopWakoEng", &frmmrdshop::tbwakoeng},
};
constexpr std::string_view kFirst = "ja", kSecond = "nein";

/// The article whose form this is, by the form's name; nothing for a form of something else.
std::optional<std::int64_t> articleNumber(const html::Element& form, const Decimals& decimals)
{
  constexpr double kMost = 1e15;
  const std::string name = form.attribute("name").value_or("");
  const auto number = name.starts_with(kForm) ? decimals.read(std::string_view(name).substr(kForm.size())) : std::nullopt;
  if (!number || *number != std::floor(*number) || std::abs(*number) > kMost)
    return std::nullopt;
  return static_cast<std::int64_t>(*number);
}

} // namespace

frmmrdshop::frmmrdshop(const Parts& parts, ShopHooks hooks)
    : Data1(parts.db, txtFields, Decimals(parts.language.Sprache()),
            {[this](const base::Error& error) { Data1_Error(error); }, [this] { Data1_Reposition(); },
             [this](DataAction action) { Data1_Validate(action); }}),
      parts_(parts), hooks_(std::move(hooks)), decimals_(parts.language.Sprache())
{
}

void frmmrdshop::guarded(std::string_view procedure, const std::function<void()>& body)
{
  failures::withStandardHandler(parts_.language, procedure, body);
}

void frmmrdshop::say(const std::string& text)
{
  parts_.language.ui().messageBox({text, std::string(base::kProductName), ui::box::kOk});
}

// --- start and end

void frmmrdshop::Form_Load(ui::WindowControls& controls)
{
  parts_.language.Setlanguage(controls);
  Form_Load();
}

void frmmrdshop::Form_Load()
{
  open_ = true;
  guarded("frmmrdshop.Form_Load", [&] {
    Data1.Refresh();
    const settings::StoredSettings stored(parts_.db);
    const auto readText = [&](const TextSetting& setting) {
      if (const auto value = stored.value(setting.key))
        this->*setting.box = base::trim(*value);
    };
    readText(kShopId);
    for (const auto& setting : kOptions)
      if (const auto value = stored.value(setting.key))
        this->*setting.first = base::trim(*value) == kFirst;
    for (const auto& setting : kBasketPages)
      readText(setting);
  });
  window.refresh();
}

void frmmrdshop::cmdClose_Click()
{
  if (!Form_QueryUnload())
    return;
  guarded("frmmrdshop.cmdClose_Click", [&] {
    settings::StoredSettings stored(parts_.db);
    stored.set(kShopId.key, this->*kShopId.box);
    for (const auto& setting : kOptions)
      stored.set(setting.key, this->*setting.first ? kFirst : kSecond);
    for (const auto& setting : kBasketPages)
      stored.set(setting.key, this->*setting.box);
    window.unload();
  });
}

void frmmrdshop::Form_Unload()
{
  open_ = false;
  parts_.language.ui().pointer(ui::Pointer::Default);
}

// --- articles

void frmmrdshop::Data1_Error(const base::Error& error)
{
  // A failure brings no reposition, and a box is not to be answered under an hourglass.
  parts_.language.ui().pointer(ui::Pointer::Default);
  say("Datenfehler-Ereignis ausgelöst. Fehler:" + error.description());
}

void frmmrdshop::Data1_Reposition()
{
  parts_.language.ui().pointer(ui::Pointer::Default);
  window.refresh();
}

void frmmrdshop::Data1_Validate(DataAction action)
{
  if (action >= DataAction::MoveFirst && action <= DataAction::Close)
    parts_.language.ui().pointer(ui::Pointer::Wait);
}

void frmmrdshop::cmdAdd_Click()
{
  if (!Data1.AddNew())
    return;
  // The boxes of a new record are no record yet, so no reposition follows that would end the wait.
  Data1_Reposition();
  window.setFocus("txtFields", static_cast<int>(kGerman));
}

void frmmrdshop::cmdDelete_Click() { Data1.Delete(); }

void frmmrdshop::cmdRefresh_Click() { Data1.Refresh(); }

void frmmrdshop::Data1_Click(DataAction move) { Data1.move(move); }

void frmmrdshop::cmdUpdate_Click()
{
  if (txtFields[kEnglish].empty())
    txtFields[kEnglish] = txtFields[kGerman];
  if (!isNumeric(kEuro)) {
    window.refresh();
    say("Der Euro-Preis muß numerisch sein.");
    return;
  }
  if (!isNumeric(kDollar))
    txtFields[kDollar] = decimals_.text(number(kEuro) * kDollarsPerEuro);
  window.refresh();
  if (Data1.UpdateRecord())
    window.setFocus("cmdAdd", std::nullopt);
}

void frmmrdshop::takeHeading(std::size_t column)
{
  txtFields[column] = base::trim(base::replaceAll(parts_.page.caption, "Mirandel: ", ""));
  const int index = static_cast<int>(column);
  window.refresh();
  window.setFocus("txtFields", index);
  window.selectText("txtFields", index);
}

void frmmrdshop::lblPartner_Click() { parts_.shell.openAddress(base::kShopPartnerAddress); }

// --- the page

SnippetArticle frmmrdshop::article() const
{
  const double euro = number(kEuro) == 0 ? kLeastPrice : number(kEuro);
  const double dollar = number(kDollar) == 0 ? euro * kDollarsPerEuro : number(kDollar);
  return {txtFields[kNumber], txtFields[OptionSpracheDeutsch ? kGerman : kEnglish], priceText(euro), priceText(dollar)};
}

SnippetOptions frmmrdshop::options() const
{
  return {OptionSpracheDeutsch, OptionWaehrungEuro, OptionStückzahl, OptionWahrenkorb, TBShopID, tbwakodeu, tbwakoeng};
}

void frmmrdshop::button_einfügen(bool& wirklicheinfügen, std::string& Html)
{
  const std::string snippet = articleSnippet(article(), options());
  if (parts_.DHTMLEdit1.selectionType() == ui::SelectionType::Control) {
    say("Positionieren Sie den Cursor an der Einfügeposition");
    return;
  }
  if (wirklicheinfügen && parts_.DHTMLEdit1.pasteHtml(snippet))
    hooks_.pageChanged();
  js_Einfügen();
  Html = snippet;
}

void frmmrdshop::js_Einfügen()
{
  if (hasShopScripts(parts_.page.tbScript))
    return;
  parts_.page.tbScript += shopScripts();
  hooks_.tbScript_Change();
}

void frmmrdshop::cbArtikelEinfügen_Click()
{
  guarded("cbArtikelEinfügen_Click", [&] {
    if (!hooks_.showPage())
      return;
    // Without a number the form's script would be none.
    if (txtFields[kNumber].empty()) {
      parts_.language.GetMsg(kMessageNoArticle);
      return;
    }
    bool wirklicheinfügen = true;
    std::string Html;
    button_einfügen(wirklicheinfügen, Html);
  });
}

void frmmrdshop::CbWarenkorbeinfügen_Click()
{
  guarded("CbWarenkorbeinfügen_Click", [&] {
    if (!hooks_.showPage())
      return;
    if (parts_.DHTMLEdit1.pasteHtml(basketSnippet(options())))
      hooks_.pageChanged();
    js_Einfügen();
  });
}

void frmmrdshop::cbaktualisieren_Click()
{
  guarded("cbaktualisieren_Click", [&] {
    if (hooks_.showPage())
      say(base::format("Es wurden {} Artikel aktualisiert.", updateForms()));
  });
}

int frmmrdshop::updateForms()
{
  auto document = html::Document::fromText("");
  document.body().setInnerHtml(parts_.DHTMLEdit1.bodyInnerHtml());
  auto forms = document.elementsByTag(kForm);
  if (forms.empty() || !Data1.leave())
    return 0;
  int Count = 0;
  for (auto& form : forms) {
    const auto number = articleNumber(form, decimals_);
    if (!number || !Data1.findFirst(*number))
      continue;
    bool wirklicheinfügen = false;
    std::string Html;
    button_einfügen(wirklicheinfügen, Html);
    // The user has been told why there is no text; an empty one would take the form from the page.
    if (Html.empty())
      break;
    form.setOuterHtml(Html);
    ++Count;
  }
  if (Count > 0) {
    parts_.DHTMLEdit1.setBodyInnerHtml(document.body().innerHtml());
    hooks_.pageChanged();
  }
  return Count;
}

} // namespace mrd::shop
