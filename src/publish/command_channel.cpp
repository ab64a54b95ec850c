#include "publish/command_channel.h"

#include "base/format.h"
#include "base/number_text.h"
#include "base/text.h"

#include <array>
#include <cmath>

namespace mrd::publish {
namespace {

constexpr std::int16_t kRetries = 5;
constexpr float kStallSeconds = 60, kDaySeconds = 86400;
constexpr std::size_t kChunk = 1024;
constexpr int kTextData = 0;

constexpr std::array<std::string_view, 12> kStates{
    "...IP- Adresse auf Host (Server) suchen.",
    "...IP- Adresse auf Server gefunden.",
    "...Verbindung zum Host herstellen.",
    "...Verbindung zum Host hergestellt.",
    "...Anforderung an den Host senden.",
    "...Anforderung erfolgreich gesendet.",
    "...die Antwort des Host trifft ein.",
    "...die Antwort des Host wurde erfolgreich empfangen.",
    "...trennen vom Host.",
    "...Trennung vom Host erfolgreich.",
    "...während der Übertragung ist ein Fehler aufgetreten.",
    "...die Anforderung ist erfolgreich bearbeitet worden, alle Daten wurden empfangen",
};

} // namespace

std::string stateText(int State)
{
  if (State >= 1 && State <= static_cast<int>(kStates.size()))
    return std::string(kStates[static_cast<std::size_t>(State - 1)]);
  return std::to_string(State);
}

CommandChannel::CommandChannel(const DialogKind& kind, ftp::Client& client, ui::Ui& ui, const Timer& timer)
    : Inet1(client), kind_(kind), ui_(ui), timer_(timer)
{
  Inet1.StateChanged = [this](ftp::State state) { Inet1_StateChanged(static_cast<int>(state)); };
}

void CommandChannel::pump()
{
  if (ui_.pumpEvents())
    labelSekunden_Click();
}

void CommandChannel::labelSekunden_Click() { Abbruch = Abbruch || kind_.hasSecondsDisplay; }

void CommandChannel::Inet1_StateChanged(int State)
{
  labelSeite.toolTip = "FTP:" + stateText(State);
  labelSeite.tag = std::to_string(State);
  changed();
}

void CommandChannel::stop()
{
  isStopped_ = true;
  Inet1.Cancel();
}

void CommandChannel::leaveIfStopped() const
{
  if (isStopped_)
    throw Stopped{};
}

void CommandChannel::showState(std::string_view text)
{
  labelSeite.caption = text;
  ui_.status(ui::StatusPlace::Run, text);
  changed();
}

void CommandChannel::showProgress(std::size_t value)
{
  ProgressBar1.value = value;
  ProgressBar1.isVisible = true;
  ui_.progress(value, ProgressBar1.maximum);
  changed();
}

void CommandChannel::hideProgress()
{
  ProgressBar1.isVisible = false;
  ui_.hideProgress();
  changed();
}

void CommandChannel::showDisplay(bool isVisible)
{
  if (!kind_.hasSecondsDisplay)
    return;
  labelSekunden.isVisible = isVisible;
  changed();
}

void CommandChannel::ExecuteSynchron(const std::string& URL, const std::string& Befehl, std::string& Fehler)
{
  Fehler.clear();
  failure.clear();
  try {
    ui_.pointer(ui::Pointer::Wait);
    showDisplay(true);
    pump();
    pump();
    Inet1.Execute(URL, Befehl);
    waitForEnd();
  } catch (const base::Error& error) {
    Fehler = base::numberText(error.number());
    failure = error.description();
  }
  showDisplay(false);
  ui_.pointer(ui::Pointer::Default);
  leaveIfStopped();
}

void CommandChannel::waitForEnd()
{
  float start = timer_.seconds();
  float limit = kStallSeconds;
  Abbruch = false;
  while (Inet1.StillExecuting() && !Abbruch && !isStopped_) {
    pump();
    const float now = timer_.seconds();
    // Behind midnight the limit falls at every round, so that the question comes at once.
    if (now < start)
      limit -= kDaySeconds;
    const float elapsed = now - start;
    pump();
    showSeconds(elapsed);
    if (elapsed > limit)
      askAboutStall(start, now);
  }
  if (isStopped_)
    Inet1.Cancel();
}

void CommandChannel::showSeconds(float elapsed)
{
  if (!kind_.hasSecondsDisplay)
    return;
  const auto text = base::replaceAll(base::format("{:.1f}", std::round(elapsed * 10) / 10), ".", ",") + " Sek./Dat.";
  // Compared first, so that the display does not flicker.
  if (labelSekunden.caption == text)
    return;
  labelSekunden.caption = text;
  changed();
  pump();
}

void CommandChannel::askAboutStall(float& start, float now)
{
  const auto answer =
      ui_.messageBox({std::string(kind_.stallQuestion), "FTP Übertragung stockt", ui::box::kYesNo + ui::box::kQuestion});
  if (answer == ui::Button::Yes) {
    Abbruch = true;
    if (kind_.stallAnswerReachesClient)
      Inet1.Cancel();
  } else if (kind_.stallAnswerReachesClient) {
    start = now;
  }
}

/// How a command ends that nobody waits for any more is no concern of the next one.
bool CommandChannel::isClientBusy()
{
  try {
    return Inet1.StillExecuting();
  } catch (const base::Error&) {
    return false;
  }
}

void CommandChannel::readChunks()
{
  ftpListe.clear();
  bool ftpListeFertig = false;
  auto ftpChunk = Inet1.GetChunk(kChunk, kTextData);
  while (!ftpListeFertig) {
    ftpListe += ftpChunk;
    ftpChunk = Inet1.GetChunk(kChunk, kTextData);
    ftpListeFertig = ftpChunk.empty();
  }
}

void CommandChannel::Pause(float Sekunden)
{
  const float start = timer_.seconds();
  float now = start;
  do {
    pump();
    timer_.rest();
    now = timer_.seconds();
    if (now < start)
      Sekunden -= kDaySeconds;
    leaveIfStopped();
  } while (now - start <= Sekunden);
}

void CommandChannel::withRetries(const std::function<void()>& work, const std::function<void(const base::Error&)>& failed)
{
  Versuch = 0;
  while (true) {
    try {
      work();
      return;
    } catch (const base::Error& error) {
      if (Versuch >= kRetries) {
        ftpSammelfehler = "FTP: " + error.description() + " ";
        failed(error);
        return;
      }
    }
    ++Versuch;
    while (isClientBusy()) {
      pump();
      leaveIfStopped();
    }
    showState(base::format("FTP: Versuch Nr.{}", Versuch));
    Pause(1);
  }
}

} // namespace mrd::publish
