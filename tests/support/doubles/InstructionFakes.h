#pragma once

#include "framework/objects/IObjectFactory.h"
#include "instructions/IInstProcessor.h"
#include "instructions/builders/IBuilder.h"

#include <functional>
#include <initializer_list>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace portico::support {

using Journal = std::vector<std::string>;

inline Ref<CInstContainer> MakeInstruction(const String& type, const String& function,
                                           std::initializer_list<std::pair<String, String>> parameters = {}) {
  auto instruction = New<CInstContainer>();
  instruction->CmdType(type);
  instruction->FunctionName(function);
  for (const auto& [key, value] : parameters) instruction->Params()->Add(value, key);
  return instruction;
}

/// Does what it is given and runs the command inside.
class InstructionCommand final : public ICommand {
public:
  explicit InstructionCommand(std::function<void()> act, Ref<ICommand> inner = {})
      : m_act(std::move(act)), m_inner(std::move(inner)) {}
  StringView ClassName() const override { return u"InstructionCommand"; }
  void Execute() override {
    m_act();
    if (m_inner) m_inner->Execute();
  }

private:
  std::function<void()> m_act;
  Ref<ICommand> m_inner;
};

/// Writes down its building, and the execution of what it has built.
class InstructionBuilder final : public IBuilder {
public:
  InstructionBuilder(Journal& journal, std::string name) : m_journal(journal), m_name(std::move(name)) {}
  StringView ClassName() const override { return u"InstructionBuilder"; }
  Ref<ICommand> Build(const Ref<ICommand>& InnerCommand, const Ref<CInstContainer>&) override {
    m_journal.push_back("build " + m_name + (InnerCommand ? " around a command" : " around nothing"));
    return New<InstructionCommand>([&journal = m_journal, name = m_name] { journal.push_back("run " + name); },
                                   InnerCommand);
  }

private:
  Journal& m_journal;
  std::string m_name;
};

/// A handler that answers as it is told and writes down what it is asked.
class InstructionFakeHandler final : public IInstHandler, public IInstProcessor {
public:
  InstructionFakeHandler(Journal& journal, String prefix, std::string name, std::int32_t answer)
      : m_journal(journal), m_prefix(std::move(prefix)), m_name(std::move(name)), m_answer(answer) {}
  StringView ClassName() const override { return u"InstructionFakeHandler"; }
  String Prefix() const override {
    m_journal.push_back("prefix " + m_name);
    return m_prefix;
  }
  std::int32_t Send(const Ref<CInstContainer>&) override {
    m_journal.push_back("send " + m_name);
    return m_answer;
  }

private:
  Journal& m_journal;
  String m_prefix;
  std::string m_name;
  std::int32_t m_answer;
};

/// A creator made of its specification and a function.
class InstructionCreator final : public ICreator {
public:
  using Function = std::function<Ref<IObject>(const Params&)>;
  InstructionCreator(String specification, Function make)
      : m_specification(std::move(specification)), m_make(std::move(make)) {}
  StringView ClassName() const override { return u"InstructionCreator"; }
  Value Specification() const override { return m_specification; }
  Ref<IObject> Create(const Params& Parameters) override { return m_make(Parameters); }
  bool IsMatch(const Value& Specification) const override { return Specification.ToString() == m_specification; }

private:
  String m_specification;
  Function m_make;
};

/// Stands before the real factory and writes down what is asked of it.
class InstructionSpyFactory final : public IObjectFactory {
public:
  struct Request {
    String Specification;
    Params Parameters;
  };

  StringView ClassName() const override { return u"InstructionSpyFactory"; }
  void StandBefore(const Ref<IObjectFactory>& real) { m_real = real; }
  Ref<IObject> CreateObject(const Value& Specification, const Params& Parameters) override {
    Requests.push_back({Specification.ToString(), Parameters});
    const auto standIn = StandIns.find(Specification.ToString());
    return standIn == StandIns.end() ? m_real->CreateObject(Specification, Parameters) : standIn->second(Parameters);
  }
  Ref<ICreator> GetCreator(const Value& Specification) override { return m_real->GetCreator(Specification); }
  void Add(const Ref<ICreator>& Creator) override { m_real->Add(Creator); }
  void Remove(const Ref<ICreator>& Creator) override {
    Removed.push_back(Creator->Specification().ToString());
    m_real->Remove(Creator);
  }
  void Substitue(const Ref<ICreator>& Creator) override { m_real->Substitue(Creator); }

  /// The requests for one specification.
  std::vector<Params> ParametersOf(const String& specification) const {
    std::vector<Params> found;
    for (const Request& request : Requests) {
      if (request.Specification == specification) found.push_back(request.Parameters);
    }
    return found;
  }

  std::vector<Request> Requests;
  std::vector<String> Removed;
  /// Asked instead of the real factory.
  std::map<String, InstructionCreator::Function> StandIns;

private:
  Ref<IObjectFactory> m_real;
};

} // namespace portico::support
