#include "mainform/file_commands.h"

#include "base/errors.h"
#include "base/text.h"
#include "base/windows1252.h"
#include "platform/files/files.h"
#include "platform/files/path.h"
#include "platform/html/document.h"

#include <algorithm>
#include <array>
#include <span>

namespace mrd::mainform {
namespace {

using base::ErrorNumber;

constexpr int kMessageSaveChanges = 3;
constexpr std::string_view kCaption = "Begrol";
constexpr std::string_view kEmptyDocument = "<html><head></head><body></body></html>";
constexpr std::string_view kFilter = "HTML|*.htm;*.html";

struct FailureText {
  ErrorNumber number;
  std::string_view text;
};
constexpr std::array kLoadFailures{
    FailureText{ErrorNumber::EngineError, "Unexpected error"}, FailureText{ErrorNumber::FileNotFound, "File not found"},
    FailureText{ErrorNumber::PathNotFound, "Path not found"},  FailureText{ErrorNumber::InvalidCall, "Invalid argument"},
    FailureText{ErrorNumber::PathFileAccess, "Access denied"}, FailureText{ErrorNumber::AccessDenied, "Access denied"},
};
constexpr std::array kSaveFailures{
    FailureText{ErrorNumber::EngineError, "Unexpected error"}, FailureText{ErrorNumber::PathNotFound, "Path not found"},
    FailureText{ErrorNumber::DiskFull, "Disk is full"},        FailureText{ErrorNumber::InvalidCall, "Invalid argument"},
    FailureText{ErrorNumber::PathFileAccess, "Access denied"}, FailureText{ErrorNumber::AccessDenied, "Access denied"},
};

std::string_view failureText(std::span<const FailureText> texts, const base::Error& error)
{
  const auto found = std::ranges::find(texts, error.kind(), &FailureText::number);
  return found == texts.end() ? "Unknown error" : found->text;
}

/// Why a document cannot be edited as one page; empty where it can.
std::string_view obstacle(std::string_view text)
{
  if (base::containsIgnoringCase(text, "<frameset"))
    return "Document contains a frameset";
  const auto start = text.substr(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
  return start.starts_with("<%") || start.starts_with("<?php") ? "Document is primarily server side script" : "";
}

bool isPlainAscii(std::string_view bytes)
{
  return std::ranges::all_of(bytes, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

} // namespace

void FileCommands::FileNew_Click()
{
  if (!mayReplace())
    return;
  text_ = kEmptyDocument;
  isUtf8_ = false;
  showFile("");
}

void FileCommands::FileOpen_Click()
{
  if (!mayReplace())
    return;
  const auto path = parts_.language.ui().openFileDialog({"HTML", std::string(kFilter)});
  if (path && load(*path))
    showFile(*path);
}

bool FileCommands::mayReplace()
{
  auto& pages = parts_.pages;
  if (pages.isBusy())
    return false;
  if (pages.document.kind == DocumentKind::File)
    return leaveFile();
  if (!pages.PageDirty())
    return true;
  switch (parts_.language.GetMsg(kMessageSaveChanges)) {
  case ui::Button::Yes:
    return pages.SavePage();
  case ui::Button::No:
    pages.giveUp();
    return true;
  default:
    return false;
  }
}

bool FileCommands::leaveFile()
{
  if (!parts_.pages.document.isDirty)
    return true;
  switch (parts_.language.GetMsg(kMessageSaveChanges)) {
  case ui::Button::Yes:
    return FileSave_Click();
  case ui::Button::No:
    return true;
  default:
    return false;
  }
}

bool FileCommands::load(const std::string& path)
{
  std::string_view failure;
  std::string bytes;
  try {
    bytes = files::readFile(path);
    failure = obstacle(bytes);
  } catch (const base::Error& error) {
    failure = failureText(kLoadFailures, error);
  }
  if (!failure.empty()) {
    parts_.language.ui().messageBox({std::string(failure), ""});
    return false;
  }
  isUtf8_ = base::isValidUtf8(bytes) && !isPlainAscii(bytes);
  text_ = base::decodeText(bytes);
  return true;
}

void FileCommands::showFile(const std::string& path)
{
  auto& pages = parts_.pages;
  pages.setKind(DocumentKind::File);
  pages.document.path = path;
  pages.document.isDirty = false;
  if (path.empty())
    pages.surface().newDocument();
  else
    pages.surface().setDocumentHtml(text_);
  while (pages.surface().busy())
    parts_.language.ui().pumpEvents();
  pages.fields.tbhtml = pages.surface().bodyInnerHtml();
  showName();
  parts_.screen.refresh(Shown::Page);
}

void FileCommands::showName()
{
  const std::string& path = parts_.pages.document.path;
  parts_.pages.fields.caption =
      path.empty() ? std::string(kCaption) : std::string(kCaption) + " - " + files::nativePath(path).string();
  parts_.screen.refresh(Shown::Caption);
}

bool FileCommands::FileSave_Click()
{
  const auto& document = parts_.pages.document;
  if (document.kind != DocumentKind::File)
    return parts_.pages.SavePage();
  return document.path.empty() ? FileSaveAs_Click() : save(document.path);
}

bool FileCommands::FileSaveAs_Click()
{
  const auto path = parts_.language.ui().saveFileDialog({"HTML", std::string(kFilter), "", "neu.htm"});
  return path && !path->empty() && save(*path);
}

bool FileCommands::save(const std::string& path)
{
  auto& pages = parts_.pages;
  const std::string body = pages.fields.sourceOnTop ? pages.fields.tbhtml : pages.surface().bodyInnerHtml();
  const bool isFile = pages.document.kind == DocumentKind::File;
  auto document = html::Document::fromText(isFile ? std::string_view(text_) : kEmptyDocument);
  document.body().setInnerHtml(body);
  const std::string text = document.outerHtml();
  try {
    files::writeFileAtomically(path, isFile && isUtf8_ ? text : base::toWindows1252(text));
  } catch (const base::Error& error) {
    parts_.language.ui().messageBox({std::string(failureText(kSaveFailures, error)), ""});
    return false;
  }
  // A page of the project that goes out as a file stays the page that is edited.
  if (!isFile)
    return true;
  text_ = text;
  pages.document.path = path;
  pages.document.isDirty = false;
  showName();
  return true;
}

} // namespace mrd::mainform
