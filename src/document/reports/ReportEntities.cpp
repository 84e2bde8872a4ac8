#include "document/reports/ReportEntities.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/IObjectFactory.h"
#include "framework/shared/IConfiguration.h"

namespace portico::modAppGlobals {
namespace {

/// What the user typed begins with the text; what the builders add, pacing queries and error checks, does not.
bool IsTyped(StringView text) {
  const String line = gConfiguration->ItemValue(Item::CurrentInstruction);
  return EqualNoCase(StringView(line).substr(0, text.size()), text);
}

struct Shown {
  String Text;
  StringView DataType;
};

Shown WhatShows(const IReport& report) {
  constexpr StringView write = u"CWriteCmd";
  constexpr StringView read = u"CReadCmd";
  constexpr StringView open = u"COpenCmd";
  constexpr StringView setConfiguration = u"CSetConfigCmd";
  constexpr StringView getConfiguration = u"CGetConfigCmd";
  const StringView kind = report.ClassName();
  if (kind == write) {
    String text = report.GetSCPIInstruction();
    const bool typed = IsTyped(text);
    return {std::move(text), typed ? DataTypeName::Instruction : DataTypeName::AutomaticInstruction};
  }
  if (kind == read) return {report.GetData(), DataTypeName::Response};
  if (kind == setConfiguration || kind == getConfiguration) return {report.GetData(), DataTypeName::Configuration};
  if (kind == open) return {report.GetData(), {}};
  return {};
}

bool EndsInNewLine(StringView text) {
  return text.size() >= NewLine.size() && text.substr(text.size() - NewLine.size()) == NewLine;
}

} // namespace

Ref<IDataEntity> Report2DataEntity(const Ref<IReport>& Report) try {
  HuntERR::Check(bool(Report), ErrorNumber::InvalidArgument, u"Report cannot be nothing.");
  Shown shown = WhatShows(*Report);
  if (Report->GetErrorCode() != 0) shown.Text = AddTerminalNewLineToString(shown.Text);
  if (shown.Text.empty()) return {};
  auto entity = Create(Class::DataEntity, ToBytes(shown.Text), shown.DataType, {});
  TerminateEntityDataWithNewLine(entity);
  return entity;
} catch (...) {
  PassOn(u"modAppGlobals.Report2DataEntity(Report)", {Report});
}

bool IsShown(const IReport& Report) {
  const String text = WhatShows(Report).Text;
  return !text.empty() && text != NewLine;
}

String AddTerminalNewLineToString(const String& ToString) try {
  return EndsInNewLine(ToString) ? ToString : String(ToString).append(NewLine);
} catch (...) {
  PassOn(u"modAppGlobals.AddTerminalNewLineToString(ToString)", {ToString});
}

void TerminateEntityDataWithNewLine(const Ref<IDataEntity>& DataEntity) try {
  HuntERR::Check(bool(DataEntity), ErrorNumber::InvalidArgument, u"Data entity cannot be nothing.");
  String text = DataEntity->ReadText();
  if (!EndsInNewLine(text)) text += NewLine;
  DataEntity->UpdateData(ToBytes(text));
} catch (...) {
  PassOn(u"modAppGlobals.TerminateEntityDataWithNewLine(DataEntity)", {DataEntity});
}

} // namespace portico::modAppGlobals
