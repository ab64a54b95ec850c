#pragma once
// A project whose pages bear the id that they start with as their heading: so one sees where each has gone.

#include "pagetree/page_deletion.h"
#include "pagetree/page_id.h"
#include "pagetree/page_move.h"
#include "support/test_program.h"

#include <initializer_list>
#include <string>
#include <vector>

namespace mrd::pagetree {

struct TreeDesk {
  explicit TreeDesk(std::initializer_list<std::string> ids)
  {
    for (const auto& id : ids)
      add(id);
  }

  void add(const std::string& id)
  {
    project.addPage({.id = id, .heading = id, .html = "<p>" + id + "</p>", .dateiname = "*.htm"});
  }

  /// Children 01 to `last` of the page; "" stands for the first level.
  void addChildren(const std::string& parent, int last)
  {
    dao::Transaction transaction(project.db());
    for (int number = 1; number <= last; ++number)
      add(parent + formatNumber(number));
    transaction.commit();
  }

  /// Pages in their order: the id, and behind a colon where the page has another one than at its start ("02:03").
  std::vector<std::string> pages()
  {
    std::vector<std::string> out;
    for (auto rows = project.db().openSnapshot("SELECT id, Überschrift, html FROM Seite ORDER BY ID"); !rows.eof();
         rows.moveNext()) {
      const std::string id = rows.value("id").text(), start = rows.value("Überschrift").text();
      out.push_back(id == start ? id : id + ":" + start);
      if (rows.value("html").text() != "<p>" + start + "</p>")
        out.back() += " with the body " + rows.value("html").text();
    }
    return out;
  }

  bool deletes(const std::string& id) { return PageDeletion(project.db(), program.language).DelPage(keyOf(id)); }

  /// One click on the option, one on the button; whether the dialog says that a move ran.
  bool moves(const std::string& source, MoveOption where, const std::string& target)
  {
    request = {source, target, MoveOption::Behind};
    frmMove1 dialog(project.db(), program.language, request);
    dialog.Form_Load();
    if (where != MoveOption::Behind)
      dialog.optMove_Click(where);
    dialog.btnMove_Click();
    return dialog.MoveAusgefuehrt;
  }

  support::TestProgram program;
  support::TemporaryProject project{};
  MoveRequest request;
};

} // namespace mrd::pagetree
