// SPDX-License-Identifier: MIT

#include "log/json_object.h"

#include "log/json_text.h"

#include <gtest/gtest.h>

namespace vantrel::log {
namespace {

TEST(JsonObject, HasItsMembersInOrderAndNoBlanks) {
  EXPECT_EQ(JsonObject().Text(), "{}");
  EXPECT_EQ(JsonObject()
                .Add("text", "T")
                .Add("number", -5L)
                .Add("third", 1.0 / 3)
                .Add("good", std::optional(true))
                .Add("unknown", std::optional<bool>())
                .Add("some", std::optional<std::string>("s"))
                .Add("none", std::optional<std::string>())
                .AddNull("null")
                .Add("object", JsonObject().Add("a", "b"))
                .Text(),
            R"({"text":"T","number":-5,"third":0.333,"good":true,"unknown":null,"some":"s",)"
            R"("none":null,"null":null,"object":{"a":"b"}})");
}

TEST(JsonObject, EscapesWhatCannotStandInAString) {
  EXPECT_EQ(JsonObject().Add("a\"", "\"\\\n\x7Fé").Text(), R"({"a\"":"\"\\\u000A\u007Fé"})");
  EXPECT_EQ(JsonText(std::string_view("\0", 1)), R"("\u0000")");
}

TEST(JsonObject, HasNoBytesThatAreNoUtf8) {
  EXPECT_EQ(JsonObject().Add("a", "x\xFF").Text(), "{\"a\":\"x\uFFFD\"}");
  EXPECT_EQ(ValidUtf8("a\xFF\xC3z\xE2\x82"), "a\uFFFD\uFFFDz\uFFFD\uFFFD");
  EXPECT_EQ(ValidUtf8("é€\U0001F600"), "é€\U0001F600");
  EXPECT_EQ(ValidUtf8("\xC0\x80"), "\uFFFD\uFFFD");
  EXPECT_EQ(ValidUtf8("\xED\xA0\x80"), "\uFFFD\uFFFD\uFFFD");
}

TEST(JsonObject, HoldsArraysAndOtherObjectsMembers) {
  const JsonObject member = JsonObject().Add("b", 1L);
  EXPECT_EQ(JsonObject()
                .Add("a", std::vector<JsonObject>{member, {}})
                .Add("t", std::vector<std::optional<std::string>>{"x\"", std::nullopt, ""})
                .Add("none", std::vector<JsonObject>{})
                .Append(member)
                .Append(JsonObject())
                .Text(),
            R"({"a":[{"b":1},{}],"t":["x\"",null,""],"none":[],"b":1})");
  EXPECT_EQ(JsonObject().Append(member).Text(), R"({"b":1})");
  EXPECT_TRUE(JsonObject().Append(member) == member);
}

}  // namespace
}  // namespace vantrel::log
