#pragma once
// The rows of a list for Qt's list view. A changed list is shown by the rows that differ, so adding
// one row to thousands stays cheap and the place the user has scrolled to stays.

#include <QAbstractListModel>
#include <functional>
#include <vector>

#include "text/text.h"

class ListRows : public QAbstractListModel {
 public:
  using QAbstractListModel::QAbstractListModel;
  void Show(const std::vector<String>& rows);
  // All ticks may have changed.
  void ShowTicks();

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

  // Rows have a box to tick when these are set.
  std::function<bool(int)> IsTicked;
  std::function<void(int, bool)> Tick;

 private:
  std::vector<String> rows_;
};
