#pragma once

#include <QLineEdit>

namespace portico::qt {

class TextView;

/// A field at a view's lower edge. What is typed there is looked for as it is typed, case ignored; Return goes to the
/// next place, with Shift to the one before, and Escape closes. It belongs to its view.
class FindBar final : public QLineEdit {
public:
  explicit FindBar(TextView& view);

  /// With what is selected in the view, if that is within a line.
  void Open();
  /// Back to its corner.
  void Place();

protected:
  void keyPressEvent(QKeyEvent* event) override;

private:
  void Find(int from, bool backwards);

  TextView& m_view;
};

} // namespace portico::qt
