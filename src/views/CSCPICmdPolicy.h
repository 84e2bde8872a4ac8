#pragma once

#include "framework/errors/IObject.h"
#include "views/LineKind.h"

namespace portico {

/// Classifies lines after the fact.
class ICommandPolicy : public virtual IObject {
public:
  virtual const String& CharComment() const = 0;
  virtual void CharComment(const String& newValue) = 0;
  virtual LineKind CmdType(const String& Line) const = 0;
};

/// Differs from the kinds that `CPopALine` tells, which are the ones that runs go by, and knows no automatic
/// instructions. Part of the contract: the runners hold one, and nothing asks it.
class CSCPICmdPolicy final : public ICommandPolicy {
public:
  StringView ClassName() const override { return u"CSCPICmdPolicy"; }

  /// Kept, and without effect.
  const String& CharComment() const override { return m_charComment; }
  void CharComment(const String& newValue) override { m_charComment = newValue; }
  LineKind CmdType(const String& Line) const override;

private:
  String m_charComment;
};

} // namespace portico
