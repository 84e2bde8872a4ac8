#include "logtool/TableOutput.h"

#include "document/entities/IDataEntity.h"
#include "framework/text/Printable.h"
#include "logtool/CsvField.h"
#include "numbers/SpecialValues.h"

#include <array>
#include <charconv>

namespace portico::logtool {
namespace {

constexpr char Separator = '\x1F'; // no field holds a control character

std::string TextOf(const numbers::Quantity& quantity) {
  if (numbers::IsGap(quantity.Value)) return "NaN";
  if (numbers::IsOverload(quantity.Value)) return quantity.Value > 0 ? "Inf" : "-Inf";
  if (!quantity.Text.starts_with(u'#')) return ToUtf8(quantity.Text);
  std::array<char, 32> digits{}; // of 2^64, and more
  const auto end = std::to_chars(digits.begin(), digits.end(), quantity.Value, std::chars_format::fixed).ptr;
  return {digits.begin(), end};
}

/// The field at the front of a row, which is taken off.
std::string_view TakeField(std::string_view& row) {
  const std::size_t end = row.find(Separator);
  const std::string_view field = row.substr(0, end);
  row.remove_prefix(end == std::string_view::npos ? row.size() : end + 1);
  return field;
}

} // namespace

TableOutput::TableOutput(std::ostream& out, StringView query) : m_out(out), m_query(Trim(query)) {}

void TableOutput::OpenSession(const Session& /*session*/) { m_isAsked = false; }

std::string TableOutput::Add(const LogEntry& entry) {
  const String kind = FromUtf8(entry.Kind).Text;
  if (kind == DataTypeName::Instruction || kind == DataTypeName::AutomaticInstruction) {
    m_isAsked = EqualNoCase(Trim(WithoutLineEnd(entry.Text)), m_query);
  }
  if (kind != DataTypeName::Response || !m_isAsked) return {};
  const auto quantities = numbers::ReadQuantities(entry.Text);
  Keep(entry.Stamp, quantities.value_or(std::vector<numbers::Quantity>()));
  return quantities ? std::string() : "the answer of " + entry.Stamp + " is no list of numbers";
}

void TableOutput::Keep(const std::string& stamp, const std::vector<numbers::Quantity>& quantities) {
  std::string row = CsvField(Printable(FromUtf8(stamp).Text));
  if (m_units.size() < quantities.size()) m_units.resize(quantities.size());
  for (std::size_t i = 0; i < quantities.size(); ++i) {
    const numbers::Quantity& quantity = quantities[i];
    row.append({Separator}).append(TextOf(quantity)).append({Separator}).append(ToUtf8(quantity.Unit));
    if (!quantity.Unit.empty()) m_units[i] = true;
  }
  m_rows.Add(row);
}

void TableOutput::End() {
  m_out << "Timestamp";
  for (std::size_t i = 0; i < m_units.size(); ++i) {
    m_out << ",Value" << i + 1;
    if (m_units[i]) m_out << ",Unit" << i + 1;
  }
  m_out << "\r\n";
  m_rows.ForEach([this](std::string_view row) { PrintRow(row); });
}

void TableOutput::PrintRow(std::string_view row) {
  m_out << TakeField(row);
  for (const bool hasUnits : m_units) {
    m_out << ',' << TakeField(row);
    const std::string_view unit = TakeField(row);
    if (hasUnits) m_out << ',' << unit;
  }
  m_out << "\r\n";
}

} // namespace portico::logtool
