#include "pictures/bildkonvertierer.h"

#include "base/format.h"

namespace mrd::pictures {

void frmBildkonvertierer::show(std::size_t all)
{
  if (depth_++ > 0)
    return;
  done_ = 0;
  all_ = all;
  stopped_ = false;
  window.show();
  window.refresh();
}

void frmBildkonvertierer::unload()
{
  if (--depth_ == 0)
    window.unload();
}

void frmBildkonvertierer::progress(std::size_t pictures)
{
  done_ = pictures;
  window.refresh();
}

void frmBildkonvertierer::cbanhalten_Click()
{
  stopped_ = true;
  window.refresh();
}

std::string frmBildkonvertierer::LabelAnzahl() const { return all_ == 0 ? "" : base::format("{} / {}", done_, all_); }

} // namespace mrd::pictures
