#include "base/format.h"
#include "base/stored_text.h"
#include "base/text.h"
#include "pictures/file_scan.h"

#include <algorithm>
#include <array>

namespace mrd::pictures {
namespace {

constexpr std::string_view kSection = "Settings";

/// Whatever the store holds, it is a number of today's size.
int wholeNumber(std::string_view text)
{
  constexpr double kMost = 1'000'000;
  return static_cast<int>(std::clamp(base::numericValue(text), -kMost, kMost));
}

/// One remembered option: how its control takes the stored text, and the text that is stored.
struct Option {
  std::string_view key, fallback;
  void (*load)(FrmFileScan&, const std::string&);
  std::string (*text)(const FrmFileScan&);
};

template <auto field>
constexpr Option text(std::string_view key, std::string_view fallback)
{
  return {key, fallback, [](FrmFileScan& form, const std::string& value) { form.*field = value; },
          [](const FrmFileScan& form) { return form.*field; }};
}

template <auto field>
constexpr Option number(std::string_view key, std::string_view fallback)
{
  return {key, fallback, [](FrmFileScan& form, const std::string& value) { form.*field = wholeNumber(value); },
          [](const FrmFileScan& form) { return base::format("{}", form.*field); }};
}

template <auto field>
constexpr Option checkBox(std::string_view key, std::string_view fallback)
{
  return {key, fallback, [](FrmFileScan& form, const std::string& value) { form.*field = base::numericValue(value) != 0; },
          [](const FrmFileScan& form) { return std::string(form.*field ? "1" : "0"); }};
}

template <auto field>
constexpr Option choice(std::string_view key)
{
  return {key, "True", [](FrmFileScan& form, const std::string& value) { form.*field = base::yesNo(value); },
          [](const FrmFileScan& form) { return std::string(form.*field ? "True" : "False"); }};
}

/// Written and never read: at each opening the choice among the three is the first.
template <auto field>
constexpr Option forgottenChoice(std::string_view key)
{
  auto option = choice<field>(key);
  option.load = nullptr;
  return option;
}

constexpr std::string_view kWidth = "pix_width", kQuality = "pix_quality", kConvert = "pix_convert";

using Form = FrmFileScan;
const std::array kOptions{
    text<&Form::tbpixel>(kWidth, "580"),
    number<&Form::Slider1>(kQuality, "35"),
    choice<&Form::opkonvertieren>(kConvert),
    checkBox<&Form::CheckSubDir>("pix_CheckSubDir", "1"),
    checkBox<&Form::CheckAlle>("pix_CheckAlle", "0"),
    checkBox<&Form::CheckBilder>("pix_CheckBilder", "1"),
    checkBox<&Form::CheckBitmap>("pix_CheckBitmap", "1"),
    checkBox<&Form::Checkfrei>("pix_Checkfrei", "0"),
    text<&Form::tbext>("pix_tbext", "jpg"),
    checkBox<&Form::Checknurneue>("pix_Checknurneue", "0"),
    checkBox<&Form::CheckRahmen>("pix_checkrahmen", "0"),
    checkBox<&Form::CheckSchatten>("pix_checkschatten", "0"),
    text<&Form::tbtabspalten>("pix_tbtabspalten", "0"),
    checkBox<&Form::CheckOriginalbilder>("pix_checkoriginalbilder", "0"),
    checkBox<&Form::CheckBildpartner>("pix_checkbildpartner", "0"),
    checkBox<&Form::CheckPopupfenster>("pix_checkpopupfenster", "0"),
    forgottenChoice<&Form::opumbenennen>("pix_opumbenennen"),
    forgottenChoice<&Form::opbeibehalten>("pix_opbeibehalten"),
    forgottenChoice<&Form::opüberschreiben>("pix_opüberschreiben"),
};

} // namespace

ConversionOptions storedConversion(const files::UserSettings& settings)
{
  ConversionOptions options;
  options.tbpixel = settings.value(kSection, kWidth, options.tbpixel);
  options.Slider1 = wholeNumber(settings.value(kSection, kQuality, base::format("{}", options.Slider1)));
  options.opkonvertieren = base::yesNo(settings.value(kSection, kConvert, "True"));
  return options;
}

void FrmFileScan::Form_Load()
{
  stopped_ = false;
  loaded_ = true;
  tbshare = parts_.settings.value(kSection, "search", "c:\\");
  for (const auto& option : kOptions)
    if (option.load)
      option.load(*this, parts_.settings.value(kSection, option.key, option.fallback));
  readNode();
  tableEnabled = Opdieseseite;
  Slider1_Scroll();
}

void FrmFileScan::readNode()
{
  if (const auto selected = parts_.TreeView1.selected())
    lblnode = *selected;
}

/// A directory that gave way to files from elsewhere is still the one of the user.
void FrmFileScan::storeDirectory() { parts_.settings.setValue(kSection, "search", tbshare.empty() ? shareBefore_ : tbshare); }

void FrmFileScan::saveOptions()
{
  storeDirectory();
  for (const auto& option : kOptions)
    parts_.settings.setValue(kSection, option.key, option.text(*this));
}

} // namespace mrd::pictures
