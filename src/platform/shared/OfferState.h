#pragma once

#include "framework/text/text.h"

#include <cstdint>
#include <vector>

namespace portico {

/// What a list of offers holds, which of them is chosen, and what the keys do with it.
class OfferState {
public:
  /// As `IOfferList::ShowOffers` does.
  void Show(const std::vector<String>& offers);
  void Close();
  bool IsOpen() const { return !m_offers.empty(); }
  const std::vector<String>& Offers() const { return m_offers; }
  /// -1 while the list is closed.
  std::int32_t Chosen() const { return m_chosen; }
  /// One that there is.
  void Choose(std::int32_t offer) { m_chosen = offer; }

  enum class Effect : std::uint8_t { None, Chooses, Takes, Closes };
  /// What a key without Shift, Ctrl and Alt means to the list as it is now.
  Effect EffectOf(std::int32_t key) const;
  /// The choice that a key that chooses leads to, of which a page has so many. Up and Down go round.
  std::int32_t ChoiceBy(std::int32_t key, std::int32_t page) const;

private:
  std::vector<String> m_offers;
  std::int32_t m_chosen = -1;
};

} // namespace portico
