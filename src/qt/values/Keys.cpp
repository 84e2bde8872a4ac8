#include "qt/values/Keys.h"

#include "platform/KeyCodes.h"

#include <algorithm>
#include <array>
#include <utility>

namespace portico::qt {
namespace {

constexpr std::array<std::pair<int, std::int32_t>, 21> Codes{{
    {Qt::Key_Backspace, BackspaceKey}, {Qt::Key_Tab, TabKey},           {Qt::Key_Backtab, TabKey},
    {Qt::Key_Return, ReturnKey},       {Qt::Key_Enter, ReturnKey},      {Qt::Key_Shift, ShiftKey},
    {Qt::Key_Control, CtrlKey},        {Qt::Key_Alt, AltKey},           {Qt::Key_Pause, PauseKey},
    {Qt::Key_CapsLock, CapsLockKey},   {Qt::Key_Escape, EscapeKey},     {Qt::Key_Space, SpaceKey},
    {Qt::Key_PageUp, PageUpKey},       {Qt::Key_PageDown, PageDownKey}, {Qt::Key_End, EndKey},
    {Qt::Key_Home, HomeKey},           {Qt::Key_Left, LeftKey},         {Qt::Key_Up, UpKey},
    {Qt::Key_Right, RightKey},         {Qt::Key_Down, DownKey},         {Qt::Key_Delete, DeleteKey},
}};

} // namespace

std::int32_t ShiftState(Qt::KeyboardModifiers modifiers) {
  return (modifiers.testFlag(Qt::ShiftModifier) ? portico::ShiftState : 0) +
         (modifiers.testFlag(Qt::ControlModifier) ? CtrlState : 0) +
         (modifiers.testFlag(Qt::AltModifier) ? AltState : 0);
}

std::int32_t KeyCode(int key) {
  if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9)) return key;
  if (key >= Qt::Key_F1 && key < Qt::Key_F1 + FunctionKeyCount) return F1Key + key - Qt::Key_F1;
  const auto found = std::find_if(Codes.begin(), Codes.end(), [key](const auto& code) { return code.first == key; });
  return found == Codes.end() ? 0 : found->second;
}

} // namespace portico::qt
