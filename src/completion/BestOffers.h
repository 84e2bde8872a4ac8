#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace portico::completion {

/// The first so many of all that is offered, in the order in which it is shown. What has no place among them is not
/// kept, however much is offered.
class BestOffers {
public:
  /// What comes first, and among the same what comes next.
  struct Order {
    std::size_t Rank = 0;
    bool IsCommon = false;
    std::string Name;
    std::uint64_t Place = 0;
    int Kind = 0;

    auto operator<=>(const Order&) const = default;
  };
  struct Offer {
    std::string Text;
    std::string Shown;
  };

  explicit BestOffers(std::size_t most) : m_most(most) {}
  BestOffers(const BestOffers&) = delete;
  BestOffers& operator=(const BestOffers&) = delete;

  /// Whether an offer with this beginning of its order could have a place.
  bool HasPlaceFor(std::size_t rank, bool isCommon, const std::string& name) const;
  /// Of those with the same text the first in order is kept, and of those with the same order the one that came first.
  void Add(Order order, std::string text, std::string shown);

  std::vector<Offer> InOrder() const;

private:
  using Place = std::pair<Order, std::size_t>; // with the number in the order in which they came
  using Kept = std::map<Place, Offer>;

  void Remove(Kept::iterator offer);

  std::size_t m_most;
  std::size_t m_count = 0;
  Kept m_kept;
  std::map<std::string_view, Kept::iterator> m_byText;
};

} // namespace portico::completion
