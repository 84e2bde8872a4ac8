#include "platform/shared/OfferState.h"

#include "platform/IOfferList.h"
#include "platform/KeyCodes.h"

#include <algorithm>

namespace portico {

void OfferState::Show(const std::vector<String>& offers) {
  if (offers.empty()) return Close();
  const String chosen = IsOpen() ? m_offers[static_cast<std::size_t>(m_chosen)] : String();
  const std::size_t count = std::min(offers.size(), IOfferList::MostOffers);
  m_offers.assign(offers.begin(), offers.begin() + static_cast<std::ptrdiff_t>(count));
  const auto same = std::ranges::find(m_offers, chosen);
  m_chosen = same == m_offers.end() ? 0 : static_cast<std::int32_t>(same - m_offers.begin());
}

void OfferState::Close() {
  m_offers.clear();
  m_chosen = -1;
}

OfferState::Effect OfferState::EffectOf(std::int32_t key) const {
  if (!IsOpen()) return Effect::None;
  switch (key) {
  case UpKey:
  case DownKey:
  case PageUpKey:
  case PageDownKey:
    return Effect::Chooses;
  case ReturnKey:
  case TabKey:
    return Effect::Takes;
  case EscapeKey:
    return Effect::Closes;
  default:
    return Effect::None;
  }
}

std::int32_t OfferState::ChoiceBy(std::int32_t key, std::int32_t page) const {
  const auto count = static_cast<std::int32_t>(m_offers.size());
  switch (key) {
  case UpKey:
    return (m_chosen + count - 1) % count;
  case DownKey:
    return (m_chosen + 1) % count;
  case PageUpKey:
    return std::max(m_chosen - page, 0);
  default:
    return std::min(m_chosen + page, count - 1);
  }
}

} // namespace portico
