#include "logtool/Alignment.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

// The shortest script of insertions and deletions, in linear space: from both ends of a part paths go as far as so many
// edits allow; where they meet the part is divided.

namespace portico::logtool {
namespace {

using Size = std::ptrdiff_t;

constexpr Size Nowhere = -1;    // no path is on the diagonal
constexpr Size MostEdits = 256; // from either end; beyond, a part is divided where the path from its beginning is

struct Part {
  Size FromA, ToA, FromB, ToB;

  Size CountA() const { return ToA - FromA; }
  Size CountB() const { return ToB - FromB; }
  bool IsEmpty() const { return CountA() == 0 || CountB() == 0; }
};

class Aligner {
public:
  Aligner(std::span<const std::size_t> a, std::span<const std::size_t> b) : m_a(a), m_b(b), m_found(a.size()) {
    const Size edits = std::min(MostEdits, static_cast<Size>((a.size() + b.size() + 1) / 2));
    // One diagonal more on either side, where no path is.
    m_forward.resize(static_cast<std::size_t>(2 * edits + 3));
    m_backward.resize(m_forward.size());
  }

  std::vector<std::optional<std::size_t>> Run() && {
    std::vector<Part> parts = {{0, static_cast<Size>(m_a.size()), 0, static_cast<Size>(m_b.size())}};
    while (!parts.empty()) {
      Part part = parts.back();
      parts.pop_back();
      TakeEnds(part);
      if (part.IsEmpty()) continue;
      const auto [x, y] = Divide(part);
      parts.push_back({part.FromA, part.FromA + x, part.FromB, part.FromB + y});
      parts.push_back({part.FromA + x, part.ToA, part.FromB + y, part.ToB});
    }
    return std::move(m_found);
  }

private:
  struct Point {
    Size X, Y;
  };
  /// The farthest point of a path on each diagonal X - Y, whose numbers may be negative.
  using Paths = std::vector<Size>;

  bool Equal(Size a, Size b) const { return m_a[static_cast<std::size_t>(a)] == m_b[static_cast<std::size_t>(b)]; }
  static Size& At(Paths& paths, Size diagonal) {
    return paths[static_cast<std::size_t>(diagonal + static_cast<Size>(paths.size() / 2))];
  }

  /// Aligns what is equal at both ends of a part, and takes it off.
  void TakeEnds(Part& part) {
    for (; !part.IsEmpty() && Equal(part.FromA, part.FromB); ++part.FromA, ++part.FromB) {
      m_found[static_cast<std::size_t>(part.FromA)] = static_cast<std::size_t>(part.FromB);
    }
    for (; !part.IsEmpty() && Equal(part.ToA - 1, part.ToB - 1); --part.ToA, --part.ToB) {
      m_found[static_cast<std::size_t>(part.ToA - 1)] = static_cast<std::size_t>(part.ToB - 1);
    }
  }

  /// How far a path gets on a diagonal with one edit more than its neighbours had, and along what is equal. `equal` is
  /// told how far it is from the path's beginning.
  template <class Equals>
  static Point Go(Paths& paths, Size diagonal, Size edits, const Part& part, Equals equal) {
    Size& at = At(paths, diagonal);
    at = edits == 0 ? 0 : Nowhere;
    if (edits > 0) {
      const Size left = At(paths, diagonal - 1);
      const Size above = At(paths, diagonal + 1);
      if (left != Nowhere && left < part.CountA()) at = left + 1;
      if (above != Nowhere && above - diagonal <= part.CountB()) at = std::max(at, above);
    }
    if (at == Nowhere) return {0, 0};
    while (at < part.CountA() && at - diagonal < part.CountB() && equal(at, at - diagonal)) ++at;
    return {at, at - diagonal};
  }

  /// Whether the paths of both directions have met: forward on a diagonal, backward on the same.
  bool Meet(Size diagonal, Size other, const Part& part) {
    const Size forward = At(m_forward, diagonal);
    const Size backward = At(m_backward, other);
    return forward != Nowhere && backward != Nowhere && forward + backward >= part.CountA();
  }

  /// Of points that are as far, the one that leaves both sides the same share counts: few things may stand anywhere
  /// among many.
  static bool IsFarther(Point point, Point other, const Part& part) {
    const auto lean = [&part](Point at) { return std::abs(at.X * part.CountB() - at.Y * part.CountA()); };
    const Size difference = point.X + point.Y - other.X - other.Y;
    return difference > 0 || (difference == 0 && lean(point) < lean(other));
  }

  /// A point of a shortest path, or of one that is not much longer; neither end of the part.
  Point Divide(const Part& part) {
    const Size difference = part.CountA() - part.CountB();
    const bool isOdd = difference % 2 != 0;
    Point farthest{0, 0};
    for (Size edits = 0;; ++edits) {
      for (Paths* paths : {&m_forward, &m_backward}) At(*paths, edits + 1) = At(*paths, -edits - 1) = Nowhere;
      for (Size diagonal = -edits; diagonal <= edits; diagonal += 2) {
        const Point point =
            Go(m_forward, diagonal, edits, part, [&](Size x, Size y) { return Equal(part.FromA + x, part.FromB + y); });
        if (IsFarther(point, farthest, part)) farthest = point;
        const Size other = difference - diagonal;
        if (isOdd && std::abs(other) < edits && Meet(diagonal, other, part)) return point;
      }
      for (Size diagonal = -edits; diagonal <= edits; diagonal += 2) {
        const Point point = Go(m_backward, diagonal, edits, part,
                               [&](Size x, Size y) { return Equal(part.ToA - 1 - x, part.ToB - 1 - y); });
        const Size other = difference - diagonal;
        if (!isOdd && std::abs(other) <= edits && Meet(other, diagonal, part)) {
          return {part.CountA() - point.X, part.CountB() - point.Y};
        }
      }
      if (edits == MostEdits) return farthest;
    }
  }

  std::span<const std::size_t> m_a;
  std::span<const std::size_t> m_b;
  std::vector<std::optional<std::size_t>> m_found;
  Paths m_forward;
  Paths m_backward;
};

} // namespace

std::vector<std::optional<std::size_t>> Align(std::span<const std::size_t> a, std::span<const std::size_t> b) {
  return Aligner(a, b).Run();
}

} // namespace portico::logtool
