#pragma once
// Tables of small pictures that lead to a page's sub-pages.

#include "frame/messages/messages.h"
#include "frame/settings/fields.h"
#include "pagetree/page_store.h"
#include "pictures/bildkonvertierer.h"
#include "platform/dao/database.h"
#include "platform/image/image.h"
#include "platform/ui/editing_surface.h"
#include "platform/ui/tree_control.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace mrd::pictures {

/// Makes the small picture `<base>_xs.jpg` beside its picture and returns its file name; the picture's own name where it is small
/// enough. Throws base::Error for a picture that cannot be read.
std::string vorschaubild_jpg(std::string_view pfad, const settings::Fields& fields);

/// File name of the small picture for telephones.
std::string telephoneName(std::string_view pfad);
/// The same for telephones: `<base>_xs.gif` of at most 120 pixels in `imode\pix` of the export directory, made only where it is
/// missing; on disk its name is in lower case, as pages refer to it.
std::string vorschaubild_gif(std::string_view pfad, const settings::Fields& fields);

/// Writes the picture as a GIF file of at most 120 pixels on its longer side: one that is small enough in its own size, with its
/// own colour table where it has one. False, and no file, for a picture that the format cannot hold. Throws base::Error.
bool writeSmallGif(std::string_view pfad, std::string_view target, image::Colour background = image::kWhite);

class Thumbnails {
public:
  struct Parts {
    dao::Database& db;
    messages::Language& language;
    settings::Fields& fields;
    ui::EditingSurface& DHTMLEdit1;
    ui::TreeControl& TreeView1;
    pagetree::ActivePage& active;
    const pagetree::PageFields& page;
    pictures::frmBildkonvertierer& frmBildkonvertierer;
    /// Adds the page's node to a tree that fills itself when it is opened.
    std::function<void(std::string_view key)> bringIn = [](std::string_view) {};
  };

  explicit Thumbnails(const Parts& parts) : parts_(parts) {}

  /// Writes the table of the page's sub-pages into the open page, in place of an older one. `seite` is the page's id; empty for
  /// the page selected in the tree, with the note at the end. Has the standard failure handler; false when it failed
  /// or was stopped: the page is then as it was.
  bool MakeThumbs(std::string_view seite);
  /// After a question: renews the tables of all pages that have one. False when one could not be made or stored.
  bool allevorschaubilderneu(pagetree::PageStore& store) { return isRenewalWanted() && renewAll(store); }
  /// The question, and what follows a Yes, for those who have something to do in between.
  bool isRenewalWanted();
  bool renewAll(pagetree::PageStore& store);

  /// Pictures that could not be made small so far; each was told, and its place in the table is empty.
  std::size_t damaged() const { return damaged_; }

private:
  bool makeThumbs(std::string_view seite);
  bool renewEach(pagetree::PageStore& store);
  /// Nothing when the user has stopped it.
  std::optional<std::string> tableOf(const std::string& id);
  std::string cellOf(const dao::Recordset& page);
  std::optional<std::string> thumbnailOf(const dao::Recordset& page);
  std::string linkPrefix();
  void putIntoPage(const std::string& table);

  Parts parts_;
  std::size_t damaged_ = 0;
};

} // namespace mrd::pictures
