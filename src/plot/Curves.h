#pragma once

#include "plot/Conversation.h"

#include <memory>
#include <optional>
#include <vector>

namespace portico::plot {

enum class CurveKind : std::uint8_t {
  OverTime,  ///< a query's answers, a curve for each number of a list
  OverIndex, ///< the last answer of a query
};

/// What is chosen to be seen.
struct Choice {
  std::vector<String> Queries = {};
  CurveKind Kind = CurveKind::OverTime;
  /// Of blocks; what is not chosen is taken from the conversation.
  std::optional<numbers::ElementType> Type = {};
  std::optional<numbers::ByteOrder> Order = {};
};

struct Curve {
  String Name;
  const numbers::Series* Data;
};

/// The curves of a choice.
class Curves {
public:
  /// The conversation must outlive this, and be followed by `Update` before the curves are used again.
  explicit Curves(const Conversation& conversation) : m_conversation(conversation) {}

  void Choose(const plot::Choice& choice);
  const plot::Choice& Choice() const { return m_choice; }
  /// After each change of the conversation. Costs little where nothing new has come for the chosen queries.
  void Update();

  const std::vector<Curve>& All() const { return m_curves; }
  /// Places are seconds: of answers, or of a waveform whose preamble has told them.
  bool IsTime() const { return m_isTime; }
  /// Why there is nothing to be seen of what is chosen, in one sentence; empty if there is.
  const String& Fault() const { return m_fault; }

private:
  struct Read {
    std::uint64_t Number = 0; // of the answer
    numbers::ElementFormat Format;
    numbers::Series Data;
    String Fault;
    bool IsTime = false;
  };

  void AddOverTime(const String& query);
  void AddOverIndex(const String& query);
  std::shared_ptr<Read> ReadAnswer(const Conversation::LastAnswer& answer) const;
  void Note(const String& fault);

  const Conversation& m_conversation;
  plot::Choice m_choice;
  std::vector<Curve> m_curves;
  std::vector<std::shared_ptr<Read>> m_read; // what the curves over the index stand on
  String m_fault;
  bool m_isTime = true;
};

} // namespace portico::plot
