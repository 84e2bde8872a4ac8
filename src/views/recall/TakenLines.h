#pragma once

#include "framework/objects/ClassKey.h"
#include "framework/objects/Creator.h"
#include "platform/IRichTextControl.h"

#include <optional>
#include <vector>

namespace portico {

/// What the last run has taken off a box, with all its looks, so that it can be put back. It needs about as much memory
/// as the box needed for it.
class TakenLines final : public IObject {
public:
  /// While it lasts a run takes lines. A run within another one is part of that.
  class Run {
  public:
    /// Null for a run that nobody keeps account of.
    explicit Run(Ref<TakenLines> taken);
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;
    ~Run();

  private:
    const Ref<TakenLines> m_taken;
  };

  StringView ClassName() const override { return u"TakenLines"; }

  /// What is selected is about to be taken: its text, and its look as `SelFormat` has it.
  void Take(const ITextSelection& selection, StringView text, const SelectionFormat& look);

  bool IsEmpty() const { return m_pieces.empty(); }
  /// In front of what stands in the box, as one step of the user's undo; the caret stands in front of it all. Then
  /// there is nothing left to put back.
  void PutBack(IRichTextControl& box);

private:
  struct Piece {
    String Text;                         ///< a fragment, if it has no look
    std::optional<SelectionFormat> Look; ///< of all of it
  };

  std::vector<Piece> m_pieces;
  int m_runs = 0; // within one another
};

namespace Class {

inline constexpr ClassKey<TakenLines> TakenLines{u"TakenLines"};

} // namespace Class

/// The one account, which is there from the start.
extern const CreatorRow CtorTakenLines;

} // namespace portico
