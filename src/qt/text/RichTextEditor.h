#pragma once

#include "qt/text/TextBlocks.h"
#include "qt/text/TextView.h"
#include "richtext/LineChanges.h"
#include "richtext/RichTextModel.h"

#include <QPointer>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

namespace portico::qt {

/// A rich text box whose text a view shows and the user edits there. The model has the answers to all that the program
/// asks. What the program changes reaches the view frame by frame, what is in sight first, in steps that the user
/// cannot undo, and before the user does anything; what the user changes reaches the model at once.
class RichTextEditor : public richtext::RichTextModel, private ITextViewOwner {
public:
  /// Brings the view up to date.
  void Show() override;
  void SetFocus() override;
  void GoToLine(std::int32_t line) override;

protected:
  /// The view must be a new one; it is given the font of the standard formatting.
  RichTextEditor(TextView& view, StringView fontName, double fontSize);
  RichTextEditor(const RichTextEditor&) = delete;
  RichTextEditor& operator=(const RichTextEditor&) = delete;
  ~RichTextEditor() override;

  /// What `edit` changes the user can undo in one step.
  void EditAsUser(const std::function<void()>& edit);

  /// To be asked for only while the view lives.
  TextView& View() const { return *m_view; }
  /// The user has changed the text: `Change` is to be fired, by way of `Enter`.
  virtual void OnUserChange() = 0;

  void OnLines(std::size_t first, std::size_t before, std::size_t after) override;
  void OnSelection() override;
  /// The line that a block of the document shows; none for one that stands for lines to come.
  std::optional<std::size_t> ShownLine(int block) const;

private:
  // Of the document, as counted by the toolkit.
  struct Range {
    int Start;
    int End;
    bool operator==(const Range&) const = default;
  };

  void Settle() override;
  std::unique_ptr<QMimeData> Selection() override;
  void Insert(const QMimeData& data) override;
  void InsertText(StringView text) override;
  void Drop(const QMimeData& data, const QTextCursor& place, const QTextCursor& moved) override;
  QTextCharFormat TypingFormat() override;
  void Zoom(double factor) override;

  void Await();
  /// Who undoes what the view is brought up to date with: nobody, the user in a step, or with the step before.
  enum class Undo : std::uint8_t { Never, Step, WithStepBefore };
  void ShowFrame();
  void Flush(Undo undo);
  template <class Write>
  void Flush(Undo undo, Write&& write);
  void WriteAll();
  void WriteFrame(std::size_t most);
  void WritePart(const richtext::LineChanges::Part& part);
  void ShowSelection(bool isBackwards);
  void UserPut(richtext::FormattedText text);
  void ReadContents(int position, int added);
  void CutAnew();
  void ReadSelection();
  int ToDocument(Place place, bool isEnd) const;
  Place FromDocument(int position) const;

  QPointer<TextView> m_view;
  QTextDocument& m_document;
  TextBlocks m_blocks;
  const richtext::FormattedLine m_standIn; // in the document, for lines that are still to come
  richtext::LineChanges m_changes;         // what the document does not show yet
  bool m_awaitsSelection = false;          // the document does not show the selection yet
  std::optional<Range> m_selected;         // in the document, as it was last the same as in the model
  QTextCursor m_edited;   // by the user, and not cut anew where its lines have become too long or too short
  bool m_isAtRest = true; // the program has edited nothing since the last frame
  bool m_isWriting = false;
  bool m_isReading = false;
  bool m_isChanged = false; // by the user, and `OnUserChange` has not been called for it
  QTimer m_frame;
};

} // namespace portico::qt
