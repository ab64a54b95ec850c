#pragma once
// The publishing half of the two export dialogs: connecting, comparing, sending, deleting.

#include "frame/messages/messages.h"
#include "frame/settings/fields.h"
#include "platform/dao/database.h"
#include "platform/ftp/client.h"
#include "publish/command_channel.h"
#include "publish/controls.h"
#include "publish/dialog_kind.h"
#include "publish/reconciliation.h"
#include "publish/run_files.h"
#include "publish/timer.h"

#include <functional>
#include <string>

namespace mrd::publish {

struct PublishingEnvironment {
  messages::Language& language;
  const settings::Fields& fields;
  ftp::Client& client;
  const Timer& timer;
};

/// A click while another one is under way does nothing: both would lead the one connection into directories of their own.
class Publishing {
public:
  Publishing(const DialogKind& kind, const PublishingEnvironment& environment, dao::Database& db);

  /// Logs in, makes the directories that are missing, and compares what is there with what the project has.
  void cbftpverbindung_Click();
  /// Sends the pages and the pictures that are due.
  void cbftp_Click();
  /// Deletes the selected entries of the list that is shown.
  void cbftplöschen_Click();
  /// Sends one file of the user's choice into the directory that is shown.
  void cbzusätzlichftp_Click();
  /// Gives up waiting for the command at hand, which goes on.
  void labelSekunden_Click() { channel.labelSekunden_Click(); }

  /// Sends the files of the last run that did not arrive once more, and nothing else.
  void sendFailedAgain();
  /// Ends the click that is under way.
  void stop();
  bool isRunning() const { return isRunning_; }
  const std::string& Sprache() const { return environment_.language.Sprache(); }

  CommandChannel channel;
  ListBox ListFTPHTML, ListFTPpix;
  /// 0 shows the pictures, 1 the pages.
  int tabFTP = 0;
  std::string Labelftpverzeichnis;
  /// The files of the last run, in the order in which they are sent.
  RunFiles files;
  /// Whether the last reading of the server went to its end, with an answer to each of its commands: what the lists hold is all.
  bool isConnected = false;
  /// Whether the last run came to its end, whatever became of each file.
  bool isRunComplete = false;
  /// What the client said to the failure that ended a click, which the texts of the dialog tell by a number.
  std::string explanation;
  /// Told when the entries of one of the two lists are other ones.
  std::function<void()> listsChanged = [] {};

private:
  struct ShownList {
    ListBox& list;
    ListTypes types;
  };
  void click(const std::function<void()>& work);
  void command(const std::string& Befehl, std::string& Fehler);
  bool isAnswered();
  /// A command that did not start becomes an error of the click.
  [[noreturn]] static void raiseFailure(const std::string& Fehler);
  bool isDone(const std::string& Fehler);
  void actionFailed(const base::Error& error, const std::string& value);
  void explain(const std::string& text);
  std::string reasonOf(const base::Error& error);

  void readFields();
  void connectAndCompare();
  void connect(std::string& Fehler);
  enum class Entry { Reached, Missed, Ended };
  Entry enterDirectory(std::string& Fehler);
  bool list(std::string& Fehler);
  bool readHtmlDirectory(std::string& Fehler);
  bool readPictureDirectory(std::string& Fehler);
  void showConnected(const std::string& Fehler);
  void reportProblem();
  void connectFailed(const base::Error& error);

  void upload();
  std::vector<RunFile> dueFiles(std::string_view query, project::Dateityp type);
  void planRun();
  void sendPages();
  void sendPictures();
  void setMaximum(project::Dateityp type);
  void send(std::size_t index);
  void showSent(std::size_t index, bool tellsFailure);
  void endUpload();
  void uploadFailed(const base::Error& error);
  void sendUnsent(project::Dateityp type, std::size_t& counter);

  ShownList shownList();
  void goToShown(const ShownList& shown);
  void deleteSelected(const ShownList& shown);
  void deleteFile(std::size_t index, dao::Recordset& rows);
  void sendExtraFile(const ShownList& shown);

  const DialogKind& kind_;
  PublishingEnvironment environment_;
  dao::Database& db_;
  ui::Ui& ui_;
  bool isRunning_ = false;
  std::string user_, password_, server_, directory_;
  /// The texts of failures that a run tells at its end: of connecting, of the last change of directory, of the last file. They
  /// last until the next of their kind.
  std::string connectFailure_, directoryFailure_, fileFailure_;
  /// What the last message said of a command.
  std::string reported_;
};

} // namespace mrd::publish
