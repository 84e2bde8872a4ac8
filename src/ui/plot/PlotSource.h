#pragma once

#include "document/entities/CDataFIFO.h"
#include "plot/Conversation.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace portico {

/// A conversation as it can be drawn, followed for as long as somebody holds it.
class FollowedConversation final {
public:
  FollowedConversation() = default;
  FollowedConversation(const FollowedConversation&) = delete;
  FollowedConversation& operator=(const FollowedConversation&) = delete;

  const plot::Conversation& Conversation() const { return m_conversation; }
  /// An answer has come, or a message that asks for one.
  Event<> Changed;

private:
  friend class PlotSource;

  plot::Conversation m_conversation;
  std::optional<double> m_first; // of the answers, in the source's seconds
};

/// What a window's conversation holds to be drawn. While nobody draws it costs the noting of the time at each answer,
/// and what was answered is read when somebody begins.
class PlotSource final : public IObject {
public:
  /// Seconds, from whatever beginning.
  using Clock = std::function<double()>;

  /// The queue grows from now on. Stamps tell no more than seconds, so the clock is asked when an answer comes; that of
  /// a log tells what the stamp of the answer says, in whole seconds.
  PlotSource(const Ref<CDataFIFO>& queue, Clock clock, bool hasWholeSeconds = false);
  PlotSource(const PlotSource&) = delete;
  PlotSource& operator=(const PlotSource&) = delete;
  ~PlotSource() override;
  StringView ClassName() const override { return u"PlotSource"; }

  bool HasWholeSeconds() const { return m_hasWholeSeconds; }
  /// All who follow share one.
  std::shared_ptr<FollowedConversation> Follow();

private:
  void EntityAdded(const IDataEntity& entity);
  /// True if it was a response, which came at that time.
  static bool Tell(FollowedConversation& followed, const IDataEntity& entity, StringView type, double seconds);

  Ref<CDataFIFO> m_queue;
  Clock m_clock;
  bool m_hasWholeSeconds;
  CDataFIFO::EntityEvent::Connection m_added;
  std::vector<double> m_times; // of the responses in the queue, by the clock
  std::weak_ptr<FollowedConversation> m_followed;
};

/// The seconds that a stamp tells, from whatever beginning; none if it is no stamp.
std::optional<double> SecondsOfStamp(StringView stamp);

} // namespace portico
