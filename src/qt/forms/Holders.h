#pragma once

#include "platform/FormDesign.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QWidget>

#include <map>

namespace portico::qt {

/// What holds controls: the form itself, and its frames, rows, pages and panels. A dialog is laid out by it; what
/// stands in a panel or on a window is placed by the program.
class Holders {
public:
  Holders(QWidget& area, bool isLaidOut);

  /// The widget of the holder of a name; the form's own for an empty name.
  QWidget& WidgetOf(StringView name) const { return *m_holders.at(name).Widget; }
  /// Puts a control's widget where its table says, and has it hold others if it is of that kind.
  void Place(const ControlDesign& design, QWidget& widget);
  /// To be called when all controls have been placed.
  void Finish();

private:
  struct Holder {
    QWidget* Widget = nullptr;
    QBoxLayout* Layout = nullptr; ///< none if the program places what it holds
    QGridLayout* Pages = nullptr; ///< the place that its pages share
    QWidget* Last = nullptr;      ///< what was put there last
    bool IsPage = false;
  };

  /// A field is named by the label or check box in front of it.
  static void NameAfter(QWidget* last, QWidget& field);
  void PlacePage(Holder& holder, QWidget& widget) const;

  std::map<StringView, Holder> m_holders;
};

} // namespace portico::qt
