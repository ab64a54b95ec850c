#pragma once
// The dialog "Shop": the articles of the project, the shop's options, and the commands that put articles and the basket into
// the page that is open.

#include "frame/messages/messages.h"
#include "pagetree/page_store.h"
#include "platform/dao/database.h"
#include "platform/ui/editing_surface.h"
#include "platform/ui/form_window.h"
#include "platform/ui/shell.h"
#include "platform/ui/window_controls.h"
#include "shop/article_data.h"
#include "shop/snippets.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace mrd::shop {

/// The dialog's window. Element numbers are those of a control array.
struct ShopWindow : ui::FormWindow {
  std::function<void(std::string_view control, std::optional<int> index)> setFocus = [](std::string_view, std::optional<int>) {};
  std::function<void(std::string_view control, std::optional<int> index)> selectText = [](std::string_view, std::optional<int>) {
  };
};

/// What the main window does for the dialog.
struct ShopHooks {
  /// Brings the page into the editor. False when no page is open; the user has then been told.
  std::function<bool()> showPage = [] { return true; };
  /// The page in the editor, or its script box, has been changed from here.
  std::function<void()> pageChanged = [] {}, tbScript_Change = [] {};
};

class frmmrdshop {
public:
  struct Parts {
    /// Must stay open as long as the dialog.
    dao::Database& db;
    messages::Language& language;
    ui::EditingSurface& DHTMLEdit1;
    ui::Shell& shell;
    /// Script box, and caption of the main window.
    pagetree::PageFields& page;
  };
  frmmrdshop(const Parts& parts, ShopHooks hooks);

  // Controls.

  /// Number, German and English name, price in euro and in dollars.
  ArticleTexts txtFields;
  std::string TBShopID = "9950", tbwakodeu = "wako_de.htm", tbwakoeng = "wako_en.htm";
  /// The other option of each frame is the opposite.
  bool OptionStückzahl = true, OptionSpracheDeutsch = true, OptionWahrenkorb = true, OptionWaehrungEuro = true;
  ArticleData Data1;
  ShopWindow window;
  /// From Form_Load to Form_Unload.
  bool isOpen() const { return open_; }

  // Start and end.

  /// Applies the language, then as below.
  void Form_Load(ui::WindowControls& controls);
  /// Reads the articles and the options.
  void Form_Load();
  /// Stores what was changed in the article; false when that failed, which has been told.
  bool Form_QueryUnload() { return Data1.leave(); }
  void Form_Unload();
  /// Stores the options and closes the dialog.
  void cmdClose_Click();

  // Articles.

  void cmdAdd_Click();
  void cmdDelete_Click();
  void cmdRefresh_Click();
  /// Completes the article and stores it; refused with a message when the price in euro is no number.
  void cmdUpdate_Click();
  void Data1_Click(DataAction move);
  /// The name becomes the heading of the page that is open.
  void cbNimmÜberschrift_Click() { takeHeading(kGerman); }
  void cbnimmenglisch_Click() { takeHeading(kEnglish); }
  /// The partner that gives out shop numbers.
  void lblPartner_Click();

  // The page.

  void cbArtikelEinfügen_Click();
  void CbWarenkorbeinfügen_Click();
  /// Brings the articles' present data and the present options into the forms that the page has already.
  void cbaktualisieren_Click();
  /// The article's form, which is also put at the cursor when `wirklicheinfügen` is true. `Html` stays as it is when an element
  /// is selected as a whole, which has been told.
  void button_einfügen(bool& wirklicheinfügen, std::string& Html);
  /// Gives the page the tags of the scripts, once.
  void js_Einfügen();

private:
  void Data1_Error(const base::Error& error);
  void Data1_Reposition();
  void Data1_Validate(DataAction action);
  void guarded(std::string_view procedure, const std::function<void()>& body);
  void takeHeading(std::size_t column);
  void say(const std::string& text);
  double number(std::size_t column) const { return decimals_.read(txtFields[column]).value_or(0); }
  bool isNumeric(std::size_t column) const { return decimals_.read(txtFields[column]).has_value(); }
  SnippetArticle article() const;
  SnippetOptions options() const;
  int updateForms();

  const Parts parts_;
  const ShopHooks hooks_;
  const Decimals decimals_;
  bool open_ = false;
};

} // namespace mrd::shop
