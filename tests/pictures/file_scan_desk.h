#pragma once
// The window of the scan without a screen, over a folder of photographs.

#include "pagetree/page_desk.h"
#include "pictures/file_scan.h"
#include "pictures/picture_desk.h"

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

namespace mrd::pictures {

inline std::vector<std::string> texts(const ListBox& box)
{
  std::vector<std::string> out;
  for (const auto& entry : box)
    out.push_back(entry.text);
  return out;
}

struct FileScan : testing::Test, PictureDesk {
  FileScan() { form.tbshare = fotos(); }

  void files(std::initializer_list<const char*> names)
  {
    for (const char* name : names)
      directory.write("fotos/" + std::string(name), "x");
  }
  FrmFileScan makeForm()
  {
    FileScanHooks hooks;
    hooks.anzeigen = [this](const std::string& datei, std::string_view darstellung) {
      shown.push_back(datei + " " + std::string(darstellung));
    };
    hooks.showViewer = [this] { ++viewerShown; };
    hooks.inserted = [this] { ++inserted; };
    FrmFileScan out(
        {{desk.project.db(), desk.program.language, desk.clock, fields, desk.program.files, desk.surface, working, [] {}},
         desk.tree,
         settings},
        hooks);
    out.window.unload = [this] { ++unloaded; };
    out.window.refresh = [this] {
      if (whileScanning)
        whileScanning();
    };
    return out;
  }

  pagetree::PageDesk desk{{"00", "Start"}, {"01", "Haus"}};
  frmBildkonvertierer working;
  files::UserSettings settings{(directory.native() / "benutzer.ini").native()};
  std::vector<std::string> shown;
  int viewerShown = 0, unloaded = 0, inserted = 0;
  std::function<void()> whileScanning;
  FrmFileScan form = makeForm();
};

} // namespace mrd::pictures
