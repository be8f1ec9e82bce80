// SPDX-License-Identifier: MIT

#include "printer/drawing/png_file.h"

#include <png.h>

#include <array>
#include <cstdint>
#include <stdexcept>
#include <vector>

namespace vantrel::printer {
namespace {

// What the library keeps of one picture, until the end.
class Image {
 public:
  Image() { image_.version = PNG_IMAGE_VERSION; }
  ~Image() { png_image_free(&image_); }
  Image(const Image&) = delete;
  Image& operator=(const Image&) = delete;

  png_image& operator*() { return image_; }
  png_image* operator->() { return &image_; }
  bool BeginReading(std::string_view file) {
    return png_image_begin_read_from_memory(&image_, file.data(), file.size()) != 0;
  }

 private:
  png_image image_{};
};

constexpr std::size_t kChannels = 4;  // red, green, blue, alpha

// Green weighs most, blue least, as bright as they look.
bool IsDark(const png_byte* pixel) {
  constexpr int kMiddleGrey = 128;
  return (pixel[0] * 11 + pixel[1] * 16 + pixel[2] * 5) / 32 < kMiddleGrey;
}

}  // namespace

std::string PngOf(const Bitmap& dots) {
  Image image;
  image->width = static_cast<png_uint_32>(dots.Width());
  image->height = static_cast<png_uint_32>(dots.Height());
  // Two colours, told by their numbers, are written as one bit a dot.
  image->format = PNG_FORMAT_RGB_COLORMAP;
  image->colormap_entries = 2;
  constexpr std::array<png_byte, 6> kWhiteAndBlack{255, 255, 255, 0, 0, 0};
  std::vector<png_byte> numbers;
  numbers.reserve(static_cast<std::size_t>(dots.Width()) * static_cast<std::size_t>(dots.Height()));
  for (int y = 0; y < dots.Height(); ++y) {
    for (int x = 0; x < dots.Width(); ++x) numbers.push_back(dots.At(x, y) ? 1 : 0);
  }
  // As much as it can be at most, for one pass alone.
  png_alloc_size_t length = PNG_IMAGE_PNG_SIZE_MAX(*image);
  std::string file(length, '\0');
  if (png_image_write_to_memory(&*image, file.data(), &length, 0, numbers.data(), 0,
                                kWhiteAndBlack.data()) == 0)
    throw std::runtime_error(std::string("The picture cannot be made: ") + image->message + '.');
  file.resize(length);
  return file;
}

std::optional<PictureSize> SizeOfPng(std::string_view file) {
  Image image;
  if (!image.BeginReading(file)) return std::nullopt;
  return PictureSize{static_cast<int>(image->width), static_cast<int>(image->height)};
}

std::optional<Bitmap> DotsOfPng(std::string_view file) {
  Image image;
  if (!image.BeginReading(file)) return std::nullopt;
  image->format = PNG_FORMAT_RGBA;
  std::vector<png_byte> pixels(std::size_t{image->width} * image->height * kChannels);
  if (png_image_finish_read(&*image, nullptr, pixels.data(), 0, nullptr) == 0) return std::nullopt;
  Bitmap dots(static_cast<int>(image->width), static_cast<int>(image->height));
  const png_byte* pixel = pixels.data();
  for (int y = 0; y < dots.Height(); ++y) {
    for (int x = 0; x < dots.Width(); ++x, pixel += kChannels) {
      if (IsDark(pixel)) dots.Set(x, y, true);
    }
  }
  return dots;
}

}  // namespace vantrel::printer
