#include "base/errors.h"
#include "base/format.h"
#include "base/text.h"
#include "cli/commands.h"
#include "cli/page_desk.h"
#include "cli/session.h"
#include "mainform/project_frame.h"
#include "pagetree/page_id.h"
#include "pictures/insertion.h"
#include "pictures/shadow.h"
#include "pictures/thumbnails.h"
#include "platform/files/path.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace mrd::cli {
namespace {

struct PicturesArguments {
  std::string file, id, in, out;
  std::vector<std::string> pictures;
  pictures::InsertionOptions options;
  int columns = 0, maximum = 580;
  std::string names = "rename";
  bool onePageEach = false, noConvert = false;
};

// --- single pictures

ExitStatus writeGif(const PicturesArguments& arguments)
{
  const bool isWritten = pictures::writeSmallGif(Session::path(arguments.in), Session::path(arguments.out));
  return isWritten ? ExitStatus::Done : ExitStatus::Failed;
}

ExitStatus rotate(const PicturesArguments& arguments)
{
  pictures::rotatePicture(Session::path(arguments.in), arguments.options.Slider1);
  return ExitStatus::Done;
}

// --- pictures of pages

ExitStatus addShadows(mainform::ProjectFrame& mainform, PageDesk& desk, const PicturesArguments& arguments)
{
  auto& program = mainform.program();
  desk.load(arguments.id);
  pictures::frmBildkonvertierer unseen;
  const auto shadows = pictures::schatten_fuer_seite({desk.surface(), program.ui, unseen}, mainform.fields().tbhintergrund);
  return shadows == 0 || desk.save(arguments.id) ? ExitStatus::Done : ExitStatus::Failed;
}

ExitStatus makeThumbnails(mainform::ProjectFrame& mainform, PageDesk& desk, const PicturesArguments& arguments)
{
  pictures::frmBildkonvertierer unseen;
  pictures::Thumbnails thumbnails({mainform.db(), mainform.program().language, mainform.fields(), desk.surface(), desk.tree(),
                                   desk.active(), desk.fields(), unseen});
  bool isDone = false;
  if (arguments.id.empty()) {
    isDone = thumbnails.allevorschaubilderneu(desk.store());
  } else {
    desk.load(arguments.id);
    desk.tree().select(pagetree::keyOf(arguments.id));
    isDone = thumbnails.MakeThumbs({}) && desk.save(arguments.id);
  }
  // The tables are there, but a picture that was told is missing in them.
  return isDone && thumbnails.damaged() == 0 ? ExitStatus::Done : ExitStatus::Failed;
}

pictures::InsertionOptions optionsOf(const PicturesArguments& arguments)
{
  auto options = arguments.options;
  options.opkonvertieren = !arguments.noConvert;
  options.Opdieseseite = !arguments.onePageEach;
  options.tbpixel = base::format("{}", arguments.maximum);
  options.tbtabspalten = base::format("{}", arguments.columns);
  options.opumbenennen = arguments.names == "rename";
  options.opbeibehalten = arguments.names == "keep";
  options.opüberschreiben = arguments.names == "overwrite";
  return options;
}

/// What a window shows in its list.
void tell(ui::Ui& ui, const pictures::InsertionOutcome& outcome)
{
  const auto native = [](std::string_view path) { return files::nativePath(path).native(); };
  for (const auto& [path, reason] : outcome.failed)
    ui.warning(base::contains(reason, native(path)) ? reason : base::format("{}: {}", native(path), reason));
  for (const auto& path : outcome.skipped)
    ui.warning(base::format("{}: Der Name enthält einen Apostroph, das Bild wurde ausgelassen.", native(path)));
}

ExitStatus addToPage(mainform::ProjectFrame& mainform, PageDesk& desk, const PicturesArguments& arguments)
{
  auto& program = mainform.program();
  desk.load(arguments.id);
  pictures::ChosenPictures chosen{{}, {}, pagetree::keyOf(arguments.id)};
  std::ranges::transform(arguments.pictures, std::back_inserter(chosen.Listpix), Session::path);
  pictures::frmBildkonvertierer unseen;
  pictures::PictureInsertion insertion(
      {mainform.db(), program.language, program.clock, mainform.fields(), program.files, desk.surface(), unseen},
      optionsOf(arguments));
  const auto outcome = insertion.run(chosen);
  tell(program.ui, outcome);
  const bool isSaved = outcome.inserted == 0 || arguments.onePageEach || desk.save(arguments.id);
  const bool isComplete = outcome.begun && !outcome.outOfNumbers && outcome.failed.empty() && outcome.skipped.empty();
  return isSaved && isComplete ? ExitStatus::Done : ExitStatus::Failed;
}

using Work = ExitStatus (*)(mainform::ProjectFrame&, PageDesk&, const PicturesArguments&);

ExitStatus onProject(Session& session, const PicturesArguments& arguments, Work work)
{
  mainform::ProjectFrame mainform(session.program());
  mainform.ladebenutzerlayouts();
  if (!mainform.openProject(Session::path(arguments.file)) || !mainform.loadSettings())
    return ExitStatus::Failed;
  PageDesk desk(session.program(), mainform.db());
  return arguments.id.empty() || desk.hasPage(arguments.id) ? work(mainform, desk, arguments) : ExitStatus::Failed;
}

using Arguments = std::shared_ptr<PicturesArguments>;

CLI::App* addWork(CLI::App& pictures, Session& session, const std::string& name, const std::string& description, Work work,
                  const Arguments& arguments)
{
  auto* const command = pictures.add_subcommand(name, description);
  command->add_option("FILE", arguments->file)->required();
  command->callback([&session, arguments, work] { session.run([&] { return onProject(session, *arguments, work); }); });
  return command;
}

CLI::App* addPictureWork(CLI::App& pictures, Session& session, const std::string& name, const std::string& description,
                         ExitStatus (*work)(const PicturesArguments&), const Arguments& arguments)
{
  auto* const command = pictures.add_subcommand(name, description);
  command->callback([&session, arguments, work] { session.run([&] { return work(*arguments); }); });
  return command;
}

void addQuality(CLI::App& command, PicturesArguments& arguments)
{
  constexpr int kBest = 5, kSmallest = 100;
  command.add_option("--quality", arguments.options.Slider1, "Compression of the pictures, 5 (best) to 100 (smallest)")
      ->check(CLI::Range(kBest, kSmallest))
      ->type_name("N");
}

void addInsertionOptions(CLI::App& add, PicturesArguments& arguments)
{
  constexpr int kMostColumns = 99, kLargestPx = 30000;
  add.add_option("--page", arguments.id, "The page that takes the pictures or their pages")->required()->type_name("ID");
  add.add_option("--columns", arguments.columns, "Columns of a table; 0 for none")
      ->check(CLI::Range(0, kMostColumns))
      ->type_name("N");
  add.add_flag("--one-page-each", arguments.onePageEach, "A new page below for each picture, whatever the columns");
  add.add_flag("--no-convert", arguments.noConvert, "Copy the files as they are, whatever size and quality say");
  add.add_option("--max", arguments.maximum, "Longer side in pixels, at most; 580")
      ->check(CLI::Range(1, kLargestPx))
      ->type_name("N");
  addQuality(add, arguments);
  add.add_option("--names", arguments.names, "New names with the page's number, or keep or overwrite files that are there")
      ->check(CLI::IsMember({"rename", "keep", "overwrite"}));
  add.add_flag("--border", arguments.options.CheckRahmen, "A frame around the table and its cells");
  add.add_flag("--shadow", arguments.options.CheckSchatten, "A shadow behind each picture");
  add.add_flag("--popup", arguments.options.CheckPopupfenster, "A link to the original");
  add.add_flag("--order", arguments.options.CheckBildpartner, "A link that orders a print");
  add.add_option("PICTURE", arguments.pictures, "Picture files")->required();
}

} // namespace

void addPictures(CLI::App& app, Session& session)
{
  auto* const pictures = app.add_subcommand("pictures", "Works on pictures and on those of pages")->require_subcommand(1);
  const auto arguments = std::make_shared<PicturesArguments>();

  addInsertionOptions(
      *addWork(*pictures, session, "add", "Puts pictures into a page or into pages of their own", addToPage, arguments),
      *arguments);
  addWork(*pictures, session, "shadow", "Gives every picture of a page a shadow", addShadows, arguments)
      ->add_option("ID", arguments->id)
      ->required();
  addWork(*pictures, session, "thumbnails", "Writes or renews the table of a page's sub-pages; without ID all such tables",
          makeThumbnails, arguments)
      ->add_option("ID", arguments->id);

  auto* const turn = addPictureWork(*pictures, session, "rotate", "Turns a picture by 90 degrees clockwise", rotate, arguments);
  turn->add_option("PICTURE", arguments->in)->required();
  addQuality(*turn, *arguments);

  auto* const gif = addPictureWork(*pictures, session, "gif", "A picture as a GIF file of at most 120 pixels on its longer side",
                                   writeGif, arguments);
  gif->add_option("IN", arguments->in)->required();
  gif->add_option("OUT", arguments->out)->required();
}

} // namespace mrd::cli
