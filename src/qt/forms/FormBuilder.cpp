#include "qt/forms/FormBuilder.h"

#include "qt/controls/Canvas.h"
#include "qt/controls/CheckBox.h"
#include "qt/controls/ComboBox.h"
#include "qt/controls/CommandButton.h"
#include "qt/controls/ListView.h"
#include "qt/controls/PictureBox.h"
#include "qt/controls/PictureView.h"
#include "qt/controls/PlainControls.h"
#include "qt/controls/TabStrip.h"
#include "qt/controls/TextBox.h"
#include "qt/forms/Holders.h"
#include "qt/forms/MenuBuilder.h"
#include "qt/forms/SplitArea.h"
#include "qt/forms/StatusBar.h"
#include "qt/forms/ToolBar.h"
#include "qt/values/QtText.h"

#include <QDialog>
#include <QMainWindow>

#include <memory>

namespace portico::qt {
namespace {

/// Makes the controls and puts them into those that hold them.
class Builder {
public:
  Builder(const FormDesign& design, const RichTextFactory& makeRichText, FormParts& parts)
      : m_design(design),
        m_makeRichText(makeRichText),
        m_parts(parts),
        m_holders(*parts.Area, design.Style == FormStyle::Dialog) {}

  void Build() {
    if (!m_design.ToolButtons.empty()) {
      m_parts.ToolBar =
          Keep(std::make_shared<ToolBar>(m_design.ToolButtons, m_parts.Life, *new QToolBar(m_parts.Area)));
    }
    if (!m_design.StatusPanels.empty()) {
      m_parts.StatusBar =
          Keep(std::make_shared<StatusBar>(m_design.StatusPanels, m_parts.Life, *new QStatusBar(m_parts.Area)));
    }
    for (const ControlDesign& control : m_design.Controls) Add(control);
    m_holders.Finish();
  }

private:
  template <class T>
  T* Keep(std::shared_ptr<T> control) {
    m_parts.Controls.push_back(control);
    return control.get();
  }
  template <class T, class W>
  T* Make(const ControlDesign& design, W* widget) {
    T* control = Keep(std::make_shared<T>(design, m_parts.Life, *widget));
    m_holders.Place(design, *widget);
    return control;
  }
  /// One that can have the focus.
  template <class T, class W>
  void MakeStop(const ControlDesign& design, W* widget) {
    m_parts.FocusPlaces.push_back({widget, Make<T>(design, widget)});
  }

  void Add(const ControlDesign& design) {
    QWidget& parent = m_holders.WidgetOf(design.Parent);
    switch (design.Kind) {
    case ControlKind::Label:
      Make<Label>(design, new QLabel(&parent));
      break;
    case ControlKind::TextBox:
      MakeStop<TextBox>(design, new QLineEdit(&parent));
      break;
    case ControlKind::ComboBox:
      MakeStop<ComboBox>(design, new QComboBox(&parent));
      break;
    case ControlKind::ListView:
      MakeStop<ListView>(design, new ListWidget(&parent));
      break;
    case ControlKind::CheckBox:
      MakeStop<CheckBox>(design, new QCheckBox(&parent));
      break;
    case ControlKind::CommandButton: {
      auto* button = new QPushButton(&parent);
      MakeStop<CommandButton>(design, button);
      if (design.IsCancel) m_parts.CancelButton = button;
      break;
    }
    case ControlKind::TabStrip:
      MakeStop<TabStrip>(design, new QTabBar(&parent));
      break;
    case ControlKind::PictureView:
      Make<PictureView>(design, new QScrollArea(&parent));
      break;
    case ControlKind::PictureBox: {
      auto* picture = Make<PictureBox>(design, new QWidget(&parent));
      if (&parent == m_parts.Area) m_parts.Pictures.push_back(picture);
      break;
    }
    case ControlKind::Canvas:
      MakeStop<Canvas>(design, new CanvasWidget(&parent));
      break;
    case ControlKind::RichTextBox:
      AddRichText(design, parent);
      break;
    case ControlKind::Frame:
      Make<Frame>(design, new QGroupBox(&parent));
      break;
    case ControlKind::Page:
      Make<Page>(design, new QWidget(&parent));
      break;
    case ControlKind::SplitPanel:
      Make<SplitArea>(design, new QWidget(&parent));
      break;
    case ControlKind::Line: {
      auto* line = new QFrame(&parent);
      line->setFrameStyle(QFrame::HLine | QFrame::Sunken);
      Make<WidgetControl>(design, line);
      break;
    }
    case ControlKind::Row:
    case ControlKind::Space:
      Make<WidgetControl>(design, new QWidget(&parent));
      break;
    case ControlKind::Menu:
    case ControlKind::Toolbar:
    case ControlKind::StatusBar:
      break; // from tables of their own
    }
  }

  void AddRichText(const ControlDesign& design, QWidget& parent) {
    const std::shared_ptr<IRichTextControl> box = m_makeRichText(design, parent);
    m_parts.Controls.push_back(box);
    auto* widget = parent.findChild<QWidget*>(ToQt(design.Name), Qt::FindDirectChildrenOnly);
    if (widget == nullptr) return;
    m_holders.Place(design, *widget);
    m_parts.FocusPlaces.push_back({widget, box.get()});
    m_parts.Life->Order.Add(*widget);
  }

  const FormDesign& m_design;
  const RichTextFactory& m_makeRichText;
  FormParts& m_parts;
  Holders m_holders;
};

} // namespace

FormParts BuildForm(const FormDesign& design, const RichTextFactory& makeRichText) {
  FormParts parts;
  if (design.Style == FormStyle::Window) {
    auto* window = new QMainWindow;
    window->resize(window->size()); // or it would shrink when it is shown, if it was given this very size
    parts.Window = window;
    parts.Area = new QWidget(window);
    window->setCentralWidget(parts.Area);
    BuildMenus(design, *window, parts);
  } else {
    parts.Window = new QDialog(nullptr, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                            Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
    parts.Area = parts.Window;
  }
  parts.Window->setObjectName(ToQt(design.Name));
  parts.Window->setWindowTitle(ToQt(design.Caption));
  Builder(design, makeRichText, parts).Build();
  return parts;
}

} // namespace portico::qt
