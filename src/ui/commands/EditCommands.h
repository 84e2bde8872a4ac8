#pragma once

#include "framework/objects/Creator.h"
#include "framework/shared/UserCommand.h"

namespace portico {

// The commands of the Edit menu.

// Clipboard work goes to whichever control has the focus, by its key. The key arrives after `Execute` has returned.

/// Part of the contract; no registrar adds it, so that the window's cut fails at the factory.
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

// These ask for a file, open it as a store, and then raise `CannotCarryOut`: there is no more to them yet. A user who
// cancels gets no error. Without a dialog, or without a store, they raise `CannotCreate`.

/// A new name leaves an empty log; an existing file is kept, whatever the user answers.
class CCopyTo final : public PlainCommand {
public:
  StringView ClassName() const override { return u"CCopyTo"; }

private:
  void Act() override;
  /// Whether there is a store.
  static bool OpenCopyToFile();
};

/// A file that does not exist raises `FileNotFound`.
class CPasteFrom final : public PlainCommand {
public:
  StringView ClassName() const override { return u"CPasteFrom"; }

private:
  void Act() override;
  static bool OpenPasteFromFile();
};

/// Raises `CannotCarryOut` at once. Part of the contract; the window clears its history through the view.
class CClearHistory final : public PlainCommand {
public:
  StringView ClassName() const override { return u"CClearHistory"; }

private:
  void Act() override;
};

// Creators, none of which takes a parameter.
extern const CreatorRow CtorCut;
extern const CreatorRow CtorCopy;
extern const CreatorRow CtorPaste;
extern const CreatorRow CtorCopyTo;
extern const CreatorRow CtorPasteFrom;
extern const CreatorRow CtorClearHistory;

} // namespace portico
