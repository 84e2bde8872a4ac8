#pragma once

#include "platform/shared/OfferState.h"

#include <QListWidget>

#include <cstdint>
#include <vector>

namespace portico::qt {

class TextView;

/// Who hears what the user does with a list of offers; on the way it may go.
class IOfferOwner {
public:
  virtual ~IOfferOwner() = default;

  virtual void OnOfferTaken(std::int32_t offer) = 0;
  virtual void OnCaretMoved() = 0;
};

/// A list over a view, inside its frame, below the caret's line or above it, whichever has more room. It never has the
/// focus: it takes its keys from the view. It wears the desktop's colours. The mouse scrolls and chooses, and no more.
/// A screen reader is told what is chosen as the view's description. It belongs to its view.
class OfferList final : public QListWidget {
public:
  OfferList(TextView& view, IOfferOwner& owner);

  /// The owner goes.
  void LetGo();
  /// At least one offer. So many units are typed of what they would take the place of.
  void Show(const std::vector<String>& offers, std::int32_t typed);
  void Close();
  const OfferState& State() const { return m_state; }

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool event(QEvent* event) override;

private:
  bool Press(std::int32_t key);
  void WearColors();
  void Place();
  void ShowChoice();

  TextView& m_view;
  IOfferOwner* m_owner;
  OfferState m_state;
  std::int32_t m_typed = 0;
};

} // namespace portico::qt
