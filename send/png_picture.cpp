// SPDX-License-Identifier: MIT

#include "send/png_picture.h"

#include <png.h>

#include <algorithm>
#include <array>
#include <csetjmp>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <new>
#include <span>
#include <vector>

namespace vantrel::send {
namespace {

constexpr std::uint8_t kWhite = 255;
constexpr std::uint8_t kOpaque = 255;
constexpr std::size_t kChannels = 4;  // red, green, blue, alpha

// What a number stands for in the dots of a file.
struct Shade {
  std::uint8_t grey = 0;
  std::uint8_t alpha = 0;
};
using Shades = std::array<Shade, 256>;

std::uint8_t Grey(int red, int green, int blue) {
  return static_cast<std::uint8_t>((red * 11 + green * 16 + blue * 5) / 32);
}

// A file while the library reads it. The library tells a failure by a jump to where it was called,
// over all that lies between: so nothing there has a destructor, and what is to be released is
// here. Its simple interface, which jumps nowhere, would change colours by the file's gamma.
class Reading {
 public:
  explicit Reading(const link::Bytes& file)
      : rest_(file),
        png_(png_create_read_struct(PNG_LIBPNG_VER_STRING, this, OnError, OnWarning)),
        info_(png_ != nullptr ? png_create_info_struct(png_) : nullptr) {
    if (info_ != nullptr) return;
    png_destroy_read_struct(&png_, nullptr, nullptr);
    throw std::bad_alloc();
  }
  ~Reading() { png_destroy_read_struct(&png_, &info_, nullptr); }
  Reading(const Reading&) = delete;
  Reading& operator=(const Reading&) = delete;

  // Reads what comes before the dots; false where that fails.
  bool ReadHeader() { return Attempt(&Reading::BeginReading); }
  // Reads the dots, and the rest of the file; false where that fails.
  bool ReadDots() {
    has_numbers_ = png_get_channels(png_, info_) == 1 && png_get_bit_depth(png_, info_) <= 8;
    if (has_numbers_) FindShades();
    row_bytes_ = Width() * (has_numbers_ ? 1 : kChannels);
    dots_.resize(row_bytes_ * Height());
    return Attempt(&Reading::ReadRows);
  }
  // Why one of these failed.
  std::string Failure() const {
    if (is_cut_) return "it ends too early";
    return std::string("it is damaged (") + message_.data() + ")";
  }

  std::size_t Width() const { return png_get_image_width(png_, info_); }
  std::size_t Height() const { return png_get_image_height(png_, info_); }
  Picture Result() const;

 private:
  bool Attempt(void (Reading::*step)()) {
    if (setjmp(png_jmpbuf(png_)) != 0) return false;
    (this->*step)();
    return true;
  }
  void BeginReading();
  void ReadRows();
  void FindShades();

  static void Read(png_structp png, png_bytep to, std::size_t count);
  [[noreturn]] static void OnError(png_structp png, png_const_charp message);
  static void OnWarning(png_structp /*png*/, png_const_charp /*message*/) {}

  std::span<const std::uint8_t> rest_;
  bool is_cut_ = false;
  std::array<char, 128> message_{};
  // Whether a dot is a number, of a colour or a shade of grey, and not four channels.
  bool has_numbers_ = false;
  Shades shades_;
  std::size_t row_bytes_ = 0;
  std::vector<png_byte> dots_;
  png_structp png_;
  png_infop info_;
};

void Reading::BeginReading() {
  png_set_read_fn(png_, this, Read);
  // How large a picture may be is the caller's choice.
  png_set_user_limits(png_, PNG_UINT_31_MAX, PNG_UINT_31_MAX);
  // Files of careless writers are read as far as their dots can be told.
  png_set_benign_errors(png_, 1);
  png_set_option(png_, PNG_MAXIMUM_INFLATE_WINDOW, PNG_OPTION_ON);
  // Texts, times, gamma and colour profiles are passed over.
  png_set_keep_unknown_chunks(png_, PNG_HANDLE_CHUNK_NEVER, nullptr, -1);
  png_read_info(png_, info_);
}

void Reading::ReadRows() {
  if (has_numbers_) {
    png_set_packing(png_);
  } else {
    png_set_expand(png_);
    png_set_scale_16(png_);
    png_set_gray_to_rgb(png_);
    png_set_add_alpha(png_, kOpaque, PNG_FILLER_AFTER);
  }
  const int passes = png_set_interlace_handling(png_);
  png_read_update_info(png_, info_);
  for (int pass = 0; pass < passes; ++pass)
    for (std::size_t offset = 0; offset < dots_.size(); offset += row_bytes_)
      png_read_row(png_, dots_.data() + offset, nullptr);
  png_read_end(png_, nullptr);
}

void Reading::FindShades() {
  png_bytep alpha = nullptr;
  int alpha_count = 0;
  png_color_16p transparent = nullptr;
  png_get_tRNS(png_, info_, &alpha, &alpha_count, &transparent);
  if (png_get_color_type(png_, info_) == PNG_COLOR_TYPE_PALETTE) {
    png_colorp colors = nullptr;
    int count = 0;
    png_get_PLTE(png_, info_, &colors, &count);
    for (int i = 0; i < count; ++i)
      shades_[static_cast<std::size_t>(i)] = {Grey(colors[i].red, colors[i].green, colors[i].blue),
                                              i < alpha_count ? alpha[i] : kOpaque};
    // A number that stands for no colour is taken for the first one; of two numbers, for white.
    const Shade beyond = png_get_bit_depth(png_, info_) == 1 ? Shade{kWhite, kOpaque} : shades_[0];
    std::fill(shades_.begin() + count, shades_.end(), beyond);
    return;
  }
  const int lightest = (1 << png_get_bit_depth(png_, info_)) - 1;
  for (int i = 0; i <= lightest; ++i)
    shades_[static_cast<std::size_t>(i)] = {static_cast<std::uint8_t>(i * kWhite / lightest),
                                            kOpaque};
  if (transparent != nullptr && transparent->gray <= lightest) shades_[transparent->gray] = {};
}

Picture Reading::Result() const {
  Picture picture;
  picture.width = static_cast<int>(Width());
  picture.height = static_cast<int>(Height());
  const auto add = [&](std::uint8_t grey, std::uint8_t alpha) {
    picture.grey.push_back(grey);
    picture.alpha.push_back(alpha);
  };
  if (has_numbers_)
    for (const png_byte number : dots_) add(shades_[number].grey, shades_[number].alpha);
  else
    for (std::size_t i = 0; i < dots_.size(); i += kChannels)
      add(Grey(dots_[i], dots_[i + 1], dots_[i + 2]), dots_[i + 3]);
  return picture;
}

void Reading::Read(png_structp png, png_bytep to, std::size_t count) {
  auto& reading = *static_cast<Reading*>(png_get_io_ptr(png));
  if (count > reading.rest_.size()) {
    reading.is_cut_ = true;
    png_error(png, "");
  }
  std::memcpy(to, reading.rest_.data(), count);
  reading.rest_ = reading.rest_.subspan(count);
}

void Reading::OnError(png_structp png, png_const_charp message) {
  auto& kept = static_cast<Reading*>(png_get_error_ptr(png))->message_;
  std::snprintf(kept.data(), kept.size(), "%s", message);
  png_longjmp(png, 1);
}

}  // namespace

bool IsPng(const link::Bytes& file) {
  return file.size() >= kPngSignatureBytes && png_sig_cmp(file.data(), 0, kPngSignatureBytes) == 0;
}

Picture PictureOfPng(const link::Bytes& file, const std::string& path,
                     const PictureLimits& limits) {
  Reading reading(file);
  const auto check = [&](bool is_read) {
    if (!is_read)
      throw PictureError(path + " is no picture that can be read: " + reading.Failure() + ".");
  };
  check(reading.ReadHeader());
  const auto width = static_cast<int>(reading.Width());
  const auto height = static_cast<int>(reading.Height());
  if (width > limits.width || height > limits.height)
    throw PictureError(TooLarge(width, height, limits));
  check(reading.ReadDots());
  return reading.Result();
}

}  // namespace vantrel::send
