#include "numbers/AnsweredQueries.h"

#include "numbers/Block.h"
#include "numbers/NumberList.h"
#include "numbers/Syntax.h"

#include <algorithm>

namespace portico::numbers {
void AnsweredQueries::Add(StringView query, StringView answer, double seconds) {
  query = Stripped(query);
  const bool block = LooksLikeBlock(answer);
  const auto read = block ? Values() : ReadNumberList(answer);
  const auto* values = std::get_if<Values>(&read);
  const auto known = m_byQuery.find(query);
  if (values == nullptr && known == m_byQuery.end()) return;
  Answers& answers = known == m_byQuery.end() ? Remember(query) : *known->second;
  answers.LastAnswer = ++m_answers;
  answers.Blocks |= block;
  const std::size_t count = values == nullptr ? 0 : values->size();
  answers.MostNumbers = std::max(answers.MostNumbers, count);
  answers.Curves.resize(std::min(answers.MostNumbers, MostCurves));
  for (std::size_t i = 0; i < answers.Curves.size(); ++i) {
    answers.Curves[i].Append(seconds, i < count ? (*values)[i] : Gap);
  }
}

AnsweredQueries::Answers& AnsweredQueries::Remember(StringView query) {
  if (m_all.size() == MostQueries) {
    const auto oldest = std::min_element(
        m_all.begin(), m_all.end(), [](const Answers& a, const Answers& b) { return a.LastAnswer < b.LastAnswer; });
    m_byQuery.erase(oldest->Query);
    m_all.erase(oldest);
  }
  Answers& answers = m_all.emplace_back();
  answers.Query = query;
  m_byQuery.emplace(answers.Query, std::prev(m_all.end()));
  return answers;
}

const AnsweredQueries::Answers* AnsweredQueries::Find(StringView query) const {
  const auto found = m_byQuery.find(Stripped(query));
  return found == m_byQuery.end() ? nullptr : &*found->second;
}

} // namespace portico::numbers
