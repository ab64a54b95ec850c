#pragma once
// A publishing dialog in front of a client that records its commands and answers by script.

#include "publish/publishing.h"
#include "support/temporary.h"
#include "support/test_program.h"

#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

namespace mrd::publish {

/// A clock that runs by a step at each look.
struct TurnedTimer : Timer {
  float seconds() const override { return now += step; }
  void rest() const override {}
  mutable float now = 36000, step = 0;
};

struct Answer {
  int code = 0;
  std::string info = {}, text = {};
  /// Number of an error that starting the command raises.
  int error = 0;
  /// Rounds of the wait loop that the command lasts.
  int rounds = 0;
};

struct RecordingClient : ftp::Client {
  void Execute(std::string_view url, std::string_view operation) override
  {
    urls.emplace_back(url);
    commands.emplace_back(operation);
    const auto& queue = answers[commands.back()];
    const std::size_t turn = turns[commands.back()]++;
    answer = queue.empty() ? always : queue[std::min(turn, queue.size() - 1)];
    rounds = answer.rounds;
    isRead = false;
    if (answer.error != 0)
      throw ftp::clientError(answer.error, answer.info.empty() ? "kaputt" : answer.info);
  }
  bool StillExecuting() override
  {
    onRound();
    return rounds > 0 && rounds-- > 0;
  }
  void Cancel() override
  {
    ++cancelled;
    rounds = 0;
  }
  std::string GetChunk(std::size_t, int) override
  {
    ++chunksRead;
    return std::exchange(isRead, true) ? "" : answer.text;
  }
  bool isLink(std::string_view) const override { return false; }
  int ResponseCode() const override { return answer.code; }
  std::string ResponseInfo() const override { return answer.info; }
  void backToLogin() override { ++logins; }

  std::vector<std::string> urls, commands;
  std::map<std::string, std::vector<Answer>> answers;
  std::map<std::string, std::size_t> turns;
  Answer always, answer;
  std::function<void()> onRound = [] {};
  int rounds = 0, cancelled = 0, chunksRead = 0, logins = 0;
  bool isRead = false;
};

struct Desk {
  explicit Desk(const DialogKind& kind = kHtmlExport) : dialog(kind, {program.language, fields, client, timer}, project.db())
  {
    fields.tbftpuser = "anna";
    fields.tbftppasswort = "geheim";
    fields.tbFTPServer = "ftp.example.org";
    fields.tbftpverzeichnis = "web";
    fields.tbftpverzeichnisimode = "i";
  }

  void addFile(const std::string& name, const std::string& extension, int type, bool due = true)
  {
    project.db().execute(
        "INSERT INTO Dateien (pfad, dateiname, erweiterung, [dateityp-id], übertragen) VALUES ('\\site\\', ?, ?, ?, ?)",
        {name, extension.empty() ? dao::Value(dao::Null{}) : dao::Value(extension), type, dao::Value::yesNo(due)});
  }
  bool isDue(const std::string& name)
  {
    return project.db()
        .openRecordset("SELECT * FROM Dateien WHERE dateiname=? AND [dateityp-id]<3", {name})
        .value("übertragen")
        .yes();
  }
  std::size_t rows(int type)
  {
    return project.db().openSnapshot("SELECT * FROM Dateien WHERE [dateityp-id]=?", {type}).recordCount();
  }
  void list(const std::string& html, const std::string& pix) { client.answers["dir"] = {{0, "", html}, {0, "", pix}}; }
  /// From here on no statement about files succeeds.
  void breakDatabase() { project.db().execute("DROP TABLE Dateien"); }
  void connect() { dialog.cbftpverbindung_Click(); }
  void forgetCommands() { client.commands.clear(); }
  std::vector<std::string> selected(const ListBox& list) const
  {
    std::vector<std::string> names;
    for (const auto& entry : list.entries)
      if (entry.isSelected)
        names.push_back(entry.text);
    return names;
  }
  const std::string& state() const { return dialog.channel.labelSeite.caption; }

  support::TestProgram program;
  support::TemporaryProject project{{"00", "Start"}};
  settings::Fields fields;
  RecordingClient client;
  TurnedTimer timer;
  Publishing dialog;
};

} // namespace mrd::publish
