#pragma once

#include "tap/Recorder.h"

#include <memory>
#include <string_view>

namespace portico::tap {

/// A session of the recorder, for as long as the object lives.
class Recording {
public:
  explicit Recording(Recorder& recorder) : m_recorder(recorder), m_session(recorder.Begin()) {}
  ~Recording() {
    m_recorder.End(m_session);
    m_recorder.Write();
  }
  Recording(const Recording&) = delete;
  Recording& operator=(const Recording&) = delete;

  void Instruction(Message&& message) { m_recorder.Instruction(m_session, std::move(message)); }
  void Response(Message&& message) { m_recorder.Response(m_session, std::move(message)); }

private:
  Recorder& m_recorder;
  const Recorder::Session m_session;
};

/// What a client and the instrument say to each other, cut into the messages that are recorded.
class Talk {
public:
  /// `marks`: whether the protocol marks the ends of answers.
  Talk(std::shared_ptr<Recording> recording, drivers::Marks marks);
  /// What has begun breaks off.
  ~Talk() { Break(); }
  Talk(const Talk&) = delete;
  Talk& operator=(const Talk&) = delete;

  /// What has gone to the instrument, and whether the protocol marks a message's end behind it.
  void Sent(std::string_view bytes, bool end = false);
  /// What has come from it, in the same way.
  void Answered(std::string_view bytes, bool end = false);
  /// What has begun on either side breaks off here.
  void Break();

private:
  const std::shared_ptr<Recording> m_recording;
  const MessageSink m_instruction;
  const MessageSink m_response;
  InstructionSplitter m_instructions{Recorder::LongestMessage};
  AnswerSplitter m_answers;
};

} // namespace portico::tap
