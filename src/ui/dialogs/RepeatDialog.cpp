#include "ui/dialogs/RepeatDialog.h"

#include "framework/shared/Application.h"
#include "platform/IDesktop.h"
#include "platform/IDialogControls.h"
#include "ui/base/Wired.h"
#include "ui/dialogs/DialogDesigns.h"

#include <cmath>

namespace portico {
namespace {

constexpr double MostTurns = 1e9;
constexpr double ShortestEvery = 0.001; // seconds
constexpr double LongestEvery = 1e6;

std::optional<std::uint64_t> ReadTurns(StringView text) {
  const auto number = ReadNumber(text);
  if (!number || std::trunc(*number) != *number || *number < 1 || *number > MostTurns) return {};
  return static_cast<std::uint64_t>(*number);
}

std::optional<std::chrono::milliseconds> ReadSeconds(StringView text) {
  const auto number = ReadNumber(text);
  if (!number || (*number != 0 && !(*number >= ShortestEvery && *number <= LongestEvery))) return {};
  return std::chrono::round<std::chrono::milliseconds>(std::chrono::duration<double>(*number));
}

void Refuse(StringView text) { Wired(gMessageBox).Show(String(text), ApplicationTitle); }

String Described(const RepeatedLines& lines) {
  const String count = ToText(std::int64_t{lines.Count()});
  if (lines.Count() == 1) {
    return lines.AreSelected() ? u"Repeats the line that the selection touches." : u"Repeats the only line.";
  }
  return lines.AreSelected() ? u"Repeats the " + count + u" lines that the selection touches."
                             : u"Repeats all " + count + u" lines.";
}

} // namespace

RepeatDialog::RepeatDialog() : DialogForm(RepeatDialogDesign) {}

void RepeatDialog::Form_Initialize() {
  auto& forever = Control<ICheckBox>(u"chkForever");
  On(forever.Click(), u"RepeatDialog.chkForever_Click",
     [this, &forever] { Control<ITextBox>(u"txtTurns").Enabled(forever.Value() != Checked); });
  On(Control<ICommandButton>(u"cmdOK").Click(), u"RepeatDialog.cmdOK_Click", [this] { Accept(); });
  On(Control<ICommandButton>(u"cmdCancel").Click(), u"RepeatDialog.cmdCancel_Click", [this] { Unload(); });
}

void RepeatDialog::Form_Load() {
  Control<IControl>(u"lblLines").Caption(Described(*m_lines));
  if (m_plan.Turns) Control<ITextBox>(u"txtTurns").Text(ToText(static_cast<std::int64_t>(*m_plan.Turns)));
  Control<ICheckBox>(u"chkForever").Value(m_plan.Turns ? Unchecked : Checked);
  Control<ITextBox>(u"txtSeconds").Text(ToText(std::chrono::duration<double>(m_plan.Every).count()));
}

void RepeatDialog::Accept() {
  const bool isForever = Control<ICheckBox>(u"chkForever").Value() == Checked;
  const auto turns = ReadTurns(Control<ITextBox>(u"txtTurns").Text());
  const auto every = ReadSeconds(Control<ITextBox>(u"txtSeconds").Text());
  if (!isForever && !turns) {
    Refuse(u"Use 1 to 1000000000 turns.");
  } else if (!every) {
    Refuse(u"Use 0, or 0.001 to 1000000 seconds.");
  } else {
    m_chosen = {.Turns = isForever ? std::nullopt : turns, .Every = *every};
    Unload();
  }
}

} // namespace portico
