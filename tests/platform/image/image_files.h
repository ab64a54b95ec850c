#pragma once
// Pictures from the test data, and a directory for those that a test makes.

#include "platform/files/path.h"
#include "platform/image/image.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace mrd::image {

inline constexpr Colour kBlack{0, 0, 0}, kOuter{255, 204, 0}, kInner{0, 51, 153};

class ImageTest : public testing::Test {
protected:
  ImageTest()
  {
    std::string pattern = (std::filesystem::temp_directory_path() / "mrd-image-XXXXXX").string();
    root_ = ::mkdtemp(pattern.data());
  }
  ~ImageTest() override { std::filesystem::remove_all(root_); }

  std::string file(const std::string& name) const { return files::systemPath(root_ / name); }
  void write(const std::string& name, const std::string& bytes) const { std::ofstream(root_ / name, std::ios::binary) << bytes; }

  std::filesystem::path root_;
};

inline std::string sample(const std::string& name)
{
  return files::systemPath(std::filesystem::path(MRD_TEST_DATA) / "pictures" / name);
}

inline int distance(Colour a, Colour b)
{
  return std::max({std::abs(a.red - b.red), std::abs(a.green - b.green), std::abs(a.blue - b.blue)});
}

/// A corner of a rounded box: a square of the outer colour with a quarter of a circle in the inner one.
inline Image corner(int radius, int left, int top)
{
  Image picture = Image::create(radius, radius);
  picture.fill(kOuter);
  picture.fillEllipse({left, top, 2 * radius, 2 * radius}, kInner);
  return picture;
}

} // namespace mrd::image
