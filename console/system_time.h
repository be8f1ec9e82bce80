#pragma once

#include "console/sample_data.h"

#include <QLocale>
#include <QString>

namespace vantrel {

// The format in which a language writes a time of day at length, without the time zone that some
// formats end with.
QString LongTimeFormat(const QLocale& locale);

// The date and time of this machine in the formats of `locale`.
SystemTime SystemTimeOf(const QLocale& locale);

}  // namespace vantrel
