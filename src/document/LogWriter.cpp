#include "document/LogWriter.h"

#include "document/LogRewriter.h"
#include "document/LogText.h"

#include <exception>

namespace portico {
namespace {

bool Stands(const ILogFile& file, std::uint64_t position, std::string_view bytes) {
  std::string found(bytes.size(), '\0');
  return file.Read(position, found.data(), found.size()) == bytes.size() && found == bytes;
}

} // namespace

std::string LogWriter::Session::Tag() const { return LogText::SessionTag(OpenStamp, CloseStamp); }

std::uint64_t LogWriter::Session::Room() const { return Position + LogText::SessionTagStart(OpenStamp).size(); }

void LogWriter::Create() {
  const std::string head = LogText::Head();
  m_identity = m_disk.Replace(m_path, [&](const ILogDisk::Sink& sink) {
    sink(head);
    sink(LogText::RootEnd);
  });
  m_end = head.size();
  m_isPrepared = true;
}

void LogWriter::TakeUp(const LogFileIdentity& identity, LogReading reading) {
  m_identity = identity;
  m_reading = std::move(reading);
  m_isPrepared = false;
}

void LogWriter::OpenSession(StringView stamp) {
  Session session{String(stamp), {}, 0};
  const std::string tag = session.Tag();
  if (m_openAtEnd || !m_text.empty()) m_text += LogText::SessionEnd;
  session.Position = m_text.size();
  m_text += tag;
  m_last = std::move(session);
  m_isLastInText = true;
}

void LogWriter::CloseSession(StringView stamp) {
  const std::string field = LogText::CloseStampField(stamp);
  m_last->CloseStamp = stamp;
  if (m_isLastInText) {
    m_text.replace(m_last->Room(), field.size(), field);
  } else {
    m_openAtEnd = m_last;
    m_stamping = Stamping{*m_last, field};
  }
}

void LogWriter::Save() {
  auto file = m_disk.Open(m_path, ILogDisk::Access::ReadAndWrite);
  if (!file) return BeginAnew();
  if (!StandsAsLeft(*file)) TakeUpChanged(*file);
  if (!m_isPrepared) file = Prepare(std::move(file));
  if (!m_text.empty()) WriteText(*file);
  if (m_stamping) file->Write(m_stamping->Closed.Room(), m_stamping->Field);
  m_stamping.reset();
}

std::string LogWriter::Unsaved() const {
  if (m_text.empty()) return {};
  return "<" + std::string(LogName::Root) + ">" + TextOfItsOwn() + std::string(LogText::SessionAndRootEnd);
}

std::string_view LogWriter::ClosingTags() const { return m_openAtEnd ? LogText::SessionAndRootEnd : LogText::RootEnd; }

bool LogWriter::StandsAsLeft(const ILogFile& file) const {
  if (!(file.Identity() == m_identity)) return false;
  if (!m_isPrepared) return true;
  if (!Stands(file, m_end, ClosingTags())) return false;
  if (!m_stamping) return true;
  const Session& closed = m_stamping->Closed;
  return Stands(file, closed.Position, LogText::SessionTagStart(closed.OpenStamp)) &&
         Stands(file, closed.Room() + LogText::CloseStampRoom, ">");
}

/// The text as sessions for a file that has none of them.
std::string LogWriter::TextOfItsOwn() const {
  if (!m_openAtEnd) return m_text;
  if (m_text.compare(0, LogText::SessionEnd.size(), LogText::SessionEnd) == 0) {
    return m_text.substr(LogText::SessionEnd.size());
  }
  return m_openAtEnd->Tag() + m_text;
}

/// From here on everything of the open session goes to another file.
void LogWriter::LetGoOfFile() {
  std::string text = TextOfItsOwn();
  if (m_isLastInText) {
    m_last->Position += text.size() - m_text.size(); // wraps around, and comes out right
  } else if (m_last) {
    m_last->Position = 0;
    m_isLastInText = true;
  }
  m_text = std::move(text);
  m_openAtEnd.reset();
  m_stamping.reset();
  m_identity = {};
  m_isPrepared = false;
}

void LogWriter::BeginAnew() {
  LetGoOfFile();
  const std::string head = LogText::Head();
  const auto identity = m_disk.Replace(m_path, [&](const ILogDisk::Sink& sink) {
    sink(head);
    sink(m_text);
    sink(LogText::SessionAndRootEnd);
  });
  m_end = head.size();
  m_isPrepared = true;
  TextIsSaved(identity);
}

void LogWriter::TakeUpChanged(const ILogFile& file) {
  const auto identity = file.Identity();
  ILogVisitor nobody;
  LogReading reading = LogReader::Read(file, nobody);
  if (reading.Ending == LogReading::End::Broken || !reading.IsOurs()) {
    throw NoLogFault("it has been changed by another program and is not a valid data store any more");
  }
  LetGoOfFile();
  TakeUp(identity, std::move(reading));
}

std::unique_ptr<ILogFile> LogWriter::Prepare(std::unique_ptr<ILogFile> file) {
  if (m_reading.IsUtf8 && !m_reading.HasEpilogue) {
    Close(*file);
    m_identity = file->Identity();
  } else {
    const auto identity = m_disk.Replace(
        m_path, [&](const ILogDisk::Sink& sink) { m_end = RewriteLog(LogReader::SourceOf(*file), sink); });
    file = m_disk.Open(m_path, ILogDisk::Access::ReadAndWrite);
    if (!file || !(file->Identity() == identity)) throw NoLogFault("it has been changed by another program meanwhile");
    m_identity = identity;
  }
  m_isPrepared = true;
  return file;
}

/// Gives a file our closing tags; what is torn behind its sound part goes.
void LogWriter::Close(ILogFile& file) {
  for (const std::uint64_t room : m_reading.TornCloseStamps) {
    file.Write(room, std::string(LogText::CloseStampRoom, ' '));
  }
  const std::uint64_t end = m_reading.SoundEnd;
  const bool isClosed = m_reading.Ending == LogReading::End::Complete && !m_reading.InSession &&
                        m_reading.Size == end + LogText::RootEnd.size() && Stands(file, end, LogText::RootEnd);
  if (!isClosed) {
    file.Truncate(end);
    file.Write(end, m_reading.InSession ? LogText::SessionAndRootEnd : LogText::RootEnd);
  }
  m_end = end + (m_reading.InSession ? LogText::SessionEnd.size() : 0);
}

void LogWriter::WriteText(ILogFile& file) {
  const std::size_t size = m_text.size();
  m_text += LogText::SessionAndRootEnd;
  try {
    file.Write(m_end, m_text);
  } catch (...) {
    m_text.resize(size);
    try { // in this order every cut leaves the start of a log
      file.Truncate(m_end);
      file.Write(m_end, ClosingTags());
    } catch (const std::exception&) { // the next save finds a torn log and completes it
    }
    throw;
  }
  m_text.resize(size);
  TextIsSaved({m_identity.Device, m_identity.File, m_end + size + LogText::SessionAndRootEnd.size()});
}

void LogWriter::TextIsSaved(const LogFileIdentity& identity) {
  m_identity = identity;
  if (m_isLastInText) {
    m_last->Position += m_end;
    m_isLastInText = false;
    m_openAtEnd = m_last;
  }
  m_end += m_text.size();
  m_text.clear();
}

} // namespace portico
