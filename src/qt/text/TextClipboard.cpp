#include "qt/text/TextClipboard.h"

#include "qt/values/QtText.h"
#include "richtext/RtfReader.h"
#include "richtext/RtfWriter.h"

#include <algorithm>
#include <span>
#include <string_view>

namespace portico::qt {
namespace {

// The first is the one that is written. The last is often something else than RTF, so it is read where it comes along
// and does not count as an offer.
constexpr const char* FragmentTypes[] = {"text/rtf", "application/rtf", "text/richtext"};
constexpr std::span OfferedTypes(FragmentTypes, 2);

/// Without the zero bytes that some programs put behind it.
String Fragment(const QMimeData& data) {
  for (const char* type : FragmentTypes) {
    const QByteArray bytes = data.data(QString::fromLatin1(type));
    const std::string_view text(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    if (text.starts_with("{\\rtf")) return FromCodePage(text.substr(0, text.find('\0')));
  }
  return {};
}

} // namespace

std::unique_ptr<QMimeData> ToClipboard(const richtext::FormattedText& text) {
  auto data = std::make_unique<QMimeData>();
  String plain;
  for (const richtext::FormattedLine& line : text) {
    if (&line != &text.front()) plain += u'\n';
    plain += line.Text;
  }
  data->setText(ToQt(plain));
  data->setData(QString::fromLatin1(FragmentTypes[0]), QByteArray::fromStdString(ToUtf8(WriteRtf(text))));
  return data;
}

richtext::FormattedText FromClipboard(const QMimeData& data, const richtext::Formatting& base) {
  if (const String fragment = Fragment(data); !fragment.empty()) return richtext::ReadRtf(fragment, base);
  const String text = ReplaceAll(FromQt(data.text()), u"\u2028", u"\n");
  return richtext::FormatPlain(ReplaceAll(text, u"\u2029", u"\n"), base);
}

bool HasText(const QMimeData& data) {
  return data.hasText() ||
         std::ranges::any_of(OfferedTypes, [&](const char* type) { return data.hasFormat(QString::fromLatin1(type)); });
}

} // namespace portico::qt
