#include "qt/desktop/HelpViewer.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "platform/ICommonDialog.h"
#include "qt/forms/WindowPlace.h"
#include "qt/values/QtText.h"

#include <QAction>
#include <QApplication>
#include <QScrollBar>
#include <QStyle>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>
#include <QToolBar>
#include <QToolButton>
#include <QWindow>

#include <utility>
#include <vector>

namespace portico::qt {
namespace {

constexpr double PageMargin = 12; // pixels
constexpr int LeastContrast = 60; // in grey, of 255, between a text that can be read and its ground
const QColor LinkOnDark(0x6C, 0xB4, 0xFF);

/// That of the theme, unless it cannot be read: a dark theme may leave links as they are on white.
QColor LinkColor(const QPalette& palette) {
  const QColor link = palette.color(QPalette::Link);
  const int ground = qGray(palette.color(QPalette::Base).rgb());
  return qGray(link.rgb()) - ground < LeastContrast && ground < 128 ? LinkOnDark : link;
}

/// So it is with what an empty field says.
QPalette WithFaintText(QPalette palette) {
  QColor faint = palette.color(QPalette::Text);
  faint.setAlpha(0x80);
  palette.setColor(QPalette::PlaceholderText, faint);
  return palette;
}

} // namespace

void HelpBrowser::doSetSource(const QUrl& url, QTextDocument::ResourceType type) {
  QTextBrowser::doSetSource(url, type);
  Dress();
  if (url.hasFragment()) GoToHeading(url.fragment());
}

void HelpBrowser::Dress() {
  document()->setDocumentMargin(PageMargin);
  for (QTextFrame* frame : document()->rootFrame()->childFrames()) {
    auto* table = qobject_cast<QTextTable*>(frame);
    if (table == nullptr) continue;
    QTextTableFormat format = table->format();
    format.setBorderCollapse(true);
    format.setBorder(1);
    format.setCellPadding(4);
    format.setTopMargin(4);
    format.setBottomMargin(8);
    table->setFormat(format);
  }
  DressLinks();
}

void HelpBrowser::DressLinks() {
  std::vector<QTextCursor> links;
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
    for (auto part = block.begin(); !part.atEnd(); ++part) {
      const QTextFragment text = part.fragment();
      if (!text.charFormat().isAnchor()) continue;
      QTextCursor& link = links.emplace_back(document());
      link.setPosition(text.position());
      link.setPosition(text.position() + text.length(), QTextCursor::KeepAnchor);
    }
  }
  QTextCharFormat format;
  format.setForeground(LinkColor(palette()));
  for (QTextCursor& link : links) link.mergeCharFormat(format);
}

void HelpBrowser::GoToHeading(const QString& name) {
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
    if (block.blockFormat().headingLevel() == 0 || HeadingName(block.text()) != name) continue;
    setTextCursor(QTextCursor(block));
    verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect().top());
    return;
  }
}

void HelpViewer::Build() {
  if (m_window) return;
  m_window = std::make_unique<QMainWindow>();
  m_window->setObjectName(QStringLiteral("helpViewer"));
  m_window->setWindowTitle(QStringLiteral("Tolvane Portico Help"));
  m_window->resize(760, 620);
  m_browser = new HelpBrowser(m_window.get());
  m_browser->setObjectName(QStringLiteral("helpPage"));
  m_browser->setAccessibleName(QStringLiteral("Help page"));
  m_browser->setOpenExternalLinks(true);
  m_window->setCentralWidget(m_browser);

  auto* bar = m_window->addToolBar(QStringLiteral("Navigation"));
  bar->setMovable(false);
  bar->setContextMenuPolicy(Qt::PreventContextMenu);
  const auto add = [&](const char* name, const char* text, QStyle::StandardPixmap icon, const QKeySequence& key) {
    QAction* action = bar->addAction(m_window->style()->standardIcon(icon), QString::fromLatin1(text));
    action->setObjectName(QString::fromLatin1(name));
    action->setShortcut(key);
    return action;
  };
  QAction* contents = add("helpContents", "Contents", QStyle::SP_DirHomeIcon, QKeySequence(Qt::ALT | Qt::Key_Home));
  QAction* back = add("helpBack", "Back", QStyle::SP_ArrowBack, QKeySequence::Back);
  QAction* forward = add("helpForward", "Forward", QStyle::SP_ArrowForward, QKeySequence::Forward);
  back->setEnabled(false);
  forward->setEnabled(false);
  qobject_cast<QToolButton*>(bar->widgetForAction(contents))->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  QObject::connect(contents, &QAction::triggered, m_browser, [this] { m_browser->setSource(m_pages.Contents()); });
  QObject::connect(back, &QAction::triggered, m_browser, &QTextBrowser::backward);
  QObject::connect(forward, &QAction::triggered, m_browser, &QTextBrowser::forward);
  QObject::connect(m_browser, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
  QObject::connect(m_browser, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);

  m_search = new QLineEdit(bar);
  m_search->setObjectName(QStringLiteral("helpSearch"));
  m_search->setAccessibleName(QStringLiteral("Find in page"));
  m_search->setPlaceholderText(QStringLiteral("Find in page"));
  m_search->setPalette(WithFaintText(m_search->palette()));
  m_search->setClearButtonEnabled(true);
  bar->addSeparator();
  bar->addWidget(m_search);
  QObject::connect(m_search, &QLineEdit::returnPressed, m_browser, [this] { Search(); });
  OnKey(QKeySequence::Find, [this] {
    m_search->setFocus();
    m_search->selectAll();
  });
  OnKey(Qt::Key_Escape, [this] { m_window->close(); });
}

template <class Call>
void HelpViewer::OnKey(const QKeySequence& key, Call&& call) {
  auto* action = new QAction(m_window.get());
  action->setShortcut(key);
  QObject::connect(action, &QAction::triggered, action, std::forward<Call>(call));
  m_window->addAction(action);
}

void HelpViewer::Search() {
  if (m_browser->find(m_search->text())) return;
  m_browser->moveCursor(QTextCursor::Start); // around the end
  m_browser->find(m_search->text());
}

void HelpViewer::Show(const QUrl& page) {
  m_window->winId(); // makes the window that can have an owner
  // What belongs to a modal dialog takes input while the dialog is open.
  const QWidget* modal = QApplication::activeModalWidget();
  m_window->windowHandle()->setTransientParent(modal != nullptr ? modal->windowHandle() : nullptr);
  if (!m_window->isVisible()) PrepareToShow(*m_window, true, nullptr);
  m_window->show();
  m_window->raise();
  m_window->activateWindow();
  m_browser->setSource(page);
}

void HelpViewer::WinHelp(const String& /*HelpFile*/, std::int32_t Command, const String& Data) {
  if (!m_pages.Exists()) HuntERR::RaiseStandard(ErrorNumber::FileNotFound);
  Build();
  switch (Command) {
  case HelpMacro:
    Show(m_pages.TopicOf(Data));
    break;
  case HelpPartialKey:
    Show(m_pages.PageWith(ToQt(Data)));
    m_search->setText(ToQt(Data));
    Search();
    break;
  default:
    Show(m_pages.Contents());
  }
}

} // namespace portico::qt
