#include "mainform/menu_table.h"

#include <array>

namespace mrd::mainform {
namespace {

constexpr std::string_view kSeparator = "-";

constexpr std::array kMenuEntries{
    MenuEntry{"", "File", {}, "&File"},
    MenuEntry{"File", "FileNew", {}, "&New HTML File"},
    MenuEntry{"File", "FileOpen", {}, "&Open HTML File"},
    MenuEntry{"File", "FileSave", {}, "&Save HTML File"},
    MenuEntry{"File", "FileSaveAs", {}, "Save HTML File &As..."},
    MenuEntry{"File", "NewProject", {}, "New Project"},
    MenuEntry{"File", "OpenProject", {}, "Open Project"},
    MenuEntry{"File", "RestoreProject", {}, "Restore Backup"},
    MenuEntry{"File", "FileExit", {}, "E&xit"},

    MenuEntry{"", "Edit", {}, "&Edit"},
    MenuEntry{"Edit", "editsub", 0, "Undo"},
    MenuEntry{"Edit", "editsub", 1, "Redo"},
    MenuEntry{"Edit", "editsub", 2, kSeparator, false},
    MenuEntry{"Edit", "editsub", 3, "Cut"},
    MenuEntry{"Edit", "editsub", 4, "Copy"},
    MenuEntry{"Edit", "editsub", 5, "Paste"},
    MenuEntry{"Edit", "editsub", 6, "Select All"},
    MenuEntry{"Edit", "editsub", 7, kSeparator, false},
    MenuEntry{"Edit", "editsub", 8, "Find Text"},
    MenuEntry{"Edit", "editsub", 9, kSeparator, false},
    MenuEntry{"Edit", "editsub", 10, "Snap To Grid"},
    MenuEntry{"Edit", "editsub", 11, "Replace"},
    MenuEntry{"Edit", "editsub", 12, "Paste As Text"},
    MenuEntry{"Edit", "mnuSeitenZurueck", {}, "Undo Deleting Or Moving Pages"},

    MenuEntry{"", "View", {}, "&View"},
    MenuEntry{"View", "ViewSub", 0, "Borders"},
    MenuEntry{"View", "ViewSub", 1, "Document Details"},

    MenuEntry{"", "Seite", {}, "&Page"},
    MenuEntry{"Seite", "SeiteSub", 0, "new"},
    MenuEntry{"Seite", "SeiteSub", 1, "delete"},
    MenuEntry{"Seite", "SeiteSub", 2, "Seitenvorschau"},

    MenuEntry{"", "pix", {}, "&pix"},
    MenuEntry{"pix", "pixsub", 0, "ein Bild einfügen"},
    MenuEntry{"pix", "pixsub", 1, "für jedes Bild eine Seite erzeugen"},
    MenuEntry{"pix", "pixsub", 2, "mehrere Bilder auf dieser Seite einfügen"},
    MenuEntry{"pix", "pixsub", 3, "Thumbnails/Vorschaubilder erstellen"},
    MenuEntry{"pix", "pixsub", 4, "alle Vorschaubilder neu erstellen"},
    MenuEntry{"pix", "mnupixSchatten", {}, "erzeuge Schatten für Bilder der Seite"},

    MenuEntry{"", "net", {}, "&net"},
    MenuEntry{"net", "NetSub", 0, "move pages to Internet"},

    MenuEntry{"", "Insert1", {}, "&Insert"},
    MenuEntry{"Insert1", "InsertSub1", 0, "Picture..."},
    MenuEntry{"Insert1", "InsertSub1", 1, "Anchor..."},
    MenuEntry{"Insert1", "InsertSub1", 2, "Button", false},
    MenuEntry{"Insert1", "InsertSub1", 3, "HTML"},
    MenuEntry{"Insert1", "InsertSub1", 4, "Marquee"},
    MenuEntry{"Insert1", "InsertSub1", 5, "12pt"},

    MenuEntry{"", "Format", {}, "F&ormat"},
    MenuEntry{"Format", "FormatSub", 0, ""},
    MenuEntry{"Format", "FormatSub", 1, ""},
    MenuEntry{"Format", "FormatSub", 2, ""},
    MenuEntry{"Format", "FormatSub", 3, ""},
    MenuEntry{"Format", "FormatSub", 4, ""},
    MenuEntry{"Format", "FormatSub", 5, ""},
    MenuEntry{"Format", "FormatSub", 6, ""},
    MenuEntry{"Format", "FormatSub", 7, ""},
    MenuEntry{"Format", "FormatSub", 8, ""},
    MenuEntry{"Format", "FormatSub", 9, ""},
    MenuEntry{"Format", "FormatSub", 10, ""},
    MenuEntry{"Format", "FormatSub", 11, ""},
    MenuEntry{"Format", "FormatSub", 12, ""},
    MenuEntry{"Format", "FormatSub", 13, ""},
    MenuEntry{"Format", "FormatSub", 14, ""},
    MenuEntry{"Format", "FormatSub", 15, ""},

    MenuEntry{"", "Table", {}, "T&able"},
    MenuEntry{"Table", "TableSub", 0, "Insert Table..."},
    MenuEntry{"Table", "TableSub", 1, kSeparator, false},
    MenuEntry{"Table", "TableSub", 2, "Insert Row"},
    MenuEntry{"Table", "TableSub", 3, "Insert Column"},
    MenuEntry{"Table", "TableSub", 4, "Insert Cell"},
    MenuEntry{"Table", "TableSub", 5, kSeparator, false},
    MenuEntry{"Table", "TableSub", 6, "Delete Rows"},
    MenuEntry{"Table", "TableSub", 7, "Delete Columns"},
    MenuEntry{"Table", "TableSub", 8, "Delete Cells"},
    MenuEntry{"Table", "TableSub", 9, kSeparator, false},
    MenuEntry{"Table", "TableSub", 10, "Merge Cells"},
    MenuEntry{"Table", "TableSub", 11, "Split Cell"},
    MenuEntry{"Table", "mnuTableProperties", {}, "Tabelleneigenschaften"},
    MenuEntry{"Table", "D2D", {}, "Positioning"},
    MenuEntry{"D2D", "D2DSub", 0, "Set Position Attribute To Absolute"},
    MenuEntry{"D2D", "D2DSub", 1, "Bring To Front"},
    MenuEntry{"D2D", "D2DSub", 2, "Send To Back"},
    MenuEntry{"D2D", "D2DSub", 3, "Bring Forward"},
    MenuEntry{"D2D", "D2DSub", 4, "Send Back"},
    MenuEntry{"D2D", "D2DSub", 5, "Bring Above Text"},
    MenuEntry{"D2D", "D2DSub", 6, "Send Below Text"},
    MenuEntry{"D2D", "D2DSub", 7, kSeparator, false},
    MenuEntry{"D2D", "D2DSub", 8, "Lock Element"},

    MenuEntry{"", "Extras", {}, "E&xtras"},
    MenuEntry{"Extras", "mnuShop", {}, "Shop ..."},

    MenuEntry{"", "Language", {}, "&Language"},
    MenuEntry{"Language", "eng", {}, "&English"},
    MenuEntry{"Language", "GER", {}, "&Deutsch"},

    MenuEntry{"", "Help1", {}, "&?"},
    MenuEntry{"Help1", "HelpSub1", 0, "&Hilfe"},
    MenuEntry{"Help1", "HelpSub1", 3, "Assistent"},
    MenuEntry{"Help1", "HelpSub1", 4, "About MRD..."},
    MenuEntry{"Help1", "mnuTest", {}, "Test", false},
};

constexpr std::array kToolButtons{
    ToolButton{"Toolbar1", "Bold", "fett"},
    ToolButton{"Toolbar1", "Italic", "kursiv"},
    ToolButton{"Toolbar1", "Underline", "unterstrichen"},
    ToolButton{"Toolbar1", "Numbers", "nummerierte Liste"},
    ToolButton{"Toolbar1", "Bullets", "Aufzählung"},
    ToolButton{"Toolbar1", "Outdent", "Einzug verkleinern"},
    ToolButton{"Toolbar1", "Indent", "Einzug vergrößern"},
    ToolButton{"Toolbar1", "LeftJustify", "linksbündig"},
    ToolButton{"Toolbar1", "Center", "zentriert"},
    ToolButton{"Toolbar1", "RightJustify", "rechtsbündig"},
    ToolButton{"Toolbar1", "Color", "Schriftfarbe"},
    ToolButton{"Toolbar2", "seitespeichern", "die Seite speichern"},
    ToolButton{"Toolbar2", "seitelöschen", "die Seite löschen"},
    ToolButton{"Toolbar2", "seiteneu", "eine neue Seite anlegen"},
    ToolButton{"Toolbar2", "html", "HTML-Seiten erzeugen und ins Internet stellen"},
    ToolButton{"Toolbar2", "seitenvorschau", "die Seite im Browser ansehen"},
    ToolButton{"Toolbar3", "pix_eins", "ein Bild einfügen"},
    ToolButton{"Toolbar3", "pix_eigene", "für jedes Bild eine Seite erzeugen"},
    ToolButton{"Toolbar3", "pix_mehrere", "mehrere Bilder auf dieser Seite einfügen"},
    ToolButton{"Toolbar3", "pix_thumbs", "Thumbnails/Vorschaubilder erstellen"},
};

} // namespace

std::span<const MenuEntry> menuEntries() { return kMenuEntries; }

std::span<const ToolButton> toolButtons() { return kToolButtons; }

} // namespace mrd::mainform
