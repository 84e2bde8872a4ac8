#include "plot/Curves.h"

#include "numbers/Block.h"
#include "numbers/NumberList.h"

#include <algorithm>
#include <utility>

namespace portico::plot {

void Curves::Choose(const plot::Choice& choice) {
  m_choice = choice;
  Update();
}

void Curves::Update() {
  m_curves.clear();
  m_fault.clear();
  m_isTime = m_choice.Kind == CurveKind::OverTime;
  if (m_isTime) {
    m_read.clear();
    for (const String& query : m_choice.Queries) AddOverTime(query);
  } else {
    for (const String& query : m_choice.Queries) AddOverIndex(query);
    std::erase_if(m_read, [this](const auto& read) {
      return std::none_of(m_curves.begin(), m_curves.end(), [&](const Curve& c) { return c.Data == &read->Data; });
    });
    // All places are those of waveforms, or all are indices.
    m_isTime = !m_read.empty() && std::all_of(m_read.begin(), m_read.end(), [](const auto& r) { return r->IsTime; });
  }
  if (m_choice.Queries.empty()) Note(u"Nothing is chosen.");
}

void Curves::AddOverTime(const String& query) {
  const auto* answers = m_conversation.Queries().Find(query);
  if (answers == nullptr) return Note(query + u" was not answered with numbers.");
  if (answers->Curves.empty()) return Note(query + u" was answered with blocks: see its last answer.");
  for (std::size_t i = 0; i < answers->Curves.size(); ++i) {
    String name = answers->Query;
    if (answers->Curves.size() > 1) name += u" [" + ToText(static_cast<std::int64_t>(i) + 1) + u"]";
    m_curves.push_back({std::move(name), &answers->Curves[i]});
  }
}

void Curves::AddOverIndex(const String& query) {
  const auto* answer = m_conversation.Last(query);
  if (answer == nullptr) return Note(query + u" has no answer of several numbers.");
  const std::shared_ptr<Read> read = ReadAnswer(*answer);
  if (!read->Fault.empty()) return Note(read->Fault);
  if (std::find(m_read.begin(), m_read.end(), read) == m_read.end()) m_read.push_back(read);
  m_curves.push_back({answer->Query, &read->Data});
}

/// What has been read already is not read again.
std::shared_ptr<Curves::Read> Curves::ReadAnswer(const Conversation::LastAnswer& answer) const {
  const numbers::ElementFormat format{m_choice.Type.value_or(answer.Format.Type),
                                      m_choice.Order.value_or(answer.Format.Order)};
  for (const auto& read : m_read) {
    if (read->Number == answer.Number && read->Format == format) return read;
  }
  auto read = std::make_shared<Read>();
  read->Number = answer.Number;
  read->Format = format;
  const bool isBlock = numbers::LooksLikeBlock(answer.Text);
  const auto values = isBlock ? numbers::ReadBlockNumbers(answer.Text, format) : numbers::ReadNumberList(answer.Text);
  if (const auto* fault = std::get_if<numbers::Fault>(&values)) {
    read->Fault = answer.Query + u": " + fault->Text;
    return read;
  }
  const bool isScaled = isBlock && answer.Scale.has_value();
  read->IsTime = isScaled;
  double index = 0;
  for (const double value : std::get<numbers::Values>(values)) {
    if (isScaled) {
      read->Data.Append(answer.Scale->Place(index), answer.Scale->Value(value));
    } else {
      read->Data.Append(index, value);
    }
    ++index;
  }
  return read;
}

void Curves::Note(const String& fault) {
  if (m_fault.empty()) m_fault = fault;
}

} // namespace portico::plot
