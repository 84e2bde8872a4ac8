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
  double Rounded() const { return m_sum; }
  double Lost() const { return m_lost; }
  double Total() const { return m_sum + m_lost; }

private:
  double m_sum = 0;
  double m_lost = 0;
};

/// What the mean lost in rounding is in the differences from it, which add up to this instead of 0.
double SquaresAboutTheMean(const Sum& squares, const Sum& differences, double count) {
  return squares.Total() - differences.Total() * differences.Total() / count;
}

/// Rounding must not take the mean of equal values to the side of them.
double MeanOf(const Sum& sum, double count, double minimum, double maximum) {
  return std::clamp(sum.Total() / count, minimum, maximum);
}

/// Of a power of two about as large as half of what lies between; of equal values, as large as they are.
int ExponentOf(double minimum, double maximum) {
  const double half = maximum / 2 - minimum / 2;
  const double size = half > 0 ? half : maximum;
  return std::clamp(std::ilogb(size) + 1, -1000, 1000);
}

void CountAndBound(Moments& moments, std::span<const double> values) {
  double minimum = Overload;
  double maximum = -Overload;
  for (const double value : values) {
    if (std::isfinite(value)) {
      ++moments.Count;
      minimum = std::min(minimum, value);
      maximum = std::max(maximum, value);
    } else {
      ++(IsGap(value) ? moments.Gaps : moments.Overloads);
    }
  }
  moments.Minimum = minimum;
  moments.Maximum = maximum;
}

/// All but sums and squares.
Moments Joined(std::span<const Moments> parts) {
  Moments whole;
  for (const Moments& part : parts) {
    whole.Count += part.Count;
    whole.Gaps += part.Gaps;
    whole.Overloads += part.Overloads;
    whole.Minimum = std::min(whole.Minimum, part.Minimum);
    whole.Maximum = std::max(whole.Maximum, part.Maximum);
  }
  return whole;
}

} // namespace

Moments MomentsOf(std::span<const double> values) {
  Moments moments;
  CountAndBound(moments, values);
  if (moments.Count == 0) return moments;
  moments.Exponent = ExponentOf(moments.Minimum, moments.Maximum);
  const double unit = std::ldexp(1.0, moments.Exponent);
  const auto count = static_cast<double>(moments.Count);
  Sum sum;
  for (const double value : values) {
    if (std::isfinite(value)) sum.Add(value / unit);
  }
  moments.Sum = sum.Rounded();
  moments.Lost = sum.Lost();
  const double mean = MeanOf(sum, count, moments.Minimum / unit, moments.Maximum / unit);
  Sum squares;
  Sum differences;
  for (const double value : values) {
    if (!std::isfinite(value)) continue;
    const double difference = value / unit - mean;
    squares.Add(difference * difference);
    differences.Add(difference);
  }
  moments.Squares = SquaresAboutTheMean(squares, differences, count);
  return moments;
}

Statistics StatisticsOf(std::span<const Moments> parts) {
  const Moments whole = Joined(parts);
  Statistics statistics{.Count = whole.Count, .Gaps = whole.Gaps, .Overloads = whole.Overloads};
  if (whole.Count == 0) return statistics;
  statistics.Minimum = whole.Minimum;
  statistics.Maximum = whole.Maximum;
  const int exponent = ExponentOf(whole.Minimum, whole.Maximum);
  const double unit = std::ldexp(1.0, exponent);
  const auto count = static_cast<double>(whole.Count);
  Sum sum;
  for (const Moments& part : parts) {
    sum.Add(std::ldexp(part.Sum, part.Exponent - exponent));
    sum.Add(std::ldexp(part.Lost, part.Exponent - exponent));
  }
  const double mean = MeanOf(sum, count, whole.Minimum / unit, whole.Maximum / unit);
  statistics.Mean = mean * unit;
  if (whole.Count == 1) return statistics;
  Sum squares;
  Sum differences;
  for (const Moments& part : parts) {
    if (part.Count == 0) continue;
    const auto partCount = static_cast<double>(part.Count);
    // Of a part's mean from that of all, times the count; nothing of the product is rounded.
    const double difference = std::fma(-partCount, mean, std::ldexp(part.Sum, part.Exponent - exponent)) +
                              std::ldexp(part.Lost, part.Exponent - exponent);
    squares.Add(std::ldexp(part.Squares, 2 * (part.Exponent - exponent)));
    squares.Add(difference * difference / partCount);
    differences.Add(difference);
  }
  statistics.StandardDeviation = std::sqrt(SquaresAboutTheMean(squares, differences, count) / (count - 1)) * unit;
  return statistics;
}

Statistics StatisticsOf(std::span<const double> values) {
  const Moments moments = MomentsOf(values);
  return StatisticsOf(std::span(&moments, 1));
}

} // namespace portico::numbers
