#include "ui/viewer/LogLoading.h"

#include "document/log/LogReader.h"
#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "platform/IProgress.h"

#include <algorithm>

namespace portico {
namespace {

/// Where the two passes over the file end, as shares of the whole. Measured; the first portion takes the rest.
constexpr double CheckedShare = 0.3;
constexpr double ReadShare = 0.95;

/// Where the sound part of a log ends.
String PlaceOf(const LogReading& reading) {
  if (reading.Sessions == 0) return u"in front of its first session";
  String place = (reading.InSession ? u"in session " : u"behind session ") + ToText(std::int64_t(reading.Sessions));
  if (!reading.LastOpenStamp.empty()) place += u", opened " + FromUtf8(reading.LastOpenStamp).Text;
  return place;
}

} // namespace

LogProgress::LogProgress(const String& FileName) {
  if (gProgress) gProgress->Begin(u"Reading " + FileName);
}

LogProgress::~LogProgress() {
  if (gProgress) gProgress->End();
}

void LogProgress::Tell(double share) {
  if (!gProgress) return;
  if (!gProgress->Step(share, 1)) HuntERR::Raise(ErrorNumber::WorkGivenUp, u"LogLoading", u"The log was not opened.");
}

LogLoading::LogLoading(const String& FileName, LogNotes& notes)
    : m_progress(FileName), m_notes(notes), m_fileName(FileName), m_watch(std::in_place, this) {}

LogLoading::~LogLoading() {
  if (m_container) m_container->OnAdd.Disconnect(m_added);
}

void LogLoading::Follow(const Ref<CDataFIFO>& container) {
  m_watch.reset();
  m_container = container;
  m_added = m_container->OnAdd.Connect([this](const Ref<IDataEntity>&, std::int64_t) { EntityShown(); });
}

void LogLoading::BytesRead(std::uint64_t done, std::uint64_t total) {
  if (done == 0) ++m_pass;
  const double from = m_pass < 2 ? 0 : CheckedShare;
  const double to = m_pass < 2 ? CheckedShare : ReadShare;
  const double part = total == 0 ? 1 : static_cast<double>(done) / static_cast<double>(total);
  LogProgress::Tell(from + (to - from) * std::min(part, 1.0));
}

void LogLoading::SessionRead(const LogElement& session) { m_notes.SessionRead(session); }

void LogLoading::EntityRead(const LogElement& entity) {
  ++m_read;
  m_notes.EntityRead(entity);
}

void LogLoading::EndIsMissing(const LogReading& reading) {
  m_warning = u"The end of the log, " + m_fileName + u", is missing. It breaks off " + PlaceOf(reading) +
              u". What stands in front of that is shown.";
}

void LogLoading::EntityShown() {
  ++m_shown;
  const double part = static_cast<double>(m_shown) / static_cast<double>(std::max(m_read, m_shown));
  LogProgress::Tell(ReadShare + (1 - ReadShare) * part);
}

} // namespace portico
