// Pictures of every window and every tab, in both languages, light and dark, for people to look at.

#include "desktop/controls/html_source.h"
#include "desktop/editing/web_editing_surface.h"
#include "desktop/windows/desk.h"
#include "desktop/windows/startbild_window.h"
#include "desktop/windows/window_pictures.h"
#include "frame/project/backup_copy.h"
#include "platform/files/path.h"
#include "platform/ui/editing_commands.h"
#include "support/ftp_server.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTest>
#include <QWebEngineView>

#include <gtest/gtest.h>

namespace mrd::desktop {
namespace {

constexpr int kSourcePage = 1, kExportPage = 4;

/// A small site with pictures, as its owner would have it.
class Site {
public:
  Site()
      : project_({{"00", "Möwe & Meer", html("Möwe & Meer", "willkommen")},
                  {"01", "Am Strand", html("Am Strand", "strand")},
                  {"0101", "Ebbe", html("Ebbe", "ebbe")},
                  {"0102", "Flut", html("Flut", "flut")},
                  {"02", "Im Hafen", html("Im Hafen", "hafen")},
                  {"03", "Wetter", html("Wetter", "wetter"), "http://www.wetter.example", 2},
                  {"04", "Versteckt", html("Versteckt", "versteckt"), std::nullopt, 3},
                  {"05", "Angebot", html("Angebot", "angebot"), std::nullopt, 4}})
  {
    const auto site = project_.directory().native() / "site";
    std::filesystem::create_directories(site / "pix");
    for (const auto& entry : std::filesystem::directory_iterator(std::filesystem::path(MRD_SOURCE_DIR) / "demo" / "pix"))
      if (entry.path().extension() == ".jpg" && picture_.empty()) {
        picture_ = entry.path().filename().string();
        std::filesystem::copy_file(entry.path(), site / "pix" / picture_);
      }
    const std::string picture = "<p align=center><img src=\"file://" + (site / "pix" / picture_).string() + "\" width=420></p>";
    project_.db().execute("UPDATE Seite SET html = ? WHERE ID = '01'", {html("Am Strand", "strand") + picture});
    project_.setSetting("Exportpfad", project_.directory().path() + "\\site\\");
    project_.setSetting("Titel", "Möwe & Meer");
    project_.setSetting("grundlayout", "Navigation linke Seite");
    project_.setSetting("blättern", "0");
    for (const auto& [key, colour] : {std::pair{"Textfarbe", "203040"},
                                      {"Menütextfarbe", "f0f4f8"},
                                      {"Tabellenfarbe", "2b6777"},
                                      {"Menüaktivfarbe", "ffd166"},
                                      {"Hyperlink", "2b6777"},
                                      {"Hintergrundfarbe", "ffffff"},
                                      {"Hintergrundfarbeaussen", "e7eef0"},
                                      {"Rahmeninaktivfarbe", "7aa5b0"}})
      project_.setSetting(key, colour);
    project_.setSetting("rundeEcke", "1");
    project_.setSetting("LastActivePage", "01");
    project_.db().execute("UPDATE Seite SET expanded = TRUE WHERE ID = '01'");
  }

  std::string file() const { return project_.file(); }
  /// Backups of some days.
  void backUp()
  {
    const project::Backups backups(file());
    for (const auto* const name : {"2003-04-14", "2003-04-15", "2003-04-17", "2003-04-17-163120"})
      project::makeBackup(backups, name);
  }
  void addArticle(const char* german, const char* english, double euro)
  {
    project_.db().execute("INSERT INTO Artikel (Artikel_deutsch, Artikel_englisch, Preis_Euro, Preis_Dollar) VALUES (?, ?, ?, ?)",
                          {german, english, euro, euro * 1.5});
  }

  void publishTo(const support::FtpServer& server)
  {
    project_.setSetting("ftpserver", server.server());
    project_.setSetting("ftpuser", server.user());
    project_.setSetting("ftppasswort", server.password());
    project_.setSetting("ftpverzeichnisimode", "handy");
  }

private:
  static std::string html(const std::string& heading, const std::string& word)
  {
    return "<h3 align=center id=\"ueberschrift\">" + heading + "</h3>\r\n<p>Der Wind kommt von Westen, und die Möwen stehen " +
           "über dem Wasser (" + word + ").</p>\r\n<ul><li>Muscheln sammeln</li><li>Schiffe zählen</li></ul>\r\n";
  }

  support::TemporaryProject project_;
  std::string picture_;
};

class Pictures : public testing::TestWithParam<Look> {
protected:
  Pictures()
  {
    applyTheme(*qApp, GetParam().theme);
    home.setIniValue("LastFile", "File1", site.file());
    home.setIniValue("Language", "Lang", GetParam().language);
    files::UserSettings settings(home.userSettingsFile());
    for (const auto& [key, twips] : {std::pair{"MainLeft", "0"},
                                     {"MainTop", "0"},
                                     {"MainWidth", "17700"},
                                     {"MainHeight", "12000"},
                                     {"picSplitterLeft", "3600"},
                                     {"Assistent", "nein"}})
      settings.setValue("Settings", key, twips);
  }

  Site site;
  ProgramHome home;
};

TEST_P(Pictures, of_the_main_window_and_its_tabs)
{
  Desk desk(home);
  ASSERT_TRUE(desk.start());
  auto& tabs = desk.find<QTabWidget>("tabHtml");
  letPass(500);
  for (int page = 0; page < tabs.count(); ++page) {
    tabs.setCurrentIndex(page);
    desk.settle();
    // The help shows paths as users have them, and not those of a test.
    if (page == kSourcePage || page == kSourcePage + 1)
      desk.clickNode(page == kSourcePage ? "@02" : "@01");
    if (page == kExportPage)
      desk.find<QLineEdit>("tbpfadexport").setText("/home/anna/website/");
    save(desk.window(), GetParam(), "mainform-" + std::to_string(page));
  }
  auto& layouts = desk.find<QComboBox>("ComboGrundlayout");
  tabs.setCurrentIndex(3);
  for (const int layout : {1, 2, 3, 4}) {
    layouts.setCurrentIndex(layout);
    emit layouts.activated(layout);
    desk.settle();
    save(desk.window(), GetParam(), "mainform-layout" + std::to_string(layout));
  }
  desk.clickNode("@05");
  tabs.setCurrentIndex(2);
  desk.settle();
  save(desk.window(), GetParam(), "mainform-auction");
  tabs.setCurrentIndex(0);
  desk.find<QTabWidget>("TabTree").setCurrentIndex(1);
  desk.settle();
  save(desk.window(), GetParam(), "mainform-head");
  desk.find<QTabWidget>("TabTree").setCurrentIndex(0);
  desk.window().resize(433, 433);
  desk.settle();
  save(desk.window(), GetParam(), "mainform-small");
  EXPECT_TRUE(desk.answers.boxes.empty()) << desk.answers.boxes.front();
}

/// Sends the site; one file is refused and one on the server belongs to no page.
void publish(QDialog& dialog)
{
  for (const auto* const button : {"cbftpverbindung", "cbftp", "cbftpverbindung"})
    dialog.findChild<QAbstractButton*>(button)->click();
  dialog.findChild<QTabWidget*>("tabFTP")->setCurrentIndex(1);
  dialog.findChild<QLabel*>("Labelftpverzeichnis")->setText("ftp.example.org/www/pix/");
}

TEST_P(Pictures, of_the_dialogs)
{
  const support::FtpServer server("scripted", {"refuse-name=0102.htm"});
  site.publishTo(server);
  site.backUp();
  server.root().write("alt.htm", "x");
  Desk desk(home);
  ASSERT_TRUE(desk.start());
  const Look look = GetParam();
  desk.answers.dialogs.push_back([&](QDialog& dialog) {
    auto& tabs = *dialog.findChild<QTabWidget*>("TabAssistent");
    for (int page = 0; page < tabs.count(); ++page) {
      tabs.setCurrentIndex(page);
      save(dialog, look, "assistent-" + std::to_string(page));
    }
    dialog.reject();
  });
  desk.action("HelpSub1_3").trigger();
  desk.answers.dialogs.push_back([&](QDialog& dialog) {
    save(dialog, look, "about");
    dialog.reject();
  });
  desk.action("HelpSub1_4").trigger();
  desk.answers.dialogs.push_back([&](QDialog& dialog) {
    save(dialog, look, "move");
    dialog.reject();
  });
  desk.dragNode("@02", "@01");
  desk.answers.dialogs.push_back([&](QDialog& dialog) {
    save(dialog, look, "html-export");
    // The boxes that come meanwhile are answered by who has called this, who has to be left for it.
    QTimer::singleShot(0, &dialog, [&dialog, look] {
      dialog.findChild<QAbstractButton*>("cbHTML")->click();
      save(dialog, look, "html-export-done");
      publish(dialog);
      save(dialog, look, "html-export-published");
      dialog.reject();
    });
  });
  desk.action("html").trigger();
  desk.answers.dialogs.push_back([&](QDialog& dialog) {
    save(dialog, look, "imode");
    QTimer::singleShot(0, &dialog, [&dialog, look] {
      dialog.findChild<QAbstractButton*>("cbHTML")->click();
      publish(dialog);
      save(dialog, look, "imode-published");
      dialog.reject();
    });
  });
  desk.find<QAbstractButton>("cbimode").click();
  desk.answers.dialogs.push_back([&](QDialog& dialog) {
    save(dialog, look, "sicherung");
    dialog.reject();
  });
  desk.action("RestoreProject").trigger();
  EXPECT_EQ(desk.answers.dialogTitles.size(), 6U);
}

TEST_P(Pictures, of_the_windows_for_pictures)
{
  Desk desk(home);
  ASSERT_TRUE(desk.start());
  desk.action("pix_mehrere").trigger();
  auto& scan = *desk.form().pictures().fileScan();
  scan.tbshare = files::systemPath(std::filesystem::path(MRD_SOURCE_DIR) / "demo" / "pix") + "\\";
  scan.Command1_Click();
  auto& window = desk.find<QDialog>("FrmFileScan");
  save(window, GetParam(), "file-scan-found");
  for (std::size_t entry = 0; entry < scan.List1.size(); entry += 2)
    scan.List1[entry].selected = true;
  scan.cbauswahlrüber_Click();
  // The small pictures come one after the other, and the help shows paths as users have them.
  letPass(1500);
  desk.find<QLineEdit>("tbshare").setText("/home/anna/fotos/");
  save(window, GetParam(), "file-scan");
  scan.Listpix_Click(0);
  letPass(300);
  save(desk.find<QWidget>("formobjektanzeigen"), GetParam(), "objekt-anzeigen");
  desk.find<QAbstractButton>("checkstretch").click();
  letPass(300);
  save(desk.find<QWidget>("formobjektanzeigen"), GetParam(), "objekt-anzeigen-full");
  auto& converter = desk.form().pictures().converter();
  converter.show(60);
  converter.progress(23);
  save(desk.find<QWidget>("frmBildkonvertierer"), GetParam(), "bildkonvertierer");
  converter.unload();
}

TEST_P(Pictures, of_the_shop)
{
  site.addArticle("Poster „Möwe“, groß", "Poster \"Gull\", large", 12.5);
  site.addArticle("Tasse", "Mug", 8.1);
  Desk desk(home);
  ASSERT_TRUE(desk.start());
  desk.action("mnuShop").trigger();
  desk.settle();
  save(desk.find<QDialog>("frmmrdshop"), GetParam(), "shop");
  desk.find<QAbstractButton>("cmdAdd").click();
  save(desk.find<QDialog>("frmmrdshop"), GetParam(), "shop-new");
}

TEST_P(Pictures, of_a_run_whose_server_takes_its_time)
{
  const support::FtpServer server("scripted", {"hang=STOR"});
  site.publishTo(server);
  Desk desk(home);
  ASSERT_TRUE(desk.start());
  const Look look = GetParam();
  desk.answers.dialogs.push_back([&](QDialog& dialog) {
    QTimer::singleShot(0, &dialog, [&dialog, look] {
      constexpr int kSeenMilliseconds = 300;
      for (const auto* const button : {"cbHTML", "cbftpverbindung"})
        dialog.findChild<QAbstractButton*>(button)->click();
      QTimer::singleShot(kSeenMilliseconds, &dialog, [&dialog, look] {
        save(dialog, look, "html-export-running");
        dialog.reject();
      });
      dialog.findChild<QAbstractButton*>("cbftp")->click();
      save(dialog, look, "html-export-stopped");
      dialog.reject();
    });
  });
  desk.action("html").trigger();
  EXPECT_EQ(desk.answers.dialogTitles.size(), 1U);
}

TEST_P(Pictures, of_the_editors_dialogs)
{
  Desk desk(home);
  ASSERT_TRUE(desk.start());
  const Look look = GetParam();
  const auto take = [&](
                        const char* name, const std::function<void(QDialog&)>& prepare = [](QDialog&) {}) {
    desk.answers.dialogs.push_back([&, name, prepare](QDialog& dialog) {
      prepare(dialog);
      save(dialog, look, name);
      dialog.reject();
    });
  };
  take("insert-table");
  desk.action("TableSub_0").trigger();
  take("insert-html", [](QDialog& dialog) {
    dialog.findChild<QPlainTextEdit*>("HTMLText")->setPlainText("<p align=\"center\">Möwen &amp; Meer</p>");
  });
  desk.action("InsertSub1_3").trigger();
  take("link", [](QDialog& dialog) { dialog.findChild<QLineEdit*>("tbadresse")->setText("http://www.beispiel.de"); });
  desk.action("InsertSub1_1").trigger();
  take("picture", [](QDialog& dialog) {
    dialog.findChild<QLineEdit*>("tbbild")->setText("file:///home/anna/website/pix/moewe.jpg");
    dialog.findChild<QLineEdit*>("tbalt")->setText("Möwe");
  });
  desk.action("InsertSub1_0").trigger();
  take("font");
  desk.surface().execCommand(ui::command::kFont, ui::Prompt::Ask);
  desk.surface().setDocumentHtml("<table border=1 width=\"75%\"><tbody><tr valign=top bgcolor=\"#ffd166\"><td align=center "
                                 "width=120>Zelle</td></tr></tbody></table>");
  desk.settle();
  QTest::mouseClick(desk.surface().findChild<QWebEngineView*>()->focusProxy(), Qt::LeftButton, {}, QPoint(60, 22));
  desk.settle();
  take("table-properties");
  desk.action("mnuTableProperties").trigger();
  EXPECT_EQ(desk.answers.dialogTitles.size(), 6U);
  EXPECT_TRUE(desk.answers.boxes.empty()) << desk.answers.boxes.front();
}

TEST_P(Pictures, of_the_editor_at_work)
{
  Desk desk(home);
  ASSERT_TRUE(desk.start());
  letPass(500);
  desk.surface().execCommand(ui::command::kFindText, ui::Prompt::None, "en");
  desk.settle();
  save(desk.window(), GetParam(), "editor-marks");
  QTest::mouseClick(desk.surface().findChild<QWebEngineView*>()->focusProxy(), Qt::LeftButton, {}, QPoint(400, 330));
  desk.settle();
  save(desk.window(), GetParam(), "editor-handles");
  // The help shows this page, and paths of a test have no place there.
  desk.clickNode("@02");
  desk.find<QTabWidget>("tabHtml").setCurrentIndex(kSourcePage);
  desk.settle();
  desk.action("editsub_11").trigger();
  auto& dialog = desk.find<QDialog>("FormSuchenErsetzen");
  dialog.findChild<QLineEdit*>("tbsuchen")->insert("li");
  desk.find<HtmlSource>("tbhtml").select({3, 0});
  save(dialog, GetParam(), "search-replace");
  save(desk.window(), GetParam(), "source-editor");
}

TEST_P(Pictures, of_menus_and_the_opening_picture)
{
  Desk desk(home);
  ASSERT_TRUE(desk.start());
  for (const auto* const name :
       {"File", "Edit", "View", "Seite", "pix", "net", "Insert1", "Format", "Table", "D2D", "Extras", "Language", "Help1"}) {
    auto& menu = desk.find<QMenu>(name);
    menu.popup(desk.window().mapToGlobal(QPoint(40, 60)));
    save(menu, GetParam(), std::string("menu-") + name);
    menu.close();
  }
  mainform::FrmStartbild form;
  FrmStartbildWindow splash(form);
  splash.show();
  save(splash, GetParam(), "startbild");
}

INSTANTIATE_TEST_SUITE_P(Looks, Pictures,
                         testing::Values(Look{"GER", Theme::Light}, Look{"GER", Theme::Dark}, Look{"ENG", Theme::Light},
                                         Look{"ENG", Theme::Dark}),
                         [](const auto& look) { return nameOf(look.param).substr(0, 3) + nameOf(look.param).substr(4); });

} // namespace
} // namespace mrd::desktop
