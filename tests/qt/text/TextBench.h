#pragma once

#include "qt/text/RichTextBox.h"

#include <QWidget>

#include <gtest/gtest.h>

namespace portico::test {

/// A window, shown offscreen and active, with one rich text box that fills it. It leaves an empty clipboard behind.
struct TextWindow {
  TextWindow();

  TextWindow(const TextWindow&) = delete;
  TextWindow& operator=(const TextWindow&) = delete;
  ~TextWindow();

  qt::TextView& View() const { return *box.Widget(); }
  /// The window comes to the front, and the box has the focus.
  void TakeFocus();
  /// The program's work is done, and the user sees it.
  void Settle();
  void Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = {});
  void Type(const QString& text);
  /// Anchor and caret, as the toolkit counts.
  void SelectInView(int anchor, int caret);

  QWidget window;
  qt::RichTextBox& box; ///< as long as the window
  int changes = 0;

private:
  std::unique_ptr<qt::RichTextBox> m_box;
};

/// The document's text, as the user sees it.
String ShownText(const qt::RichTextBox& box);
/// What the user should see.
String TextToShow(const IRichTextBox& box);
/// Text, looks and selection of the view are those of the box.
void ExpectShown(qt::RichTextBox& box);

} // namespace portico::test
