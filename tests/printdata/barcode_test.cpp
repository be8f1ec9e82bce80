// SPDX-License-Identifier: MIT

#include "printdata/barcode.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace vantrel::printdata {
namespace {

constexpr const char* kCode128Text =
    "Press the keys of the code set; a code change inside the data is a key (CodeA, CodeB, CodeC, "
    "Shift)";

struct TypeCase {
  int type;
  const char* caption;
  int maximum;
  const char* panel1;
  const char* panel2;
  const char* header;               // with coordinates 0 and 47, code set B, start "C" and end "D"
  std::vector<std::string> values;  // of the keys in order; of the first ones for Code 128
  int key_count;
};

void PrintTo(const TypeCase& param, std::ostream* out) { *out << param.caption; }

class EveryBarcodeType : public testing::TestWithParam<TypeCase> {};

TEST_P(EveryBarcodeType, CaptionLimitAndPanels) {
  const TypeCase& param = GetParam();
  const BarcodeType& type = BarcodeTypes()[static_cast<std::size_t>(param.type)];
  EXPECT_EQ(type.caption, param.caption);
  EXPECT_EQ(type.maximum_count, param.maximum);
  BarcodePad pad;
  pad.SelectType(param.type);
  EXPECT_EQ(pad.Type(), param.type);
  EXPECT_EQ(pad.PanelText(1), param.panel1);
  EXPECT_EQ(pad.PanelText(2), param.panel2);
  EXPECT_EQ(pad.Captions().size(), static_cast<std::size_t>(param.key_count));
  EXPECT_FALSE(pad.IsNextEnabled());
}

TEST_P(EveryBarcodeType, Header) {
  const TypeCase& param = GetParam();
  EXPECT_EQ(ComposeBarcode({"0", "47", param.type, 1, "C", "D", "12"}),
            std::string(param.header) + "12");
}

TEST_P(EveryBarcodeType, KeyValues) {
  const TypeCase& param = GetParam();
  for (std::size_t key = 0; key < param.values.size(); ++key)
    EXPECT_EQ(KeyValue(param.type, static_cast<int>(key)), param.values[key]);
  EXPECT_THROW(KeyValue(param.type, param.key_count), std::out_of_range);
  EXPECT_THROW(KeyValue(param.type, -1), std::out_of_range);
}

TEST_P(EveryBarcodeType, ThePressThatReachesTheLimitDisablesThePad) {
  const TypeCase& param = GetParam();
  BarcodePad pad;
  pad.SelectType(param.type);
  for (int i = 1; i < param.maximum; ++i) pad.PressKey(1);
  EXPECT_TRUE(pad.IsPadEnabled());
  EXPECT_EQ(pad.PanelText(1), param.panel1);
  pad.PressKey(1);
  EXPECT_FALSE(pad.IsPadEnabled());
  EXPECT_TRUE(pad.IsNextEnabled());
  EXPECT_EQ(pad.PanelText(1), "Data is full!!");
  EXPECT_EQ(pad.PanelText(2), param.panel2);
  EXPECT_EQ(pad.Data().size(), static_cast<std::size_t>(param.maximum * (param.type < 2 ? 2 : 1)));
}

const std::vector<std::string> kHexValues = {"00", "01", "02", "03", "04", "05", "06", "07", "08",
                                             "09", "0A", "0B", "0C", "0D", "0E", "0F", "10", "11"};
const std::vector<std::string> kCode39Values = {"0", "1", "2", "3", "4", "5", "6", "7", "8",
                                                "9", "-", ".", " ", "$", "/", "+", "%"};
const std::vector<std::string> kItfValues = {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"};
const std::vector<std::string> kCodabarValues = {"0", "1", "2", "3", "4", "5", "6", "7",
                                                 "8", "9", "-", ".", ":", "$", "/", "+"};

const TypeCase kTypes[] = {
    {0, "Code 128", 11, kCode128Text, "Max 11 characters.", "0,47,0,B,", kHexValues, 103},
    {1, "Code 128 with Subscript", 11, kCode128Text, "Max 11 characters.", "0,47,1,B,", kHexValues,
     103},
    {2, "Code 39 (3 of 9)", 10, "Press 0 -  9, －, ．, <Space> , ＄, ／, ＋, ％",
     "Max 10 characters.   ＊(the start and stop code) is automatically applied. ", "0,47,2,",
     kCode39Values, 17},
    {3, "Code 39 (3 of 9) with Subscript", 10, "Press 0 -  9, －, ．, <Space> , ＄, ／, ＋, ％",
     "Max 10 characters.   ＊(the start and stop code) is automatically applied. ", "0,47,3,",
     kCode39Values, 17},
    {4, "ITF (Interleaved 2 of 5)", 20, "Press '0' - ' 9'", "Max 20 characters", "0,47,4,",
     kItfValues, 10},
    {5, "ITF (Interleaved 2 of 5) with Subscript", 20, "Press '0' - ' 9'", "Max 20 characters",
     "0,47,5,", kItfValues, 10},
    {6, "CODABAR (NW-7)", 13, "Press 0 -  9, －, ．, ：, ＄, ／, ＋", "Max 13 characters",
     "0,47,6,CD,", kCodabarValues, 16},
    {7, "CODABAR (NW-7) with Subscript", 13, "Press 0 -  9, －, ．, ：, ＄, ／, ＋",
     "Max 13 characters", "0,47,7,CD,", kCodabarValues, 16},
};

INSTANTIATE_TEST_SUITE_P(Types, EveryBarcodeType, testing::ValuesIn(kTypes),
                         [](const auto& param_info) {
                           return "Type" + std::to_string(param_info.param.type);
                         });

TEST(KeyValue, OfCode128IsTheKeysIndexInHexadecimal) {
  EXPECT_EQ(KeyValue(0, 5), "05");
  EXPECT_EQ(KeyValue(0, 33), "21");
  EXPECT_EQ(KeyValue(1, 95), "5F");
  EXPECT_EQ(KeyValue(1, 102), "66");
}

TEST(ComposeBarcode, Examples) {
  EXPECT_EQ(ComposeBarcode({"0", "47", 0, 1, "A", "A", "2122"}), "0,47,0,B,2122");
  EXPECT_EQ(ComposeBarcode({"0", "47", 2, 0, "A", "A", "12$"}), "0,47,2,12$");
  EXPECT_EQ(ComposeBarcode({"0", "47", 7, 0, "A", "B", "123"}), "0,47,7,AB,123");
}

TEST(ComposeBarcode, WithNoDataIsTheHeaderAlone) {
  EXPECT_EQ(ComposeBarcode({"0", "47", 0, 0, "A", "A", ""}), "0,47,0,A,");
  EXPECT_EQ(ComposeBarcode({"0", "47", 1, 2, "A", "A", ""}), "0,47,1,C,");
}

TEST(ComposeBarcode, TakesTheCoordinatesAsTypedEvenEmptyOrNonNumeric) {
  EXPECT_EQ(ComposeBarcode({"", "", 4, 0, "A", "A", "1"}), ",,4,1");
  EXPECT_EQ(ComposeBarcode({"007", "a,b \u00E9", 4, 0, "A", "A", "1"}), "007,a,b \u00E9,4,1");
}

TEST(ComposeBarcode, TakesStartAndEndCharactersAsTyped) {
  EXPECT_EQ(ComposeBarcode({"0", "47", 6, 0, "a", "", "1"}), "0,47,6,a,1");
}

TEST(BarcodePad, AtLoadNextIsEnabledAndBothPanelsAreEmpty) {
  const BarcodePad pad;
  EXPECT_EQ(pad.Type(), 0);
  EXPECT_EQ(pad.Data(), "");
  EXPECT_TRUE(pad.IsNextEnabled());
  EXPECT_TRUE(pad.IsPadEnabled());
  EXPECT_EQ(pad.PanelText(1), "");
  EXPECT_EQ(pad.PanelText(2), "");
  EXPECT_EQ(pad.Captions(), CodeSetCaptions(0));
}

TEST(BarcodePad, AtLoadTheLimitIsEleven) {
  BarcodePad pad;
  for (int i = 0; i < 10; ++i) pad.PressKey(i);
  EXPECT_TRUE(pad.IsPadEnabled());
  pad.PressKey(10);
  EXPECT_FALSE(pad.IsPadEnabled());
  EXPECT_EQ(pad.Data(), "000102030405060708090A");
}

BarcodePad FullPad(int type) {
  BarcodePad pad;
  pad.SelectType(type);
  while (pad.IsPadEnabled()) pad.PressKey(0);
  return pad;
}

TEST(BarcodePad, ATypeChangeLeavesAFullPadDisabledUntilClearOrACodeSet) {
  for (int type = 2; type < kBarcodeTypeCount; ++type) {
    BarcodePad pad = FullPad(2);
    pad.SelectType(type);
    EXPECT_EQ(pad.Data(), "");
    EXPECT_FALSE(pad.IsPadEnabled()) << type;
    pad.Clear();
    EXPECT_TRUE(pad.IsPadEnabled());
    EXPECT_EQ(pad.PanelText(1), "");
  }
  BarcodePad pad = FullPad(4);
  pad.SelectType(6);
  pad.SelectCodeSet(1);
  EXPECT_TRUE(pad.IsPadEnabled());
}

TEST(BarcodePad, ATypeChangeSetsTheCountBack) {
  BarcodePad pad;
  pad.SelectType(2);
  for (int i = 0; i < 9; ++i) pad.PressKey(1);
  pad.SelectType(6);
  for (int i = 0; i < 12; ++i) pad.PressKey(1);
  EXPECT_TRUE(pad.IsPadEnabled());
  pad.PressKey(1);
  EXPECT_FALSE(pad.IsPadEnabled());
}

TEST(BarcodePad, ACode128TypeEnablesAFullPadAndThenShowsItsText) {
  for (const int type : {0, 1}) {
    BarcodePad pad = FullPad(4);
    pad.SelectType(type);
    EXPECT_TRUE(pad.IsPadEnabled());
    EXPECT_EQ(pad.PanelText(1), kCode128Text);
  }
}

TEST(BarcodePad, ACode128TypeShowsSetAWhicheverCodeSetIsSelected) {
  BarcodePad pad;
  pad.SelectCodeSet(2);
  pad.SelectType(0);
  EXPECT_EQ(pad.Captions(), CodeSetCaptions(0));
}

TEST(BarcodePad, ACodeSetEmptiesDataAndPanelOneButNotPanelTwoNorNext) {
  BarcodePad pad;
  pad.SelectType(0);
  pad.SelectCodeSet(1);
  EXPECT_FALSE(pad.IsNextEnabled());
  pad.PressKey(7);
  pad.SelectCodeSet(2);
  EXPECT_EQ(pad.Data(), "");
  EXPECT_EQ(pad.PanelText(1), "");
  EXPECT_EQ(pad.PanelText(2), "Max 11 characters.");
  EXPECT_TRUE(pad.IsNextEnabled());
  EXPECT_EQ(pad.Captions(), CodeSetCaptions(2));
  // The count starts again.
  for (int i = 0; i < 10; ++i) pad.PressKey(99);
  EXPECT_TRUE(pad.IsPadEnabled());
}

TEST(BarcodePad, ClearEmptiesPanelOneAndDisablesNext) {
  BarcodePad pad = FullPad(4);
  pad.Clear();
  EXPECT_EQ(pad.Data(), "");
  EXPECT_FALSE(pad.IsNextEnabled());
  EXPECT_TRUE(pad.IsPadEnabled());
  EXPECT_EQ(pad.PanelText(1), "");
  EXPECT_EQ(pad.PanelText(2), "Max 20 characters");
}

}  // namespace
}  // namespace vantrel::printdata
