#include "picture_file.h"

#include <fstream>
#include <string>

#include <gtest/gtest.h>

namespace examples_test {
namespace {

using namespace std::string_literals;

std::string Written(const std::string& name, const std::string& bytes) {
  std::string path = testing::TempDir() + "picture_file_test." + name;
  std::ofstream(path, std::ios::binary) << bytes;
  return path;
}

TEST(PictureFile, RefusesWithASentence) {
  struct Case {
    const char* name;
    std::string bytes;
    const char* reason;
  };
  const std::string png = "\x89PNG\r\n\x1a\n\0\0\0\rIHDR"s;
  for (const Case& c : {Case{"empty", "", "empty"}, Case{"text", "no picture at all", "decoded"},
                        Case{"png", png + "\0\0\x27\x10\0\0\x27\x11"s, "10000 x 10001"},
                        Case{"small.png", png + "\0\0\x27\x10\0\0\x27\x10"s, "decoded"},
                        Case{"bmp", "BM"s + std::string(16, '\0') + "\x11\x27\0\0\xf0\xd8\xff\xff"s,
                             "10001 x 10000"},
                        Case{"jpg", "\xff\xd8\xff\xe0\0\4\1\1\xff\xc2\0\x0b\x08\x27\x11\x27\x10\1"s,
                             "10000 x 10001"},
                        Case{"short.jpg", "\xff\xd8\xff\xe0\0\4"s, "decoded"}}) {
    SCOPED_TRACE(c.name);
    const inspect::Picture picture = inspect::ReadPicture(Written(c.name, c.bytes));
    EXPECT_TRUE(picture.grey.empty());
    EXPECT_NE(picture.complaint.find(c.reason), std::string::npos) << picture.complaint;
  }
  EXPECT_FALSE(inspect::ReadPicture(testing::TempDir()).complaint.empty());
  EXPECT_FALSE(inspect::ReadPicture("no such file").complaint.empty());
}

TEST(PictureFile, ReadsGreyValues) {
  const inspect::Picture picture = inspect::ReadPicture(Written("pgm", "P5 2 1 255\n\x05\xf0"s));
  ASSERT_EQ(picture.grey.size(), cv::Size(2, 1));
  EXPECT_EQ(picture.grey.at<unsigned char>(0, 1), 0xf0);
  EXPECT_TRUE(picture.complaint.empty());
}

}  // namespace
}  // namespace examples_test
