#include "frame/project/jet_conversion.h"
#include "platform/files/path.h"
#include "support/temporary.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace mrd::project {
namespace {

TEST(ConvertingInPlace, has_nothing_to_do_where_another_program_has_done_it_meanwhile)
{
  const support::TemporaryProject project{{"00", "Start"}};
  const auto directory = files::nativePath(project.file()).parent_path();
  const auto size = std::filesystem::file_size(files::nativePath(project.file()));

  EXPECT_FALSE(convertInPlace(project.file(), dao::installedJetReading()).has_value());

  EXPECT_EQ(std::filesystem::file_size(files::nativePath(project.file())), size);
  for (const auto& entry : std::filesystem::directory_iterator(directory))
    EXPECT_EQ(entry.path().filename().string().find(".jet."), std::string::npos) << entry.path();
}

} // namespace
} // namespace mrd::project
