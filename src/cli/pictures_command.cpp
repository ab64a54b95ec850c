#include "base/errors.h"
#include "base/format.h"
#include "cli/commands.h"
#include "cli/session.h"
#include "pictures/gif.h"
#include "pictures/sizes.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace mrd::cli {
namespace {

struct PicturesArguments {
  std::string in, out;
};

ExitStatus writeGif(const PicturesArguments& arguments)
{
  constexpr int kLongerSidePx = 120;
  const auto source = Session::path(arguments.in);
  const auto size = image::Image::sizeOf(source);
  const auto picture = pictures::fits(size, kLongerSidePx)
                           ? image::Image::loadWithPalette(source)
                           : image::Image::loadResized(source, pictures::fitted(size, kLongerSidePx));
  return pictures::GIF::SaveGIF(picture, Session::path(arguments.out)) ? ExitStatus::Done : ExitStatus::Failed;
}

void addGif(CLI::App& pictures, Session& session, const std::shared_ptr<PicturesArguments>& arguments)
{
  auto* const gif = pictures.add_subcommand("gif", "A picture as a GIF file of at most 120 pixels on its longer side");
  gif->add_option("IN", arguments->in)->required();
  gif->add_option("OUT", arguments->out)->required();
  gif->callback([&session, arguments] { session.run([&] { return writeGif(*arguments); }); });
}

} // namespace

void addPictures(CLI::App& app, Session& session)
{
  auto* const pictures = app.add_subcommand("pictures", "Works on pictures and on those of pages")->require_subcommand(1);
  const auto arguments = std::make_shared<PicturesArguments>();
  addGif(*pictures, session, arguments);
}

} // namespace mrd::cli
