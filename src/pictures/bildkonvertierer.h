#pragma once
// The small window that is there while pictures are worked on: how far the work is, and a button that stops it.

#include "platform/ui/form_window.h"

#include <cstddef>
#include <functional>
#include <string>

namespace mrd::pictures {

class frmBildkonvertierer {
public:
  /// Without a window nothing is shown and nobody asks to stop.
  struct Window : ui::FormWindow {
    std::function<void()> show = [] {};
  };
  Window window;

  /// For work on `all` pictures; 0 where nobody has counted them. Work within work leaves the window as it is.
  void show(std::size_t all = 0);
  void unload();
  void progress(std::size_t pictures);
  void cbanhalten_Click();

  bool isShown() const { return depth_ > 0; }
  bool isStopped() const { return stopped_; }
  std::size_t done() const { return done_; }
  std::size_t all() const { return all_; }
  /// "3 / 60", empty where nobody has counted.
  std::string LabelAnzahl() const;

private:
  std::size_t done_ = 0, all_ = 0;
  int depth_ = 0;
  bool stopped_ = false;
};

/// The window for the length of a scope.
class WorkOnPictures {
public:
  explicit WorkOnPictures(frmBildkonvertierer& form, std::size_t all = 0) : form_(form) { form_.show(all); }
  ~WorkOnPictures() { form_.unload(); }
  WorkOnPictures(const WorkOnPictures&) = delete;
  WorkOnPictures& operator=(const WorkOnPictures&) = delete;

private:
  frmBildkonvertierer& form_;
};

} // namespace mrd::pictures
