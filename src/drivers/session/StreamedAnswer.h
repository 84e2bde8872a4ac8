#pragma once

#include "drivers/session/MessageReader.h"
#include "platform/IExtendedDriver.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace portico::drivers {

/// One answer on its way to a sink, while its bytes come in. The last of them are held back until it is known whether
/// they are its terminator, so that the sink gets nothing but data.
class StreamedAnswer {
public:
  /// `sink` outlives the answer.
  StreamedAnswer(const MessageReader& reader, const AnswerSink& sink) : m_reader(reader), m_sink(sink) {}

  /// Takes what belongs to the answer, its terminator included, and answers how many bytes that are.
  std::size_t Take(std::string_view bytes);
  /// The transport says that the answer ends here.
  void End() { m_reader.End(); }
  bool Complete() const { return m_reader.Complete(); }
  /// Its terminator has ended it.
  bool Terminated() const { return m_reader.TerminatorLength() > 0; }
  /// Hands on what was held back of the complete answer.
  void Finish();

  /// Some of it has come.
  bool Begun() const { return m_begun; }
  /// The sink takes no more.
  bool Refused() const { return m_refused; }

private:
  void Pass(std::string_view piece);

  MessageReader m_reader;
  const AnswerSink& m_sink;
  std::string m_held;
  bool m_begun = false;
  bool m_refused = false;
};

} // namespace portico::drivers
