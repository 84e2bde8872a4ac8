#include "document/log/LogWriter.h"

#include "document/log/LogRewriter.h"
#include "document/log/LogText.h"

#include <algorithm>
#include <exception>
#include <unordered_set>
#include <utility>

namespace portico {
namespace {

bool Stands(const ILogFile& file, std::uint64_t position, std::string_view bytes) {
  std::string found(bytes.size(), '\0');
  return file.Read(position, found.data(), found.size()) == bytes.size() && found == bytes;
}

constexpr char ChangedMeanwhile[] = "it has been changed by another program meanwhile";

using Stamps = std::vector<std::optional<std::string>>;

std::optional<std::string> StampOf(const LogElement& entity) {
  const auto stamp = entity.Attribute(LogName::Timestamp);
  if (!stamp) return {};
  return std::string(*stamp);
}

/// The stamps of a log's entities, in order.
Stamps StampsOf(const std::string& log) {
  struct Collector final : ILogVisitor {
    void Entity(const LogElement& entity) override { Found.push_back(StampOf(entity)); }
    Stamps Found;
  } collector;
  LogReader::Read(log, collector);
  return std::move(collector.Found);
}

/// Looks which stamps of ours stand in a log of others, and hands on all of theirs.
class Comparison final : public ILogVisitor {
public:
  Comparison(const Stamps& ours, LogStamps& others) : m_ours(ours.begin(), ours.end()), m_others(others) {}

  void SessionOpened(const LogElement& session) override { m_others.SessionOpened(session); }
  void Entity(const LogElement& entity) override {
    m_others.Entity(entity);
    if (m_ours.empty()) return;
    if (auto stamp = StampOf(entity); stamp && m_ours.count(stamp) != 0) m_taken.insert(std::move(stamp));
  }
  bool IsTaken(const std::optional<std::string>& stamp) const { return m_taken.count(stamp) != 0; }

private:
  using Set = std::unordered_set<std::optional<std::string>>;
  Set m_ours;
  LogStamps& m_others;
  Set m_taken;
};

/// Some programs take no notice of locks. The next save begins with another look.
void CheckUnchanged(const ILogFile& file, const LogFileIdentity& identity, const LogReading& reading) {
  if (!(file.Identity() == identity) || reading.Size != identity.Size) throw NoLogFault(ChangedMeanwhile);
}

} // namespace

std::string LogWriter::Session::Tag() const { return LogText::SessionTag(OpenStamp, CloseStamp); }

std::uint64_t LogWriter::Session::Room() const { return Position + LogText::SessionTagStart(OpenStamp).size(); }

bool LogWriter::Create() {
  const std::string head = LogText::Head();
  const auto file = m_disk.Create(m_path, [&](const ILogDisk::Sink& sink) {
    sink(head);
    sink(LogText::RootEnd);
  });
  if (!file) return false;
  m_identity = file->Identity();
  m_end = head.size();
  m_isPrepared = true;
  return true;
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

void LogWriter::Append(std::string_view element) {
  if (!m_openAtEnd && m_text.empty()) MakeTextItsOwn(); // others stand behind the session
  m_elements.push_back({m_text.size(), element.size()});
  m_text += element;
}

void LogWriter::CloseSession(StringView stamp) {
  const std::string field = LogText::CloseStampField(stamp);
  m_last->CloseStamp = stamp;
  if (m_isLastInText) {
    m_text.replace(m_last->Room(), field.size(), field);
  } else {
    if (m_openAtEnd) m_openAtEnd = m_last;
    m_stamping = Stamping{*m_last, field};
  }
}

void LogWriter::Save(LogStamps& others) {
  SaveAll(others);
  if (std::exchange(m_mustTell, false)) throw StampTakenFault("has been written by another program at the same time");
}

void LogWriter::SaveAll(LogStamps& others) {
  auto file = m_disk.Open(m_path, ILogDisk::Access::ReadAndWrite);
  while (!file) {
    if (BeginAnew()) return;
    file = m_disk.Open(m_path, ILogDisk::Access::ReadAndWrite); // somebody else has begun one
  }
  LogFileIdentity now = file->WhenOpened();
  if (!m_attempt.empty() && IsTraceOfAttempt(*file)) {
    Undo(*file);
    now = file->Identity();
  }
  m_attempt.clear();
  if (!StandsAsLeft(*file, now)) TakeUpChanged(*file, others);
  if (m_text.empty() && !m_stamping) return; // there was nothing but what has been given up
  if (!m_isPrepared && (CanBeAddedTo() || !m_text.empty())) file = Prepare(std::move(file));
  Write(*file);
}

LogReader::Source LogWriter::SourceOf(const ILogFile& file) const {
  if (m_attempt.empty() || !IsTraceOfAttempt(file)) return LogReader::SourceOf(file);
  return LogReader::SourceOf(file, m_end, std::string(ClosingTags()));
}

std::string LogWriter::Unsaved() const {
  if (m_text.empty()) return {};
  return "<" + std::string(LogName::Root) + ">" + TextOfItsOwn() + std::string(LogText::SessionAndRootEnd);
}

std::string_view LogWriter::ClosingTags() const { return m_openAtEnd ? LogText::SessionAndRootEnd : LogText::RootEnd; }

bool LogWriter::HoldsTag(const ILogFile& file, const Session& session) {
  return Stands(file, session.Position, LogText::SessionTagStart(session.OpenStamp)) &&
         Stands(file, session.Room() + LogText::CloseStampRoom, ">");
}

bool LogWriter::StandsAsLeft(const ILogFile& file, const LogFileIdentity& now) const {
  if (!(now == m_identity)) return false;
  if (m_stamping && !HoldsTag(file, m_stamping->Closed)) return false;
  if (!m_isPrepared) return m_reading.TornCloseStamps.empty(); // what looked torn may have been in the writing
  return Stands(file, m_end, ClosingTags());
}

/// The text as sessions for a place that lies in none of them.
std::string LogWriter::TextOfItsOwn() const {
  if (!m_openAtEnd && !m_text.empty()) return m_text;
  if (m_text.compare(0, LogText::SessionEnd.size(), LogText::SessionEnd) == 0) {
    return m_text.substr(LogText::SessionEnd.size());
  }
  return (m_openAtEnd ? m_openAtEnd : m_last)->Tag() + m_text;
}

void LogWriter::MakeTextItsOwn() {
  std::string text = TextOfItsOwn();
  const std::size_t shift = text.size() - m_text.size(); // wraps around, and comes out right
  for (Element& element : m_elements) element.Position += shift;
  m_last->Position = m_isLastInText ? m_last->Position + shift : 0;
  m_isLastInText = true;
  m_text = std::move(text);
}

/// From here on everything goes to another file, or behind what others have added; `now` is what there is by now, if
/// anything. A close stamp stays with the session's own tag as long as there is one.
void LogWriter::LetGoOfFile(const ILogFile* now) {
  const bool isTagGone = m_stamping && !(now != nullptr && HoldsTag(*now, m_stamping->Closed));
  if (isTagGone) m_stamping.reset();
  if (isTagGone || !m_text.empty()) MakeTextItsOwn();
  m_openAtEnd.reset();
  m_identity = {};
  m_isPrepared = false;
}

bool LogWriter::BeginAnew() {
  m_attempt.clear();
  LetGoOfFile(nullptr);
  const std::string head = LogText::Head();
  const auto file = m_disk.Create(m_path, [&](const ILogDisk::Sink& sink) {
    sink(head);
    sink(m_text);
    sink(LogText::SessionAndRootEnd);
  });
  if (!file) return false;
  m_end = head.size();
  m_isPrepared = true;
  TextIsSaved(file->Identity());
  return true;
}

void LogWriter::TakeUpChanged(const ILogFile& file, LogStamps& others) {
  const auto identity = file.Identity();
  const Stamps ours = StampsOf(Unsaved());
  Comparison comparison(ours, others);
  LogReading reading = LogReader::Read(file, comparison);
  if (reading.Ending == LogReading::End::Broken || !reading.IsOurs()) {
    throw NoLogFault("it has been changed by another program and is not a valid data store any more");
  }
  CheckUnchanged(file, identity, reading);
  std::vector<bool> isTaken;
  for (const auto& stamp : ours) isTaken.push_back(comparison.IsTaken(stamp));
  GiveUp(isTaken);
  LetGoOfFile(&file);
  TakeUp(identity, std::move(reading));
}

/// Takes entities out of the text.
void LogWriter::GiveUp(const std::vector<bool>& isTaken) {
  std::vector<Element> kept;
  std::size_t gone = 0;
  for (std::size_t i = 0; i < m_elements.size(); ++i) {
    const Element element{m_elements[i].Position - gone, m_elements[i].Size};
    if (i >= isTaken.size() || !isTaken[i]) {
      kept.push_back(element);
      continue;
    }
    m_text.erase(element.Position, element.Size);
    if (m_isLastInText && m_last->Position > element.Position) m_last->Position -= element.Size;
    gone += element.Size;
    m_hasGivenUp = true;
    m_mustTell = true;
  }
  m_elements = std::move(kept);
}

std::unique_ptr<ILogFile> LogWriter::Prepare(std::unique_ptr<ILogFile> file) {
  if (CanBeAddedTo()) {
    CheckUnchanged(*file, m_identity, m_reading);
    Close(*file);
  } else {
    WriteStamp(*file);
    file = m_disk.Replace(m_path, [&](const ILogDisk::Sink& sink) {
      m_end = RewriteLog(LogReader::MendedSourceOf(*file, m_reading), sink);
      const auto named = m_disk.Open(m_path, ILogDisk::Access::Read);
      if (!named) throw NoLogFault(ChangedMeanwhile);
      CheckUnchanged(*named, m_identity, m_reading);
    });
    m_stamping.reset();
  }
  m_identity = file->Identity();
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

void LogWriter::WriteStamp(ILogFile& file) {
  if (!m_stamping) return;
  file.Write(m_stamping->Closed.Room(), m_stamping->Field);
  std::erase(m_reading.TornCloseStamps, m_stamping->Closed.Room()); // what was torn there is whole
}

void LogWriter::Write(ILogFile& file) {
  const std::size_t size = m_text.size();
  try {
    if (size > 0) {
      m_text += LogText::SessionAndRootEnd;
      file.Write(m_end, m_text);
      m_text.resize(size);
    }
    WriteStamp(file);
    file.Close();
  } catch (...) {
    m_text.resize(size);
    if (size > 0) {
      m_attempt = m_text;
      m_attempt += LogText::SessionAndRootEnd;
      try {
        Undo(file);
      } catch (const std::exception&) { // the next save sees to it
      }
    }
    throw;
  }
  m_stamping.reset();
  if (size > 0) {
    TextIsSaved({m_identity.Device, m_identity.File, m_end + size + LogText::SessionAndRootEnd.size()});
  }
}

/// In this order every cut leaves the start of a log.
void LogWriter::Undo(ILogFile& file) {
  file.Truncate(m_end);
  file.Write(m_end, ClosingTags());
  m_attempt.clear();
}

/// Behind m_end stands what a failed save, or its undoing, has left there and nobody has touched since: the start of
/// either's bytes, with the rest of the old tags behind it if it is a short one.
bool LogWriter::IsTraceOfAttempt(const ILogFile& file) const {
  const auto [device, number, size] = file.Identity();
  if (device != m_identity.Device || number != m_identity.File) return false;
  if (size < m_end || size - m_end > m_attempt.size()) return false;
  std::string tail(static_cast<std::size_t>(size - m_end), '\0');
  if (file.Read(m_end, tail.data(), tail.size()) != tail.size()) return false;
  const std::string_view tags = ClosingTags();
  const auto differs = std::mismatch(tail.begin(), tail.end(), m_attempt.begin()).first;
  const auto written = static_cast<std::size_t>(differs - tail.begin());
  if (written == tail.size() || tags.substr(0, tail.size()) == tail) return true;
  return tail.size() == tags.size() && tags.substr(written) == std::string_view(tail).substr(written);
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
  m_elements.clear();
}

} // namespace portico
