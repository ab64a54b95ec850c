#pragma once
// The whole main window without a screen: what it asks of its seams is written down, and tests do what a user would do.

#include "base/errors.h"
#include "editor/document_surface.h"
#include "editor/font_dialog.h"
#include "editor/insert_html.h"
#include "editor/insert_table.h"
#include "editor/link_dialog.h"
#include "editor/picture_dialog.h"
#include "editor/table_properties.h"
#include "mainform/about.h"
#include "mainform/assistant.h"
#include "mainform/backup_dialog.h"
#include "mainform/mainform.h"
#include "open_window.h"
#include "pagetree/page_id.h"
#include "pagetree/plain_tree.h"
#include "support/plain_source.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace mrd::mainform {

/// A clock that a test turns.
struct TurnedClock : base::Clock {
  base::DateTime moment{2003, 4, 17, 9, 5, 6};
  base::DateTime now() const override { return moment; }
};

/// Controls by name, an element of an array as "Labelfarbe(4)", a page of a tab control as "tabHtml[2]".
struct RecordedScreen : MainScreen {
  std::string name() const override { return "Mainform"; }
  void setWindow(const ui::ControlTexts& texts) override { take("", texts); }
  void setControl(std::string_view control, std::optional<int> index, const ui::ControlTexts& texts) override
  {
    take(index ? std::string(control) + "(" + std::to_string(*index) + ")" : std::string(control), texts);
  }
  void setText(std::string_view, std::optional<int>, std::string_view) override {}
  void setToolbarButton(std::string_view toolbar, int button, const ui::ControlTexts& texts) override
  {
    setControl(toolbar, button, texts);
  }
  int currentTab(std::string_view control) const override
  {
    const auto found = tabs.find(control);
    return found == tabs.end() ? 0 : found->second;
  }
  void setCurrentTab(std::string_view control, int page) override { tabs[std::string(control)] = page; }
  void setCurrentTabTexts(std::string_view control, const ui::ControlTexts& texts) override
  {
    take(std::string(control) + "[" + std::to_string(currentTab(control)) + "]", texts);
  }
  void setMenuChecked(std::string_view menu, bool checked) override
  {
    checked ? void(checkedMenus.emplace(menu)) : void(checkedMenus.erase(std::string(menu)));
  }

  void place(const Placement& wish) override
  {
    steps.emplace_back("place");
    placed = wish;
  }
  Placement placement() const override { return placed; }
  bool isMinimised() const override { return minimised; }
  int innerWidth() const override { return placed.MainWidth; }
  void show() override { steps.emplace_back("show"); }
  void refresh(Shown what) override { refreshed.push_back(what); }
  void unload() override { steps.emplace_back("unload"); }
  void unloadOtherWindows() override { steps.emplace_back("unloadOtherWindows"); }

  void take(const std::string& control, const ui::ControlTexts& texts)
  {
    if (missing.contains(control))
      throw base::Error(base::ErrorNumber::ControlNotFound, "Element nicht gefunden");
    auto& known = controls[control];
    known.caption = texts.caption ? texts.caption : known.caption;
    known.toolTip = texts.toolTip ? texts.toolTip : known.toolTip;
    known.enabled = texts.enabled ? texts.enabled : known.enabled;
    known.visible = texts.visible ? texts.visible : known.visible;
  }
  bool enabled(const std::string& control) { return controls[control].enabled.value_or(true); }
  bool visible(const std::string& control) { return controls[control].visible.value_or(true); }
  std::string caption(const std::string& control) { return controls[control].caption.value_or(""); }

  std::map<std::string, ui::ControlTexts> controls;
  std::set<std::string> missing;
  std::map<std::string, int, std::less<>> tabs;
  std::set<std::string> checkedMenus;
  Placement placed;
  bool minimised = false;
  std::vector<std::string> steps;
  std::vector<Shown> refreshed;
};

/// What a user does in each dialog. One that a test does not expect fails it.
struct UsedDialogs : Dialogs {
  std::function<void(FrmAssistent&)> assistant;
  std::function<void(FrmSicherung&)> backups;
  std::function<void(frmAbout&)> about;
  std::function<void(pagetree::frmMove1&)> move;
  std::function<void(publish::frmHTMLExport&)> exporting;
  std::function<void(imode::frmimode&)> exportingImode;
  std::function<void(shop::frmmrdshop&)> shop;
  std::function<void(editor::FrmBild&)> picture;
  std::function<void(editor::FrmSchriftart&)> font;
  std::function<void(editor::FrmTabelleneigenschaften&)> tableProperties;
  std::function<void(editor::FrmVerweis&)> link;
  std::function<void(editor::InsertHTMLDlg&)> insertHtml;
  std::function<void(editor::InsertTableDlg&)> insertTable;
  int shown = 0;
  /// Windows beside the main one that were brought up.
  std::vector<std::string> beside;

  void showModal(FrmAssistent& form) override { use(assistant, form, "FrmAssistent"); }
  void showModal(FrmSicherung& form) override { use(backups, form, "FrmSicherung"); }
  void showModal(frmAbout& form) override { use(about, form, "frmAbout"); }
  void showModal(pagetree::frmMove1& form) override { use(move, form, "frmMove1"); }
  void showModal(publish::frmHTMLExport& form) override { use(exporting, form, "frmHTMLExport"); }
  void showModal(imode::frmimode& form) override { use(exportingImode, form, "frmimode"); }
  void showModal(editor::FrmBild& form) override { use(picture, form, "FrmBild"); }
  void showModal(editor::FrmSchriftart& form) override { use(font, form, "FrmSchriftart"); }
  void showModal(editor::FrmTabelleneigenschaften& form) override { use(tableProperties, form, "FrmTabelleneigenschaften"); }
  void showModal(editor::FrmVerweis& form) override { use(link, form, "FrmVerweis"); }
  void showModal(editor::InsertHTMLDlg& form) override { use(insertHtml, form, "InsertHTMLDlg"); }
  void showModal(editor::InsertTableDlg& form) override { use(insertTable, form, "InsertTableDlg"); }
  void show(editor::FormSuchenErsetzen&) override { beside.emplace_back("FormSuchenErsetzen"); }
  void show(pictures::FrmFileScan&) override { beside.emplace_back("FrmFileScan"); }
  void show(pictures::formobjektanzeigen&) override { beside.emplace_back("formobjektanzeigen"); }
  void prepare(pictures::frmBildkonvertierer&) override {}
  void show(shop::frmmrdshop& form) override { use(shop, form, "frmmrdshop"); }

private:
  template <class Form>
  void use(const std::function<void(Form&)>& user, Form& form, const char* name)
  {
    ++shown;
    if (user)
      user(form);
    else
      ADD_FAILURE() << "unexpected dialog " << name;
  }
};

/// The screenless surface under the fingers of a user.
struct UsedSurface : editor::DocumentSurface {
  void setEvents(ui::SurfaceEvents wanted) override { events = std::move(wanted); }
  void type(std::string_view html)
  {
    setBodyInnerHtml(html);
    events.changed();
  }

  bool busy() const override
  {
    if (busyFor == 0)
      return false;
    if (--busyFor == 0 && whenLoaded)
      std::exchange(whenLoaded, nullptr)();
    return true;
  }
  void setBodyInnerHtml(std::string_view html) override
  {
    if (failing)
      throw base::Error(base::ErrorNumber::InvalidCall, "Der Prozess antwortet nicht");
    DocumentSurface::setBodyInnerHtml(html);
  }
  std::string bodyInnerHtml() const override
  {
    whenRead();
    return DocumentSurface::bodyInnerHtml();
  }
  void setSiteDirectory(std::string_view directory) override { siteDirectory = directory; }
  void setDocumentColours(std::string_view background, std::string_view text) override
  {
    colours = std::string(background) + " " + std::string(text);
  }
  void setStyleRules(std::string_view css) override { rules = css; }
  void setPrompts(ui::SurfacePrompts wanted) override { prompts = std::move(wanted); }
  ui::SelectionType selectionType() const override { return selected ? ui::SelectionType::Control : ui::SelectionType::Text; }
  std::string selectedText() const override { return markedText; }
  bool pasteHtml(std::string_view html) override
  {
    pasted.emplace_back(html);
    return !selected && DocumentSurface::pasteHtml(html);
  }
  /// The element with this id is the one around the cursor, or the one that is selected.
  std::optional<ui::PageElement> byId(const std::string& id) const
  {
    const auto element = const_cast<UsedSurface&>(*this).document().elementById(id);
    return element ? std::optional(numbered(*element)) : std::nullopt;
  }
  std::optional<ui::PageElement> parentElement() const override { return selected ? std::nullopt : byId(cursor); }
  std::optional<ui::PageElement> selectedElement() const override { return selected ? byId(*selected) : std::nullopt; }
  void showContextMenu(int, int, const std::vector<ui::ContextMenuEntry>& entries) override { contextMenu = entries; }
  bool insertTable(const ui::NewTable& table) override
  {
    tables.push_back(table);
    return takesTables;
  }
  bool snapToGrid() const override { return snaps; }
  void setSnapToGrid(bool snap) override { snaps = snap; }
  bool execCommand(int command, ui::Prompt prompt, std::string_view argument) override
  {
    prompted = prompt == ui::Prompt::Ask;
    executed.push_back(std::to_string(command) + (argument.empty() ? "" : " " + std::string(argument)));
    return succeeds;
  }
  int queryStatus(int command) const override
  {
    if (failing)
      throw base::Error(base::ErrorNumber::InvalidCall, "Der Prozess antwortet nicht");
    const auto found = statuses.find(command);
    return found == statuses.end() ? ui::command::kDisabled : found->second;
  }
  std::string commandValue(int command) const override
  {
    const auto found = values.find(command);
    return found == values.end() ? "" : found->second;
  }
  std::vector<std::string> blockFormatNames() const override { return formats; }
  bool showBorders() const override { return borders; }
  void setShowBorders(bool show) override { borders = show; }
  bool showDetails() const override { return details; }
  void setShowDetails(bool show) override { details = show; }
  void setFocus() override { ++focused; }

  ui::SurfaceEvents events;
  mutable int busyFor = 0;
  /// Runs among the events that are let through while the surface loads.
  mutable std::function<void()> whenLoaded;
  /// Runs among the events that are let through while the text is read.
  std::function<void()> whenRead = [] {};
  std::string siteDirectory, colours, rules;
  std::vector<std::string> executed, formats;
  std::map<int, int> statuses;
  std::map<int, std::string> values;
  ui::SurfacePrompts prompts;
  std::string cursor = "cursor", markedText;
  std::optional<std::string> selected;
  std::vector<std::string> pasted;
  std::vector<ui::ContextMenuEntry> contextMenu;
  std::vector<ui::NewTable> tables;
  bool takesTables = true, snaps = false, prompted = false, succeeds = true;
  bool failing = false, borders = false, details = false;
  int focused = 0;
};

struct UsedTree : pagetree::PlainTree {
  void setDrawing(bool on) override { drawingOff += on ? -1 : 1; }
  void startDrag() override { ++drags; }
  void setDropHighlight(const std::optional<std::string>& key) override { dropHighlight = key; }
  ui::TreeExtent extent() const override { return {200, 300}; }
  void scroll(ui::ScrollStep step) override
  {
    scrolled.push_back(step);
    if (step == ui::ScrollStep::LineRight)
      ++position;
  }
  int horizontalPosition() const override { return position; }
  void refresh() override { ++refreshes; }

  int drawingOff = 0, drags = 0, position = 0, refreshes = 0;
  std::optional<std::string> dropHighlight;
  std::vector<ui::ScrollStep> scrolled;
};

struct RecordedShell : ui::Shell {
  void open(std::string_view path) override { opened.emplace_back(path); }
  void openAddress(std::string_view address) override { opened.emplace_back(address); }
  bool openSystemInformation() override { return hasSystemInformation; }

  std::vector<std::string> opened;
  bool hasSystemInformation = false;
};

struct RecordedClipboard : ui::Clipboard {
  void clear() override { steps.emplace_back("clear"); }
  void setText(std::string_view text) override { steps.emplace_back(text); }

  std::vector<std::string> steps;
};

struct MainWindow : Surroundings {
  MainWindow() { userSettings.setValue("Settings", "Assistent", "nein"); }

  /// Starts with this project as the one that was open last.
  void start(const std::string& projectFile)
  {
    paths::SchreibeIni("LastFile", "File1", projectFile, files().iniFile());
    window.Form_Load();
    // Beside what a test does then, the day's backup would come at any time.
    window.project().finishBackup();
  }

  void click(const std::string& key) { window.treeMouse().TreeView1_MouseDown(key); }
  void selectTab(int tab)
  {
    const int before = std::exchange(window.tabs().tabHtml, tab);
    window.tabs().tabHtml_Click(before);
  }
  void selectTreeTab(int tab)
  {
    const int before = std::exchange(window.tabs().TabTree, tab);
    window.tabs().TabTree_Click(before);
  }
  /// Drags the page that is open onto the node.
  void dropOn(const std::optional<std::string>& key)
  {
    window.treeMouse().TreeView1_DragOver(key, 1500, 1500);
    window.treeMouse().TreeView1_DragDrop(key);
  }
  std::string active() const { return window.pages().LastActivePage(); }

  TurnedClock turnedClock;
  Program program{files(), turnedClock, ui};
  files::UserSettings userSettings{(directory.native() / "settings.ini").string()};
  RecordedScreen screen;
  UsedDialogs dialogs;
  UsedSurface surface;
  support::PlainSource source;
  UsedTree tree;
  RecordedShell shell;
  RecordedClipboard clipboard;
  mutable Mainform window{program, {screen, dialogs, surface, source, tree, shell, userSettings, clipboard}};
};

/// The same with a project of some pages, open.
struct OpenMainWindow : MainWindow {
  OpenMainWindow() { project.setSetting("Exportpfad", directory.file("site\\")); }

  void start()
  {
    std::filesystem::create_directories(directory.native() / "site");
    MainWindow::start(project.file());
  }
  std::string text(std::string_view id, std::string_view column) { return project.column(id, column).text(); }

  support::TemporaryProject project{{"00", "Start", "<h3 id=\"ueberschrift\">Start</h3>"},
                                    {"01", "Haus", "<h3 id=\"ueberschrift\">Haus</h3><p>Dach</p>", "haus_*.htm"},
                                    {"0101", "Küche", "<h3 id=\"ueberschrift\">Küche</h3>"},
                                    {"02", "Garten", "<h3 id=\"ueberschrift\">Garten</h3>"},
                                    {"03", "Hof", "<h3 id=\"ueberschrift\">Hof</h3>"}};
};

} // namespace mrd::mainform
