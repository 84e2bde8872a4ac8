#include "tap/Recorder.h"

#include "document/entities/CDataEntity.h"
#include "framework/errors/HuntERR.h"

#include <utility>

namespace portico::tap {

Recorder::Recorder(Outputs outputs) : m_outputs(std::move(outputs)) {
  if (m_outputs.Conversation != nullptr) m_printer.emplace(*m_outputs.Conversation, m_outputs.ToTerminal);
  if (!m_outputs.Log) return;
  m_outputs.Log->SaveFailed.Connect([this](StringView failure) {
    if (!std::exchange(m_failing, true)) m_outputs.Tell("the log cannot be written: " + ToUtf8(failure));
  });
}

Recorder::~Recorder() {
  Finish();
  if (m_outputs.Log) m_outputs.Log->SaveFailed = {};
}

void Recorder::Finish() {
  EndOpen();
  Write();
}

Recorder::Session Recorder::Begin() {
  EndOpen();
  m_open = true;
  m_waiting.push_back({Entry::Kind::Begin});
  return ++m_last;
}

void Recorder::Add(Session session, StringView dataType, Message&& message) {
  if (!m_open || session != m_last) return;
  if (message.Length > message.Bytes.size()) {
    m_outputs.Tell("of a message of " + std::to_string(message.Length) + " bytes the first " +
                   std::to_string(message.Bytes.size()) + " are kept");
  }
  m_waiting.push_back({Entry::Kind::Message, dataType, std::move(message.Bytes)});
}

void Recorder::End(Session session) {
  if (session == m_last) EndOpen();
}

void Recorder::EndOpen() {
  if (std::exchange(m_open, false)) m_waiting.push_back({Entry::Kind::End});
}

void Recorder::Write() {
  if (m_waiting.empty()) return;
  const std::vector<Entry> waiting = std::exchange(m_waiting, {});
  for (const Entry& entry : waiting) Write(entry);
  if (m_outputs.Conversation != nullptr) m_outputs.Conversation->flush();
}

void Recorder::Write(const Entry& entry) try {
  if (entry.What == Entry::Kind::Message) {
    WriteMessage(entry);
  } else if (!m_outputs.Log) {
    return;
  } else if (entry.What == Entry::Kind::Begin) {
    if (m_unclosed) CloseSession();
    m_outputs.Log->OpenSession();
  } else {
    CloseSession();
  }
  m_failing = false;
} catch (...) {
  StopHere(u"Recorder.Write(entry)");
}

void Recorder::CloseSession() {
  m_unclosed = true;
  m_outputs.Log->CloseSession();
  m_unclosed = false;
}

void Recorder::WriteMessage(const Entry& entry) {
  const auto entity = New<CDataEntity>();
  entity->Initialize(ToBytes(FromCodePage(entry.Bytes).append(NewLine)), entry.DataType, {});
  if (m_printer) m_printer->Show(*entity);
  if (m_outputs.Log) m_outputs.Log->AppendDataEntityToStore(entity);
}

} // namespace portico::tap
