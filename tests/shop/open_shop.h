#pragma once
// The shop's dialog without a screen, over a project with a page that is open.

#include "editor/document_surface.h"
#include "shop/shop_form.h"
#include "support/test_program.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace mrd::shop {

struct SelectingSurface : editor::DocumentSurface {
  ui::SelectionType selectionType() const override { return selected; }
  ui::SelectionType selected = ui::SelectionType::None;
};

struct RecordedShell : ui::Shell {
  void open(std::string_view path) override { opened.emplace_back(path); }
  void openAddress(std::string_view address) override { opened.emplace_back(address); }
  std::vector<std::string> opened;
};

struct OpenShop : support::TestProgram {
  explicit OpenShop(const std::string& Sprache = "GER")
  {
    language.setSprache(Sprache);
    page.caption = "Mirandel: Das Haus ";
    page.tbScript = " ";
  }

  /// Loads the dialog with what the project holds by then.
  frmmrdshop& load()
  {
    shop = std::make_unique<frmmrdshop>(
        frmmrdshop::Parts{project.db(), language, surface, shell, page},
        ShopHooks{[this] { return pageIsOpen; }, [this] { ++pageChanges; }, [this] { ++scriptChanges; }});
    shop->window.refresh = [this] { ++refreshes; };
    shop->window.unload = [this] { ++unloads; };
    shop->window.setFocus = [this](std::string_view control, std::optional<int> index) {
      focus = std::string(control) + (index ? std::to_string(*index) : "");
    };
    shop->window.selectText = [this](std::string_view control, std::optional<int> index) {
      selected = std::string(control) + (index ? std::to_string(*index) : "");
    };
    shop->Form_Load();
    return *shop;
  }
  void addArticle(int number, const std::string& name, const dao::Value& euro = 1, const dao::Value& dollar = dao::Null{})
  {
    project.db().execute("INSERT INTO Artikel (Artikelnummer, Artikel_deutsch, Artikel_englisch, Preis_Euro, Preis_Dollar) "
                         "VALUES (?, ?, ?, ?, ?)",
                         {number, name, name + " in English", euro, dollar});
  }
  std::size_t articles() { return project.db().openSnapshot("SELECT * FROM Artikel").recordCount(); }
  dao::Value stored(int number, std::string_view column)
  {
    return project.db().openRecordset("SELECT * FROM Artikel WHERE Artikelnummer = ?", {number}).value(column);
  }

  support::TemporaryProject project{{"00", "Start"}};
  SelectingSurface surface;
  RecordedShell shell;
  pagetree::PageFields page;
  bool pageIsOpen = true;
  int pageChanges = 0, scriptChanges = 0, refreshes = 0, unloads = 0;
  std::string focus, selected;
  std::unique_ptr<frmmrdshop> shop;
};

} // namespace mrd::shop
