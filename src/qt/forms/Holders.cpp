#include "qt/forms/Holders.h"

#include <QLabel>

#include <utility>

namespace portico::qt {
namespace {

constexpr int NarrowestDialog = 300; // pixels
constexpr int WidestText = 420;      // pixels; a longer one goes on in the next line

void Spread(QWidget& space, const QBoxLayout& layout) {
  const bool isRow = layout.direction() == QBoxLayout::LeftToRight;
  space.setSizePolicy(isRow ? QSizePolicy::Expanding : QSizePolicy::Preferred,
                      isRow ? QSizePolicy::Preferred : QSizePolicy::Expanding);
}

} // namespace

Holders::Holders(QWidget& area, bool isLaidOut) {
  Holder& form = m_holders[{}];
  form.Widget = &area;
  if (!isLaidOut) return;
  form.Layout = new QVBoxLayout(&area);
  form.Layout->setSizeConstraint(QLayout::SetFixedSize);
  form.Layout->addSpacerItem(new QSpacerItem(NarrowestDialog, 0)); // so that its title can be read
}

void Holders::PlacePage(Holder& holder, QWidget& widget) const {
  if (holder.Pages == nullptr) {
    holder.Pages = new QGridLayout;
    holder.Layout->addLayout(holder.Pages);
  }
  holder.Pages->addWidget(&widget, 0, 0);
}

void Holders::Finish() {
  for (auto& [name, holder] : m_holders) {
    if (holder.IsPage) holder.Layout->addStretch(); // the tallest page makes the room for all
  }
}

void Holders::NameAfter(QWidget* last, QWidget& field) {
  if (auto* label = qobject_cast<QLabel*>(last)) label->setBuddy(&field);
  if (field.accessibleName().isEmpty() && last != nullptr) field.setAccessibleName(last->accessibleName());
}

void Holders::Place(const ControlDesign& design, QWidget& widget) {
  Holder& holder = m_holders.at(design.Parent);
  QWidget* const last = std::exchange(holder.Last, &widget);
  if (holder.Layout != nullptr) {
    switch (design.Kind) {
    case ControlKind::Page:
      PlacePage(holder, widget);
      break;
    case ControlKind::Space:
      Spread(widget, *holder.Layout);
      holder.Layout->addWidget(&widget);
      break;
    case ControlKind::PictureBox:
      widget.setFixedSize(widget.sizeHint().expandedTo(widget.size()));
      holder.Layout->addWidget(&widget, 0, Qt::AlignLeft | Qt::AlignVCenter);
      break;
    default:
      holder.Layout->addWidget(&widget);
    }
  }
  switch (design.Kind) {
  case ControlKind::Label:
    if (holder.Layout != nullptr && holder.Layout->direction() == QBoxLayout::TopToBottom) {
      qobject_cast<QLabel*>(&widget)->setWordWrap(true);
      widget.setMaximumWidth(WidestText);
    }
    break;
  case ControlKind::TextBox:
  case ControlKind::ComboBox:
  case ControlKind::ListView:
    NameAfter(last, widget);
    break;
  case ControlKind::Frame:
  case ControlKind::Page: {
    auto* layout = new QVBoxLayout(&widget);
    if (design.Kind == ControlKind::Page) layout->setContentsMargins(0, 0, 0, 0);
    m_holders[design.Name] = {.Widget = &widget, .Layout = layout, .IsPage = design.Kind == ControlKind::Page};
    break;
  }
  case ControlKind::Row: {
    auto* layout = new QHBoxLayout(&widget);
    layout->setContentsMargins(0, 0, 0, 0);
    m_holders[design.Name] = {.Widget = &widget, .Layout = layout};
    break;
  }
  case ControlKind::SplitPanel:
    m_holders[design.Name] = {.Widget = &widget};
    break;
  default:
    break;
  }
}

} // namespace portico::qt
