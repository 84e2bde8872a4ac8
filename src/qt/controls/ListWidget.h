#pragma once

#include "platform/IListView.h"

#include <QAbstractTableModel>
#include <QTableView>

#include <functional>
#include <memory>
#include <vector>

namespace portico::qt {

/// Shows the rows of a list to the toolkit, which asks for those that it paints.
class ListModel final : public QAbstractTableModel {
public:
  using QAbstractTableModel::QAbstractTableModel;

  void Columns(const std::vector<ListColumn>& columns);
  void Rows(const std::shared_ptr<const IListRows>& rows);
  /// Takes over what there is now.
  void Refresh();

  int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : m_count; }
  int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
  }
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
  int CountNow() const { return m_rows ? m_rows->Count() : 0; }

  std::vector<ListColumn> m_columns;
  std::shared_ptr<const IListRows> m_rows;
  int m_count = 0;
};

/// The widget of a list: whole rows, all of one height, moved through by the keys for rows. The key for copying copies
/// them all, headings first, with a tab behind each cell but the last of a row.
class ListWidget final : public QTableView {
public:
  explicit ListWidget(QWidget* parent = nullptr);

  ListModel& Model() const { return *m_model; }
  void Columns(const std::vector<ListColumn>& columns);

  /// -1 if none is. What has the keyboard's focus is not selected before a key has moved it.
  int SelectedRow() const;

  QSize sizeHint() const override;
  /// Typed letters look for nothing, since that would ask for every row.
  void keyboardSearch(const QString& /*search*/) override {}

  /// The user has chosen the selected row.
  std::function<void()> Chosen;

protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void changeEvent(QEvent* event) override;

private:
  void FitRows();
  void CopyAll() const;

  ListModel* m_model;
};

} // namespace portico::qt
