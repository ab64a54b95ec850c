#pragma once
// Chosen photographs, and a page that they go into.

#include "base/format.h"
#include "pagetree/page_desk.h"
#include "pictures/insertion.h"
#include "pictures/picture_desk.h"
#include "pictures/plain_surface.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>

namespace mrd::pictures {

struct Insertion : testing::Test, PictureDesk {
  InsertionOutcome run()
  {
    PictureInsertion insertion({desk.project.db(), desk.program.language, desk.clock, fields, desk.program.files, surface, window,
                                [this] { ++treesShown; }},
                               options);
    return insertion.run(chosen, [this] { advanced(); });
  }
  void choose(const std::string& name, int width = 40, int height = 30)
  {
    photo(name, width, height);
    chosen.Listpix.push_back(name);
  }
  void rename(const std::string& from, const std::string& to) const
  {
    std::filesystem::rename(files::nativePath(fotos() + from), files::nativePath(fotos() + to));
  }
  void chooseMany(int count)
  {
    for (int n = 1; n <= count; ++n)
      choose(base::format("p{}.jpg", n));
  }
  std::string image(const std::string& base, const std::string& file) const
  {
    return base::format("<img border=0 alt=\"{}\" src=\"file://{}pix/{}\" /><br />", base, fields.tbpfadexport, file);
  }
  std::string program() const { return desk.program.files.directory(); }

  pagetree::PageDesk desk{{"00", "Start"}, {"01", "Haus"}};
  PlainSurface surface;
  frmBildkonvertierer window;
  InsertionOptions options;
  ChosenPictures chosen{fotos(), {}, "@01"};
  int treesShown = 0;
  std::function<void()> advanced = [] {};
};

} // namespace mrd::pictures
