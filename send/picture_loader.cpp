#include "send/picture_loader.h"

#include "commandline/parse.h"
#include "send/input_file.h"
#include "send/pictures_plugin.h"

#include <dlfcn.h>

namespace vantrel::send {
namespace {

constexpr std::size_t kLargestFile = std::size_t{64} * 1024 * 1024;

using Read = decltype(&VantrelReadPicture);

Read LoadLibrary() {
  // Found by the program's own search path, beside it in the build and as it is installed.
  void* library = dlopen("vantrel-pictures.so", RTLD_NOW | RTLD_LOCAL);
  void* function = library != nullptr ? dlsym(library, "VantrelReadPicture") : nullptr;
  if (function == nullptr)
    throw PictureError(std::string("Pictures cannot be read: ") + dlerror() + ".");
  return reinterpret_cast<Read>(function);
}

}  // namespace

Picture LoadPicture(const std::string& path, const PictureLimits& limits) {
  CheckInputFile(path, kLargestFile);
  static const Read kRead = LoadLibrary();
  Picture picture;
  std::string error;
  if (!kRead(path.c_str(), limits, picture, error)) throw PictureError(error);
  return picture;
}

}  // namespace vantrel::send
