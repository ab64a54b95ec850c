#include "desktop/editing/command_prompts.h"

#include "desktop/editing/edited_document.h"
#include "platform/ui/editing_commands.h"

#include <QJsonObject>

#include <array>

namespace mrd::desktop {
namespace {

namespace command = ui::command;

struct PictureValue {
  const char* name;
  std::string ui::PictureValues::*field;
};
constexpr std::array kPictureValues{
    PictureValue{"src", &ui::PictureValues::src},     PictureValue{"alt", &ui::PictureValues::alt},
    PictureValue{"width", &ui::PictureValues::width}, PictureValue{"height", &ui::PictureValues::height},
    PictureValue{"align", &ui::PictureValues::align}, PictureValue{"border", &ui::PictureValues::border},
};

std::string text(const QVariantMap& values, const char* name) { return values[name].toString().toStdString(); }

} // namespace

bool CommandPrompts::chooseFont()
{
  const auto font = prompts.font({document_.value(command::kGetFontName), document_.value(command::kGetFontSize)});
  if (!font)
    return false;
  document_.ask("beginStep");
  const bool hasName = !font->name.empty() && document_.run(command::kSetFontName, qtText(font->name));
  const bool hasSize = !font->size.empty() && document_.run(command::kSetFontSize, qtText(font->size));
  document_.ask("endStep");
  return hasName || hasSize;
}

bool CommandPrompts::askForLink()
{
  const auto present = document_.ask("linkValues");
  if (!present)
    return false;
  const auto values = present->toMap();
  const auto link = prompts.link({text(values, "href"), text(values, "target")});
  return link && document_.run(command::kHyperlink, QJsonObject{{"href", qtText(link->href)}, {"target", qtText(link->target)}});
}

bool CommandPrompts::askForPicture()
{
  const auto present = document_.ask("pictureValues");
  if (!present)
    return false;
  const auto values = present->toMap();
  ui::PictureValues picture;
  for (const auto& [name, field] : kPictureValues)
    picture.*field = text(values, name);
  picture.naturalWidth = values["naturalWidth"].toInt();
  picture.naturalHeight = values["naturalHeight"].toInt();
  const auto chosen = prompts.picture(picture);
  if (!chosen)
    return false;
  QJsonObject attributes;
  for (const auto& [name, field] : kPictureValues)
    attributes[name] = qtText((*chosen).*field);
  return document_.run(command::kPicture, attributes);
}

bool CommandPrompts::run(int command, std::string_view given)
{
  if (command == command::kHyperlink)
    return askForLink();
  if (command == command::kPicture)
    return askForPicture();
  if (command != command::kFindText)
    return document_.run(command, qtText(given));
  const auto searched = prompts.searchText(document_.value(command));
  return searched && document_.run(command, qtText(*searched));
}

} // namespace mrd::desktop
