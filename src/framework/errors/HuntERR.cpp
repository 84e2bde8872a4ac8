#include "framework/errors/HuntERR.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/ErrorReport.h"
#include "framework/errors/ErrorState.h"
#include "framework/errors/Quit.h"

#include <cstdlib>
#include <memory>
#include <new>
#include <stdexcept>
#include <typeinfo>

namespace portico {
namespace HuntERR {
namespace {

constexpr StringView ReportSource = u"HuntERR.ErrorIn";

/// A standard error that was met and stopped in one procedure, of one text as its parameter. These are many: the memory
/// of the one before serves.
class StandardPending final : public PendingError {
public:
  void Become(std::int32_t number, StringView label, StringView text) {
    m_number = number;
    m_label = label;
    m_text = text;
    m_time = Environment().LocalTime();
  }
  void Record() const override {
    Load(Error(StandardError(m_number)));
    ErrorIn(m_label, {m_text}, StopFlags, m_time);
  }

private:
  std::int32_t m_number = 0;
  StringView m_label;
  String m_text;
  std::tm m_time{};
};

} // namespace

void FailCheck(std::int32_t ErrNum, StringView Message, const Params& Values, StringView HelpFile,
               std::int32_t HelpContext) {
  String message = ReplaceAll(Message, u"||", NewLine);
  for (std::size_t i = Values.size(); i > 0; --i) { // from the last, so that %1 is not found in %10
    message = ReplaceAll(message, u"%" + ToText(static_cast<std::int64_t>(i)), Values[i - 1].TextForm());
  }
  if (ErrNum != 0) Raise(ErrNum, u"HuntERR.Check", message, HelpFile, HelpContext);
  String& collected = SettledErrors().Collected;
  if (!collected.empty()) collected += NewLine;
  collected += message;
}

LazyText ErrorIn(StringView MethodName, const Params& Values, unsigned Flags, const std::optional<std::tm>& When) {
  ErrorState& state = SettledErrors();
  if (state.Current.Number == 0 && !state.Preserved) {
    state.Current.Number = ErrorNumber::ERRMAP_APP_FIRST;
    state.Current.Description = String(u"ErrorIn: Error information was lost. To fix: call ErrPreserve before doing "
                                       u"anything in error handler.");
  }
  ErrPreserve();
  if (IsExpectedError()) {
    state.Report = {};
    state.HasReport = false;
  } else if ((Flags & AddToReport) != 0) {
    const bool passedBefore = state.Saved.Source == ReportSource;
    state.Report = ErrorReport::Compose(state.Saved, passedBefore, {MethodName, Values, When}, state.Collected);
    state.HasReport = true;
    state.Saved.Source = ReportSource;
    state.Saved.Description = state.Report;
  }
  state.Collected.clear();
  ErrRestore();
  state.Preserved = false;
  if ((Flags & RaiseAgain) != 0) {
    ErrorRecord passed = state.Saved;
    passed.LastDllError = 0;
    passed.Erl = 0; // the line lies in the procedure that the error leaves, not in its caller
    Raise(std::move(passed));
  }
  return state.Report;
}

void ErrPreserve() {
  ErrorState& state = SettledErrors();
  if (state.Preserved || state.Current.Number == 0) return;
  state.Saved = state.Current;
  state.Preserved = true;
}

void ErrRestore() { SettledErrors().Current = SettledErrors().Saved; }

std::int32_t ErrNumber() { return SettledErrors().Saved.Number; }
String ErrSource() { return SettledErrors().Saved.Source; }
String ErrDescription() { return SettledErrors().Saved.Description; }

bool IsExpectedError() { return ErrNumber() >= ErrorNumber::FirstExpected && ErrNumber() <= ErrorNumber::LastExpected; }

String ErrReport() {
  const ErrorState& state = SettledErrors();
  if (state.HasReport) return state.Report;
  if (state.Current.Source == ReportSource) return state.Current.Description;
  return {};
}

void Load(const Error& error) {
  ErrorState& state = SettledErrors();
  state.Current = error.Record();
  state.Preserved = error.Held() != nullptr;
  if (state.Preserved) state.Saved = *error.Held();
}

const ErrorRecord& Err() { return SettledErrors().Current; }

void Reset() { KnownErrors() = ErrorState{}; }

void RecordStandard(std::int32_t Number, StringView Label, StringView Value) {
  if (!KnownErrors().Collected.empty()) SettledErrors();
  std::unique_ptr<PendingError>& pending = KnownErrors().Pending;
  const PendingError* held = pending.get();
  if (held == nullptr || typeid(*held) != typeid(StandardPending)) pending = std::make_unique<StandardPending>();
  static_cast<StandardPending&>(*pending).Become(Number, Label, Value);
}

} // namespace HuntERR

namespace {

/// Makes what is being caught the current error.
void LoadCaught() {
  const auto standard = [](std::int32_t number) { HuntERR::Load(Error(HuntERR::StandardError(number))); };
  try {
    throw;
  } catch (const Quit&) {
    throw;
  } catch (const Error& error) {
    HuntERR::Load(error);
  } catch (const std::bad_cast&) {
    standard(ErrorNumber::TypeMismatch);
  } catch (const std::out_of_range&) {
    standard(ErrorNumber::BadSubscript);
  } catch (const std::bad_alloc&) {
    standard(ErrorNumber::OutOfMemory);
  } catch (const std::length_error&) {
    standard(ErrorNumber::OutOfMemory);
  } catch (const std::exception& other) {
    ErrorRecord record;
    record.Number = ErrorNumber::ERRMAP_APP_FIRST;
    record.Source = u"Portico";
    record.Description = FromUtf8(other.what()).Text;
    HuntERR::Load(Error(std::move(record)));
  } catch (...) { // nothing is known of it, which counts as information that was lost
    HuntERR::Load(Error(ErrorRecord{}));
  }
}

} // namespace

void PassOn(StringView Label, const Params& Values) {
  LoadCaught();
  HuntERR::ErrorIn(Label, Values, HuntERR::PassFlags);
  std::abort(); // never reached: these flags raise
}

void StopHere(StringView Label, const Params& Values) {
  LoadCaught();
  HuntERR::ErrorIn(Label, Values, HuntERR::StopFlags);
}

void FailConstruction(StringView Label) {
  StopHere(Label);
  HuntERR::ErrPreserve();
  throw Error::WithHeldCopy(HuntERR::Err());
}

void SwallowInDestructor(StringView Label) noexcept {
  try {
    LoadCaught();
    HuntERR::ErrorIn(Label, {}, HuntERR::PassFlags & ~HuntERR::RaiseAgain);
  } catch (...) { // nothing may leave a destructor, a Quit included: whoever pumps next throws it again
    return;
  }
}

void RecordHere(ErrorRecord record, StringView Label, const Params& Values) {
  HuntERR::Load(Error(std::move(record)));
  HuntERR::ErrorIn(Label, Values, HuntERR::StopFlags);
}

} // namespace portico
