#pragma once

#include <QEvent>
#include <QObject>

#include <functional>
#include <utility>

namespace portico::qt {

/// Shows the events of an object to a function before the object gets them, for as long as it lives. The function tells
/// whether it has dealt with an event, which the object then does not get.
class EventFilter final : public QObject {
public:
  using Function = std::function<bool(QObject&, QEvent&)>;

  EventFilter(QObject& watched, Function function) : m_function(std::move(function)) {
    watched.installEventFilter(this);
  }

protected:
  bool eventFilter(QObject* watched, QEvent* event) override { return m_function(*watched, *event); }

private:
  Function m_function;
};

} // namespace portico::qt
