#include "main_window.h"
#include "platform/files/files.h"
#include "platform/files/path.h"

#include <gmock/gmock.h>

#include <csignal>
#include <sys/resource.h>
#include <unistd.h>

namespace mrd::mainform {
namespace {

using testing::HasSubstr;

struct UnsavedWorkTest : testing::Test, OpenMainWindow {
  UnsavedWorkTest()
  {
    start();
    click("@01");
  }
  std::string draftFile() const { return draftFileOf(project.file()); }
  bool hasDraft() const { return files::fileExists(draftFile()); }
  void type(std::string_view html) { surface.type(html); }
};

constexpr std::string_view kVilla = "<h3 id=\"ueberschrift\">Villa</h3><p>getippt</p>";

TEST_F(UnsavedWorkTest, is_kept_beside_the_project_and_not_in_it)
{
  type(kVilla);

  window.Timer();

  EXPECT_EQ(text("01", "Überschrift"), "Haus");
  const auto draft = readDraft(draftFile());
  ASSERT_TRUE(draft);
  EXPECT_EQ(draft->key, "@01");
  EXPECT_EQ(draft->label, "Haus");
  EXPECT_EQ(draft->html, kVilla);
  EXPECT_EQ(draft->dateiname, "haus_*.htm");
  EXPECT_EQ(draft->written.iso(), "2003-04-17 09:05:06");
}

TEST_F(UnsavedWorkTest, is_written_again_only_when_it_has_changed)
{
  window.Timer();
  EXPECT_FALSE(hasDraft());

  type(kVilla);
  window.Timer();
  turnedClock.moment.second = 30;
  window.Timer();
  EXPECT_EQ(readDraft(draftFile())->written.second, 6);

  type("<p>mehr</p>");
  window.Timer();
  EXPECT_EQ(readDraft(draftFile())->written.second, 30);
}

TEST_F(UnsavedWorkTest, is_no_longer_kept_once_it_is_saved)
{
  type(kVilla);
  window.Timer();

  window.Toolbar2_ButtonClick("seitespeichern");
  EXPECT_FALSE(hasDraft());

  window.Timer();
  EXPECT_FALSE(hasDraft());
}

struct AfterCrashTest : UnsavedWorkTest {
  /// What locks the drafts of a program goes with it.
  void crash()
  {
    for (int number = 1; number <= kDraftFiles; ++number)
      removeDraft(draftFileOf(project.file(), number) + ".lock");
  }
  /// Another start of the program on the same project, with this answer to what is offered.
  std::unique_ptr<MainWindow> next(ui::Button answer, const std::string& containing)
  {
    crash();
    auto again = std::make_unique<MainWindow>();
    again->ui.expect(114, containing, answer);
    again->start(project.file());
    return again;
  }
};

TEST_F(AfterCrashTest, is_offered_and_put_into_the_editor)
{
  type(kVilla);
  window.pages().fields.tbdateiname = "villa.htm";
  window.pages().opseitentyp_Click(3);
  window.Timer();

  const auto again = next(ui::Button::Yes, "\"Haus\" (17.04.2003 09:05:06)");

  EXPECT_EQ(again->active(), "@01");
  EXPECT_EQ(again->surface.bodyInnerHtml(), kVilla);
  EXPECT_EQ(again->window.pages().fields.tbdateiname, "villa.htm");
  EXPECT_EQ(again->window.pages().fields.opseitentyp, 3);
  EXPECT_TRUE(again->window.pages().PageDirty());
  EXPECT_EQ(text("01", "Überschrift"), "Haus");
  EXPECT_TRUE(hasDraft());

  again->window.Toolbar2_ButtonClick("seitespeichern");
  EXPECT_EQ(text("01", "Überschrift"), "Villa");
  EXPECT_FALSE(hasDraft());
}

TEST_F(AfterCrashTest, is_thrown_away_on_no)
{
  type(kVilla);
  window.Timer();

  const auto again = next(ui::Button::No, "Haus");

  EXPECT_FALSE(hasDraft());
  EXPECT_FALSE(again->window.pages().PageDirty());
  EXPECT_EQ(text("01", "Überschrift"), "Haus");
}

TEST_F(AfterCrashTest, brings_a_page_back_that_no_table_has)
{
  window.Toolbar2_ButtonClick("seiteneu");
  ASSERT_EQ(active(), "@0102");
  type(kVilla);
  window.Timer();

  const auto again = next(ui::Button::Yes, "neue Seite:@0102");

  EXPECT_EQ(again->active(), "@0102");
  again->window.Toolbar2_ButtonClick("seitespeichern");
  EXPECT_EQ(text("0102", "Überschrift"), "Villa");
}

TEST_F(AfterCrashTest, becomes_a_new_page_where_not_even_its_parent_is_left)
{
  type(kVilla);
  window.Timer();
  auto draft = *readDraft(draftFile());
  draft.key = "@777701";
  writeDraft(draftFile(), draft);

  const auto again = next(ui::Button::Yes, "Haus");
  again->window.Toolbar2_ButtonClick("seitespeichern");

  EXPECT_EQ(text("04", "Überschrift"), "Villa");
}

TEST_F(AfterCrashTest, brings_the_head_of_the_site_back)
{
  selectTreeTab(1);
  type("<b>Kopf</b>");
  window.Timer();

  const auto again = next(ui::Button::Yes, "Seitenkopf");

  EXPECT_EQ(again->window.tabs().TabTree, 1);
  EXPECT_EQ(again->surface.bodyInnerHtml(), "<b>Kopf</b>");
  again->window.Toolbar2_ButtonClick("seitespeichern");
  EXPECT_EQ(project.setting("KopfHTML"), "<b>Kopf</b>");
}

TEST_F(AfterCrashTest, brings_the_source_of_a_server_page_back)
{
  window.pages().fields.tbdateiname = "haus.php";
  ui.expect(7, {}, ui::Button::No);
  selectTab(1);
  window.pages().fields.tbhtml = "<?php echo 1 ?><h3 id=\"ueberschrift\">Villa</h3>";
  window.pages().tbhtml_Change();
  window.Timer();

  const auto again = next(ui::Button::Yes, "Haus");
  again->window.Toolbar2_ButtonClick("seitespeichern");

  EXPECT_EQ(text("01", "html"), "<?php echo 1 ?><h3 id=\"ueberschrift\">Villa</h3>");
}

TEST_F(AfterCrashTest, is_kept_for_the_next_time_where_the_question_could_not_be_answered)
{
  type(kVilla);
  window.Timer();

  const auto again = next(ui::Button::Cancel, "Haus");
  again->click("@02");
  again->surface.type("<p>etwas anderes</p>");
  again->window.Timer();

  EXPECT_EQ(readDraft(draftFile())->html, kVilla);
}

TEST_F(AfterCrashTest, of_two_programs_is_offered_one_after_the_other)
{
  type(kVilla);
  window.Timer();
  MainWindow other;
  other.start(project.file());
  other.click("@02");
  other.surface.type("<p>Beet</p>");
  other.window.Timer();
  crash();

  MainWindow again;
  again.ui.expect(114, "Haus", ui::Button::No).expect(114, "Garten", ui::Button::Yes);
  again.start(project.file());

  EXPECT_EQ(again.active(), "@02");
  EXPECT_EQ(again.surface.bodyInnerHtml(), "<p>Beet</p>");
  EXPECT_FALSE(hasDraft());
}

struct TwoProgramsTest : UnsavedWorkTest {
  TwoProgramsTest()
  {
    type(kVilla);
    window.Timer();
    other.start(project.file());
    other.click("@02");
  }
  MainWindow other;
};

TEST_F(TwoProgramsTest, do_not_offer_each_others_unsaved_work)
{
  EXPECT_TRUE(other.ui.messages.empty());
  EXPECT_EQ(readDraft(draftFile())->html, kVilla);
}

TEST_F(TwoProgramsTest, keep_their_unsaved_work_apart)
{
  other.surface.type("<p>Beet</p>");
  other.window.Timer();
  EXPECT_EQ(readDraft(draftFile())->html, kVilla);
  EXPECT_EQ(readDraft(draftFileOf(project.file(), 2))->html, "<p>Beet</p>");

  other.window.Toolbar2_ButtonClick("seitespeichern");
  EXPECT_TRUE(hasDraft());
  EXPECT_FALSE(files::fileExists(draftFileOf(project.file(), 2)));
}

TEST_F(TwoProgramsTest, leave_nothing_beside_the_project_once_all_is_saved)
{
  other.surface.type("<p>Beet</p>");
  other.window.Timer();
  other.window.Toolbar2_ButtonClick("seitespeichern");
  window.Toolbar2_ButtonClick("seitespeichern");

  EXPECT_THAT(files::fileNames(project.directory().path()), testing::ElementsAre("projekt.mdb"));
}

TEST_F(UnsavedWorkTest, is_read_by_one_tick_at_a_time)
{
  type(kVilla);
  int ticks = 0;
  surface.whenRead = [&] {
    if (++ticks < 5)
      window.Timer();
  };

  window.Timer();

  EXPECT_EQ(ticks, 1);
  EXPECT_TRUE(hasDraft());
}

TEST(Drafts, hold_any_text)
{
  support::TemporaryDirectory directory;
  const Draft draft{"@01", "Ende\n", {2003, 4, 17, 9, 5, 6}, std::string("a\0b\r\nhtml 3\n", 12), "", "\xFF", "Ende\n", 4, true};

  writeDraft(directory.file("x.entwurf"), draft);
  const auto read = readDraft(directory.file("x.entwurf"));

  ASSERT_TRUE(read);
  EXPECT_EQ(read->label, draft.label);
  EXPECT_EQ(read->html, draft.html);
  EXPECT_EQ(read->script, draft.script);
  EXPECT_EQ(read->opseitentyp, 4);
  EXPECT_TRUE(read->sourceOnTop);
}

TEST(Drafts, that_are_damaged_are_not_offered)
{
  support::TemporaryDirectory directory;
  const auto file = directory.file("x.entwurf");
  writeDraft(file, {"@01", "Haus", {2003, 4, 17}, "<p>x</p>", "", "", ""});
  const std::string whole = directory.read("x.entwurf");
  for (std::size_t length = 0; length < whole.size(); ++length) {
    directory.write("x.entwurf", whole.substr(0, length));
    EXPECT_FALSE(readDraft(file)) << length;
  }
  directory.write("x.entwurf", "Mirandel-Entwurf 1\nhtml 99999999999999999999\nx\nEnde\n");
  EXPECT_FALSE(readDraft(file));
  EXPECT_FALSE(readDraft(directory.file("fehlt.entwurf")));
  removeDraft(directory.file("fehlt.entwurf"));
}

struct FailedSaveTest : UnsavedWorkTest {
  /// A save that fails with this text shows one message, and nothing of the page is lost whatever is tried then.
  void failsToSave(const std::string& text)
  {
    type(kVilla);
    ui.expect(1, text + "in Modul SavePage");
    window.Toolbar2_ButtonClick("seitespeichern");
    isStillThere();
    ui.expect(1, "in Modul SavePage");
    click("@02");
    isStillThere();
    EXPECT_EQ(tree.selected(), "@01");
    ui.expect(1, "in Modul SavePage");
    window.Toolbar2_ButtonClick("seiteneu");
    isStillThere();
    ui.expect(1, "in Modul SavePage");
    selectTreeTab(1);
    isStillThere();
    EXPECT_EQ(window.tabs().TabTree, 0);
    ui.expect(1, "in Modul SavePage");
    window.Toolbar2_ButtonClick("html");
    isStillThere();
    ui.expect(3, {}, ui::Button::Yes).expect(1, "in Modul SavePage");
    EXPECT_FALSE(window.Form_QueryUnload());
    isStillThere();
  }
  void isStillThere()
  {
    EXPECT_TRUE(window.pages().PageDirty());
    EXPECT_EQ(surface.bodyInnerHtml(), kVilla);
    EXPECT_EQ(active(), "@01");
  }
};

TEST_F(FailedSaveTest, of_a_project_that_was_deleted_keeps_the_page)
{
  std::filesystem::remove(files::nativePath(project.file()));

  failsToSave("");

  window.Timer();
  EXPECT_TRUE(hasDraft());
}

TEST_F(FailedSaveTest, of_a_project_that_another_program_locks_keeps_the_page_until_it_is_free)
{
  {
    dao::Transaction lock(project.db());
    project.db().execute("UPDATE Einstellungen SET Wert = 'x' WHERE Einstellung = 'Titel'");
    type(kVilla);
    ui.expect(1, "(3260) in Modul SavePage");
    window.Toolbar2_ButtonClick("seitespeichern");
    isStillThere();
  }

  window.Toolbar2_ButtonClick("seitespeichern");

  EXPECT_EQ(text("01", "Überschrift"), "Villa");
}

/// No file may grow while this lives, as on a full disk.
class FullDisk {
public:
  FullDisk() : handler_(std::signal(SIGXFSZ, SIG_IGN))
  {
    ::getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit none{0, before_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &none);
  }
  ~FullDisk()
  {
    ::setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

private:
  rlimit before_{};
  void (*handler_)(int);
};

TEST_F(FailedSaveTest, on_a_full_disk_keeps_the_page_until_there_is_room)
{
  {
    const FullDisk full;
    failsToSave("");
    window.Timer();
  }
  EXPECT_EQ(text("01", "Überschrift"), "Haus");

  window.Toolbar2_ButtonClick("seitespeichern");

  EXPECT_EQ(text("01", "Überschrift"), "Villa");
}

/// A directory in which nobody writes while this lives, not even the superuser.
class ReadOnly {
public:
  explicit ReadOnly(std::filesystem::path directory) : directory_(std::move(directory))
  {
    std::filesystem::permissions(directory_, std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec |
                                                 std::filesystem::perms::others_read | std::filesystem::perms::others_exec);
    constexpr uid_t kNobody = 65534;
    if (user_ == 0) {
      EXPECT_EQ(::seteuid(kNobody), 0);
    }
  }
  ~ReadOnly()
  {
    EXPECT_EQ(::seteuid(user_), 0);
    std::filesystem::permissions(directory_, std::filesystem::perms::owner_all);
  }
  ReadOnly(const ReadOnly&) = delete;
  ReadOnly& operator=(const ReadOnly&) = delete;

private:
  const std::filesystem::path directory_;
  const uid_t user_ = ::geteuid();
};

TEST_F(FailedSaveTest, of_a_project_that_became_read_only_keeps_the_page_until_it_can_be_written)
{
  {
    const ReadOnly readOnly(project.directory().native());
    failsToSave("");
    window.Timer();
    EXPECT_FALSE(hasDraft());
  }

  window.Toolbar2_ButtonClick("seitespeichern");

  EXPECT_EQ(text("01", "Überschrift"), "Villa");
}

TEST_F(FailedSaveTest, of_the_settings_is_told)
{
  std::filesystem::remove(files::nativePath(project.file()));
  ui.expect(1, "in Modul cbeinstellungen_Click");

  EXPECT_FALSE(window.settings().cbeinstellungen_Click());
}

TEST_F(FailedSaveTest, of_the_place_in_a_project_never_mixes_two_pages)
{
  // The page that is remembered cannot be written while another program holds the project; what is typed belongs to the page that
  // is shown all the same.
  {
    dao::Transaction lock(project.db());
    project.db().execute("UPDATE Einstellungen SET Wert = 'x' WHERE Einstellung = 'Titel'");
    ui.expect(0, "in Modul WriteLastActivePage");
    click("@02");
  }
  EXPECT_EQ(active(), "@02");
  EXPECT_EQ(tree.selected(), "@02");
  type("<h3 id=\"ueberschrift\">Beet</h3>");

  window.Toolbar2_ButtonClick("seitespeichern");

  EXPECT_EQ(text("01", "Überschrift"), "Haus");
  EXPECT_EQ(text("02", "Überschrift"), "Beet");
}

struct FailedLoadTest : UnsavedWorkTest {
  void loseTables()
  {
    project.db().execute("DROP TABLE Seite");
    project.db().execute("DROP TABLE Einstellungen");
    ui.acceptAll();
  }
};

TEST_F(FailedLoadTest, leaves_a_file_in_the_editor_a_file)
{
  directory.write("brief.htm", "<p>Liebe Oma</p>");
  ui.answerOpenDialog(directory.file("brief.htm"));
  window.menu_Click("FileOpen", std::nullopt);
  loseTables();

  click("@02");

  EXPECT_EQ(window.pages().document.kind, DocumentKind::File);
  EXPECT_EQ(surface.bodyInnerHtml(), "<p>Liebe Oma</p>");
  EXPECT_THAT(ui.messages.back().text, HasSubstr("in Modul TreeView1_MouseDown"));
}

TEST_F(FailedLoadTest, leaves_the_page_and_its_tab_where_the_head_cannot_be_read)
{
  loseTables();

  selectTreeTab(1);

  EXPECT_EQ(window.tabs().TabTree, 0);
  EXPECT_EQ(window.pages().document.kind, DocumentKind::Page);
  EXPECT_THAT(surface.bodyInnerHtml(), HasSubstr("Dach"));
}

TEST_F(FailedLoadTest, leaves_the_head_and_its_tab_where_the_page_cannot_be_read)
{
  project.setSetting("KopfHTML", "<i>Kopf</i>");
  selectTreeTab(1);
  loseTables();

  selectTreeTab(0);

  EXPECT_EQ(window.tabs().TabTree, 1);
  EXPECT_EQ(window.pages().document.kind, DocumentKind::Head);
  EXPECT_EQ(surface.bodyInnerHtml(), "<i>Kopf</i>");
}

} // namespace
} // namespace mrd::mainform
