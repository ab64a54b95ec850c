#pragma once
// The window that shows a picture by itself, or hands another file to the program that the desktop has for it.

#include "frame/messages/messages.h"
#include "platform/image/image.h"
#include "platform/ui/form_window.h"
#include "platform/ui/shell.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace mrd::pictures {

/// Whether the viewer shows files with this name as pictures.
bool isShownAsPicture(std::string_view path);

class formobjektanzeigen {
public:
  /// The caption until the first file is shown.
  static constexpr std::string_view kFirstCaption = "Objekt anzeigen";
  struct Window : ui::FormWindow {
    /// Brings the window up; the other windows keep the keyboard.
    std::function<void()> show = [] {};
    /// Room for the picture inside the window, in pixels.
    std::function<image::Size()> room = [] { return image::Size{640, 480}; };
  };

  formobjektanzeigen(messages::Language& language, ui::Shell& shell) : language_(language), shell_(shell) {}

  Window window;
  /// The file that is shown, in the system's form.
  std::string caption{kFirstCaption};
  std::string LabelInfo;
  bool checkstretch = true;

  /// The picture as it was read, at least as large as it is shown; nothing before the first.
  const std::optional<image::Image>& picture() const { return picture_; }
  /// Size at which the picture is shown; larger than the room only where it is not fitted into the window.
  image::Size LEAD1() const { return shown_; }
  bool isPictureVisible() const { return pictureVisible_; }

  /// Shows the file; an empty name stands for the one that is shown. `darstellung` is "Bitmap", "Shell" or empty. What cannot be
  /// read leaves the picture before it, without a word.
  void anzeigen(std::string_view datei, std::string_view darstellung = {});
  void checkstretch_Click() { anzeigen({}); }
  void Form_Resize();
  /// Brings the window up with what it shows.
  void show() { window.show(); }
  /// Closes it; the next time it is new.
  void unload();

private:
  void showPicture(const std::string& file);
  void showWithProgram(const std::string& file);
  std::optional<image::Image> read(const std::string& file, image::Size size);
  image::Size shownSize(image::Size picture) const;

  messages::Language& language_;
  ui::Shell& shell_;
  std::optional<image::Image> picture_;
  image::Size shown_;
  bool pictureVisible_ = true;
  /// Counts what was asked for: a picture that arrives after the next one was wanted is not shown.
  int request_ = 0;
};

} // namespace mrd::pictures
