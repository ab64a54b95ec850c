#pragma once
// A generation run of the edition for telephones.

#include "generator/row_run.h"
#include "imode/small_pictures.h"

#include <string>

namespace mrd::imode {

class ImodeRun : public generator::RowRun {
public:
  /// `job.exportpfad` is the directory `imode` of the export directory.
  explicit ImodeRun(const generator::RunJob& job);

private:
  void bringSiteFiles() override {}
  generator::RowLayout layout() const override;
  generator::BodySource bodySource(const generator::RunPage& page, const generator::LinkAddresses& addresses) const override;
  void prepareFor(const generator::RewrittenBody& body) override;
  // No page has a script of its own.
  void bringPopupPage() override {}
  void bringPictureTransferScript() override {}
  void appendSharedHead(std::string& out, std::string_view basislink) override;
  std::string_view bringBody(const generator::RewrittenBody& body) override;

  std::string logo();
  std::string chosenPicture();
  std::string referenceTo(const generator::OpenReference& open);
  std::string pathInPix(std::string_view name) const { return pathOf("pix\\" + std::string(name)); }

  SmallPictures pictures_;
  bool logoSaved_ = false;
  std::string body_;
};

} // namespace mrd::imode
