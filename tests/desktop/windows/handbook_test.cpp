// The walk of the handbook, from the first start to a site on its server, with the pictures that the handbook shows.

#include "desktop/controls/file_list_view.h"
#include "desktop/windows/desk.h"
#include "desktop/windows/file_list.h"
#include "desktop/windows/window_pictures.h"
#include "platform/files/path.h"
#include "support/ftp_server.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QIcon>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QUrl>
#include <QWebEngineView>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace mrd::desktop {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::SizeIs;
using ui::Button;

constexpr int kSourceTab = 1, kLayoutTab = 3, kExportTab = 4;

/// What the walk's user writes.
struct Story {
  const char* language;
  const char* title;
  const char* welcome;
  const char* beach;
  const char* beachText;
  const char* harbour;
  const char* harbourText;
  const char* head;
  /// What the program says when the site is generated.
  const char* generated;
};

constexpr Story kGerman{
    "GER",
    "Möwe & Meer",
    "<p>Willkommen! Hier zeigen wir die Fotos von unserem Urlaub am Meer.</p>",
    "Am Strand",
    "<p>Früh am Morgen gehört der Strand den Möwen.</p>",
    "Im Hafen",
    "<p>Ein Klick auf ein Bild zeigt es groß.</p>",
    "<p align=\"center\"><font color=\"#ffffff\"><b>Möwe &amp; Meer</b><br>Unser Sommer an der Küste</font></p>",
    "Fertig! Es wurden 6 Seiten generiert.",
};
constexpr Story kEnglish{
    "ENG",
    "Gull & Sea",
    "<p>Welcome! Here we show the photographs of our holiday by the sea.</p>",
    "On the beach",
    "<p>Early in the morning the beach belongs to the gulls.</p>",
    "In the harbour",
    "<p>Click a picture to see it large.</p>",
    "<p align=\"center\"><font color=\"#ffffff\"><b>Gull &amp; Sea</b><br>Our summer on the coast</font></p>",
    "Done! Pages generated: 6.",
};

void dismiss(QDialog& dialog) { dialog.reject(); }

void PrintTo(const Story& story, std::ostream* out) { *out << story.title; }

class Handbook : public testing::TestWithParam<Story> {
protected:
  Handbook()
  {
    applyTheme(*qApp, Theme::Light);
    home.setIniValue("Language", "Lang", story.language);
    files::UserSettings settings(home.userSettingsFile());
    for (const auto& [key, twips] : {std::pair{"MainLeft", "0"},
                                     {"MainTop", "0"},
                                     {"MainWidth", "15600"},
                                     {"MainHeight", "10200"},
                                     {"picSplitterLeft", "3000"}})
      settings.setValue("Settings", key, twips);
    fs::create_directory(photos);
  }

  void picture(QWidget& window, const std::string& name) const { save(window, {story.language, Theme::Light}, "walk-" + name); }

  /// Photographs as they lie in the folder of a camera.
  void take(std::initializer_list<const char*> names) const
  {
    fs::remove_all(photos);
    fs::create_directory(photos);
    for (const auto* const name : names)
      fs::copy_file(fs::path(MRD_SOURCE_DIR) / "demo" / "pix" / name, photos / name);
  }
  static void press(Desk& desk, const char* action)
  {
    desk.action(action).trigger();
    desk.settle();
  }
  /// Types over what stands there.
  static void enter(QWidget& window, const char* field, const std::string& text)
  {
    auto& line = *window.findChild<QLineEdit*>(QString::fromUtf8(field));
    line.selectAll();
    line.insert(QString::fromStdString(text));
  }
  static void click(QWidget& window, const char* button)
  {
    window.findChild<QAbstractButton*>(QString::fromUtf8(button))->click();
  }
  static void showTab(Desk& desk, int tab)
  {
    desk.find<QTabWidget>("tabHtml").setCurrentIndex(tab);
    desk.settle();
  }
  static void writeSource(Desk& desk, const std::string& html)
  {
    showTab(desk, kSourceTab);
    desk.find<QPlainTextEdit>("tbhtml").setPlainText(QString::fromStdString(html));
    showTab(desk, 0);
  }
  static void writePage(Desk& desk, const std::string& heading, const std::string& text)
  {
    writeSource(desk, "<h3 align=center style=\"font-size:16pt;\" id=\"ueberschrift\">" + heading + "</h3>" + text);
    press(desk, "seitespeichern");
  }
  void newPage(Desk& desk, const std::string& heading, const std::string& text)
  {
    desk.clickNode("@00");
    press(desk, "seiteneu");
    writePage(desk, heading, text);
  }

  void refuseToOpen(Desk& desk)
  {
    desk.answers.buttons = {Button::Cancel};
    desk.answers.dialogs = {dismiss, [this](QDialog& assistant) {
                              picture(assistant, "welcome");
                              assistant.reject();
                            }};
  }
  void makeProject(Desk& desk)
  {
    // The directory of the site is not there yet, and is to be made.
    desk.answers.buttons.push_back(Button::Yes);
    desk.answers.dialogs.push_back(fileNamed(home.directory.native() / "urlaub.mdb"));
    desk.answers.dialogs.push_back([this](QDialog& assistant) {
      enter(assistant, "tbexportpfad", "/home/anna/website/");
      enter(assistant, "tbtitel", story.title);
      picture(assistant, "assistant");
      enter(assistant, "tbexportpfad", site.string());
      click(assistant, "cbweiter2");
      click(assistant, "CheckAssistentaqnzeigen");
      // The boxes that come meanwhile are answered by who has called this, who has to be left for it.
      QTimer::singleShot(0, &assistant, [&assistant] { click(assistant, "cbschliessen"); });
    });
    press(desk, "NewProject");
  }
  /// The window of the scan as far as the button that inserts.
  void choosePhotos(Desk& desk, const char* command, const char* columns)
  {
    press(desk, command);
    auto& scan = *desk.form().pictures().fileScan();
    scan.tbshare = files::systemPath(photos) + "\\";
    scan.Command1_Click();
    auto& window = desk.find<QDialog>("FrmFileScan");
    click(window, "cballemarkieren");
    click(window, "cbhinein");
    enter(window, "tbtabspalten", columns);
  }
  /// They come one after the other; until then all rows show the same.
  static bool smallPicturesAreThere(Desk& desk)
  {
    const auto& model = *desk.find<FileListView>("Listpix").model();
    std::vector<QImage> shown;
    for (int row = 0; row < model.rowCount(); ++row) {
      const auto icon = model.index(row, 0).data(Qt::DecorationRole).value<QIcon>();
      const auto image = icon.pixmap(kThumbnailSize).toImage();
      if (std::ranges::find(shown, image) != shown.end())
        return false;
      shown.push_back(image);
    }
    return !shown.empty();
  }
  void insertPhotos(Desk& desk)
  {
    click(desk.find<QDialog>("FrmFileScan"), "cbeinfügen");
    desk.settle();
    press(desk, "seitespeichern");
  }
  void chooseLayout(Desk& desk)
  {
    showTab(desk, kLayoutTab);
    for (const auto& [field, colour] : {std::pair{"tbText", "203040"},
                                        {"tbHyperlink", "2b6777"},
                                        {"tbmenütext", "f0f4f8"},
                                        {"tbmenü", "ffd166"},
                                        {"Tbtabelle", "2b6777"},
                                        {"tbhintergrundaussen", "e7eef0"}})
      enter(desk.window(), field, colour);
    click(desk.window(), "CheckRundeEcke");
    desk.settle();
    picture(desk.window(), "layout");
    click(desk.window(), "cbeinstellungen");
    showTab(desk, 0);
  }
  void writePages(Desk& desk)
  {
    writePage(desk, story.title, story.welcome);
    newPage(desk, story.beach, story.beachText);
    newPage(desk, story.harbour, story.harbourText);
    desk.clickNode("@00");
    picture(desk.window(), "pages");
  }
  void putPhotosOnAPage(Desk& desk)
  {
    take({"strand_morgen.jpg", "moewe.jpg", "strandkorb.jpg", "watt.jpg"});
    desk.clickNode("@01");
    choosePhotos(desk, "pix_mehrere", "2");
    click(desk.find<QDialog>("FrmFileScan"), "CheckSchatten");
    EXPECT_TRUE(comesTrue([&] { return smallPicturesAreThere(desk); }));
    // The handbook shows paths as users have them. The form object is not told, which would look for the pictures there.
    desk.find<QLineEdit>("tbshare").setText("/home/anna/fotos/");
    picture(desk.find<QDialog>("FrmFileScan"), "scan");
    enter(desk.window(), "tbpixel", "330");
    insertPhotos(desk);
    picture(desk.window(), "photos");
  }
  void makePagesOfPhotos(Desk& desk)
  {
    take({"hafen.jpg", "leuchtturm.jpg", "duenen.jpg"});
    desk.clickNode("@02");
    choosePhotos(desk, "pix_eigene", "0");
    insertPhotos(desk);
    desk.clickNode("@02");
    press(desk, "pix_thumbs");
    press(desk, "seitespeichern");
    picture(desk.window(), "thumbnails");
  }
  void writeHead(Desk& desk)
  {
    desk.find<QTabWidget>("TabTree").setCurrentIndex(1);
    desk.settle();
    writeSource(desk, story.head);
    press(desk, "seitespeichern");
    picture(desk.window(), "head");
    desk.find<QTabWidget>("TabTree").setCurrentIndex(0);
    desk.settle();
  }
  void enterServer(Desk& desk, const support::FtpServer& server)
  {
    showTab(desk, kExportTab);
    enter(desk.window(), "tbpfadexport", "/home/anna/website/");
    enter(desk.window(), "tbbasisurl", "http://www.example.org");
    enter(desk.window(), "tbFTPServer", "ftp.example.org");
    enter(desk.window(), "tbftpuser", "anna");
    enter(desk.window(), "tbftpverzeichnis", "www");
    picture(desk.window(), "server");
    enter(desk.window(), "tbpfadexport", site.string() + "/");
    enter(desk.window(), "tbFTPServer", server.server());
    enter(desk.window(), "tbftpuser", server.user());
    enter(desk.window(), "tbftppasswort", server.password());
    click(desk.window(), "cbeinstellungen");
    desk.settle();
  }
  void generateAndPublish(Desk& desk)
  {
    desk.answers.dialogs.push_back([this](QDialog& dialog) {
      QTimer::singleShot(0, &dialog, [this, &dialog] {
        click(dialog, "cbHTML");
        generated = dialog.findChild<QLabel*>("labelSeite")->text().toStdString();
        click(dialog, "cbftpverbindung");
        click(dialog, "cbftp");
        dialog.reject();
      });
    });
    press(desk, "html");
  }
  void lookAtSite(const std::string& page) const
  {
    QWebEngineView browser;
    bool loaded = false;
    QObject::connect(&browser, &QWebEngineView::loadFinished, &browser, [&] { loaded = true; });
    browser.resize(1000, 640);
    browser.show();
    browser.load(QUrl::fromLocalFile(QString::fromStdString((site / page).string())));
    EXPECT_TRUE(comesTrue([&] { return loaded; }));
    letPass(500);
    picture(browser, "site");
  }

  const Story story = GetParam();
  ProgramHome home;
  const fs::path photos = home.directory.native() / "fotos", site = home.directory.native() / "web";
  std::string generated;
};

TEST_P(Handbook, leads_from_the_first_start_to_a_site_on_its_server)
{
  const support::FtpServer server("scripted");
  Desk desk(home);
  refuseToOpen(desk);
  desk.start();

  makeProject(desk);
  picture(desk.window(), "new-project");
  EXPECT_EQ(desk.find<QLineEdit>("tbtitel").text().toStdString(), story.title);
  writePages(desk);
  EXPECT_EQ(desk.node("@02")->text(0).toStdString(), story.harbour);
  chooseLayout(desk);
  putPhotosOnAPage(desk);
  EXPECT_THAT(desk.surface().bodyInnerHtml(), HasSubstr("01_moewe_330_shd.jpg"));
  makePagesOfPhotos(desk);
  EXPECT_THAT(desk.surface().bodyInnerHtml(), HasSubstr("id=\"thumbs\""));
  writeHead(desk);
  enterServer(desk, server);
  generateAndPublish(desk);

  EXPECT_EQ(generated, story.generated);
  EXPECT_TRUE(fs::exists(server.root().native() / "www" / "index.htm"));
  lookAtSite("01.htm");
  // Refused twice, the directory of the site, and the end of the upload: nothing else has to be answered on the way.
  EXPECT_THAT(desk.answers.boxes, SizeIs(4));
}

INSTANTIATE_TEST_SUITE_P(Languages, Handbook, testing::Values(kGerman, kEnglish),
                         [](const auto& story) { return std::string(story.param.language); });

} // namespace
} // namespace mrd::desktop
