#pragma once
// A generation run in the layout "Navigation linke Seite".

#include "generator/row_run.h"
#include "generator/shared_head.h"

#include <string>

namespace mrd::generator {

class BuiltInRun : public RowRun {
public:
  explicit BuiltInRun(const RunJob& job);

private:
  void bringSiteFiles() override;
  RowLayout layout() const override;
  BodySource bodySource(const RunPage& page, const LinkAddresses& addresses) const override;
  void bringPopupPage() override;
  void bringPictureTransferScript() override { siteFiles_.bringPictureTransferScript(); }
  void appendSharedHead(std::string& out, std::string_view basislink) override;
  std::string_view bringBody(const RewrittenBody& body) override;

  void makeCorners();
  void bring(const FoundPictures& found) { bringPictures(found.uses, job_.exportpfad, register_); }

  SharedHead sharedHead_;
};

} // namespace mrd::generator
