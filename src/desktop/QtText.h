#pragma once

#include <QString>
#include <string>
#include <string_view>

/// Between the program's texts and Qt's.
inline QString FromUtf8(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string ToUtf8(const QString& text) {
  return text.toStdString();
}
