#pragma once

#include "numbers/BlockNumbers.h"
#include "scpi/UnitParser.h"

#include <optional>
#include <string_view>
#include <vector>

namespace portico::numbers {

/// What a waveform's preamble tells: where its points stand, and what their codes mean.
struct WaveformScale {
  double PlaceStep;   ///< seconds from a point to the next
  double ValueStep;   ///< from a code to the next
  double CentreValue; ///< which CentreCode stands for
  double CentreCode;

  double Place(double index) const { return index * PlaceStep; }
  double Value(double code) const { return CentreValue + (code - CentreCode) * ValueStep; }

  bool operator==(const WaveformScale&) const = default;
};

/// How the numbers of blocks stand in them, as far as a conversation tells: `FORMat:BORDer`, `FORMat[:DATA]`,
/// `WAVeform:BYTeorder`, `WAVeform:FORMat` and `WAVeform:PREamble?`, set or asked and answered; the newest counts, and
/// `*RST` takes all back.
class FormatClues {
public:
  /// A message to the instrument, whether it asks or not. What is no SCPI tells nothing.
  void Sent(StringView message);
  /// The answer to such a message.
  void Answered(StringView message, StringView answer);

  std::optional<ByteOrder> Order() const { return m_order; }
  /// None, too, while numbers come as text, or have a size that was not told.
  std::optional<ElementType> Type() const { return m_type; }
  /// What was told, and for the rest bytes without sign, and the order that SCPI calls normal.
  ElementFormat Format() const;
  const std::optional<WaveformScale>& Scale() const { return m_scale; }

private:
  enum class Topic { BlockOrder, DataType, WaveformOrder, WaveformFormat, Preamble, Reset };
  using Words = std::vector<std::string_view>;

  static std::optional<Topic> TopicOf(const scpi::Unit& unit);
  void Note(Topic topic, const Words& words);

  std::optional<ByteOrder> m_order;
  std::optional<ElementType> m_type;
  std::optional<WaveformScale> m_scale;
};

} // namespace portico::numbers
