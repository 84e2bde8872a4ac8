#include "numbers/Statistics.h"

#include <algorithm>
#include <cmath>

namespace portico::numbers {
namespace {

/// A sum that keeps what rounding takes from it.
class Sum {
public:
  void Add(double term) {
    const double sum = m_sum + term;
    m_lost += std::abs(m_sum) >= std::abs(term) ? (m_sum - sum) + term : (term - sum) + m_sum;
    m_sum = sum;
  }
  double Total() const { return m_sum + m_lost; }

private:
  double m_sum = 0;
  double m_lost = 0;
};

void CountAndBound(Statistics& statistics, std::span<const double> values) {
  double minimum = Overload;
  double maximum = -Overload;
  for (const double value : values) {
    if (std::isfinite(value)) {
      ++statistics.Count;
      minimum = std::min(minimum, value);
      maximum = std::max(maximum, value);
    } else {
      ++(IsGap(value) ? statistics.Gaps : statistics.Overloads);
    }
  }
  if (statistics.Count == 0) return;
  statistics.Minimum = minimum;
  statistics.Maximum = maximum;
}

} // namespace

Statistics StatisticsOf(std::span<const double> values) {
  Statistics statistics;
  CountAndBound(statistics, values);
  if (statistics.Count == 0) return statistics;
  // In units of a power of two about as large as half of what lies between, so that no square leaves a double's range.
  const double half = statistics.Maximum / 2 - statistics.Minimum / 2;
  const int exponent = std::clamp(half > 0 ? std::ilogb(half) + 1 : 0, -1000, 1000);
  const double unit = std::ldexp(1.0, exponent);
  const auto count = static_cast<double>(statistics.Count);
  Sum sum;
  for (const double value : values) {
    if (std::isfinite(value)) sum.Add(value / unit);
  }
  // Rounding must not take the mean of equal values to the side of them.
  const double mean = std::clamp(sum.Total() / count, statistics.Minimum / unit, statistics.Maximum / unit);
  statistics.Mean = mean * unit;
  if (statistics.Count == 1) return statistics;
  Sum squares;
  Sum rest; // 0 but for what the mean lost in rounding
  for (const double value : values) {
    if (!std::isfinite(value)) continue;
    const double difference = value / unit - mean;
    squares.Add(difference * difference);
    rest.Add(difference);
  }
  const double variance = (squares.Total() - rest.Total() * rest.Total() / count) / (count - 1);
  statistics.StandardDeviation = std::sqrt(variance) * unit;
  return statistics;
}

} // namespace portico::numbers
