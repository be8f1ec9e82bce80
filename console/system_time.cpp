// SPDX-License-Identifier: MIT

#include "console/system_time.h"

namespace vantrel::console {

QString WithoutTimeZone(const QString& format) {
  // Quoted words are literal; a "t" in them is no time zone.
  QString without_zone;
  bool quoted = false;
  for (const QChar character : format) {
    if (character == u'\'') quoted = !quoted;
    if (!quoted && QStringView(u"t()[]").contains(character)) continue;
    // Parts of the day ("in the evening"), which Qt would write as this letter.
    if (!quoted && character == u'B')
      without_zone += "AP";
    else
      without_zone += character;
  }
  without_zone = without_zone.trimmed();
  // A comma may have stood before the zone.
  if (without_zone.endsWith(u',')) without_zone.chop(1);
  return without_zone;
}

QString LongTimeFormat(const QLocale& locale) {
  return WithoutTimeZone(locale.timeFormat(QLocale::LongFormat));
}

TimeText ShortDateOf(const QDate& date, const QLocale& locale) {
  return {locale.toString(date, QLocale::ShortFormat).toStdString(),
          date.toString("yyyy-MM-dd").toStdString()};
}

TimeText LongTimeOf(const QTime& time, const QLocale& locale) {
  return {locale.toString(time, LongTimeFormat(locale)).toStdString(),
          time.toString("HH:mm:ss").toStdString()};
}

SystemTime SystemTimeOf(const QLocale& locale) {
  return {[locale] { return ShortDateOf(QDate::currentDate(), locale); },
          [locale] { return LongTimeOf(QTime::currentTime(), locale); }};
}

}  // namespace vantrel::console
