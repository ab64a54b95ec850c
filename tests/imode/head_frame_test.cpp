#include "imode/head_frame.h"

#include "base/errors.h"
#include "imode/band.h"
#include "support/scripted_ui.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace mrd::imode {
namespace {

struct HeadFrameTest : testing::Test {
  settings::Fields fields;
  support::ScriptedUi ui;
  HeadFrame frame{fields, ui};
};

TEST_F(HeadFrameTest, shows_the_picture_that_was_chosen)
{
  ui.answerOpenDialog("\\fotos\\logo.gif");

  frame.cbimodegifladen_Click();

  EXPECT_EQ(fields.Lblimodegif, "\\fotos\\logo.gif");
  EXPECT_EQ(fields.picImodeKopf, "\\fotos\\logo.gif");
  ASSERT_EQ(ui.fileDialogs.size(), 1u);
  EXPECT_EQ(ui.fileDialogs[0].title, "i-mode Titelbild auswählen");
  EXPECT_EQ(ui.fileDialogs[0].filter, "gif-Bilder|*.gif");
}

TEST_F(HeadFrameTest, asks_for_a_file_where_none_was_chosen)
{
  fields.Lblimodegif = fields.picImodeKopf = "\\alt.gif";
  ui.answerOpenDialog(std::nullopt);

  frame.cbimodegifladen_Click();

  EXPECT_EQ(fields.Lblimodegif, "Bitte Datei auswählen.");
  EXPECT_EQ(fields.picImodeKopf, "");
}

TEST_F(HeadFrameTest, leaves_the_option_as_it_is)
{
  fields.Opimmodekopf = settings::OpImodeKopf::Text;
  ui.answerOpenDialog("\\logo.gif");

  frame.cbimodegifladen_Click();

  EXPECT_EQ(fields.Opimmodekopf, settings::OpImodeKopf::Text);
}

TEST_F(HeadFrameTest, tells_a_failure_in_its_own_words)
{
  class FailingUi : public support::ScriptedUi {
  public:
    std::optional<std::string> openFileDialog(const ui::FileDialog&) override
    {
      throw base::Error(base::ErrorNumber::PathNotFound, "weg");
    }
  } failing;
  failing.expect(0, "Fehler in cbimodegifladen : ");

  HeadFrame(fields, failing).cbimodegifladen_Click();

  EXPECT_EQ(fields.Lblimodegif, "max. 120 Pixel Breite");
}

TEST_F(HeadFrameTest, draws_the_band_anew_with_its_text)
{
  fields.tbimodekopftext = "Haus";
  frame.imodelogo();
  const auto first = frame.LEADimode;
  fields.tbimodekopftext = "Garten";

  frame.imodelogo();

  ASSERT_TRUE(first && frame.LEADimode);
  EXPECT_FALSE(std::ranges::equal(first->bytes(), frame.LEADimode->bytes()));
  EXPECT_TRUE(std::ranges::equal(frame.LEADimode->bytes(), drawBand(fields).bytes()));
}

} // namespace
} // namespace mrd::imode
