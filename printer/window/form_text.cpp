#include "printer/window/form_text.h"

#include "link/frame.h"

namespace vantrel::printer {

QString ToQt(std::string_view bytes) {
  return QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

QString HexToQt(std::string_view bytes) {
  return ToQt(link::SpacedPairs(link::HexTextOf(link::Bytes(bytes.begin(), bytes.end()))))
      .trimmed();
}

}  // namespace vantrel::printer
