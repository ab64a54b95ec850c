#pragma once
// The main window and the dialogs over it as the core drives them: on a screen, or by a test.

#include "imode/imode.h"
#include "pagetree/page_move.h"
#include "platform/ui/window_controls.h"
#include "publish/html_export_form.h"
#include "shop/shop_form.h"

namespace mrd::editor {
class FormSuchenErsetzen;
class FrmBild;
class FrmSchriftart;
class FrmTabelleneigenschaften;
class FrmVerweis;
class InsertHTMLDlg;
class InsertTableDlg;
} // namespace mrd::editor

namespace mrd::pictures {
class FrmFileScan;
class formobjektanzeigen;
class frmBildkonvertierer;
} // namespace mrd::pictures

namespace mrd::mainform {

class FrmAssistent;
class FrmSicherung;
class frmAbout;

/// Place and size of the main window and its splitter, in twips, as a user's settings keep them.
struct Placement {
  int MainLeft = 1000, MainTop = 1000, MainWidth = 6500, MainHeight = 6500;
  int picSplitterLeft = 2000;

  bool operator==(const Placement&) const = default;
};

/// Groups of values of the main window's form objects that change together.
enum class Shown {
  Page,     ///< `pages().fields`, the window's caption, the selected page type
  Settings, ///< all of `settings().fields()`
  Colours,  ///< the colours of swatches and previews, the framed swatch
  Tabs,     ///< `tabs().TabTree` and `tabs().tabHtml`
  Tools,    ///< states of Toolbar1, the two font boxes, captions of `FormatSub`
  Menus,    ///< states of the entries of the editor's menus, and the caption of the first one for positioning
  Caption,  ///< the window's caption alone
};

/// The window `Mainform`. What it shows of controls by name goes through ui::WindowControls; the rest is read from the form
/// objects when refresh() asks for it.
class MainScreen : public ui::WindowControls {
public:
  virtual void place(const Placement& placement) = 0;
  virtual Placement placement() const = 0;
  virtual bool isMinimised() const = 0;
  /// Width inside the borders, in twips.
  virtual int innerWidth() const = 0;
  virtual void show() = 0;
  virtual void refresh(Shown what) = 0;
  /// Closes the window without a further question, which leads to Form_Unload.
  virtual void unload() = 0;
  /// Closes every other window, from the last to the first.
  virtual void unloadOtherWindows() = 0;
};

/// Shows form objects in their windows.
class Dialogs {
public:
  virtual ~Dialogs() = default;

  // Returns when the window is closed.

  virtual void showModal(FrmAssistent& form) = 0;
  virtual void showModal(FrmSicherung& form) = 0;
  virtual void showModal(frmAbout& form) = 0;
  virtual void showModal(pagetree::frmMove1& form) = 0;
  virtual void showModal(publish::frmHTMLExport& form) = 0;
  virtual void showModal(imode::frmimode& form) = 0;

  virtual void showModal(editor::FrmBild& form) = 0;
  virtual void showModal(editor::FrmSchriftart& form) = 0;
  virtual void showModal(editor::FrmTabelleneigenschaften& form) = 0;
  virtual void showModal(editor::FrmVerweis& form) = 0;
  virtual void showModal(editor::InsertHTMLDlg& form) = 0;
  virtual void showModal(editor::InsertTableDlg& form) = 0;

  // Returns at once; the window stays beside the main one, and a form object that has one already is brought to the front.

  virtual void show(editor::FormSuchenErsetzen& form) = 0;
  virtual void show(pictures::FrmFileScan& form) = 0;
  virtual void show(pictures::formobjektanzeigen& form) = 0;
  /// Makes the window that comes up by itself while there is work.
  virtual void prepare(pictures::frmBildkonvertierer& form) = 0;
  /// Above the main window, which can be worked in.
  virtual void show(shop::frmmrdshop& form) = 0;
};

} // namespace mrd::mainform
