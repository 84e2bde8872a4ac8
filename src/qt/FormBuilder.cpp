#include "qt/FormParts.h"

#include "qt/PictureBox.h"
#include "qt/SplitArea.h"
#include "qt/StatusBar.h"
#include "qt/Text.h"
#include "qt/ToolBar.h"

#include <map>
#include <utility>

namespace portico::qt {
namespace {

/// Puts the controls into those that hold them.
class Builder {
public:
  Builder(const FormDesign& design, const RichTextFactory& makeRichText, FormParts& parts)
      : m_design(design), m_makeRichText(makeRichText), m_parts(parts) {}

  void Build() {
    if (!m_design.ToolButtons.empty()) {
      auto bar = std::make_shared<ToolBar>(m_design.ToolButtons, m_parts.Life, *new QToolBar(m_parts.Area));
      m_parts.ToolBar = bar.get();
      m_parts.Controls.push_back(std::move(bar));
    }
    if (!m_design.StatusPanels.empty()) {
      auto bar = std::make_shared<StatusBar>(m_design.StatusPanels, m_parts.Life, *new QStatusBar(m_parts.Area));
      m_parts.StatusBar = bar.get();
      m_parts.Controls.push_back(std::move(bar));
    }
    for (const ControlDesign& control : m_design.Controls) Add(control);
  }

private:
  void Add(const ControlDesign& design) {
    QWidget& parent = design.Parent.empty() ? *m_parts.Area : *m_holders.at(design.Parent);
    switch (design.Kind) {
    case ControlKind::PictureBox: {
      auto picture = std::make_shared<PictureBox>(design, m_parts.Life, *new QWidget(&parent));
      if (&parent == m_parts.Area) m_parts.Pictures.push_back(picture.get());
      m_parts.Controls.push_back(std::move(picture));
      break;
    }
    case ControlKind::SplitPanel: {
      auto* widget = new QWidget(&parent);
      m_holders[design.Name] = widget;
      m_parts.Controls.push_back(std::make_shared<SplitArea>(design, m_parts.Life, *widget));
      break;
    }
    case ControlKind::RichTextBox: {
      const std::shared_ptr<IRichTextControl> box = m_makeRichText(design, parent);
      auto* widget = parent.findChild<QWidget*>(ToQt(design.Name), Qt::FindDirectChildrenOnly);
      m_parts.FocusPlaces.push_back({widget, box.get()});
      if (widget != nullptr) m_parts.Life->Order.Add(*widget);
      m_parts.Controls.push_back(box);
      break;
    }
    default:
      break;
    }
  }

  const FormDesign& m_design;
  const RichTextFactory& m_makeRichText;
  FormParts& m_parts;
  std::map<StringView, QWidget*> m_holders;
};

} // namespace

FormParts BuildForm(const FormDesign& design, const RichTextFactory& makeRichText) {
  FormParts parts;
  if (design.Style == FormStyle::Window) {
    auto* window = new QMainWindow;
    parts.Window = window;
    parts.Area = new QWidget(window);
    window->setCentralWidget(parts.Area);
    BuildMenus(design, *window, parts);
  } else {
    parts.Window = new QDialog;
    parts.Area = parts.Window;
  }
  parts.Window->setObjectName(ToQt(design.Name));
  parts.Window->setWindowTitle(ToQt(design.Caption));
  Builder(design, makeRichText, parts).Build();
  return parts;
}

} // namespace portico::qt
