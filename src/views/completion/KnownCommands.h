#pragma once

#include "completion/CommandTree.h"
#include "completion/SentCommands.h"
#include "framework/objects/ClassKey.h"
#include "framework/objects/Creator.h"

#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace portico {

/// The commands that are known of the instrument that is open. They come, in this order, from what the instrument has
/// told of itself, from the command lists, and from what was sent and accepted. What an instrument has told is kept for
/// its maker, model and firmware, and found again by the name that it was opened with, until another answers there.
/// Needs `gConfiguration` and `gSettingsStore`; without `gCommandFiles` there are no lists, and nothing is kept.
class KnownCommands final : public IObject {
public:
  StringView ClassName() const override { return u"KnownCommands"; }

  /// Made anew where something has changed.
  const completion::CommandTree& Tree();

  /// An instrument has been opened: another may answer by its name.
  void Opened();
  /// The open instrument has answered `*IDN?`.
  void Identify(StringView answer);
  /// The open instrument has told of its commands. A sentence if they cannot be kept.
  std::optional<String> Tell(std::vector<completion::KnownCommand> commands);
  /// A line was sent and accepted.
  void Accept(StringView line);

  /// What is wrong with the files, a sentence each, and each once.
  std::vector<String> TakeComplaints();

private:
  void LookUp();
  void ReadLists();
  std::vector<completion::KnownCommand> Read(const String& name, std::string_view bytes,
                                             const std::optional<String>& fault);
  void Complain(String sentence);

  String m_name;     // by which the instrument was opened
  String m_identity; // empty while that is not known
  std::vector<completion::KnownCommand> m_told;
  std::vector<std::vector<completion::KnownCommand>> m_lists;
  completion::SentCommands m_sent;
  std::optional<completion::CommandTree> m_tree; // none while it is not up to date
  std::vector<String> m_complaints;
  std::vector<String> m_toldComplaints;
};

namespace Class {

inline constexpr ClassKey<KnownCommands> KnownCommands{u"KnownCommands"};

} // namespace Class

/// There is one, from the start.
extern const CreatorRow CtorKnownCommands;

} // namespace portico
