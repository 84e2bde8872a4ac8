#pragma once

#include "platform/IDesktop.h"
#include "qt/desktop/HelpPages.h"

#include <QLineEdit>
#include <QMainWindow>
#include <QTextBrowser>

#include <memory>

namespace portico::qt {

/// Shows a page; a link to a heading goes there, in pages of either kind.
class HelpBrowser final : public QTextBrowser {
public:
  using QTextBrowser::QTextBrowser;

protected:
  void doSetSource(const QUrl& url, QTextDocument::ResourceType type) override;

private:
  /// A manual page comes without any margins.
  void Dress();
  void DressLinks();
  void GoToHeading(const QString& name);
};

/// The manual in a window of its own, which stays usable beside a modal dialog: contents, back, forward, and a search
/// in the page. Made when it is first used.
class HelpViewer final : public IHelpViewer {
public:
  explicit HelpViewer(const QString& folder) : m_pages(folder) {}
  HelpViewer(const HelpViewer&) = delete;
  HelpViewer& operator=(const HelpViewer&) = delete;
  ~HelpViewer() override = default;

  /// A manual without pages raises `FileNotFound`; the name of the file does not count.
  void WinHelp(const String& HelpFile, std::int32_t Command, const String& Data) override;

private:
  void Build();
  template <class Call>
  void OnKey(const QKeySequence& key, Call&& call);
  void Show(const QUrl& page);
  void Search();

  HelpPages m_pages;
  std::unique_ptr<QMainWindow> m_window;
  HelpBrowser* m_browser = nullptr;
  QLineEdit* m_search = nullptr;
};

} // namespace portico::qt
