// Who works in English meets no German text: every window is gone through in both languages, and what is the same in both must be
// a text of no language.

#include "desktop/windows/desk.h"
#include "platform/files/path.h"
#include "platform/ui/editing_commands.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTest>
#include <QTextBrowser>
#include <QTreeWidget>
#include <QWebEngineView>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>

namespace mrd::desktop {
namespace {

/// Words that are the same in both languages, and names; without signs and numbers.
constexpr std::array kOfNoLanguage{
    // Words.
    "OK", "Normal", "Text", "Format", "Layout", "Hyperlink", "Definition", "Thumbnails", "Internet", "Export", "Shop", "Test",
    "Extras", "Radius", "auto", "Status", "Version", "Euro", "Dollar",
    // Values that stand in pages.
    "left", "right", "center", "top", "middle", "bottom",
    // Units and names.
    "px", "pt", "ID", "HTML", "i mode", "Ebay", "Deutsch", "English", "Mirandel", "support mirandel example",
    // Names that layouts have in their files.
    "Galerie galerie xml", "Modern modern xml",
    // The toolkit's own, for screen readers.
    "Scroll Left", "Scroll Right"};

/// What the tests' user has written.
constexpr std::array kOfTheUser{"Strandweg", "Ferien"};

/// Lists of the machine's fonts.
constexpr std::array kFontLists{"FontCombo", "Comboschrift"};

/// Texts by where they stand.
using Texts = std::map<std::string, std::string>;

/// The texts of a window and of all that stands in it, hidden pages too.
class Reader {
public:
  explicit Reader(Texts& texts) : texts_(texts) {}

  void read(const QWidget& window)
  {
    readWidget(window);
    for (const auto* const widget : window.findChildren<QWidget*>())
      readWidget(*widget);
    for (const auto* const action : window.findChildren<QAction*>()) {
      const QString place = placeOf(*action);
      add(place, "text", action->text());
      add(place, "tip", action->toolTip());
    }
  }
  void add(const QString& place, const char* kind, const QString& text)
  {
    if (!text.isEmpty())
      texts_[(place + ' ' + kind).toStdString()] = text.toStdString();
  }

private:
  /// Names of the object and what it stands in; an unnamed one goes by its kind and number.
  static QString placeOf(const QObject& object)
  {
    QString name = object.objectName();
    const QObject* const parent = object.parent();
    if (name.isEmpty() && parent)
      name = QStringLiteral("%1#%2").arg(object.metaObject()->className()).arg(parent->children().indexOf(&object));
    const auto* const widget = qobject_cast<const QWidget*>(&object);
    return !parent || (widget && widget->isWindow()) ? name : placeOf(*parent) + "/" + name;
  }

  void readWidget(const QWidget& widget)
  {
    const QString place = placeOf(widget);
    add(place, "title", widget.windowTitle());
    add(place, "tip", widget.toolTip());
    add(place, "name", widget.accessibleName());
    add(place, "description", widget.accessibleDescription());
    add(place, "help", widget.whatsThis());
    if (const auto* const label = qobject_cast<const QLabel*>(&widget))
      add(place, "text", label->text());
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget))
      add(place, "text", button->text());
    if (const auto* const box = qobject_cast<const QGroupBox*>(&widget))
      add(place, "title", box->title());
    if (const auto* const menu = qobject_cast<const QMenu*>(&widget))
      add(place, "title", menu->title());
    if (const auto* const line = qobject_cast<const QLineEdit*>(&widget))
      add(place, "placeholder", line->placeholderText());
    if (const auto* const text = qobject_cast<const QPlainTextEdit*>(&widget))
      add(place, "placeholder", text->placeholderText());
    if (const auto* const text = qobject_cast<const QTextBrowser*>(&widget))
      add(place, "text", text->toPlainText());
    readLists(widget, place);
  }

  static bool isFontList(const QComboBox& box)
  {
    return std::ranges::any_of(kFontLists, [&](const char* name) { return box.objectName() == name; });
  }

  void readLists(const QWidget& widget, const QString& place)
  {
    const auto addEach = [&](int count, const std::function<QString(int)>& text) {
      for (int i = 0; i < count; ++i)
        add(place + QStringLiteral("[%1]").arg(i), "entry", text(i));
    };
    if (const auto* const box = qobject_cast<const QComboBox*>(&widget); box && !isFontList(*box)) {
      addEach(box->count(), [&](int i) { return box->itemText(i); });
      add(place, "placeholder", box->placeholderText());
    }
    if (const auto* const tabs = qobject_cast<const QTabWidget*>(&widget)) {
      addEach(tabs->count(), [&](int i) { return tabs->tabText(i); });
      addEach(tabs->count(), [&](int i) { return tabs->tabToolTip(i); });
    }
    if (const auto* const list = qobject_cast<const QListWidget*>(&widget); list)
      addEach(list->count(), [&](int i) { return list->item(i)->text(); });
    if (const auto* const tree = qobject_cast<const QTreeWidget*>(&widget))
      addEach(tree->columnCount(), [&](int i) { return tree->headerItem()->text(i); });
  }

  Texts& texts_;
};

/// One user's way through all windows.
class Walk {
public:
  explicit Walk(const char* language)
  {
    namespace fs = std::filesystem;
    fs::create_directories(project_.directory().native() / "site/pix");
    fs::create_directories(project_.directory().native() / "fotos");
    project_.setSetting("Exportpfad", project_.directory().file("site\\"));
    project_.setSetting("imodekopftyp", "3");
    home_.setIniValue("LastFile", "File1", project_.file());
    home_.setIniValue("Language", "Lang", language);
    files::UserSettings settings(home_.userSettingsFile());
    settings.setValue("Settings", "Assistent", "nein");
    settings.setValue("Settings", "search", project_.directory().file("fotos\\"));
    desk_ = std::make_unique<Desk>(home_);
  }

  Texts texts()
  {
    if (!desk_->start())
      ADD_FAILURE() << "no project";
    desk_->clickNode("@01");
    dialogs();
    choosers();
    runs();
    pictures();
    shop();
    editor();
    newPage();
    Reader(texts_).read(desk_->window());
    for (std::size_t i = 0; i < desk_->answers.boxes.size(); ++i)
      texts_["box " + std::to_string(i)] = desk_->answers.boxes[i];
    for (std::size_t i = 0; i < desk_->answers.dialogTitles.size(); ++i)
      texts_["dialog " + std::to_string(i)] = desk_->answers.dialogTitles[i];
    return texts_;
  }

private:
  QString directory() const { return QString::fromStdString(project_.directory().native().string()); }

  /// The next dialog is read and left. What is done before can bring boxes, which are answered meanwhile.
  void readNext(std::function<void(QDialog&)> before = [](QDialog&) {})
  {
    desk_->answers.dialogs.push_back([this, before = std::move(before)](QDialog& dialog) {
      QTimer::singleShot(0, &dialog, [this, before, &dialog] {
        before(dialog);
        Reader(texts_).read(dialog);
        dialog.reject();
      });
    });
  }
  static void press(const QDialog& dialog, const char* button)
  {
    dialog.findChild<QAbstractButton*>(QString::fromUtf8(button))->click();
  }

  void dialogs()
  {
    desk_->form().project().finishBackup();
    readNext([this](QDialog& dialog) {
      dialog.findChild<QLineEdit*>("tbexportpfad")->setText(directory() + "/fehlt");
      dialog.findChild<QTabWidget*>("TabAssistent")->setCurrentIndex(2);
      desk_->answers.buttons = {ui::Button::Cancel};
      press(dialog, "cbschliessen");
    });
    desk_->action("HelpSub1_3").trigger();
    readNext();
    desk_->action("HelpSub1_4").trigger();
    readNext();
    desk_->dragNode("@02", "@01");
    readNext();
    desk_->action("RestoreProject").trigger();
  }

  /// The toolkit's dialogs have texts of their own, in the language that its translations are installed for: only titles count.
  void choosers()
  {
    desk_->answers.buttons.clear();
    for (const auto* const button : {"cbpfad", "cbimodegifladen"})
      desk_->find<QAbstractButton>(button).click();
    desk_->action("NewProject").trigger();
    desk_->settle();
  }

  void runs()
  {
    const auto generate = [](QDialog& dialog) { press(dialog, "cbHTML"); };
    readNext(generate);
    desk_->action("html").trigger();
    readNext(generate);
    desk_->find<QAbstractButton>("cbimode").click();
  }

  void pictures()
  {
    desk_->action("pix_mehrere").trigger();
    auto& pictures = desk_->form().pictures();
    pictures.fileScan()->CheckBitmap_Click();
    pictures.fileScan()->Slider1_Scroll();
    pictures.converter().show(60);
    letPass(50);
    for (const auto* const name : {"FrmFileScan", "formobjektanzeigen", "frmBildkonvertierer"})
      Reader(texts_).read(desk_->find<QWidget>(name));
    pictures.converter().unload();
    desk_->find<QAbstractButton>("cbshare").click();
    desk_->find<QDialog>("FrmFileScan").reject();
  }

  void shop()
  {
    desk_->action("mnuShop").trigger();
    desk_->settle();
    auto& shop = desk_->find<QDialog>("frmmrdshop");
    Reader(texts_).read(shop);
    shop.reject();
    desk_->settle();
  }

  void editor()
  {
    desk_->surface().setDocumentHtml("<table border=1><tbody><tr><td>Ferien</td></tr></tbody></table>");
    desk_->settle();
    QWidget* const page = desk_->surface().findChild<QWebEngineView*>()->focusProxy();
    QTest::mouseClick(page, Qt::LeftButton, {}, QPoint(20, 20));
    desk_->settle();
    for (const auto* const entry : {"TableSub_0", "InsertSub1_0", "InsertSub1_1", "InsertSub1_3", "mnuTableProperties"}) {
      readNext();
      desk_->action(entry).trigger();
    }
    readNext();
    desk_->surface().execCommand(ui::command::kFont, ui::Prompt::Ask);
    QTest::mouseClick(page, Qt::RightButton, {}, QPoint(20, 20));
    const auto menu = [this] { return desk_->surface().findChild<QMenu*>("ContextMenu"); };
    if (comesTrue([&] { return menu() != nullptr; })) {
      Reader(texts_).read(*menu());
      menu()->close();
    }
    desk_->find<QTabWidget>("tabHtml").setCurrentIndex(1);
    desk_->settle();
    desk_->action("editsub_11").trigger();
    auto& search = desk_->find<QDialog>("FormSuchenErsetzen");
    Reader(texts_).read(search);
    search.reject();
    desk_->find<QTabWidget>("tabHtml").setCurrentIndex(0);
    desk_->settle();
  }

  void newPage()
  {
    desk_->action("SeiteSub_0").trigger();
    desk_->settle();
  }

  support::TemporaryProject project_{{"00", "Strandweg"}, {"01", "Ferien", std::nullopt, std::nullopt, 4}, {"02", "Strandweg 2"}};
  ProgramHome home_;
  std::unique_ptr<Desk> desk_;
  Texts texts_;
};

/// The words of a text without what is written between and around them.
QString wordsOf(QString text)
{
  static const QRegularExpression tag("<[^>]*>"), noWord("[^\\p{L}]+");
  text.remove('&').remove(tag);
  for (const auto* const own : kOfTheUser)
    text.remove(QString::fromUtf8(own));
  return text.replace(noWord, " ").trimmed();
}

bool isOfALanguage(const QString& text)
{
  const QString words = wordsOf(text);
  return words.size() > 1 &&
         std::ranges::none_of(kOfNoLanguage, [&](const char* known) { return words == QString::fromUtf8(known); });
}

TEST(EnglishScreen, shows_no_text_that_is_the_german_one)
{
  // One user after the other: two would answer each other's dialogs.
  const Texts inGerman = Walk("GER").texts();
  const Texts inEnglish = Walk("ENG").texts();

  std::string same;
  for (const auto& [place, text] : inEnglish) {
    const auto found = inGerman.find(place);
    if (found != inGerman.end() && found->second == text && isOfALanguage(QString::fromStdString(text)))
      same += place + ": " + text + "\n";
  }

  EXPECT_EQ(same, "");
  constexpr std::size_t kTexts = 800;
  EXPECT_GT(inEnglish.size(), kTexts);
}

TEST(EnglishScreen, shows_names_of_layouts_in_english_and_stores_them_in_german)
{
  support::TemporaryProject project{{"00", "Start"}};
  ProgramHome home;
  home.setIniValue("LastFile", "File1", project.file());
  files::UserSettings(home.userSettingsFile()).setValue("Settings", "Assistent", "nein");
  Desk desk(home);
  ASSERT_TRUE(desk.start());
  auto& layouts = desk.find<QComboBox>("ComboGrundlayout");
  EXPECT_EQ(layouts.itemText(2), "ohne alles");

  desk.action("eng").trigger();
  EXPECT_EQ(layouts.itemText(2), "Bare pages");
  layouts.setCurrentIndex(2);
  emit layouts.activated(2);
  desk.find<QAbstractButton>("cbeinstellungen").click();

  EXPECT_EQ(project.setting("grundlayout"), "ohne alles");
  desk.action("GER").trigger();
  EXPECT_EQ(layouts.currentText(), "ohne alles");
}

} // namespace
} // namespace mrd::desktop
