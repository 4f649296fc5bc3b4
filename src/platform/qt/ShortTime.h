// Hours and minutes in the short format of a locale.
#pragma once

#include <QLocale>
#include <QTime>

QString shortTime(const QLocale& locale, QTime time);
