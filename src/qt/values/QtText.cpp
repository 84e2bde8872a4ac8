#include "qt/values/QtText.h"

namespace portico::qt {

QString Spoken(const String& caption) {
  String text;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == u'&' && ++i == caption.size()) break;
    text += caption[i];
  }
  return ToQt(text);
}

} // namespace portico::qt
