#pragma once

#include "framework/objects/Creator.h"
#include "framework/shared/UserCommand.h"

namespace portico {

// The commands of the Edit menu.

// Clipboard work goes to whichever control has the focus, by its key. The key arrives after `Execute` has returned.

class CCut final : public PlainCommand {
public:
  StringView ClassName() const override { return u"CCut"; }

private:
  void Act() override;
};

class CCopy final : public PlainCommand {
public:
  StringView ClassName() const override { return u"CCopy"; }

private:
  void Act() override;
};

class CPaste final : public PlainCommand {
public:
  StringView ClassName() const override { return u"CPaste"; }

private:
  void Act() override;
};

// These ask for a file, open it as a store, and then raise 17: there is no more to them yet. A user who cancels gets
// no error. Without a dialog, or without a store, they raise 31004.

/// A new name leaves an empty log; an existing file is kept, whatever the user answers.
class CCopyTo final : public PlainCommand {
public:
  StringView ClassName() const override { return u"CCopyTo"; }

private:
  void Act() override;
  /// Whether there is a store.
  static bool OpenCopyToFile();
};

/// A file that does not exist raises 53.
class CPasteFrom final : public PlainCommand {
public:
  StringView ClassName() const override { return u"CPasteFrom"; }

private:
  void Act() override;
  static bool OpenPasteFromFile();
};

/// Raises 17 at once.
class CClearHistory final : public PlainCommand {
public:
  StringView ClassName() const override { return u"CClearHistory"; }

private:
  void Act() override;
};

// None takes a parameter. No registrar adds "Cut".
extern const CreatorRow CtorCut;
extern const CreatorRow CtorCopy;
extern const CreatorRow CtorPaste;
extern const CreatorRow CtorCopyTo;
extern const CreatorRow CtorPasteFrom;
extern const CreatorRow CtorClearHistory;

} // namespace portico
