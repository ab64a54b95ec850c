// Fills a new project with shop pages as the shop's dialog writes them, by lines on standard input:
//
//   article TAB german name TAB english name TAB euro TAB dollar      adds an article
//   option TAB name TAB value                                         one of the dialog's options
//   page TAB id TAB heading TAB file name                             begins a page; the next ones go into it
//   html TAB text                                                     text at its end
//   insert TAB article number                                         the form of an article
//   basket                                                            the view of the basket

#include "editor/document_surface.h"
#include "platform/files/path.h"
#include "shop/shop_form.h"
#include "support/scripted_ui.h"

#include <iostream>
#include <map>
#include <sstream>

namespace mrd::shop {
namespace {

struct NoShell : ui::Shell {
  void open(std::string_view) override {}
};

/// Puts what is pasted at the end, as a user who writes a page does.
struct GrowingSurface : editor::DocumentSurface {
  bool pasteHtml(std::string_view html) override
  {
    setBodyInnerHtml(bodyInnerHtml() + std::string(html));
    return true;
  }
};

class ShopSite {
public:
  explicit ShopSite(const std::string& project) : db_(dao::Database::open(files::systemPath(project))) { shop_.Form_Load(); }

  void run(std::istream& input)
  {
    for (std::string line; std::getline(input, line);) {
      std::vector<std::string> words;
      std::istringstream stream(line);
      for (std::string word; std::getline(stream, word, '\t');)
        words.push_back(word);
      words.resize(5);
      act(words);
    }
    store();
  }

private:
  void act(const std::vector<std::string>& words)
  {
    const std::string& verb = words[0];
    if (verb == "article") {
      shop_.cmdAdd_Click();
      for (std::size_t i = kGerman; i <= kDollar; ++i)
        shop_.txtFields[i] = words[i];
      shop_.cmdUpdate_Click();
    } else if (verb == "option") {
      setOption(words[1], words[2]);
    } else if (verb == "page") {
      store();
      id_ = words[1];
      heading_ = words[2];
      file_ = words[3];
      page_.tbScript = " ";
      surface_.setBodyInnerHtml("<h3 id=\"ueberschrift\">" + heading_ + "</h3>");
    } else if (verb == "html") {
      surface_.pasteHtml(words[1]);
    } else if (verb == "insert") {
      shop_.Data1.findFirst(std::stoi(words[1]));
      shop_.cbArtikelEinfügen_Click();
    } else if (verb == "basket") {
      shop_.CbWarenkorbeinfügen_Click();
    }
  }

  void setOption(const std::string& name, const std::string& value)
  {
    const std::map<std::string, bool frmmrdshop::*> switches{{"Stückzahl", &frmmrdshop::OptionStückzahl},
                                                             {"Deutsch", &frmmrdshop::OptionSpracheDeutsch},
                                                             {"Korb", &frmmrdshop::OptionWahrenkorb},
                                                             {"Euro", &frmmrdshop::OptionWaehrungEuro}};
    if (const auto found = switches.find(name); found != switches.end())
      shop_.*found->second = value == "ja";
    else
      shop_.TBShopID = value;
  }

  void store()
  {
    if (id_.empty())
      return;
    db_.execute("DELETE * FROM Seite WHERE ID = ?", {id_});
    db_.execute("INSERT INTO Seite (id, Überschrift, html, dateiname, [seitentyp-id], script) VALUES (?, ?, ?, ?, 1, ?)",
                {id_, heading_, surface_.bodyInnerHtml(), file_, page_.tbScript});
  }

  dao::Database db_;
  support::ScriptedUi ui_;
  paths::ProgramFiles files_{""};
  messages::Language language_{files_, ui_};
  GrowingSurface surface_;
  NoShell shell_;
  pagetree::PageFields page_;
  std::string id_, heading_, file_;
  frmmrdshop shop_{{db_, language_, surface_, shell_, page_}, {}};
};

} // namespace
} // namespace mrd::shop

int main(int argc, char** argv)
{
  if (argc != 2)
    return 2;
  try {
    mrd::shop::ShopSite(argv[1]).run(std::cin);
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
  return 0;
}
