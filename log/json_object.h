// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::log {

// A JSON object on one line, member by member, without blanks between them.
class JsonObject {
 public:
  // What is no UTF-8 in a text is shown as U+FFFD.
  JsonObject& Add(std::string_view name, std::string_view text);
  JsonObject& Add(std::string_view name, const char* text) {
    return Add(name, std::string_view(text));
  }
  // Null where there is no text.
  JsonObject& Add(std::string_view name, const std::optional<std::string>& text);
  JsonObject& Add(std::string_view name, const std::string& text) {
    return Add(name, std::string_view(text));
  }
  JsonObject& Add(std::string_view name, std::optional<bool> value);
  JsonObject& Add(std::string_view name, long number);
  // With three decimal places.
  JsonObject& Add(std::string_view name, double number);
  JsonObject& Add(std::string_view name, const JsonObject& object);
  // Arrays; an absent text is null.
  JsonObject& Add(std::string_view name, const std::vector<JsonObject>& objects);
  JsonObject& Add(std::string_view name, const std::vector<std::optional<std::string>>& texts);
  JsonObject& AddNull(std::string_view name);
  // Adds the members of another object behind these.
  JsonObject& Append(const JsonObject& other);

  bool operator==(const JsonObject&) const = default;

  std::string Text() const { return "{" + members_ + "}"; }

 private:
  JsonObject& AddRaw(std::string_view name, std::string_view value);

  std::string members_;
};

}  // namespace vantrel::log
