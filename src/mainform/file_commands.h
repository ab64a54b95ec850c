#pragma once
// The commands for an HTML document outside the project.

#include "frame/messages/messages.h"
#include "mainform/page_desk.h"

#include <string>
#include <string_view>

namespace mrd::mainform {

class FileCommands {
public:
  struct Parts {
    messages::Language& language;
    PageDesk& pages;
    MainScreen& screen;
  };
  explicit FileCommands(const Parts& parts) : parts_(parts) {}

  void FileNew_Click();
  void FileOpen_Click();
  /// Without a file in the editor the page is saved. False when nothing was saved.
  bool FileSave_Click();
  bool FileSaveAs_Click();

  /// Asks about a changed file (message 3) and saves it on Yes. False when the user wants to stay with it.
  bool leaveFile();

private:
  bool mayReplace();
  bool load(const std::string& path);
  bool save(const std::string& path);
  void showFile(const std::string& path);
  void showName();

  const Parts parts_;
  /// The file as it was loaded: what stands around its body.
  std::string text_;
  bool isUtf8_ = false;
};

} // namespace mrd::mainform
