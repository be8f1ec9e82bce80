// SPDX-License-Identifier: MIT

// Dates and times in the formats of many languages: 20 November 2026, 21:05:03. What is expected is
// written out from each language's conventions.

#include "console/system_time.h"

#include "tests/console/command_fixture.h"

#include <cstdlib>
#include <ctime>

namespace vantrel::console {
namespace {

const QDate kDate(2026, 11, 20);
const QTime kTime(21, 5, 3);

// Limits of the samples: 69 characters for 35h, 37h, 38h and 3Ah, 76 for 3Bh.
constexpr std::size_t kMaximum7Bit = 69;
constexpr std::size_t kMaximumTrack1 = 76;

struct LanguageCase {
  const char* locale;
  // As the sample data of 35h and 37h carry them, and as 3Bh does.
  const char* date;
  const char* time;
  const char* capital_date;
  const char* capital_time;
};

void PrintTo(const LanguageCase& language, std::ostream* stream) { *stream << language.locale; }

// Times would carry this zone's name if they carried any.
class TimeZone {
 public:
  TimeZone() {
    setenv("TZ", "XYZ-9", 1);
    tzset();
  }
  ~TimeZone() {
    unsetenv("TZ");
    tzset();
  }
};

class Languages : public CommandFixture, public testing::WithParamInterface<LanguageCase> {
 protected:
  // The data field of the only frame sent by a data set command that was answered No.
  std::string SampleOf(const char* button) {
    dialogs.Answers(dialogs::Answer::kNo);
    Press(button);
    const std::string frame = Frames().back();
    std::string text;
    for (std::size_t i = 4; i + 4 < frame.size(); i += 2)
      text += static_cast<char>(std::stoi(frame.substr(i, 2), nullptr, 16));
    return text;
  }
  const TimeZone zone_;
};

TEST_P(Languages, SamplesCarryDateAndTimeWithinRangeAndLength) {
  const LanguageCase& expected = GetParam();
  const QLocale locale{QString(expected.locale)};
  date = ShortDateOf(kDate, locale);
  time = LongTimeOf(kTime, locale);
  for (const char* button : {"Cmd35", "Cmd38"})
    EXPECT_EQ(SampleOf(button), std::string("Track 1 Data    Date: ") + expected.date);
  for (const char* button : {"Cmd37", "Cmd3A"})
    EXPECT_EQ(SampleOf(button), std::string("Track 3 Data    Time: ") + expected.time);
  EXPECT_EQ(SampleOf("Cmd3B"), std::string("TRACK1 DATA     DATE: ") + expected.capital_date +
                                   "     TIME: " + expected.capital_time);
}

INSTANTIATE_TEST_SUITE_P(
    All, Languages,
    testing::Values(LanguageCase{"C", "20 Nov 2026", "21:05:03", "20 NOV 2026", "21:05:03"},
                    LanguageCase{"en_US", "11/20/26", "9:05:03 PM", "11/20/26", "9:05:03 PM"},
                    LanguageCase{"de_DE", "20.11.26", "21:05:03", "20.11.26", "21:05:03"},
                    LanguageCase{"fr_FR", "20/11/2026", "21:05:03", "20/11/2026", "21:05:03"},
                    // The words for hour, minute and second are no characters of a track.
                    LanguageCase{"ja_JP", "2026/11/20", "21:05:03", "2026/11/20", "21:05:03"},
                    LanguageCase{"ko_KR", "26. 11. 20.", "21:05:03", "26. 11. 20.", "21:05:03"},
                    LanguageCase{"zh_TW", "2026/11/20", "21:05:03", "2026/11/20", "21:05:03"},
                    // Neither are Arabic digits.
                    LanguageCase{"ar_EG", "2026-11-20", "21:05:03", "2026-11-20", "21:05:03"}),
    NameBy<&LanguageCase::locale>());

TEST(LongTimeFormat, LeavesTheTimeZoneOutAndWhatStoodAroundIt) {
  EXPECT_EQ(LongTimeFormat(QLocale("en_US")), "h:mm:ss AP");
  EXPECT_EQ(LongTimeFormat(QLocale("de_DE")), "HH:mm:ss");
  // In brackets, round and square, and behind a comma.
  EXPECT_EQ(LongTimeFormat(QLocale("es_ES")), "H:mm:ss");
  EXPECT_EQ(LongTimeFormat(QLocale("zh_HK")), "APh:mm:ss");
  EXPECT_EQ(LongTimeFormat(QLocale("sq_AL")), "h:mm:ss AP");
  // In front.
  EXPECT_EQ(LongTimeFormat(QLocale("zh_CN")), "HH:mm:ss");
}

TEST(LongTimeFormat, WritesAPartOfTheDayThatQtCannotTellAsBeforeOrAfterNoon) {
  EXPECT_EQ(LongTimeFormat(QLocale("zh_TW")), "APh:mm:ss");
  EXPECT_EQ(LongTimeOf(kTime, QLocale("zh_TW")).local, "\u4E0B\u53489:05:03");
}

TEST(LongTimeFormat, KeepsQuotedWords) {
  // A "t" of a quoted word is no time zone, and a full stop belongs to its abbreviation.
  EXPECT_EQ(LongTimeFormat(QLocale("fr_CA")), "HH 'h' mm 'min' ss 's'");
  EXPECT_EQ(LongTimeFormat(QLocale("bg_BG")), "H:mm:ss '\u0447'.");
}

TEST(WithoutTimeZone, LeavesTheLettersOfQuotedWords) {
  EXPECT_EQ(WithoutTimeZone("'at' HH:mm '(local time)', t"), "'at' HH:mm '(local time)'");
  EXPECT_EQ(WithoutTimeZone("HH:mm:ss [tttt]"), "HH:mm:ss");
}

TEST(SystemTimeOf, EveryLanguageGivesSamplesThatTheirTracksTake) {
  const TimeZone zone;
  const CharacterRange letters = CharacterRange::Parse("01h - 7Eh");
  const CharacterRange capitals = CharacterRange::Parse("20h - 5Eh");
  const auto locales =
      QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
  ASSERT_GT(locales.size(), 100);
  for (const QLocale& locale : locales) {
    SCOPED_TRACE(locale.name().toStdString());
    const TimeText long_time = LongTimeOf(kTime, locale);
    EXPECT_THAT(long_time.local, testing::Not(testing::HasSubstr("XYZ")));
    for (const CharacterRange& range : {letters, capitals}) {
      const std::string date = SampleTime(ShortDateOf(kDate, locale), range);
      const std::string time = SampleTime(long_time, range);
      EXPECT_TRUE(range.Takes(date)) << date;
      EXPECT_TRUE(range.Takes(time)) << time;
      EXPECT_LE(22 + date.size(), kMaximum7Bit) << date;
      EXPECT_LE(22 + time.size(), kMaximum7Bit) << time;
      EXPECT_LE(22 + date.size() + 11 + time.size(), kMaximumTrack1) << date << ", " << time;
      EXPECT_THAT(date, testing::HasSubstr("20")) << date;
      // Hour, minute, second, and nothing left over from a time zone.
      EXPECT_THAT(time, testing::MatchesRegex(".*[0-9].*5.*03.*"));
      EXPECT_EQ(time.find_first_of("[](),"), std::string::npos) << time;
    }
  }
}

TEST(SystemTimeOf, TellsTheDateAndTimeWhenItIsAsked) {
  const SystemTime system_time = SystemTimeOf(QLocale::c());
  const QDateTime before = QDateTime::currentDateTime();
  const TimeText date = system_time.short_date();
  const TimeText time = system_time.long_time();
  const QDateTime after = QDateTime::currentDateTime();
  const auto told = QDateTime::fromString(QString::fromStdString(date.numeric + " " + time.numeric),
                                          "yyyy-MM-dd HH:mm:ss");
  EXPECT_GE(told.addSecs(1), before) << date.numeric << " " << time.numeric;
  EXPECT_LE(told, after) << date.numeric << " " << time.numeric;
}

}  // namespace
}  // namespace vantrel::console
