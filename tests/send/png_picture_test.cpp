// SPDX-License-Identifier: MIT

// PNG files to pictures. The files are put together here, chunk by chunk.

#include "send/png_picture.h"

#include "send/picture_loader.h"
#include "tests/support/file_folder.h"

#include <gtest/gtest.h>

#include <zlib.h>

#include <string>
#include <string_view>
#include <vector>

namespace vantrel::send {
namespace {

using namespace std::string_literals;
using Shades = std::vector<std::uint8_t>;

constexpr PictureLimits kCard{480, 320};
const std::string kSignature = "\x89PNG\r\n\x1A\n";

// The bytes of hex text, in which blanks say nothing.
std::string Hex(const std::string& text) {
  std::string digits;
  for (const char c : text)
    if (c != ' ') digits += c;
  std::string bytes;
  for (std::size_t i = 0; i < digits.size(); i += 2)
    bytes += static_cast<char>(std::stoi(digits.substr(i, 2), nullptr, 16));
  return bytes;
}

std::string Number(std::size_t number) {
  std::string bytes;
  for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(number >> shift & 0xFF);
  return bytes;
}

// A chunk of a file, with its check sum.
std::string Chunk(const std::string& type, const std::string& data) {
  const std::string summed = type + data;
  return Number(data.size()) + summed +
         Number(crc32(0, reinterpret_cast<const Bytef*>(summed.data()),
                      static_cast<uInt>(summed.size())));
}

std::string Packed(const std::string& data) {
  uLongf length = compressBound(data.size());
  std::string packed(length, '\0');
  compress(reinterpret_cast<Bytef*>(packed.data()), &length,
           reinterpret_cast<const Bytef*>(data.data()), data.size());
  packed.resize(length);
  return packed;
}

// How the dots of a file are told: the numbers of its header.
struct Kind {
  int depth;  // bits of a channel
  int color;
  bool is_interlaced = false;
};
constexpr int kGrey = 0;
constexpr int kColor = 2;
constexpr int kPalette = 3;
constexpr int kGreyAlpha = 4;
constexpr int kColorAlpha = 6;

std::string Header(std::size_t width, std::size_t height, const Kind& kind) {
  return Chunk("IHDR", Number(width) + Number(height) + static_cast<char>(kind.depth) +
                           static_cast<char>(kind.color) + "\0\0"s +
                           static_cast<char>(kind.is_interlaced ? 1 : 0));
}

// A file with these rows, hex text, each after a byte for its filter; `chunks` stand before them.
std::string File(std::size_t width, std::size_t height, const Kind& kind, const std::string& rows,
                 const std::string& chunks = "") {
  return kSignature + Header(width, height, kind) + chunks + Chunk("IDAT", Packed(Hex(rows))) +
         Chunk("IEND", "");
}

Picture PictureOf(const std::string& file, const PictureLimits& limits = kCard) {
  return PictureOfPng(link::Bytes(file.begin(), file.end()), "a.png", limits);
}

// What is told of a file that is refused; of a picture, nothing.
std::string Refusal(const std::string& file, const PictureLimits& limits = kCard) {
  try {
    PictureOf(file, limits);
    return "";
  } catch (const PictureError& error) {
    return error.what();
  }
}

// A picture's grey, when it is opaque everywhere.
Shades GreyOf(const std::string& file) {
  const Picture picture = PictureOf(file);
  EXPECT_EQ(picture.alpha, Shades(picture.grey.size(), 255));
  return picture.grey;
}

Shades AlphaOf(const std::string& file) { return PictureOf(file).alpha; }

TEST(IsPng, IsToldByTheFirstEightBytes) {
  const auto is_png = [](const std::string& file) {
    return IsPng(link::Bytes(file.begin(), file.end()));
  };
  EXPECT_TRUE(is_png(kSignature));
  EXPECT_TRUE(is_png(kSignature + "and anything"));
  EXPECT_FALSE(is_png(""));
  EXPECT_FALSE(is_png(kSignature.substr(0, 7)));
  // As it arrives where line ends were changed on the way.
  EXPECT_FALSE(is_png("\x89PNG\n\x1A\n\0"s));
  EXPECT_FALSE(is_png("P4\n480 320\n"));
}

TEST(PngPicture, HasItsSizeAndItsRowsFromTheTop) {
  const Picture picture = PictureOf(File(3, 2, {8, kGrey}, "00 000102  00 101112"));
  EXPECT_EQ(picture.width, 3);
  EXPECT_EQ(picture.height, 2);
  EXPECT_EQ(picture.grey, (Shades{0x00, 0x01, 0x02, 0x10, 0x11, 0x12}));
  EXPECT_EQ(picture.alpha, Shades(6, 255));
}

TEST(PngPicture, IsGreyOfAnyDepth) {
  EXPECT_EQ(GreyOf(File(9, 1, {1, kGrey}, "00 A080")), (Shades{255, 0, 255, 0, 0, 0, 0, 0, 255}));
  // 0 to 3, and 0, 1, 8, 15
  EXPECT_EQ(GreyOf(File(4, 1, {2, kGrey}, "00 1B")), (Shades{0, 85, 170, 255}));
  EXPECT_EQ(GreyOf(File(4, 1, {4, kGrey}, "00 018F")), (Shades{0, 17, 136, 255}));
  EXPECT_EQ(GreyOf(File(4, 1, {8, kGrey}, "00 007F80FF")), (Shades{0, 127, 128, 255}));
}

TEST(PngPicture, IsTheNearestOfEightBitsWhereItHasSixteen) {
  // Multiples of 257 are exact; 80h is nearer to the first, 81h to the second.
  EXPECT_EQ(GreyOf(File(7, 1, {16, kGrey}, "00 0000 0080 0081 7F7F 7FFF 8000 FFFF")),
            (Shades{0, 0, 1, 127, 127, 128, 255}));
  EXPECT_EQ(GreyOf(File(2, 1, {16, kColor}, "00 7FFF7FFF7FFF 800080008000")), (Shades{127, 128}));
}

TEST(PngPicture, IsAsGreyAsItsColorsLook) {
  // Red 11/32, green 16/32, blue 5/32; rounded down.
  EXPECT_EQ(GreyOf(File(5, 1, {8, kColor}, "00 FF0000 00FF00 0000FF FFFF00 FFFFFF")),
            (Shades{87, 127, 39, 215, 255}));
  EXPECT_EQ(GreyOf(File(3, 1, {16, kColor}, "00 FFFF00000000 0000FFFF0000 00000000FFFF")),
            (Shades{87, 127, 39}));
}

TEST(PngPicture, TakesColorsFromItsPalette) {
  const std::string palette = Chunk("PLTE", Hex("FFFFFF FF0000 00FF00"));
  EXPECT_EQ(GreyOf(File(3, 1, {8, kPalette}, "00 020100", palette)), (Shades{127, 87, 255}));
  EXPECT_EQ(GreyOf(File(3, 1, {4, kPalette}, "00 2100", palette)), (Shades{127, 87, 255}));
  EXPECT_EQ(GreyOf(File(3, 1, {2, kPalette}, "00 90", palette)), (Shades{127, 87, 255}));
  EXPECT_EQ(GreyOf(File(2, 1, {1, kPalette}, "00 40", Chunk("PLTE", Hex("FF0000 00FF00")))),
            (Shades{87, 127}));
}

TEST(PngPicture, TakesTheFirstColorForANumberBeyondItsPalette) {
  EXPECT_EQ(GreyOf(File(3, 1, {8, kPalette}, "00 0102FF", Chunk("PLTE", Hex("FF0000 00FF00")))),
            (Shades{127, 87, 87}));
  EXPECT_EQ(GreyOf(File(2, 1, {1, kPalette}, "00 40", Chunk("PLTE", Hex("FF0000")))),
            (Shades{87, 255}));
}

TEST(PngPicture, KeepsWhatIsTransparent) {
  EXPECT_EQ(AlphaOf(File(2, 1, {8, kGreyAlpha}, "00 1000 2080")), (Shades{0, 128}));
  EXPECT_EQ(AlphaOf(File(2, 1, {16, kGreyAlpha}, "00 10007FFF 20008000")), (Shades{127, 128}));
  const std::string colors = File(2, 1, {8, kColorAlpha}, "00 FF000080 00FF007F");
  EXPECT_EQ(PictureOf(colors).grey, (Shades{87, 127}));
  EXPECT_EQ(AlphaOf(colors), (Shades{128, 127}));
  EXPECT_EQ(AlphaOf(File(1, 1, {16, kColorAlpha}, "00 000000000000FFFF")), Shades{255});
  // Of colours in the palette, as many as are told.
  const std::string palette =
      Chunk("PLTE", Hex("FF0000 00FF00 0000FF")) + Chunk("tRNS", Hex("0A80"));
  EXPECT_EQ(AlphaOf(File(3, 1, {8, kPalette}, "00 000102", palette)), (Shades{10, 128, 255}));
}

TEST(PngPicture, IsTransparentWhereItsOneTransparentColorStands) {
  EXPECT_EQ(AlphaOf(File(2, 1, {1, kGrey}, "00 40", Chunk("tRNS", Hex("0001")))), (Shades{255, 0}));
  EXPECT_EQ(AlphaOf(File(4, 1, {2, kGrey}, "00 1B", Chunk("tRNS", Hex("0002")))),
            (Shades{255, 255, 0, 255}));
  EXPECT_EQ(AlphaOf(File(2, 1, {8, kGrey}, "00 1011", Chunk("tRNS", Hex("0010")))),
            (Shades{0, 255}));
  EXPECT_EQ(
      AlphaOf(File(2, 1, {8, kColor}, "00 102030 102031", Chunk("tRNS", Hex("001000200030")))),
      (Shades{0, 255}));
  // With sixteen bits, all of them count.
  EXPECT_EQ(AlphaOf(File(2, 1, {16, kGrey}, "00 1000 1001", Chunk("tRNS", Hex("1000")))),
            (Shades{0, 255}));
  EXPECT_EQ(AlphaOf(File(2, 1, {16, kColor}, "00 100020003000 100020003001",
                         Chunk("tRNS", Hex("100020003000")))),
            (Shades{0, 255}));
  // One that no dot of this depth can have.
  EXPECT_EQ(AlphaOf(File(2, 1, {1, kGrey}, "00 40", Chunk("tRNS", Hex("0003")))),
            (Shades{255, 255}));
}

TEST(PngPicture, MayBeInterlaced) {
  // The left dot of the upper row, its right, its middle; then the lower row.
  EXPECT_EQ(GreyOf(File(3, 2, {8, kGrey, true}, "00 0A  00 0C  00 0B  00 141516")),
            (Shades{0x0A, 0x0B, 0x0C, 0x14, 0x15, 0x16}));
}

TEST(PngPicture, MayBeFiltered) {
  // As told, plus the left, plus the upper one.
  EXPECT_EQ(GreyOf(File(3, 3, {8, kGrey}, "00 010203  01 050101  02 101010")),
            (Shades{1, 2, 3, 5, 6, 7, 0x15, 0x16, 0x17}));
}

TEST(PngPicture, IsNotChangedByWhatItTellsOfColors) {
  const std::string rows = "00 004080FF";
  const Shades grey{0x00, 0x40, 0x80, 0xFF};
  for (const std::string& chunk :
       {Chunk("gAMA", Number(20000)), Chunk("gAMA", Number(100000)), Chunk("sRGB", "\0"s),
        Chunk("sBIT", "\4"), Chunk("bKGD", Hex("0080")), Chunk("iCCP", "name\0\0not packed"s),
        Chunk("tEXt", "Title\0A card"s), Chunk("unKn", "nobody's")})
    EXPECT_EQ(GreyOf(File(4, 1, {8, kGrey}, rows, chunk)), grey) << chunk;
  // Linear light in sixteen bits would be much brighter.
  EXPECT_EQ(GreyOf(File(1, 1, {16, kGrey}, "00 4040", Chunk("gAMA", Number(100000)))), Shades{64});
}

// Three by two dots, with nothing but what must be there.
std::string SmallFile() {
  return File(3, 2, {8, kColor}, "00 102030405060708090  01 112233445566778899");
}

TEST(PngPicture, IsRefusedWhereverItIsCut) {
  const std::string file = SmallFile();
  EXPECT_EQ(Refusal(file), "");
  for (std::size_t length = kSignature.size(); length < file.size(); ++length)
    EXPECT_EQ(Refusal(file.substr(0, length)),
              "a.png is no picture that can be read: it ends too early.")
        << length;
}

TEST(PngPicture, IsRefusedWhicheverBitIsWrong) {
  for (std::size_t i = kSignature.size(); i < SmallFile().size(); ++i) {
    for (int bit = 0; bit < 8; ++bit) {
      std::string file = SmallFile();
      file[i] = static_cast<char>(file[i] ^ 1 << bit);
      EXPECT_TRUE(Refusal(file).starts_with("a.png is no picture that can be read: it "))
          << i << ' ' << bit << Refusal(file);
    }
  }
}

TEST(PngPicture, IsRefusedInWordsWhereItIsDamaged) {
  const std::string damaged = "a.png is no picture that can be read: it is damaged (";
  std::string file = SmallFile();
  file[kSignature.size() + 8 + 13] ^= 1;
  EXPECT_EQ(Refusal(file), damaged + "IHDR: CRC error).");
  EXPECT_EQ(Refusal(File(1, 2, {8, kGrey}, "00 10")), damaged + "Not enough image data).");
  for (const std::string& other :
       {kSignature + Header(1, 1, {8, kGrey}) + Chunk("IEND", ""),
        kSignature + Chunk("IDAT", Packed(Hex("00 00"))), File(1, 1, {8, kPalette}, "00 00"),
        File(0, 1, {8, kGrey}, "00"), File(1, 1, {3, kGrey}, "00 10"),
        File(1, 1, {8, kGrey}, "05 10")})
    EXPECT_TRUE(Refusal(other).starts_with(damaged)) << Refusal(other);
}

TEST(PngPicture, IsRefusedForItsSizeBeforeItsDotsAreRead) {
  // Nothing comes where the dots would begin.
  const auto beginning = [](std::size_t width, std::size_t height) {
    return kSignature + Header(width, height, {16, kColorAlpha}) + Number(99) + "IDAT";
  };
  EXPECT_EQ(Refusal(beginning(481, 8)), "The picture has 481 x 8 dots; 480 x 320 fit.");
  EXPECT_EQ(Refusal(beginning(8, 321)), "The picture has 8 x 321 dots; 480 x 320 fit.");
  EXPECT_EQ(Refusal(beginning(2147483647, 2147483647)),
            "The picture has 2147483647 x 2147483647 dots; 480 x 320 fit.");
  EXPECT_EQ(Refusal(beginning(480, 320)),
            "a.png is no picture that can be read: it ends too early.");
  EXPECT_EQ(Refusal(File(2, 1, {8, kGrey}, "00 1020"), {1, 1}),
            "The picture has 2 x 1 dots; 1 x 1 fit.");
  EXPECT_EQ(Refusal(File(2, 1, {8, kGrey}, "00 1020"), {2, 1}), "");
}

TEST(LoadPicture, ReadsPngByItselfWhateverItsName) {
  const support::FileFolder folder;
  folder.Make("picture.bmp", File(2, 1, {8, kGrey}, "00 1020"));
  EXPECT_EQ(LoadPicture(folder.Path("picture.bmp"), kCard).grey, (Shades{0x10, 0x20}));
  folder.Make("cut.png", SmallFile().substr(0, 40));
  try {
    LoadPicture(folder.Path("cut.png"), kCard);
    ADD_FAILURE();
  } catch (const PictureError& error) {
    EXPECT_EQ(error.what(),
              folder.Path("cut.png") + " is no picture that can be read: it ends too early.");
  }
}

TEST(LoadPicture, NeedsItsLibraryForAnyOtherFormat) {
  const support::FileFolder folder;
  // A PBM picture of one dot, by a PNG picture's name; there is no such library beside this test.
  for (const std::string& content : {"P1\n1 1\n1\n"s, ""s, kSignature.substr(0, 7)}) {
    folder.Make("other.png", content);
    try {
      LoadPicture(folder.Path("other.png"), kCard);
      ADD_FAILURE();
    } catch (const PictureError& error) {
      const std::string sentence = error.what();
      EXPECT_TRUE(sentence.starts_with("Pictures other than PNG cannot be read: /")) << sentence;
      EXPECT_TRUE(sentence.ends_with(
          "/vantrel/vantrel-pictures.so is not installed; it is in the package vantrel."))
          << sentence;
    }
  }
}

}  // namespace
}  // namespace vantrel::send
