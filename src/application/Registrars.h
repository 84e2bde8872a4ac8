#pragma once

#include "framework/objects/Creator.h"

#include <span>

namespace portico {

// The registrars of the roof: every subsystem offers its creators, and only here are they put in their order. Each
// registers its creators in the listed order and removes them through fresh creators of the same rows.

/// What all registrars share.
class CRegistrarBase : public IRegistrar {
public:
  /// A null factory raises `InvalidArgument`.
  void RegisterClasses(const Ref<IObjectFactory>& ObjectFactory) override;
  void UnregisterClasses(const Ref<IObjectFactory>& ObjectFactory) override;

protected:
  /// In their order.
  virtual std::span<const CreatorRow* const> Rows() const = 0;
  /// The creator is not removed.
  virtual bool StaysBehind(const CreatorRow&) const { return false; }
  virtual void AfterRegistration(const Ref<IObjectFactory>&) {}
  virtual void BeforeRemoval(const Ref<IObjectFactory>&) {}
  virtual void AfterRemoval() {}
};

/// A registrar that also sets `gObjectFactory`, and clears it.
class CFactoryRegistrar : public CRegistrarBase {
protected:
  void AfterRegistration(const Ref<IObjectFactory>& ObjectFactory) override;
  void AfterRemoval() override;
};

/// The commands of the user, the views and the subscribers.
class CRegistrar final : public CRegistrarBase {
public:
  StringView ClassName() const override { return u"CRegistrar"; }

private:
  std::span<const CreatorRow* const> Rows() const override;
  /// `Class::SCPIViewHistory`.
  bool StaysBehind(const CreatorRow& row) const override;
};

/// The data document. Sets `gTimeStamper`.
class CDataEntityRegistrar final : public CFactoryRegistrar {
public:
  StringView ClassName() const override { return u"CDataEntityRegistrar"; }

private:
  std::span<const CreatorRow* const> Rows() const override;
  void AfterRegistration(const Ref<IObjectFactory>& ObjectFactory) override;
  void AfterRemoval() override;
};

class CConfigurationRegistrar final : public CRegistrarBase {
public:
  StringView ClassName() const override { return u"CConfigurationRegistrar"; }

private:
  std::span<const CreatorRow* const> Rows() const override;
};

class CSubscriptionAgentRegistrar final : public CRegistrarBase {
public:
  StringView ClassName() const override { return u"CSubscriptionAgentRegistrar"; }

private:
  std::span<const CreatorRow* const> Rows() const override;
};

class CDriverSessionRegistrar final : public CRegistrarBase {
public:
  StringView ClassName() const override { return u"CDriverSessionRegistrar"; }

private:
  std::span<const CreatorRow* const> Rows() const override;
};

/// The instruction processor: runs the three registrars below, then builds the processor with its three handlers.
class CInstDirectorRegistrar final : public CRegistrarBase {
public:
  StringView ClassName() const override { return u"CInstDirectorRegistrar"; }

private:
  std::span<const CreatorRow* const> Rows() const override;
  void AfterRegistration(const Ref<IObjectFactory>& ObjectFactory) override;
  void BeforeRemoval(const Ref<IObjectFactory>& ObjectFactory) override;
};

class CCfgInstHndlrRegistrar final : public CFactoryRegistrar {
public:
  StringView ClassName() const override { return u"CCfgInstHndlrRegistrar"; }

private:
  std::span<const CreatorRow* const> Rows() const override;
};

/// Sets `gChannel` to the "DriverSession" in its closed state.
class CCommInstHndlrRegistrar final : public CFactoryRegistrar {
public:
  StringView ClassName() const override { return u"CCommInstHndlrRegistrar"; }

private:
  std::span<const CreatorRow* const> Rows() const override;
  void AfterRegistration(const Ref<IObjectFactory>& ObjectFactory) override;
  void AfterRemoval() override;
};

class CSCPIInstHndlrRegistrar final : public CFactoryRegistrar {
public:
  StringView ClassName() const override { return u"CSCPIInstHndlrRegistrar"; }

private:
  std::span<const CreatorRow* const> Rows() const override;
};

/// The commands of the menus View and Data, and what they work on. They come behind all others, whose places in the
/// factory are known.
class ViewAndDataRegistrar final : public CRegistrarBase {
public:
  StringView ClassName() const override { return u"ViewAndDataRegistrar"; }

private:
  std::span<const CreatorRow* const> Rows() const override;
};

} // namespace portico
