#include "memory/desktop/Keyboard.h"

#include "memory/forms/RichTextControl.h"

#include <utility>

namespace portico::memory {

void Keyboard::SendKeys(const String& keys) {
  m_sent.push_back(keys);
  m_pending += keys;
}

void Keyboard::Deliver() {
  const String keys = std::exchange(m_pending, {});
  for (std::size_t i = 0; i < keys.size(); ++i) {
    if (keys[i] == u'^' && i + 1 < keys.size()) {
      DeliverCtrl(FoldCase(keys[++i]));
    } else if (auto* box = dynamic_cast<RichTextControl*>(m_screen->ActiveControl())) {
      box->Type(StringView(keys).substr(i, 1));
    }
  }
}

void Keyboard::DeliverCtrl(char16_t letter) const {
  auto* const box = dynamic_cast<RichTextControl*>(m_screen->ActiveControl());
  if (box == nullptr || !box->IsUsable()) return;
  if (letter == FoldCase(u'V')) box->Type(m_clipboard->GetText());
  if (letter != FoldCase(u'C') && letter != FoldCase(u'X')) return;
  const String selected = box->SelText();
  if (selected.empty()) return;
  m_clipboard->SetText(selected);
  if (letter == FoldCase(u'X')) box->Type({});
}

} // namespace portico::memory
