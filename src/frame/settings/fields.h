#pragma once
// The settings fields of the main window under the names of its controls: the working copy that generator and publishing read.

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace mrd::settings {

/// A list to choose from. `Text` can be something that is not in the list; `ListIndex` is then -1.
struct ComboBox {
  std::vector<std::string> entries;
  int ListIndex = 0;
  std::string Text;

  /// Selects an entry by its number; an index outside the list changes nothing but `ListIndex`.
  void selectIndex(int index);
  /// Selects the first entry with the text; a text outside the list is only shown.
  void selectText(std::string_view text);
};

enum class OpImodeKopf : int { Logo = 0, Text = 1, Gif = 2, None = 3 };

/// Defaults are the contents at the program's start. Colours are six hexadecimal digits with or without "#".
struct Fields {
  Fields();

  std::string tbpfadexport = "c:\\programme\\Mirandel\\exportpfad\\";
  std::string tbtitel, tbText = "000000", tbmenütext = "ff0000", Tbtabelle = "#0080FF", tbRahmeninaktiv = "#0080FF";
  std::string tbhintergrund = "ffffff", tbhintergrundaussen = "ffffff", tbmenü = "ff0000", tbHyperlink = "ff0000";
  std::string tbbasisurl;
  /// Description, author, keywords.
  std::array<std::string, 3> tbmeta;
  std::string tbradius = "25";
  bool CheckRundeEcke = false;
  std::string tbschriftart = "Arial";
  ComboBox ComboMenüspalte, ComboInhalt, ComboGrundlayout, ComboBlättern;
  OpImodeKopf Opimmodekopf = OpImodeKopf::None;
  std::string tbimodekopftext, Lblimodegif = "max. 120 Pixel Breite";
  /// The picture that shows the i-mode head, empty for none.
  std::string picImodeKopf;
  std::string tbBildpartnerID;
  std::string tbVorschauBreite = "120", tbVorschauAnzahl = "4";
  bool OptionVorschauMitTitel = false, CheckVorschauMeldung = false, CheckVorschauBilderNeu = false;
  std::string tbFTPServer, tbftpuser, tbftpverzeichnis, tbftpverzeichnisimode, tbftppasswort;
};

/// Colour text of a colour number 0xBBGGRR as a colour dialog gives it: "rrggbb".
std::string farbe_zu_html(long long Wert);
/// "&H" and the colour number's hexadecimal digits, for a colour text with or without "#".
std::string html_zu_farbe(std::string_view Text);
/// "#" and the digits of a colour text with or without "#", as documents take it.
std::string cssColour(std::string_view text);

} // namespace mrd::settings
