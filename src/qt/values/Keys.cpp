#include "qt/values/Keys.h"

#include "platform/IForm.h"

#include <algorithm>
#include <array>
#include <utility>

namespace portico::qt {
namespace {

constexpr std::array<std::pair<int, std::int32_t>, 21> Codes{{
    {Qt::Key_Backspace, 8},     {Qt::Key_Tab, TabKey},  {Qt::Key_Backtab, TabKey},   {Qt::Key_Return, ReturnKey},
    {Qt::Key_Enter, ReturnKey}, {Qt::Key_Shift, 16},    {Qt::Key_Control, 17},       {Qt::Key_Alt, 18},
    {Qt::Key_Pause, 19},        {Qt::Key_CapsLock, 20}, {Qt::Key_Escape, EscapeKey}, {Qt::Key_Space, 32},
    {Qt::Key_PageUp, 33},       {Qt::Key_PageDown, 34}, {Qt::Key_End, 35},           {Qt::Key_Home, 36},
    {Qt::Key_Left, 37},         {Qt::Key_Up, 38},       {Qt::Key_Right, 39},         {Qt::Key_Down, 40},
    {Qt::Key_Delete, 46},
}};

} // namespace

std::int32_t ShiftState(Qt::KeyboardModifiers modifiers) {
  return (modifiers.testFlag(Qt::ShiftModifier) ? portico::ShiftState : 0) +
         (modifiers.testFlag(Qt::ControlModifier) ? CtrlState : 0) +
         (modifiers.testFlag(Qt::AltModifier) ? AltState : 0);
}

std::int32_t KeyCode(int key) {
  if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9)) return key;
  if (key >= Qt::Key_F1 && key <= Qt::Key_F16) return F1Key + key - Qt::Key_F1;
  const auto found = std::find_if(Codes.begin(), Codes.end(), [key](const auto& code) { return code.first == key; });
  return found == Codes.end() ? 0 : found->second;
}

} // namespace portico::qt
