#include "cli/commands.h"
#include "cli/json.h"
#include "cli/page_desk.h"
#include "cli/session.h"
#include "mainform/project_frame.h"
#include "pagetree/page_deletion.h"
#include "pagetree/page_id.h"
#include "pagetree/page_move.h"
#include "pagetree/page_store.h"
#include "platform/html/document.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <optional>
#include <utility>

namespace mrd::cli {
namespace {

constexpr int kMessageHomepageStays = 8;

struct PageArguments {
  std::string file, id, under;
  /// Target of a move, under the option that says where.
  std::optional<std::string> before, after, below;
  std::optional<std::string> heading, html, fileName, script;
  std::optional<int> type;
};

void addContentOptions(CLI::App& command, PageArguments& arguments)
{
  command.add_option("--html", arguments.html, "File with the page's body")->type_name("FILE");
  command.add_option("--file-name", arguments.fileName, "Output file; * stands for the page's number")->type_name("PATTERN");
  command.add_option("--type", arguments.type, "1 normal, 2 external, 3 blind, 4 auction")->check(CLI::Range(1, 4));
  command.add_option("--script", arguments.script, "File with text for the page's head")->type_name("FILE");
}

std::string bodyFrom(const PageArguments& arguments)
{
  const std::string html = arguments.html ? Session::textOfFile(*arguments.html) : "";
  return arguments.heading ? pagetree::withHeading(html, html::escapeText(*arguments.heading)) : html;
}

void fill(PageDesk& desk, const PageArguments& arguments)
{
  auto& fields = desk.fields();
  if (arguments.heading || arguments.html) {
    fields.tbhtml = bodyFrom(arguments);
    desk.surface().setBodyInnerHtml(fields.tbhtml);
  }
  fields.tbdateiname = arguments.fileName.value_or(fields.tbdateiname);
  fields.opseitentyp = arguments.type.value_or(fields.opseitentyp);
  if (arguments.script)
    fields.tbScript = Session::textOfFile(*arguments.script);
}

/// The page's row; message 102 is shown where there is none.
dao::Recordset rowOf(mainform::ProjectFrame& mainform, const std::string& id)
{
  auto row = mainform.db().openRecordset("SELECT * FROM Seite Where Seite.ID = ? ORDER BY ID;", {dao::Value(id)});
  if (row.eof())
    mainform.program().language.GetMsg(PageDesk::kMessagePageMissing, id, "R");
  return row;
}

ExitStatus showPage(mainform::ProjectFrame& mainform, const PageArguments& arguments)
{
  auto row = rowOf(mainform, arguments.id);
  if (row.eof())
    return ExitStatus::Failed;
  std::vector<std::pair<std::string, dao::Value>> fields;
  for (const auto& column : row.columns())
    fields.emplace_back(column, row.value(column));
  printLine(jsonObject(fields));
  return ExitStatus::Done;
}

ExitStatus addPageUnder(mainform::ProjectFrame& mainform, const PageArguments& arguments)
{
  PageDesk desk(mainform.program(), mainform.db());
  if (!desk.hasPage(arguments.under))
    return ExitStatus::Failed;
  const auto id = desk.addChild(arguments.under);
  if (!id)
    return ExitStatus::Failed;
  fill(desk, arguments);
  if (!desk.save(*id))
    return ExitStatus::Failed;
  printLine(*id);
  return ExitStatus::Done;
}

ExitStatus setPage(mainform::ProjectFrame& mainform, const PageArguments& arguments)
{
  PageDesk desk(mainform.program(), mainform.db());
  // The tree shows a homepage where the project has none.
  if (rowOf(mainform, arguments.id).eof() || !desk.hasPage(arguments.id))
    return ExitStatus::Failed;
  desk.load(arguments.id);
  fill(desk, arguments);
  return desk.save(arguments.id) ? ExitStatus::Done : ExitStatus::Failed;
}

ExitStatus deletePage(mainform::ProjectFrame& mainform, const PageArguments& arguments)
{
  PageDesk desk(mainform.program(), mainform.db());
  if (!desk.hasPage(arguments.id))
    return ExitStatus::Failed;
  pagetree::PageDeletion deletion(mainform.db(), mainform.program().language);
  if (!deletion.DelPage(pagetree::keyOf(arguments.id)))
    return ExitStatus::Failed;
  desk.open(std::string(pagetree::kRootId));
  return ExitStatus::Done;
}

ExitStatus movePage(mainform::ProjectFrame& mainform, const PageArguments& arguments)
{
  using pagetree::MoveOption;
  const auto& [target, option] = arguments.before  ? std::pair(*arguments.before, MoveOption::Before)
                                 : arguments.after ? std::pair(*arguments.after, MoveOption::Behind)
                                                   : std::pair(*arguments.below, MoveOption::Under);
  PageDesk desk(mainform.program(), mainform.db());
  if (!desk.hasPage(arguments.id) || !desk.hasPage(target))
    return ExitStatus::Failed;
  auto& language = mainform.program().language;
  if (pagetree::isRoot(arguments.id)) {
    language.GetMsg(kMessageHomepageStays);
    return ExitStatus::Failed;
  }
  if (arguments.id == target)
    return ExitStatus::Done;
  pagetree::MoveRequest request{arguments.id, target, MoveOption::Behind};
  pagetree::frmMove1 dialog(mainform.db(), language, request);
  dialog.Form_Load();
  dialog.optMove_Click(option);
  dialog.btnMove_Click();
  if (!dialog.MoveAusgefuehrt)
    return ExitStatus::Failed;
  desk.open(pagetree::findMovedPage(mainform.db(), desk.headingOf(arguments.id)));
  return ExitStatus::Done;
}

using Work = ExitStatus (*)(mainform::ProjectFrame&, const PageArguments&);

/// A subcommand on an open project.
CLI::App* addWork(CLI::App& page, Session& session, const std::string& name, const std::string& description, Work work,
                  const std::shared_ptr<PageArguments>& arguments, mainform::Purpose purpose = mainform::Purpose::Working)
{
  auto* const command = page.add_subcommand(name, description);
  command->add_option("FILE", arguments->file)->required();
  command->callback([&session, arguments, work, purpose] {
    session.run([&] {
      mainform::ProjectFrame mainform(session.program());
      return mainform.openProject(Session::path(arguments->file), purpose) ? work(mainform, *arguments) : ExitStatus::Failed;
    });
  });
  return command;
}

} // namespace

void addPage(CLI::App& app, Session& session)
{
  auto* const page = app.add_subcommand("page", "Works on one page")->require_subcommand(1);
  const auto arguments = std::make_shared<PageArguments>();

  addWork(*page, session, "show", "One page as JSON", showPage, arguments, mainform::Purpose::Reading)
      ->add_option("ID", arguments->id)
      ->required();

  auto* const add = addWork(*page, session, "add", "A new child of a page; prints its id", addPageUnder, arguments);
  add->add_option("--under", arguments->under, "Id of the parent")->required()->type_name("ID");
  add->add_option("--heading", arguments->heading, "Heading, where the body brings none")->type_name("TEXT");
  addContentOptions(*add, *arguments);

  addWork(*page, session, "delete", "Deletes a page and all below it", deletePage, arguments)
      ->add_option("ID", arguments->id)
      ->required();

  auto* const move = addWork(*page, session, "move", "Moves a page and all below it", movePage, arguments);
  move->add_option("ID", arguments->id)->required();
  auto* const where = move->add_option_group("where")->require_option(1);
  where->add_option("--before", arguments->before, "In front of this page")->type_name("TARGET");
  where->add_option("--after", arguments->after, "Behind this page")->type_name("TARGET");
  where->add_option("--under", arguments->below, "Below this page")->type_name("TARGET");

  auto* const set = addWork(*page, session, "set", "Changes a page", setPage, arguments);
  set->add_option("ID", arguments->id)->required();
  addContentOptions(*set, *arguments);
}

} // namespace mrd::cli
