#pragma once

#include "platform/IForm.h"
#include "platform/IPictureView.h"

#include <functional>
#include <memory>

namespace portico {

/// Shows a picture, in a window that its form keeps until the user closes it. Any number can be open. Needs `gForms`.
class PictureWindow final : public IObject, public std::enable_shared_from_this<PictureWindow> {
public:
  StringView ClassName() const override { return u"PictureWindow"; }

  /// Without blocking, in front of the owner. False if the picture cannot be read; nothing is shown then.
  bool Show(PictureFile picture, IForm* Owner);

private:
  void Connect();
  /// Has an item's handler run as long as the window is there; what fails is shown behind the sentence.
  void OnMenu(StringView name, StringView sentence, void (PictureWindow::*handler)());
  void PlaceView();
  void Fit(bool isFitted);
  void Save();
  void mnuSavePicture_Click() { Save(); }
  void mnuPrintPicture_Click();
  void mnuClosePicture_Click() { m_form->Unload(); }
  void mnuCopyPicture_Click() { View().Copy(); }
  void mnuFit_Click() { Fit(true); }
  void mnuActualSize_Click() { Fit(false); }

  IMenuItem& Menu(StringView name) const { return FindControl<IMenuItem>(*m_form, name); }
  IPictureView& View() const { return FindControl<IPictureView>(*m_form, u"picPicture"); }

  Ref<IForm> m_form;
  PictureFile m_picture;
};

} // namespace portico
