#include "publish/desk.h"

#include <gmock/gmock.h>

namespace mrd::publish {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using ui::Button;

constexpr auto kStalled = "Soll jetzt er abgebrochen werden?";

struct ChannelTest : testing::Test {
  std::string run(Desk& desk, const std::string& command = "cd web")
  {
    std::string failure;
    desk.dialog.channel.ExecuteSynchron("ftp://u:p@h", command, failure);
    return failure;
  }
};

TEST_F(ChannelTest, asks_once_about_a_command_of_61_seconds)
{
  Desk desk;
  desk.timer.step = 1;
  desk.program.ui.expect(0, kStalled, Button::Yes);
  desk.client.always.rounds = 62;

  EXPECT_EQ(run(desk), "");

  EXPECT_EQ(desk.client.cancelled, 1);
  EXPECT_EQ(desk.program.ui.messages[0].title, "FTP Übertragung stockt");
  EXPECT_EQ(desk.program.ui.messages[0].text,
            "Der aktuelle FTP-Vorgang dauert schon länger als 60 Sekunden. Soll jetzt er abgebrochen werden?");
  EXPECT_EQ(desk.program.ui.messages[0].style, ui::box::kYesNo + ui::box::kQuestion);
}

TEST_F(ChannelTest, gives_a_command_another_minute_on_no)
{
  Desk desk;
  desk.client.always.rounds = 121;
  desk.timer.step = 1;
  desk.program.ui.expect(0, kStalled, Button::No);

  EXPECT_EQ(run(desk), "");
  EXPECT_EQ(desk.client.cancelled, 0);
}

TEST_F(ChannelTest, of_the_telephone_edition_asks_again_at_once_on_no_and_cancels_nothing)
{
  Desk desk(kImode);
  desk.client.always.rounds = 100;
  desk.timer.step = 1;
  desk.program.ui.expect(0, "mit der nächsten fortgefahren", Button::No).expect(0, "", Button::No).expect(0, "", Button::Yes);

  EXPECT_EQ(run(desk), "");
  EXPECT_EQ(desk.client.cancelled, 0);
  // Ended by the third answer, at the client's 63rd round and not at its 100th.
  EXPECT_GT(desk.client.rounds, 30);
}

TEST_F(ChannelTest, asks_at_once_behind_midnight_and_at_every_round_after)
{
  Desk desk;
  desk.timer.now = 86398;
  desk.client.always.rounds = 4;
  int round = 0;
  desk.client.onRound = [&] { desk.timer.now = ++round < 2 ? 86399.0F : static_cast<float>(round); };
  desk.program.ui.expect(0, kStalled, Button::No).expect(0, kStalled, Button::No);

  EXPECT_EQ(run(desk), "");
}

TEST_F(ChannelTest, tells_a_busy_client_by_its_number_and_leaves_the_dialog_in_order)
{
  Desk desk;
  desk.client.always.error = ftp::code::kStillExecuting;

  EXPECT_EQ(run(desk), " 35764");
  EXPECT_EQ(desk.dialog.channel.failure, "kaputt");
  EXPECT_FALSE(desk.dialog.channel.labelSekunden.isVisible);
  EXPECT_EQ(desk.program.ui.pointerShape, ui::Pointer::Default);
}

TEST_F(ChannelTest, stops_waiting_at_a_click_while_the_client_goes_on)
{
  Desk desk;
  desk.client.always.rounds = 1000;
  int round = 0;
  desk.client.onRound = [&] {
    if (++round == 5)
      desk.dialog.labelSekunden_Click();
  };

  EXPECT_EQ(run(desk, "PUT"), "");
  EXPECT_EQ(desk.client.cancelled, 0);
  EXPECT_GT(desk.client.rounds, 900);
}

TEST_F(ChannelTest, shows_the_seconds_of_a_command_while_it_runs)
{
  Desk desk;
  desk.client.always.rounds = 2;
  desk.timer.step = 0.5F;
  std::vector<std::string> shown;
  desk.dialog.channel.changed = [&] {
    shown.push_back(desk.dialog.channel.labelSekunden.isVisible ? desk.dialog.channel.labelSekunden.caption : "-");
  };

  run(desk);

  EXPECT_THAT(shown, ElementsAre("0,0 Sek", "0,5 Sek./Dat.", "1,0 Sek./Dat.", "-"));
}

TEST_F(ChannelTest, shows_states_in_the_tool_tip_and_leaves_the_caption)
{
  Desk desk;
  auto& channel = desk.dialog.channel;
  channel.labelSeite.caption = "Fertig!";

  channel.Inet1_StateChanged(1);
  EXPECT_EQ(channel.labelSeite.toolTip, "FTP:...IP- Adresse auf Host (Server) suchen.");
  EXPECT_EQ(channel.labelSeite.tag, "1");
  channel.Inet1_StateChanged(12);
  EXPECT_EQ(channel.labelSeite.toolTip, "FTP:...die Anforderung ist erfolgreich bearbeitet worden, alle Daten wurden empfangen");
  channel.Inet1_StateChanged(13);
  EXPECT_EQ(channel.labelSeite.toolTip, "FTP:13");
  EXPECT_EQ(channel.labelSeite.caption, "Fertig!");
}

TEST_F(ChannelTest, reads_an_empty_reply_with_two_calls)
{
  Desk desk;
  desk.dialog.channel.ftpListe = "alt";

  desk.dialog.channel.readChunks();

  EXPECT_EQ(desk.client.chunksRead, 2);
  EXPECT_EQ(desk.dialog.channel.ftpListe, "");
}

TEST_F(ChannelTest, ends_a_click_after_five_retries_a_second_apart)
{
  Desk desk;
  desk.client.always.error = ftp::code::kCannotConnect;
  desk.timer.step = 0.25F;
  desk.program.ui.expect(36, " 99");
  const float before = desk.timer.now;

  desk.connect();

  EXPECT_EQ(desk.client.commands, std::vector<std::string>(6, "cd web"));
  std::vector<std::string> attempts;
  for (const auto& text : desk.program.ui.statusTexts)
    if (text.starts_with("FTP: Versuch"))
      attempts.push_back(text);
  EXPECT_THAT(attempts, ElementsAre("FTP: Versuch Nr.1", "FTP: Versuch Nr.2", "FTP: Versuch Nr.3", "FTP: Versuch Nr.4",
                                    "FTP: Versuch Nr.5"));
  EXPECT_GT(desk.timer.now - before, 5);
  EXPECT_EQ(desk.state(), " 99");
  EXPECT_EQ(desk.dialog.channel.ftpSammelfehler, "FTP:  12029 ");
  EXPECT_FALSE(desk.dialog.channel.ProgressBar1.isVisible);
}

} // namespace
} // namespace mrd::publish
