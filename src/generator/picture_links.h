#pragma once
// Local pictures of a page: found in its images and links, brought into `pix`, and referred to there.

#include "frame/messages/messages.h"
#include "frame/project/file_register.h"
#include "platform/html/document.h"

#include <string>
#include <string_view>
#include <vector>

namespace mrd::generator {

/// A picture that a page refers to, by the pieces of its path.
struct PictureUse {
  std::string verzeichnis, name, erweiterung;
  /// Whether its copy is entered in the file register.
  bool enter = true;

  /// "name.extension" in lower case, as the copy and the reference are called; the dot stays without an extension.
  std::string fileName() const;
};

/// The pieces of a picture's path, entered or not.
PictureUse pictureOf(std::string_view path, bool enter = true);

/// A link's value around the reference to its picture: `javascript:popup('` + reference + `','words')`. At most 250 characters
/// behind "file://" are looked at.
struct LinkPieces {
  std::string prefix, reference, suffix;
};
/// For a value as a document has read it.
LinkPieces splitLink(std::string_view href);
/// For the value of a text that no document has read: its slashes stay, and the root of a path is part of the window.
LinkPieces splitLinkAsWritten(std::string_view value);

/// What the new references are made of.
struct LinkAddresses {
  /// Export directory with a separator at its end; relative paths count from its `pix`.
  std::string exportpfad;
  /// Address before the links of pages that are read from elsewhere; empty for others.
  std::string basislink;
  /// The site's address as its field holds it; the first link that meets it without a "/" at its end appends one.
  std::string tbbasisurl;
};

/// What a document's references came to.
struct FoundPictures {
  /// In the order in which they are to be copied and entered.
  std::vector<PictureUse> uses;
  /// The field of the site's address got its "/".
  bool slashAppended = false;
  /// A new reference holds the site's address, and it was taken before a "/" was sure to be there.
  bool dependsOnMissingSlash = false;
};

/// Rewrites the references of a document in place. Touches neither files nor tables: what is to be copied and entered is
/// returned, so that documents can be worked ahead on other threads.
FoundPictures findebilder(html::Document& document, LinkAddresses addresses);

/// Where a picture is taken from: relative paths count from the directory in which a run works. And where its copy lies.
std::string sourcePath(const PictureUse& use, std::string_view exportpfad);
std::string pathInPix(const PictureUse& use, std::string_view exportpfad);

/// Copies the source into `pix` under its lower-case name unless it is there already. Throws base::Error when the copy fails.
void Bildkopie(const PictureUse& use, std::string_view exportpfad);

/// Copies and enters the pictures of a document, in order.
void bringPictures(const std::vector<PictureUse>& uses, std::string_view exportpfad, project::FileRegister& fileRegister);

} // namespace mrd::generator
