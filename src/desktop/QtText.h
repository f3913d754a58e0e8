#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "VantrelI18n.h"

/// Between the program's texts and Qt's.
inline QString FromUtf8(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string ToUtf8(const QString& text) {
  return text.toStdString();
}
/// A built-in text as Qt shall show it.
inline QString UserText(std::string_view builtIn) {
  return FromUtf8(ResourceText(builtIn));
}
