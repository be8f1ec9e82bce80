// SPDX-License-Identifier: MIT

#include "log/json_object.h"

#include "log/json_text.h"

#include <array>
#include <cstdio>

namespace vantrel::log {

JsonObject& JsonObject::AddRaw(std::string_view name, std::string_view value) {
  if (!members_.empty()) members_ += ',';
  members_ += JsonText(name);
  members_ += ':';
  members_ += value;
  return *this;
}

JsonObject& JsonObject::Add(std::string_view name, std::string_view text) {
  return AddRaw(name, JsonText(text));
}

JsonObject& JsonObject::Add(std::string_view name, const std::optional<std::string>& text) {
  return text ? Add(name, *text) : AddNull(name);
}

JsonObject& JsonObject::Add(std::string_view name, std::optional<bool> value) {
  if (!value) return AddNull(name);
  return AddRaw(name, *value ? "true" : "false");
}

JsonObject& JsonObject::Add(std::string_view name, long number) {
  return AddRaw(name, std::to_string(number));
}

JsonObject& JsonObject::Add(std::string_view name, double number) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%.3f", number);
  return AddRaw(name, text.data());
}

JsonObject& JsonObject::Add(std::string_view name, const JsonObject& object) {
  return AddRaw(name, object.Text());
}

JsonObject& JsonObject::Add(std::string_view name, const std::vector<JsonObject>& objects) {
  std::string array;
  for (const JsonObject& object : objects) {
    if (!array.empty()) array += ',';
    array += object.Text();
  }
  return AddRaw(name, "[" + array + "]");
}

JsonObject& JsonObject::Add(std::string_view name,
                            const std::vector<std::optional<std::string>>& texts) {
  std::string array;
  for (const auto& text : texts) {
    if (!array.empty()) array += ',';
    array += text ? JsonText(*text) : "null";
  }
  return AddRaw(name, "[" + array + "]");
}

JsonObject& JsonObject::Append(const JsonObject& other) {
  if (!members_.empty() && !other.members_.empty()) members_ += ',';
  members_ += other.members_;
  return *this;
}

JsonObject& JsonObject::AddNull(std::string_view name) { return AddRaw(name, "null"); }

}  // namespace vantrel::log
