// SPDX-License-Identifier: MIT
#pragma once

#include "console/sample_data.h"

#include <QDate>
#include <QLocale>
#include <QString>
#include <QTime>

namespace vantrel::console {

// The format of a time of day, as QLocale::timeFormat gives it, without the time zone that it
// begins or ends with and what stood around it; parts of the day are told as before and after noon.
QString WithoutTimeZone(const QString& format);

// The format in which a language writes a time of day at length, without the time zone that some
// formats begin or end with.
QString LongTimeFormat(const QLocale& locale);

// A date in the short format of a language, a time of day in its long format; the numeric writings
// are "yyyy-MM-dd" and "HH:mm:ss".
TimeText ShortDateOf(const QDate& date, const QLocale& locale);
TimeText LongTimeOf(const QTime& time, const QLocale& locale);

// The date and time of this machine in the formats of `locale`.
SystemTime SystemTimeOf(const QLocale& locale);

}  // namespace vantrel::console
