#include "imode/small_pictures.h"

#include "imode/imode_site.h"

#include <gmock/gmock.h>

namespace mrd::imode {
namespace {

TEST(SmallPictures, that_were_not_announced_are_made_when_they_are_asked_for)
{
  ImodeSite site{{"00", "Start", ""}};
  site.run();
  generator::WorkerPool workers(2);
  SmallPictures pictures(site.fields, workers, site.ui);

  EXPECT_EQ(pictures.nameOf(site.picture("A.jpg", 300, 300)), "A_xs.gif");
  EXPECT_TRUE(site.has("pix/a_xs.gif"));
}

TEST(SmallPictures, that_were_announced_and_are_not_wanted_do_no_harm)
{
  ImodeSite site{{"00", "Start", ""}};
  site.run();
  const auto path = site.picture("a.jpg", 300, 300);
  generator::WorkerPool workers(1);
  {
    SmallPictures pictures(site.fields, workers, site.ui);
    for (int i = 0; i < 20; ++i)
      pictures.begin(path + std::to_string(i));
    pictures.begin(path);
  }
  SUCCEED();
}

TEST(SmallPictures, give_nothing_for_what_is_no_picture)
{
  ImodeSite site{{"00", "Start", ""}};
  site.run();
  site.pictures.write("a.jpg", "x");
  generator::WorkerPool workers(1);
  SmallPictures pictures(site.fields, workers, site.ui);

  EXPECT_EQ(pictures.nameOf(site.pictures.file("a.jpg")), std::nullopt);
  EXPECT_EQ(pictures.nameOf(""), std::nullopt);
}

} // namespace
} // namespace mrd::imode
