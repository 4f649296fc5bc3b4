// Converts between units of the portable code and of Qt: texts, and twips and logical pixels.
#pragma once

#include <QString>
#include <QStringView>
#include <string>
#include <string_view>

// 1,440 twips and 96 logical pixels per inch, whatever the scale factor of the screen.
inline constexpr int kTwipsPerPixel = 15;

inline double toTwips(int pixels) { return static_cast<double>(pixels) * kTwipsPerPixel; }
inline int toPixels(double twips) { return qRound(twips / kTwipsPerPixel); }

// Converts unit by unit: lone surrogates and byte-order marks are kept.
inline QString toQt(std::u16string_view text) {
    return QStringView(text.data(), static_cast<qsizetype>(text.size())).toString();
}
inline std::u16string fromQt(const QString& text) { return text.toStdU16String(); }
