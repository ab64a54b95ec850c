// Adds, deletes and moves pages of one project after the other, as its standard input says, and prints what became of them:
//
//   table N            the pages from now on: N lines with an id, a tab and the other columns in their order, parted by tabs
//   add PARENT         prints the new id behind the messages
//   delete ID yes|no   with the answer to the question
//   move SOURCE before|behind|under TARGET
//   unique | twins     from the next table on it has a unique key, as projects from elsewhere may have, or none
//
// The answer to each operation is a line "OK" or "NO" with the numbers of the messages, the number of pages, and the pages as
// above. "\N" is Null.

#include "editor/document_surface.h"
#include "pagetree/page_deletion.h"
#include "pagetree/page_id.h"
#include "pagetree/page_move.h"
#include "pagetree/page_store.h"
#include "pagetree/plain_tree.h"
#include "support/test_program.h"

#include <array>
#include <iostream>
#include <sstream>

namespace mrd::pagetree {
namespace {

constexpr std::array kColumns{"id", "Überschrift", "html", "dateiname", "seitentyp-id", "script", "changingdate", "expanded"};
constexpr std::string_view kNull = "\\N";
constexpr int kMessageHomepageStays = 8;

/// Answers every question alike and keeps the numbers of the messages.
struct AnsweringUi : support::ScriptedUi {
  std::vector<int> numbers;
  ui::Button answer = ui::Button::Yes;

  ui::Button messageBox(const ui::MessageBox& message) override
  {
    numbers.push_back(message.number);
    return ui::box::buttons(message.style) == ui::box::kYesNo ? answer : ui::Button::Ok;
  }
};

class Driver {
public:
  Driver()
  {
    support::makeLanguageDatabase(files_.file("\\language.mdb"));
    language_.Sprachstart();
  }

  void setUnique(bool unique)
  {
    if (unique == unique_)
      return;
    unique_ = unique;
    project_.db().execute("DROP TABLE Seite");
    project_.db().execute(
        "CREATE TABLE Seite (id TEXT, Überschrift TEXT, html MEMO, dateiname TEXT, [seitentyp-id] LONG, script MEMO, "
        "changingdate DATE, expanded BIT)");
    if (unique)
      project_.db().execute("CREATE UNIQUE INDEX EineSeite ON Seite (id)");
  }

  void readTable(std::istream& in, std::size_t count)
  {
    dao::Transaction transaction(project_.db());
    project_.db().execute("DELETE * FROM Seite");
    std::string line;
    for (std::size_t row = 0; row < count && std::getline(in, line); ++row)
      project_.db().execute(
          "INSERT INTO Seite (id, Überschrift, html, dateiname, [seitentyp-id], script, changingdate, expanded) "
          "VALUES (?, ?, ?, ?, ?, ?, ?, ?)",
          valuesOf(line));
    transaction.commit();
  }

  bool add(const std::string& parent)
  {
    PlainTree tree;
    fillTree(tree, project_.db());
    ActivePage active(project_.db(), tree, ui_);
    PageFields fields;
    editor::DocumentSurface surface;
    PageStore store({project_.db(), language_, clock_, surface, tree, active}, fields, {});
    active.LastActivePage = keyOf(parent);
    return store.AddNewPage() && store.SavePage(active.LastActivePage);
  }

  bool remove(const std::string& id, const std::string& answer)
  {
    ui_.answer = answer == "yes" ? ui::Button::Yes : ui::Button::No;
    return PageDeletion(project_.db(), language_).DelPage(keyOf(id));
  }

  bool move(const std::string& source, const std::string& where, const std::string& target)
  {
    if (isRoot(source)) {
      language_.GetMsg(kMessageHomepageStays);
      return false;
    }
    if (source == target)
      return false;
    MoveRequest request{source, target, MoveOption::Behind};
    frmMove1 dialog(project_.db(), language_, request);
    dialog.Form_Load();
    if (where != "behind")
      dialog.optMove_Click(where == "before" ? MoveOption::Before : MoveOption::Under);
    dialog.btnMove_Click();
    return dialog.MoveAusgefuehrt;
  }

  void print(bool ran)
  {
    std::cout << (ran ? "OK" : "NO");
    for (const int number : ui_.numbers)
      std::cout << ' ' << number;
    ui_.numbers.clear();
    std::ostringstream rows;
    std::size_t count = 0;
    for (auto pages = project_.db().openSnapshot("SELECT * FROM Seite"); !pages.eof(); pages.moveNext(), ++count)
      for (const auto* const column : kColumns)
        rows << (pages.value(column).isNull() ? std::string(kNull) : oneLine(pages.value(column).text()))
             << (column == kColumns.back() ? '\n' : '\t');
    std::cout << '\n' << count << '\n' << rows.str() << std::flush;
  }

private:
  static dao::Parameters valuesOf(const std::string& line)
  {
    dao::Parameters values;
    std::istringstream fields(line);
    for (std::string field; std::getline(fields, field, '\t');)
      values.push_back(field == kNull ? dao::Value(dao::Null{}) : dao::Value(field));
    values.resize(kColumns.size(), dao::Value(dao::Null{}));
    return values;
  }

  static std::string oneLine(std::string text)
  {
    for (auto& c : text)
      c = c == '\n' || c == '\r' || c == '\t' ? ' ' : c;
    return text;
  }

  support::TemporaryDirectory directory_;
  paths::ProgramFiles files_{directory_.path()};
  AnsweringUi ui_;
  messages::Language language_{files_, ui_};
  support::TemporaryProject project_{};
  base::SystemClock clock_;
  bool unique_ = false;
};

void work(std::istream& in)
{
  Driver driver;
  for (std::string line; std::getline(in, line);) {
    std::istringstream words(line);
    std::string verb, first, second, third;
    words >> verb >> first >> second >> third;
    if (verb == "table")
      driver.readTable(in, std::stoul(first));
    else if (verb == "unique" || verb == "twins")
      driver.setUnique(verb == "unique");
    else if (verb == "add")
      driver.print(driver.add(first));
    else if (verb == "delete")
      driver.print(driver.remove(first, second));
    else if (verb == "move")
      driver.print(driver.move(first, second, third));
    else
      throw std::runtime_error("unknown word: " + verb);
  }
}

} // namespace
} // namespace mrd::pagetree

int main()
{
  std::ios::sync_with_stdio(false);
  try {
    mrd::pagetree::work(std::cin);
    return 0;
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
