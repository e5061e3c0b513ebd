// Texts between the program (Windows-1252) and Qt (UTF-16).
#pragma once

#include <QString>
#include <filesystem>
#include <string>
#include <string_view>

#include "core/text.h"

namespace lm {

inline QString ToQt(std::string_view text) { return QString::fromStdString(ToUtf8(text)); }

// A character without a place in Windows-1252 becomes "?".
inline std::string FromQt(const QString& text) { return FromUtf8(text.toStdString()); }

inline std::filesystem::path ToPath(const QString& name) { return {name.toStdU16String()}; }
inline QString FromPath(const std::filesystem::path& path) {
  return QString::fromStdU16String(path.u16string());
}

// A caption without its Alt letter's mark: "&Start:" is "Start". "&&" is one "&".
inline QString PlainCaption(QString caption) {
  caption.replace(QStringLiteral("&&"), QStringLiteral("\x01")).remove(u'&').replace(u'\x01', u'&');
  if (caption.endsWith(u':')) caption.chop(1);
  return caption;
}

}  // namespace lm
