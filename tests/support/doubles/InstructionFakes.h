#pragma once

#include "framework/objects/IObjectFactory.h"
#include "instructions/IInstProcessor.h"
#include "instructions/builders/IBuilder.h"
#include "support/Journal.h"
#include "support/doubles/Objects.h"

#include <initializer_list>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace portico::test {

Ref<CInstContainer> MakeInstruction(const String& type, const String& function,
                                    std::initializer_list<std::pair<String, String>> parameters = {});

/// Writes down its building, and the execution of what it has built.
class InstructionBuilder final : public IBuilder {
public:
  InstructionBuilder(Journal& journal, std::string name);
  StringView ClassName() const override;
  Ref<ICommand> Build(const Ref<ICommand>& InnerCommand, const Ref<CInstContainer>&) override;

private:
  Journal& m_journal;
  std::string m_name;
};

/// A handler that answers as it is told and writes down what it is asked.
class InstructionFakeHandler final : public IInstHandler, public IInstProcessor {
public:
  InstructionFakeHandler(Journal& journal, String prefix, std::string name, std::int32_t answer);
  StringView ClassName() const override;
  String Prefix() const override;
  std::int32_t Send(const Ref<CInstContainer>&) override;

private:
  Journal& m_journal;
  String m_prefix;
  std::string m_name;
  std::int32_t m_answer;
};

/// Stands before the real factory and writes down what is asked of it.
class InstructionSpyFactory final : public IObjectFactory {
public:
  struct Request {
    String Specification;
    Params Parameters;
  };

  StringView ClassName() const override;
  void StandBefore(const Ref<IObjectFactory>& real);
  Ref<IObject> CreateObject(const Value& Specification, const Params& Parameters) override;
  Ref<ICreator> GetCreator(const Value& Specification) override;
  void Add(const Ref<ICreator>& Creator) override;
  void Remove(const Ref<ICreator>& Creator) override;
  void Substitue(const Ref<ICreator>& Creator) override;

  /// The requests for one specification.
  std::vector<Params> ParametersOf(const String& specification) const;

  std::vector<Request> Requests;
  std::vector<String> Removed;
  /// Asked instead of the real factory.
  std::map<String, CreatorOf::Maker> StandIns;

private:
  Ref<IObjectFactory> m_real;
};

} // namespace portico::test
