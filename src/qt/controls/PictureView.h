#pragma once

#include "platform/IPictureView.h"
#include "qt/controls/Control.h"

#include <QImage>
#include <QScrollArea>

#include <memory>

class QLabel;

namespace portico::qt {

/// A picture in an area that scrolls. It keeps its colours in every theme.
class PictureView final : public PlacedControl, public virtual IPictureView {
public:
  PictureView(const ControlDesign& design, std::shared_ptr<FormLife> life, QScrollArea& area);
  StringView ClassName() const override { return u"PictureView"; }

  bool Show(const PictureFile& picture) override;
  bool FitsField() const override { return m_fitsField; }
  void FitsField(bool newValue) override;
  void Copy() override;
  void SelPrint(const Ref<IDeviceContext>& hDC) override;

private:
  void Put(const QRect& place) override;
  void ShowSize();

  QScrollArea& m_area;
  QLabel& m_label;
  QImage m_picture;
  bool m_fitsField = true;
};

} // namespace portico::qt
