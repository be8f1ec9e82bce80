// SPDX-License-Identifier: MIT

// 4Bh: a BMP file in blocks.

#include "link/frame.h"
#include "tests/send/command_lines.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

namespace vantrel::send {
namespace {

// A file of 9 x 30 dots: file header, information header, two colours, rows of four bytes.
constexpr const char* kFile =
    "424DB6000000000000003E00000028000000090000001E000000010001000000000078000000130B"
    "0000130B00000000000000000000FFFFFF000000000000800000078000000E800000158000001C80"
    "0000238000002A80000031800000388000003F800000468000004D800000548000005B8000006280"
    "00006980000070800000778000007E800000858000008C800000938000009A800000A1800000A880"
    "0000AF800000B6800000BD800000C4800000CB800000";

class BmpBlocks : public testing::Test {
 protected:
  ~BmpBlocks() override { std::filesystem::remove(path_); }

  void Write(const link::Bytes& bytes) const {
    std::ofstream file(path_, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
  }
  // The refusal of the file with one byte changed.
  std::string RefusalWith(std::size_t position, std::uint8_t byte) const {
    link::Bytes bytes = link::BytesOf(kFile);
    bytes.at(position) = byte;
    Write(bytes);
    return Refusal({"4B", "0", path_});
  }

  const std::string path_ = testing::TempDir() + "bmp-blocks-" + std::to_string(getpid()) + ".bmp";
};

TEST_F(BmpBlocks, HaveTheWholeFile) {
  Write(link::BytesOf(kFile));
  // The file's first 160 bytes and the other 22, as hex text, behind "A," and "+,".
  EXPECT_EQ(
      Composed({"4B", "a", path_}).frames,
      (Words{"024B412C343234444236303030303030303030303030303033453030303030303238303030303030"
             "30393030303030303145303030303030303130303031303030303030303030303738303030303030"
             "31333042303030303133304230303030303030303030303030303030303030304646464646463030"
             "30303030303030303030383030303030303738303030303030453830303030303135383030303030"
             "31433830303030303233383030303030324138303030303033313830303030303338383030303030"
             "33463830303030303436383030303030344438303030303035343830303030303542383030303030"
             "36323830303030303639383030303030373038303030303037373830303030303745383030303030"
             "38353830303030303843383030303030393338303030303039413830303030304131383030303030"
             "41383830035C",
             "024B2B2C303030304146383030303030423638303030303042443830303030304334383030303030"
             "43423830303030300344"}));
}

TEST_F(BmpBlocks, TakeSidesOf480DotsAndNoMore) {
  // Width and height are numbers of four bytes, the lowest first, at 18 and 22.
  EXPECT_EQ(RefusalWith(18, 0), path_ + " has 0 x 30 dots; each side has 1 to 480.");
  EXPECT_EQ(RefusalWith(19, 2), path_ + " has 521 x 30 dots; each side has 1 to 480.");
  EXPECT_EQ(RefusalWith(23, 2), path_ + " has 9 x 542 dots; each side has 1 to 480.");
  EXPECT_EQ(RefusalWith(22, 31), path_ + " is cut short.");
  link::Bytes large = link::BytesOf(kFile);
  large[18] = 0xE0;  // 480 x 480
  large[19] = 1;
  large[22] = 0xE0;
  large[23] = 1;
  large.resize(62 + 480 * 60);
  Write(large);
  EXPECT_EQ(Refusal({"4B", "0", path_}), "");
  // 28862 bytes in blocks of 160.
  EXPECT_EQ(Composed({"4B", "0", path_}).frames.size(), 181U);
}

TEST_F(BmpBlocks, RefuseWhatIsNoBmpOfOneBit) {
  const std::string no_bmp = path_ + " is no BMP file.";
  EXPECT_EQ(RefusalWith(0, 'P'), no_bmp);
  EXPECT_EQ(RefusalWith(14, 12), no_bmp);  // a shorter information header
  const std::string other = path_ + " is no uncompressed BMP of one bit a dot.";
  EXPECT_EQ(RefusalWith(26, 2), other);
  EXPECT_EQ(RefusalWith(28, 4), other);
  EXPECT_EQ(RefusalWith(30, 1), other);
  Write({});
  EXPECT_EQ(Refusal({"4B", "0", path_}), no_bmp);
}

TEST_F(BmpBlocks, RefuseFilesThatCannotBeRead) {
  EXPECT_EQ(Refusal({"4B", "0", "/nowhere/a.bmp"}),
            "/nowhere/a.bmp cannot be read: No such file or directory.");
  EXPECT_EQ(Refusal({"4B", "0", "/tmp"}), "/tmp is no regular file.");
  EXPECT_EQ(Refusal({"4B", "0", "/dev/zero"}), "/dev/zero is no regular file.");
  ASSERT_EQ(mkfifo(path_.c_str(), 0600), 0);
  EXPECT_EQ(Refusal({"4B", "0", path_}), path_ + " is no regular file.");
}

TEST_F(BmpBlocks, RefuseAFileOfAGigabyte) {
  Write({});
  std::filesystem::resize_file(path_, 1'073'741'824);
  EXPECT_EQ(Refusal({"4B", "0", path_}), path_ + " has 1073741824 bytes; at most 65536 are read.");
}

}  // namespace
}  // namespace vantrel::send
