#pragma once
// Commands to the server one after the other, with a dialog that stays alive meanwhile.

#include "base/errors.h"
#include "platform/ftp/client.h"
#include "platform/ui/ui.h"
#include "publish/controls.h"
#include "publish/dialog_kind.h"
#include "publish/timer.h"

#include <functional>
#include <string>
#include <string_view>

namespace mrd::publish {

/// The words for a state of the client; its number for a state without words.
std::string stateText(int State);

/// Ends the click that is under way, whatever it does; no error of it, and nothing is tried again.
struct Stopped {};

class CommandChannel {
public:
  CommandChannel(const DialogKind& kind, ftp::Client& client, ui::Ui& ui, const Timer& timer);

  /// Runs one command to its end, to the end of the patience with it, or to a click on the display. `Fehler` tells a command that
  /// did not start by the number of its error; what the server answered is told by the client.
  void ExecuteSynchron(const std::string& URL, const std::string& Befehl, std::string& Fehler);
  /// All of the last command's reply.
  void readChunks();
  void Pause(float Sekunden);
  void labelSekunden_Click();
  void Inet1_StateChanged(int State);
  /// Cancels what the client does; the click at hand is left by Stopped as soon as it waits.
  void stop();
  /// A new click may run.
  void begin() { isStopped_ = false; }

  /// Runs a click's work under the handler that all of them share: after an error it begins again from its top, five times, a
  /// second apart. `failed` gets the error that remained.
  void withRetries(const std::function<void()>& work, const std::function<void(const base::Error&)>& failed);

  void showState(std::string_view text);
  void showProgress(std::size_t value);
  void hideProgress();
  void pump();

  ftp::Client& Inet1;
  Label labelSeite;
  SecondsDisplay labelSekunden;
  ProgressBar ProgressBar1;
  /// Told when one of these controls changes.
  std::function<void()> changed = [] {};
  bool Abbruch = false;
  std::string ftpURL, ftpListe, ftpSammelfehler;
  /// In words why the last command did not start, which `Fehler` tells by a number; empty where it did.
  std::string failure;
  std::int16_t Versuch = 0;

private:
  void waitForEnd();
  bool isClientBusy();
  void askAboutStall(float& start, float now);
  void showSeconds(float elapsed);
  void showDisplay(bool isVisible);
  void leaveIfStopped() const;

  const DialogKind& kind_;
  ui::Ui& ui_;
  const Timer& timer_;
  bool isStopped_ = false;
};

} // namespace mrd::publish
