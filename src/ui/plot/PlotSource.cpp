#include "ui/plot/PlotSource.h"

#include <chrono>
#include <utility>

namespace portico {
namespace {

/// The number that so many digits are; -1 if they are none.
int NumberAt(StringView text, std::size_t place, std::size_t count) {
  int number = 0;
  for (const char16_t unit : text.substr(place, count)) {
    if (unit < u'0' || unit > u'9') return -1;
    number = number * 10 + (unit - u'0');
  }
  return number;
}

/// Of the time zone behind a stamp, "+hh:mm"; 0 if there is none.
int OffsetOf(StringView stamp) {
  constexpr std::size_t length = 6;
  constexpr int secondsPerMinute = 60;
  if (stamp.size() < length) return 0;
  const StringView zone = stamp.substr(stamp.size() - length);
  const int hours = NumberAt(zone, 1, 2);
  const int minutes = NumberAt(zone, 4, 2);
  if ((zone[0] != u'+' && zone[0] != u'-') || zone[3] != u':' || hours < 0 || minutes < 0) return 0;
  return (zone[0] == u'-' ? -1 : 1) * (hours * 60 + minutes) * secondsPerMinute;
}

} // namespace

PlotSource::PlotSource(const Ref<CDataFIFO>& queue, Clock clock, bool hasWholeSeconds)
    : m_queue(queue),
      m_clock(std::move(clock)),
      m_hasWholeSeconds(hasWholeSeconds),
      m_added(queue->OnAdd.Connect([this](const Ref<IDataEntity>& entity, std::int64_t) { EntityAdded(*entity); })) {}

PlotSource::~PlotSource() { m_queue->OnAdd.Disconnect(m_added); }

std::optional<double> SecondsOfStamp(StringView stamp) {
  using namespace std::chrono;
  constexpr std::size_t secondLength = 19; // yyyy-mm-ddThh:mm:ss
  if (stamp.size() < secondLength) return {};
  const int year = NumberAt(stamp, 0, 4);
  const int month = NumberAt(stamp, 5, 2);
  const int day = NumberAt(stamp, 8, 2);
  const int hour = NumberAt(stamp, 11, 2);
  const int minute = NumberAt(stamp, 14, 2);
  const int second = NumberAt(stamp, 17, 2);
  if (year < 0 || month < 0 || day < 0 || hour < 0 || minute < 0 || second < 0) return {};
  const year_month_day date{std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                            std::chrono::day(static_cast<unsigned>(day))};
  if (!date.ok()) return {};
  const auto moment = sys_days(date) + hours(hour) + minutes(minute) + seconds(second) - seconds(OffsetOf(stamp));
  return static_cast<double>(duration_cast<seconds>(moment.time_since_epoch()).count());
}

void PlotSource::EntityAdded(const IDataEntity& entity) {
  const String type = entity.DataType();
  if (type == DataTypeName::Response) m_times.push_back(m_clock());
  const auto followed = m_followed.lock();
  if (followed && Tell(*followed, entity, type, m_times.empty() ? 0 : m_times.back())) followed->Changed();
}

bool PlotSource::Tell(FollowedConversation& followed, const IDataEntity& entity, StringView type, double seconds) {
  if (type == DataTypeName::Instruction) {
    followed.m_conversation.Sent(entity.ReadText());
    return false;
  }
  if (type != DataTypeName::Response) {
    followed.m_conversation.SentByItself();
    return false;
  }
  if (!followed.m_conversation.AwaitsAnswer()) return true;
  if (!followed.m_first) followed.m_first = seconds;
  followed.m_conversation.Answered(entity.ReadText(), seconds - *followed.m_first);
  return true;
}

std::shared_ptr<FollowedConversation> PlotSource::Follow() {
  if (auto followed = m_followed.lock()) return followed;
  auto followed = std::make_shared<FollowedConversation>();
  std::size_t responses = 0;
  m_queue->ForEach([&](const IDataEntity& entity) {
    const double seconds = responses < m_times.size() ? m_times[responses] : 0;
    if (Tell(*followed, entity, entity.DataType(), seconds)) ++responses;
  });
  m_followed = followed;
  return followed;
}

} // namespace portico
