#pragma once

#include "completion/Completion.h"
#include "platform/IRichTextControl.h"
#include "views/completion/KnownCommands.h"

namespace portico {

/// Offers what completes the word at the caret of a box, and follows what is typed there. The list closes when the
/// caret leaves the word, when nothing fits any more, and when a run begins. What is taken stands there plain and
/// black, as one step of the user's undo. Needs `gMainForm`.
class CommandOffers final : public IObject {
public:
  CommandOffers(const Ref<IRichTextControl>& box, const Ref<KnownCommands>& known);
  CommandOffers(const CommandOffers&) = delete;
  CommandOffers& operator=(const CommandOffers&) = delete;
  ~CommandOffers() override;
  StringView ClassName() const override { return u"CommandOffers"; }

  KnownCommands& Known() const { return *m_known; }
  /// Shows what fits; nothing if nothing does, or while something is selected.
  void Offer();
  void Close();

private:
  void Follow();
  void Take(std::int32_t offer);
  struct Found {
    std::int32_t Start = 0; ///< in the box
    std::int32_t Caret = 0;
    String Typed;
    std::vector<completion::Candidate> Candidates;
  };
  Found Find() const;
  void Show(Found found);

  Ref<IRichTextControl> m_box;
  Ref<KnownCommands> m_known;
  Event<>::Connection m_changed;
  Event<>::Connection m_moved;
  Event<std::int32_t>::Connection m_taken;
  Found m_shown;
};

} // namespace portico
