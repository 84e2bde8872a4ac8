#pragma once

#include "framework/errors/Ref.h"
#include "framework/objects/Event.h"
#include "framework/text/text.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace portico {

/// A list of texts that a box offers near its caret, to choose from with the keyboard. It is no part of the box's text
/// or its looks, and the box keeps the focus: without it nothing is offered, and with it goes the list. While it is
/// shown, the keys Up, Down, Page Up and Page Down choose, Return and Tab take what is chosen, Escape closes the list;
/// all other keys, and these with Shift, Ctrl or Alt, go to the box. The box inserts nothing by itself.
class IOfferList : public virtual IObject {
public:
  static constexpr std::size_t MostOffers = 200;

  /// Shows the first `MostOffers` of them in place of what is shown, or closes the list if there are none. What is
  /// chosen stays so if it is among them; otherwise the first is. `start` is the position in the box that they would
  /// begin at.
  virtual void ShowOffers(const std::vector<String>& offers, std::int32_t start) = 0;
  virtual void CloseOffers() = 0;
  /// Nothing while the list is closed.
  virtual const std::vector<String>& Offers() const = 0;
  /// Counted from 0; -1 while the list is closed.
  virtual std::int32_t ChosenOffer() const = 0;

  /// The user has taken an offer of this index; the list is closed by then.
  virtual Event<std::int32_t>& OfferTaken() = 0;
  /// The caret has moved while the list is shown: whoever offers shows the list anew, or closes it.
  virtual Event<>& CaretMoved() = 0;
};

} // namespace portico
