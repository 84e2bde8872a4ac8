#pragma once

#include "memory/forms/Control.h"
#include "memory/forms/Placement.h"
#include "platform/IPictureView.h"

namespace portico::memory {

/// Keeps what it shows. It takes no picture apart: of a PNG it looks whether it ends as such do.
class PictureView final : public Control, public Placement, public virtual IPictureView {
public:
  PictureView(ControlOwner& form, const ControlDesign& design, Control* container)
      : Control(form, design, container), Placement({}) {}
  StringView ClassName() const override { return u"PictureView"; }

  bool Show(const PictureFile& picture) override;
  bool FitsField() const override { return m_fitsField; }
  void FitsField(bool newValue) override { m_fitsField = newValue; }
  void Copy() override { ++m_timesCopied; }
  /// To a context that is a memory platform's: the picture's bytes.
  void SelPrint(const Ref<IDeviceContext>& hDC) override;

  const PictureFile& Picture() const { return m_picture; }
  int TimesCopied() const { return m_timesCopied; }

private:
  PictureFile m_picture;
  bool m_fitsField = true;
  int m_timesCopied = 0;
};

} // namespace portico::memory
