#include "views/completion/KnownCommands.h"

#include "completion/CommandList.h"
#include "framework/shared/Application.h"
#include "framework/shared/IConfiguration.h"
#include "platform/ICommandFiles.h"
#include "platform/ISettingsStore.h"

#include <algorithm>
#include <array>
#include <utility>

namespace portico {
namespace {

const String Section = u"Instruments";

/// The settings store takes a slash for a step into another section.
String KeyOf(StringView name) { return ReplaceAll(name, u"/", u"|"); }

/// Maker, model and firmware; empty for an answer that has not all four parts.
String IdentityOf(StringView answer) {
  const auto parts = Split(Trim(answer), u",");
  if (parts.size() < 4) return {};
  String identity(Trim(parts[0]));
  for (const std::size_t part : std::array<std::size_t, 2>{1, 3}) {
    identity.append(u",").append(Trim(parts[part]));
  }
  return identity;
}

} // namespace

const completion::CommandTree& KnownCommands::Tree() {
  LookUp();
  if (gCommandFiles && gCommandFiles->HaveListsChanged()) ReadLists();
  if (!m_tree) {
    m_tree.emplace();
    m_tree->Add(m_told);
    for (const auto& list : m_lists) m_tree->Add(list);
    m_tree->Add(m_sent.All());
  }
  return *m_tree;
}

/// What is kept of the instrument that is open now.
void KnownCommands::LookUp() {
  const String name = gConfiguration->ItemValue(Item::InstrumentName);
  if (name == m_name) return;
  m_name = name;
  m_told.clear();
  m_tree.reset();
  m_identity = name.empty() ? String() : gSettingsStore->GetSetting(ApplicationTitle, Section, KeyOf(name), {});
  if (m_identity.empty() || !gCommandFiles) return;
  const ICommandFiles::File file = gCommandFiles->Told(m_identity);
  m_told = Read(file.Name, file.Bytes, file.Fault);
}

void KnownCommands::Opened() { m_name.clear(); }

void KnownCommands::Identify(StringView answer) {
  const String identity = IdentityOf(answer);
  LookUp();
  if (identity.empty() || identity == m_identity) return;
  m_identity = identity;
  m_tree.reset();
  m_told.clear();
  if (!gCommandFiles) return;
  const ICommandFiles::File file = gCommandFiles->Told(identity);
  m_told = Read(file.Name, file.Bytes, file.Fault);
  if (!m_told.empty()) gSettingsStore->SaveSetting(ApplicationTitle, Section, KeyOf(m_name), identity);
}

std::optional<String> KnownCommands::Tell(std::vector<completion::KnownCommand> commands) {
  LookUp();
  m_told = std::move(commands);
  m_tree.reset();
  if (m_identity.empty() || !gCommandFiles) return {};
  std::string bytes = "# " + ToUtf8(m_identity) + "\n";
  for (const completion::KnownCommand& command : m_told) bytes.append(TextOf(command)).append(1, '\n');
  if (auto fault = gCommandFiles->KeepTold(m_identity, bytes)) return fault;
  gSettingsStore->SaveSetting(ApplicationTitle, Section, KeyOf(m_name), m_identity);
  return {};
}

void KnownCommands::Accept(StringView line) {
  if (m_sent.Take(line)) m_tree.reset();
}

void KnownCommands::ReadLists() {
  m_lists.clear();
  m_tree.reset();
  for (const ICommandFiles::File& file : gCommandFiles->Lists()) {
    m_lists.push_back(Read(file.Name, file.Bytes, file.Fault));
  }
}

std::vector<completion::KnownCommand> KnownCommands::Read(const String& name, std::string_view bytes,
                                                          const std::optional<String>& fault) {
  if (fault) Complain(*fault);
  completion::CommandList list = completion::ReadCommandList(bytes);
  if (!list.Complaint.empty()) Complain(String(u"The command list ").append(name).append(u": ").append(list.Complaint));
  return std::move(list.Commands);
}

void KnownCommands::Complain(String sentence) {
  if (std::ranges::find(m_toldComplaints, sentence) != m_toldComplaints.end()) return;
  m_toldComplaints.push_back(sentence);
  m_complaints.push_back(std::move(sentence));
}

std::vector<String> KnownCommands::TakeComplaints() { return std::exchange(m_complaints, {}); }

const CreatorRow CtorKnownCommands = {
    .Name = u"CtorKnownCommands",
    .Specification = Class::KnownCommands,
    .ParamCount = Class::KnownCommands.ParamCount,
    .Make = [](const Params&) -> Ref<IObject> { return New<KnownCommands>(); },
    .Singleton = true,
};

} // namespace portico
