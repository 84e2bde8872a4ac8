#include "completion/BestOffers.h"

#include <iterator>
#include <tuple>

namespace portico::completion {

bool BestOffers::HasPlaceFor(std::size_t rank, bool isCommon, const std::string& name) const {
  if (m_kept.size() < m_most) return true;
  const Order& last = m_kept.rbegin()->first.first;
  return std::tie(rank, isCommon, name) <= std::tie(last.Rank, last.IsCommon, last.Name);
}

void BestOffers::Add(Order order, std::string text, std::string shown) {
  Place place{std::move(order), m_count++};
  const auto same = m_byText.find(text);
  if (same != m_byText.end()) {
    if (same->second->first < place) return;
    Remove(same->second);
  }
  const auto added = m_kept.emplace(std::move(place), Offer{std::move(text), std::move(shown)}).first;
  m_byText.emplace(added->second.Text, added);
  if (m_kept.size() > m_most) Remove(std::prev(m_kept.end()));
}

void BestOffers::Remove(Kept::iterator offer) {
  m_byText.erase(offer->second.Text);
  m_kept.erase(offer);
}

std::vector<BestOffers::Offer> BestOffers::InOrder() const {
  std::vector<Offer> offers;
  offers.reserve(m_kept.size());
  for (const auto& [place, offer] : m_kept) offers.push_back(offer);
  return offers;
}

} // namespace portico::completion
