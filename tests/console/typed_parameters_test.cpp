// SPDX-License-Identifier: MIT

// Numbers typed at the prompts of 31h, 32h and 46h to 48h. The number that the text begins with
// counts, an exponent (E or D) included, rounded with halves to even; beyond sixteen bits the
// prompt opens again, as it does for a number that the command refuses.

#include "tests/console/command_fixture.h"

namespace vantrel::console {
namespace {

using testing::ElementsAre;

// What a typed text comes to.
constexpr const char* kAsksAgain = "asks again";
constexpr const char* kNothing = "nothing";

struct TypedCase {
  const char* name;
  const char* typed;
  // The frame that is sent, or one of the two above.
  const char* with31;
  const char* with32;
  const char* with46;
  const char* with47;
  const char* with48;
};

void PrintTo(const TypedCase& typed, std::ostream* stream) { *stream << typed.typed; }

class TypedParameters : public CommandFixture, public testing::WithParamInterface<TypedCase> {
 protected:
  void Expect(const char* button, const std::string& outcome) {
    dialogs.Types(GetParam().typed);
    // A prompt that opens again is left by the number 2.
    if (outcome == kAsksAgain) dialogs.Types("2", [this] { ++asked_again_; });
    Press(button);
    EXPECT_EQ(asked_again_, outcome == kAsksAgain ? 1 : 0);
    if (outcome == kNothing)
      ExpectNothingSent();
    else if (outcome == kAsksAgain)
      EXPECT_EQ(Frames().size(), 1U);
    else
      EXPECT_THAT(Frames(), ElementsAre(outcome));
  }

 private:
  int asked_again_ = 0;
};

TEST_P(TypedParameters, OfCmd31) { Expect("Cmd31", GetParam().with31); }
TEST_P(TypedParameters, OfCmd32) { Expect("Cmd32", GetParam().with32); }
TEST_P(TypedParameters, OfCmd46) { Expect("Cmd46", GetParam().with46); }
TEST_P(TypedParameters, OfCmd47) { Expect("Cmd47", GetParam().with47); }
TEST_P(TypedParameters, OfCmd48) { Expect("Cmd48", GetParam().with48); }

constexpr const char* k31By1 = "0231310303";
constexpr const char* k32By1 = "0232310300";
constexpr const char* k31By2 = "0231320300";
constexpr const char* k32By2 = "0232320303";
constexpr const char* k46By0 = "0246300375";
constexpr const char* k47By0 = "0247300374";
constexpr const char* k48By0 = "024830037B";
constexpr const char* k46By1 = "0246310374";
constexpr const char* k47By1 = "0247310375";
constexpr const char* k48By1 = "024831037A";
constexpr const char* k46By2 = "0246320377";
constexpr const char* k47By2 = "0247320376";
constexpr const char* k48By2 = "0248320379";

INSTANTIATE_TEST_SUITE_P(
    Typed, TypedParameters,
    testing::Values(
        TypedCase{"Minus3", "-3", kAsksAgain, kAsksAgain, kAsksAgain, kAsksAgain, kAsksAgain},
        TypedCase{"Zero", "0", kNothing, kNothing, k46By0, k47By0, k48By0},
        TypedCase{"One", "1", k31By1, k32By1, k46By1, k47By1, k48By1},
        TypedCase{"Three", "3", "0231330301", "0232330302", kAsksAgain, kAsksAgain, kAsksAgain},
        TypedCase{"Seven", "7", "0231370305", "0232370306", kAsksAgain, kAsksAgain, kAsksAgain},
        // Not refused: the printer judges it.
        TypedCase{"Nine", "9", "023139030B", "0232390308", kAsksAgain, kAsksAgain, kAsksAgain},
        // The first digit alone travels.
        TypedCase{"Twelve", "12", k31By1, k32By1, kAsksAgain, kAsksAgain, kAsksAgain},
        TypedCase{"TwelveAndAHalf", "12.5", k31By1, k32By1, kAsksAgain, kAsksAgain, kAsksAgain},
        TypedCase{"TwoAndAHalf", "2.5", k31By2, k32By2, k46By2, k47By2, k48By2},
        TypedCase{"Half", "0.5", kNothing, kNothing, k46By0, k47By0, k48By0},
        TypedCase{"MinusHalf", "-0.5", kNothing, kNothing, k46By0, k47By0, k48By0},
        TypedCase{"Letters", "abc", kNothing, kNothing, k46By0, k47By0, k48By0},
        TypedCase{"Empty", "", kNothing, kNothing, k46By0, k47By0, k48By0},
        TypedCase{"BlankBefore", " 2", k31By2, k32By2, k46By2, k47By2, k48By2},
        TypedCase{"LettersBehind", "2abc", k31By2, k32By2, k46By2, k47By2, k48By2},
        TypedCase{"ExponentE", "1e1", k31By1, k32By1, kAsksAgain, kAsksAgain, kAsksAgain},
        TypedCase{"ExponentD", "2D1", k31By2, k32By2, kAsksAgain, kAsksAgain, kAsksAgain},
        TypedCase{"NegativeExponentD", "20d-1", k31By2, k32By2, k46By2, k47By2, k48By2},
        // A hexadecimal mark begins no number.
        TypedCase{"HexMark", "&H2", kNothing, kNothing, k46By0, k47By0, k48By0},
        TypedCase{"Largest", "32767", "0231330301", "0232330302", kAsksAgain, kAsksAgain,
                  kAsksAgain},
        TypedCase{"BeyondSixteenBits", "99999", kAsksAgain, kAsksAgain, kAsksAgain, kAsksAgain,
                  kAsksAgain},
        TypedCase{"FarBeyond", "1e999", kAsksAgain, kAsksAgain, kAsksAgain, kAsksAgain,
                  kAsksAgain}),
    NameBy<&TypedCase::name>());

}  // namespace
}  // namespace vantrel::console
