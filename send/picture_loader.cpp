// SPDX-License-Identifier: MIT

#include "send/picture_loader.h"

#include "send/input_file.h"
#include "send/pictures_plugin.h"
#include "send/png_picture.h"

#include <dlfcn.h>

#include <filesystem>
#include <string>
#include <system_error>

namespace vantrel::send {
namespace {

constexpr std::size_t kLargestFile = std::size_t{64} * 1024 * 1024;

using Read = decltype(&VantrelReadPicture);

Read LoadLibrary() {
  // It lies as far from the program in the build as it does installed.
  std::error_code error;
  const auto here = std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
  const std::string path = (here / VANTREL_PICTURES).lexically_normal().string();
  if (!std::filesystem::exists(path, error))
    throw PictureError("Pictures other than PNG cannot be read: " + path +
                       " is not installed; it is in the package vantrel.");
  void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  void* function = library != nullptr ? dlsym(library, "VantrelReadPicture") : nullptr;
  if (function == nullptr)
    throw PictureError(std::string("Pictures other than PNG cannot be read: ") + dlerror() + ".");
  return reinterpret_cast<Read>(function);
}

}  // namespace

Picture LoadPicture(const std::string& path, const PictureLimits& limits) {
  if (IsPng(BeginningOfInputFile(path, kLargestFile, kPngSignatureBytes)))
    return PictureOfPng(ReadInputFile(path, kLargestFile), path, limits);
  static const Read kRead = LoadLibrary();
  Picture picture;
  std::string error;
  if (!kRead(path.c_str(), limits, picture, error)) throw PictureError(error);
  return picture;
}

}  // namespace vantrel::send
