#pragma once

#include <string>
#include <string_view>

namespace vantrel::send {

// A JSON object on one line, member by member.
class JsonObject {
 public:
  JsonObject& Add(std::string_view name, std::string_view text);
  JsonObject& Add(std::string_view name, const char* text) {
    return Add(name, std::string_view(text));
  }
  JsonObject& Add(std::string_view name, long number);
  // With three decimal places.
  JsonObject& Add(std::string_view name, double number);
  JsonObject& Add(std::string_view name, const JsonObject& object);
  JsonObject& AddNull(std::string_view name);

  std::string Text() const { return "{" + members_ + "}"; }

 private:
  JsonObject& AddRaw(std::string_view name, std::string_view value);

  std::string members_;
};

// UTF-8 text with every byte that is none as U+FFFD.
std::string ValidUtf8(std::string_view text);

}  // namespace vantrel::send
