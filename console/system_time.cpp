#include "console/system_time.h"

#include <QDate>
#include <QTime>

namespace vantrel {

QString LongTimeFormat(const QLocale& locale) {
  const QString format = locale.timeFormat(QLocale::LongFormat);
  // Quoted words are literal; a "t" in them is no time zone.
  QString without_zone;
  bool quoted = false;
  for (const QChar character : format) {
    if (character == u'\'') quoted = !quoted;
    if (quoted || (character != u't' && character != u'(' && character != u')'))
      without_zone += character;
  }
  return without_zone.trimmed();
}

SystemTime SystemTimeOf(const QLocale& locale) {
  SystemTime time;
  time.short_date = [locale] {
    const QDate today = QDate::currentDate();
    return TimeText{locale.toString(today, QLocale::ShortFormat).toStdString(),
                    today.toString("yyyy-MM-dd").toStdString()};
  };
  time.long_time = [locale] {
    const QTime now = QTime::currentTime();
    return TimeText{locale.toString(now, LongTimeFormat(locale)).toStdString(),
                    now.toString("HH:mm:ss").toStdString()};
  };
  return time;
}

}  // namespace vantrel
