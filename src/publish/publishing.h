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
#include "publish/timer.h"

#include <string>
#include <vector>

namespace mrd::publish {

/// What became of one file of a run.
struct SentFile {
  std::string pfad, name;
  project::Dateityp type = project::Dateityp::Page;
  /// The server has it, with its size.
  bool isConfirmed = false;
  /// Why not.
  std::string problem = {};
};

struct PublishingEnvironment {
  messages::Language& language;
  const settings::Fields& fields;
  ftp::Client& client;
  const Timer& timer;
};

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
  void labelSekunden_Click() { channel.labelSekunden_Click(); }

  /// Sends the files of the last run that did not arrive once more, and nothing else.
  void sendFailedAgain();

  CommandChannel channel;
  ListBox ListFTPHTML, ListFTPpix;
  /// 0 shows the pictures, 1 the pages.
  int tabFTP = 0;
  std::string Labelftpverzeichnis;
  /// The files of the last run, in the order in which they were sent.
  std::vector<SentFile> files;
  /// Entries that the last deletion did not remove from the server.
  std::vector<std::string> notDeleted;
  /// Whether the last reading of the server went to its end without a failure.
  bool isConnected = false;

private:
  struct ShownList {
    ListBox& list;
    ListTypes types;
  };
  /// A run's two texts of failures that something writes.
  struct RunFailures {
    std::string directory, file;
  };
  void readFields();
  bool enterDirectory(std::string& Fehler);
  void connect(std::string& Fehler);
  void readHtmlDirectory(std::string& Fehler);
  void readPictureDirectory(std::string& Fehler);
  void showConnected(const std::string& Fehler);
  void command(const std::string& Befehl, std::string& Fehler);
  bool isAnswered();
  void reportProblem();
  void connectFailed(const base::Error& error);
  void upload();
  void sendPages(RunFailures& failures);
  void sendPictures(RunFailures& failures);
  void sendFile(const dao::Recordset& rows, project::Dateityp type, std::string& Fehler);
  void sendFile(SentFile& file, std::string& Fehler);
  void endUpload(const RunFailures& failures);
  void uploadFailed(const base::Error& error);
  void deleteSelected(const ShownList& shown);
  void sendExtraFile(const ShownList& shown);
  void goToShown(const ShownList& shown);
  void actionFailed(const std::string& value);
  ShownList shownList();

  const DialogKind& kind_;
  PublishingEnvironment environment_;
  dao::Database& db_;
  ui::Ui& ui_;
  std::string user_, password_, server_, directory_, connectFailure_;
};

} // namespace mrd::publish
