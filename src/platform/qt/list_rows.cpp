#include "platform/qt/list_rows.h"

#include <algorithm>

#include "platform/qt/event_guard.h"
#include "platform/qt/strings.h"

void ListRows::Show(const std::vector<String>& rows) {
  const auto shorter = std::min(rows.size(), rows_.size());
  const auto front =
      std::mismatch(rows.begin(), rows.begin() + static_cast<long>(shorter), rows_.begin());
  const auto same = front.first - rows.begin();
  const auto rest = static_cast<std::ptrdiff_t>(shorter) - same;
  const auto back = std::mismatch(rows.rbegin(), rows.rbegin() + rest, rows_.rbegin());
  const auto tail = back.first - rows.rbegin();

  const auto oldEnd = static_cast<std::ptrdiff_t>(rows_.size()) - tail;
  if (oldEnd > same) {
    beginRemoveRows({}, static_cast<int>(same), static_cast<int>(oldEnd) - 1);
    rows_.erase(rows_.begin() + same, rows_.begin() + oldEnd);
    endRemoveRows();
  }
  const auto newEnd = static_cast<std::ptrdiff_t>(rows.size()) - tail;
  if (newEnd > same) {
    beginInsertRows({}, static_cast<int>(same), static_cast<int>(newEnd) - 1);
    rows_.insert(rows_.begin() + same, rows.begin() + same, rows.begin() + newEnd);
    endInsertRows();
  }
}

void ListRows::ShowTicks() {
  if (!rows_.empty()) Q_EMIT dataChanged(index(0), index(rowCount() - 1), {Qt::CheckStateRole});
}

int ListRows::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant ListRows::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  switch (role) {
    case Qt::DisplayRole:
      return ToQt(rows_[static_cast<std::size_t>(index.row())]);
    case Qt::CheckStateRole:
      if (IsTicked) return IsTicked(index.row()) ? Qt::Checked : Qt::Unchecked;
      break;
  }
  return {};
}

bool ListRows::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::CheckStateRole || !Tick) return false;
  // A copy, since a handler may take the window away.
  const auto tick = Tick;
  RunGuarded([&] { tick(index.row(), value.toInt() == Qt::Checked); });
  return true;
}

Qt::ItemFlags ListRows::flags(const QModelIndex& index) const {
  const auto flags = QAbstractListModel::flags(index);
  return IsTicked ? flags | Qt::ItemIsUserCheckable : flags;
}
