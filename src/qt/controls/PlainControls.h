#pragma once

#include "platform/IDialogControls.h"
#include "qt/controls/Control.h"

#include <QGroupBox>
#include <QLabel>

#include <memory>

namespace portico::qt {

/// A text of the program's; '&' stands in front of the mnemonic of what it names.
class Label final : public WidgetControl {
public:
  Label(const ControlDesign& design, std::shared_ptr<FormLife> life, QLabel& label);

protected:
  void ShowCaption() override;

private:
  QLabel& m_label;
};

/// A box around others.
class Frame final : public WidgetControl {
public:
  Frame(const ControlDesign& design, std::shared_ptr<FormLife> life, QGroupBox& box);

protected:
  void ShowCaption() override;

private:
  QGroupBox& m_box;
};

/// One of the pages that share a place. It keeps its room while it is out of sight.
class Page final : public WidgetControl, public virtual IPage {
public:
  Page(const ControlDesign& design, std::shared_ptr<FormLife> life, QWidget& widget);

  double Left() const override { return m_left; }
  void Left(double newValue) override;

protected:
  void ShowVisible() override;

private:
  double m_left = 0;
};

} // namespace portico::qt
