#pragma once

#include "richtext/RichTextModel.h"

namespace portico {

/// Lines of the command window, copied with their looks into a box that nobody sees. Each ends in a line end.
class RepeatedLines final : public richtext::RichTextModel {
public:
  RepeatedLines();
  StringView ClassName() const override { return u"RepeatedLines"; }
  void SetFocus() override {}

  /// Those that the selection of a box touches, or all, if nothing is selected. The box stays as it is.
  void Copy(const IRichTextBox& box);
  /// Whether it was a selection that they were copied from.
  bool AreSelected() const { return m_areSelected; }
  std::int32_t Count() const { return m_count; }

  /// All of them stand in the box again, whatever was taken off it.
  void Restore() { TextRTF(m_copy); }

private:
  void Delete(std::size_t start, std::size_t end);

  String m_copy;
  bool m_areSelected = false;
  std::int32_t m_count = 0;
};

} // namespace portico
