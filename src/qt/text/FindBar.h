#pragma once

#include <QLineEdit>
#include <QPlainTextEdit>

#include <cstdint>
#include <functional>

namespace portico::qt {

/// A field at a view's lower edge. What is typed there is looked for as it is typed, case ignored; Return goes to the
/// next place, with Shift to the one before, and Escape closes. It belongs to its view.
class FindBar final : public QLineEdit {
public:
  /// `bringUpToDate`: the view is to show all that there is to look through.
  FindBar(QPlainTextEdit& view, std::function<void()> bringUpToDate);

  /// With what is selected in the view, if that is within a line.
  void Open();
  /// The next place of what stands in the field, or the one before.
  void FindAgain(bool backwards) { Find(Begin::BesideSelection, backwards); }
  /// Moves it into its corner of the view.
  void Place();

protected:
  void keyPressEvent(QKeyEvent* event) override;

private:
  enum class Begin : std::uint8_t { AtSelection, BesideSelection };
  void Find(Begin begin, bool backwards);

  QPlainTextEdit& m_view;
  std::function<void()> m_bringUpToDate;
};

} // namespace portico::qt
