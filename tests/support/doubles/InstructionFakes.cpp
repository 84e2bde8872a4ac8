#include "support/doubles/InstructionFakes.h"

namespace portico::test {

InstructionBuilder::InstructionBuilder(Journal& journal, std::string name)
    : m_journal(journal), m_name(std::move(name)) {}

StringView InstructionBuilder::ClassName() const { return u"InstructionBuilder"; }

Ref<ICommand> InstructionBuilder::Build(const Ref<ICommand>& InnerCommand, const Ref<CInstContainer>&) {
  m_journal.push_back("build " + m_name + (InnerCommand ? " around a command" : " around nothing"));
  return New<CommandOf>([&journal = m_journal, name = m_name, InnerCommand] {
    journal.push_back("run " + name);
    if (InnerCommand) InnerCommand->Execute();
  });
}

InstructionFakeHandler::InstructionFakeHandler(Journal& journal, String prefix, std::string name, std::int32_t answer)
    : m_journal(journal), m_prefix(std::move(prefix)), m_name(std::move(name)), m_answer(answer) {}

StringView InstructionFakeHandler::ClassName() const { return u"InstructionFakeHandler"; }

String InstructionFakeHandler::Prefix() const {
  m_journal.push_back("prefix " + m_name);
  return m_prefix;
}

std::int32_t InstructionFakeHandler::Send(const Ref<CInstContainer>&) {
  m_journal.push_back("send " + m_name);
  return m_answer;
}

StringView InstructionSpyFactory::ClassName() const { return u"InstructionSpyFactory"; }

void InstructionSpyFactory::StandBefore(const Ref<IObjectFactory>& real) { m_real = real; }

Ref<IObject> InstructionSpyFactory::CreateObject(const Value& Specification, const Params& Parameters) {
  Requests.push_back({Specification.ToString(), Parameters});
  const auto standIn = StandIns.find(Specification.ToString());
  return standIn == StandIns.end() ? m_real->CreateObject(Specification, Parameters) : standIn->second(Parameters);
}

Ref<ICreator> InstructionSpyFactory::GetCreator(const Value& Specification) {
  return m_real->GetCreator(Specification);
}

void InstructionSpyFactory::Add(const Ref<ICreator>& Creator) { m_real->Add(Creator); }

void InstructionSpyFactory::Remove(const Ref<ICreator>& Creator) {
  Removed.push_back(Creator->Specification().ToString());
  m_real->Remove(Creator);
}

void InstructionSpyFactory::Substitue(const Ref<ICreator>& Creator) { m_real->Substitue(Creator); }

std::vector<Params> InstructionSpyFactory::ParametersOf(const String& specification) const {
  std::vector<Params> found;
  for (const Request& request : Requests) {
    if (request.Specification == specification) found.push_back(request.Parameters);
  }
  return found;
}

Ref<CInstContainer> MakeInstruction(const String& type, const String& function,
                                    std::initializer_list<std::pair<String, String>> parameters) {
  auto instruction = New<CInstContainer>();
  instruction->CmdType(type);
  instruction->FunctionName(function);
  for (const auto& [key, value] : parameters) instruction->Params()->Add(value, key);
  return instruction;
}

} // namespace portico::test
