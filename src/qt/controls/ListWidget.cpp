#include "qt/controls/ListWidget.h"

#include "qt/values/QtText.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QStyle>

#include <algorithm>

namespace portico::qt {
namespace {

constexpr int RowsToSee = 14;
constexpr int CellMargin = 8; // pixels, of both sides together
constexpr int RowMargin = 4;

// Of the screen, whose rest is for what else a dialog has.
constexpr double MostWidth = 0.9;
constexpr double MostHeight = 0.5;

} // namespace

void ListModel::Columns(const std::vector<ListColumn>& columns) {
  beginResetModel();
  m_columns = columns;
  endResetModel();
}

void ListModel::Rows(const std::shared_ptr<const IListRows>& rows) {
  beginResetModel();
  m_rows = rows;
  m_count = CountNow();
  endResetModel();
}

void ListModel::Refresh() {
  const int count = CountNow();
  if (count < m_count) {
    beginRemoveRows({}, count, m_count - 1);
    m_count = count;
    endRemoveRows();
  } else if (count > m_count) {
    beginInsertRows({}, m_count, count - 1);
    m_count = count;
    endInsertRows();
  }
  if (count > 0) emit dataChanged(index(0, 0), index(count - 1, columnCount() - 1));
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
  const auto column = static_cast<std::size_t>(index.column());
  if (!index.isValid() || index.row() >= m_count || column >= m_columns.size()) return {};
  if (role == Qt::TextAlignmentRole) {
    return QVariant::fromValue(Qt::AlignVCenter | (m_columns[column].IsNumber ? Qt::AlignRight : Qt::AlignLeft));
  }
  if (role != Qt::DisplayRole || index.row() >= CountNow()) return {};
  QString text = ToQt(m_rows->Cell(index.row(), index.column()));
  text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
  for (QChar& unit : text) {
    if (unit == u'\r' || unit == u'\n') unit = u' ';
  }
  return text;
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  const auto column = static_cast<std::size_t>(section);
  if (orientation != Qt::Horizontal || column >= m_columns.size()) return {};
  if (role == Qt::DisplayRole) return ToQt(m_columns[column].Heading);
  if (role == Qt::TextAlignmentRole) {
    return QVariant::fromValue(Qt::AlignVCenter | (m_columns[column].IsNumber ? Qt::AlignRight : Qt::AlignLeft));
  }
  return {};
}

ListWidget::ListWidget(QWidget* parent) : QTableView(parent), m_model(new ListModel(this)) {
  setModel(m_model);
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setTabKeyNavigation(false);
  setShowGrid(false);
  setWordWrap(false);
  setCornerButtonEnabled(false);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setMinimumSectionSize(1);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setStretchLastSection(true);
  FitRows();
}

void ListWidget::Columns(const std::vector<ListColumn>& columns) {
  m_model->Columns(columns);
  for (int i = 0; i < static_cast<int>(columns.size()); ++i) {
    const ListColumn& column = columns[static_cast<std::size_t>(i)];
    const int width = column.IsNumber ? fontMetrics().horizontalAdvance(u'0') : fontMetrics().averageCharWidth();
    setColumnWidth(i, std::max(column.Characters * width + CellMargin, horizontalHeader()->sectionSizeHint(i)));
  }
  updateGeometry();
}

void ListWidget::FitRows() { verticalHeader()->setDefaultSectionSize(fontMetrics().height() + RowMargin); }

QSize ListWidget::sizeHint() const {
  int width = 2 * frameWidth() + style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  for (int i = 0; i < m_model->columnCount(); ++i) width += columnWidth(i);
  const int height = RowsToSee * verticalHeader()->defaultSectionSize() + horizontalHeader()->sizeHint().height();
  const QSize room = screen()->availableSize();
  return QSize(width, height + 2 * frameWidth())
      .boundedTo({static_cast<int>(room.width() * MostWidth), static_cast<int>(room.height() * MostHeight)});
}

int ListWidget::SelectedRow() const {
  const QItemSelection selection = selectionModel()->selection();
  return selection.isEmpty() ? -1 : selection.first().top();
}

void ListWidget::CopyAll() const {
  const auto lineOf = [this](auto&& cell) {
    QStringList cells;
    for (int column = 0; column < m_model->columnCount(); ++column) {
      cells.append(cell(column).toString().replace(u'\t', u' '));
    }
    return cells.join(u'\t') + u'\n';
  };
  QString text = lineOf([this](int column) { return m_model->headerData(column, Qt::Horizontal, Qt::DisplayRole); });
  for (int row = 0; row < m_model->rowCount(); ++row) {
    text += lineOf([&](int column) { return m_model->data(m_model->index(row, column), Qt::DisplayRole); });
  }
  QGuiApplication::clipboard()->setText(text);
}

void ListWidget::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) return CopyAll();
  const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!isReturn || SelectedRow() < 0) return QTableView::keyPressEvent(event);
  event->accept(); // or a default button would have it, too
  if (Chosen) Chosen();
}

void ListWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  QTableView::mouseDoubleClickEvent(event);
  const bool isRow = indexAt(event->position().toPoint()).isValid();
  if (event->button() == Qt::LeftButton && isRow && Chosen) Chosen();
}

void ListWidget::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) FitRows();
}

} // namespace portico::qt
